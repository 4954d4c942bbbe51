#include "store/pimmanager.h"
#include "store/pimrecord.h"
#include "store/recordsorter.h"
#include "support/testhome.h"

#include <QElapsedTimer>
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
    void keepsOrderOfEqualKeys();
    void contradictoryKeysStayAPermutation_data();
    void contradictoryKeysStayAPermutation();
    void hundredThousandRecordsQuickly();
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
    RecordSorter::sort(records.view);
    QCOMPARE(records.firstKeys(), sorted);
}

void TestRecordSorter::keepsOrderOfEqualKeys()
{
    TestHome home;
    PIMManager manager(QStringLiteral("store"), QStringLiteral("sorter"));
    Records records(&manager);
    QList<PIMRecord *> equalOnes;
    for (int i = 0; i < 50; ++i) {
        PIMRecord *record = records.add({ i % 2 ? QStringLiteral("b") : QStringLiteral("a") });
        if (i % 2 == 0)
            equalOnes.append(record);
    }
    RecordSorter::sort(records.view);
    QCOMPARE(records.view.mid(0, 25), equalOnes);
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
    RecordSorter::sort(records.view);
    QList<PIMRecord *> after = records.view;
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    QCOMPARE(after, before);
}

void TestRecordSorter::hundredThousandRecordsQuickly()
{
    TestHome home;
    PIMManager manager(QStringLiteral("store"), QStringLiteral("sorter"));
    manager.setSort(0, true);
    Records records(&manager);
    QRandomGenerator random(42);
    for (int i = 0; i < 100000; ++i)
        records.add({ QString::number(random.generate()), QStringLiteral("x") });
    QElapsedTimer timer;
    timer.start();
    RecordSorter::sort(records.view);
    const qint64 elapsed = timer.elapsed();
    for (qsizetype i = 1; i < records.view.size(); ++i)
        QVERIFY(
            !(records.view.at(i)->sortKeys().first() < records.view.at(i - 1)->sortKeys().first()));
    QVERIFY2(elapsed < 3000, qPrintable(QStringLiteral("%1 ms").arg(elapsed)));
}

QTEST_GUILESS_MAIN(TestRecordSorter)
#include "testrecordsorter.moc"
