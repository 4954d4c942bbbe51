#include "store/pimmanager.h"
#include "store/pimrecord.h"
#include "store/recordsorter.h"
#include "support/testhome.h"

#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <vector>

class TestRecordSorter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sortsByKey_data();
    void sortsByKey();
    void contradictoryKeysStayAPermutation_data();
    void contradictoryKeysStayAPermutation();
    void agreesWithTheComparison_data();
    void agreesWithTheComparison();

private:
    static QList<PIMRecord *> referenceSort(QList<PIMRecord *> from);
};

namespace
{
// Owns a set of records of one manager and hands out the view to sort.
struct Records {
    explicit Records(PIMManager *manager)
        : manager(manager)
    {
    }
    PIMRecord *add(const QStringList &keys)
    {
        owned.push_back(std::make_unique<PIMRecord>(manager));
        owned.back()->setSortKeys(keys);
        view.append(owned.back().get());
        return owned.back().get();
    }
    // Puts the view in the order the sorter gives.
    void sort()
    {
        QList<PIMRecord *> sorted;
        for (const quint32 position : RecordSorter::order(view))
            sorted.append(view.at(position));
        view = sorted;
    }
    QStringList firstKeys() const
    {
        QStringList keys;
        for (const PIMRecord *record : view)
            keys.append(record->sortKeys().value(0));
        return keys;
    }
    PIMManager *manager;
    std::vector<std::unique_ptr<PIMRecord>> owned;
    QList<PIMRecord *> view;
};

QStringList split(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
} // namespace

void TestRecordSorter::sortsByKey_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QStringList>("sorted");
    QTest::newRow("empty") << QStringList() << true << QStringList();
    QTest::newRow("one") << split("a") << true << split("a");
    QTest::newRow("ascending") << split("d b e a c") << true << split("a b c d e");
    QTest::newRow("descending") << split("d b e a c") << false << split("e d c b a");
    QTest::newRow("odd length with repeats")
        << split("b a b a c a b") << true << split("a a a b b b c");
}

void TestRecordSorter::sortsByKey()
{
    QFETCH(QStringList, keys);
    QFETCH(bool, ascending);
    QFETCH(QStringList, sorted);
    TestHome home;
    PIMManager manager(QStringLiteral("store"), QStringLiteral("sorter"));
    manager.setSort(0, ascending);
    Records records(&manager);
    for (const QString &key : keys)
        records.add({ key });
    records.sort();
    QCOMPARE(records.firstKeys(), sorted);
}

void TestRecordSorter::contradictoryKeysStayAPermutation_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("ascending");
    QTest::newRow("small ascending") << 7 << true;
    QTest::newRow("large ascending") << 5000 << true;
    QTest::newRow("large descending") << 5000 << false;
}

// Two keys that cross make every pair "less" both ways; the sort must still end, stay in
// bounds and lose or duplicate nothing.
void TestRecordSorter::contradictoryKeysStayAPermutation()
{
    QFETCH(int, count);
    QFETCH(bool, ascending);
    TestHome home;
    PIMManager manager(QStringLiteral("store"), QStringLiteral("sorter"));
    manager.setSort(1, ascending);
    Records records(&manager);
    QRandomGenerator random(7);
    for (int i = 0; i < count; ++i) {
        const QString key = QString::number(random.bounded(100));
        records.add({ key, QString::number(99 - key.toInt()) });
    }
    QList<PIMRecord *> before = records.view;
    records.sort();
    QList<PIMRecord *> after = records.view;
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    QCOMPARE(after, before);
}

// The plain bottom-up merge by lessThan alone: what the sort must give, whatever shortcut
// it takes, down to the order of records with equal keys.
QList<PIMRecord *> TestRecordSorter::referenceSort(QList<PIMRecord *> from)
{
    QList<PIMRecord *> to(from.size());
    for (qsizetype width = 1; width < from.size(); width *= 2) {
        for (qsizetype begin = 0; begin < from.size(); begin += 2 * width) {
            qsizetype left = begin, middle = qMin(begin + width, from.size());
            qsizetype right = middle, end = qMin(begin + 2 * width, from.size()), out = begin;
            while (left < middle && right < end)
                to[out++] = from[right]->lessThan(*from[left]) ? from[right++] : from[left++];
            while (left < middle)
                to[out++] = from[left++];
            while (right < end)
                to[out++] = from[right++];
        }
        std::swap(from, to);
    }
    return from;
}

void TestRecordSorter::agreesWithTheComparison_data()
{
    QTest::addColumn<QStringList>("alphabet"); // keys are random joins of these pieces
    QTest::addColumn<int>("minKeys");
    QTest::addColumn<int>("maxKeys");
    QTest::addColumn<bool>("ascending");
    const QStringList shared { "abcdefgh", "abcd", "abcdefg", "", "x", "abcdefgh0" };
    const QStringList edges { QString(QChar(0)), QStringLiteral("a"), QString(QChar(0xFFFF)),
        QString(QChar(0x8000)), QString(QChar(0x7FFF)), QString() };
    const QStringList numbers { QString::asprintf("%012.05f", 1.5),
        QString::asprintf("%012.05f", -2.0), QString::asprintf("%012.05f", 123456.25),
        QStringLiteral("00000001") };
    for (bool ascending : { true, false }) {
        const char *order = ascending ? "ascending" : "descending";
        QTest::addRow("long shared beginnings, %s", order) << shared << 1 << 1 << ascending;
        QTest::addRow("nul, high and missing characters, %s", order)
            << edges << 1 << 1 << ascending;
        QTest::addRow("number keys, %s", order) << numbers << 1 << 1 << ascending;
        QTest::addRow("two keys, %s", order) << shared << 2 << 2 << ascending;
        QTest::addRow("none, one or two keys, %s", order) << shared << 0 << 2 << ascending;
    }
}

void TestRecordSorter::agreesWithTheComparison()
{
    QFETCH(QStringList, alphabet);
    QFETCH(int, minKeys);
    QFETCH(int, maxKeys);
    QFETCH(bool, ascending);
    TestHome home;
    PIMManager manager(QStringLiteral("store"), QStringLiteral("sorter"));
    manager.setSort(0, ascending);
    Records records(&manager);
    QRandomGenerator random(11);
    // More records than the sort merges in one block of the cache, and not a multiple of it.
    for (int i = 0; i < 9000; ++i) {
        QStringList keys;
        for (int k = random.bounded(minKeys, maxKeys + 1); k > 0; --k) {
            QString key;
            for (int piece = random.bounded(4); piece >= 0; --piece)
                key += alphabet.at(random.bounded(int(alphabet.size())));
            keys << key;
        }
        records.add(keys);
    }
    const QList<PIMRecord *> expected = referenceSort(records.view);
    records.sort();
    QCOMPARE(records.view, expected);
}

QTEST_GUILESS_MAIN(TestRecordSorter)
#include "testrecordsorter.moc"
