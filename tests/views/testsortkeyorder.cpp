#include "card/fielddef.h"
#include "store/pimrecord.h"
#include "store/recordsorter.h"

#include <QTest>

#include <memory>
#include <vector>

// The order a sorted view shows follows from the keys compared as plain text, character
// code by character code. These rows pin down what that means for each kind of value,
// quirks included, since users see them.
class TestSortKeyOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysSortAsText_data();
    void keysSortAsText();
};

namespace
{
template <typename T, typename F> QStringList keysOf(F key, std::initializer_list<T> values)
{
    QStringList keys;
    for (const T &value : values)
        keys.append(key(value));
    return keys;
}

// Sorts records carrying the keys, ascending, and tells the input positions in the order
// they came out.
QList<int> sortedPositions(const QStringList &keys)
{
    std::vector<std::unique_ptr<PIMRecord>> owned;
    QList<PIMRecord *> view;
    for (const QString &key : keys) {
        owned.push_back(std::make_unique<PIMRecord>(nullptr));
        owned.back()->setSortKeys({ key });
        view.append(owned.back().get());
    }
    QList<int> positions;
    for (const quint32 position : RecordSorter::order(view))
        positions.append(int(position));
    return positions;
}
} // namespace

void TestSortKeyOrder::keysSortAsText_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QList<int>>("order"); // input positions, first shown first

    QTest::newRow("integers of the format's width")
        << keysOf<qint64>(FieldDef::integerSortKey, { 30, 4, 200 }) << QList<int> { 1, 0, 2 };
    QTest::newRow("negative integers first and backwards")
        << keysOf<qint64>(FieldDef::integerSortKey, { 1, -1, -2, 0 }) << QList<int> { 1, 2, 3, 0 };
    QTest::newRow("wide integers by their leading digits")
        << keysOf<qint64>(FieldDef::integerSortKey, { 99999999, 123456789 }) << QList<int> { 1, 0 };
    QTest::newRow("-1.5 before 0")
        << keysOf<double>(FieldDef::doubleSortKey, { 0.0, -1.5 }) << QList<int> { 1, 0 };
    QTest::newRow("negative doubles backwards")
        << keysOf<double>(FieldDef::doubleSortKey, { -3.0, -1.5, 2.0 }) << QList<int> { 1, 0, 2 };
    QTest::newRow("unset dates first")
        << keysOf<QDate>(FieldDef::dateSortKey, { QDate(2004, 3, 7), QDate(), QDate(1980, 1, 1) })
        << QList<int> { 1, 2, 0 };
    QTest::newRow("dates before 1980 first")
        << keysOf<QDate>(FieldDef::dateSortKey, { QDate(1980, 1, 2), QDate(1979, 12, 31) })
        << QList<int> { 1, 0 };
    QTest::newRow("date-times of ten digits before those of nine") << keysOf<QDateTime>(
        FieldDef::dateTimeSortKey,
        { QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)),
            QDateTime(QDate(2012, 1, 1), QTime(0, 0)) }) << QList<int> { 1, 0 };
    QTest::newRow("text by character code")
        << QStringList { "apple", "Zebra", "banana", "" } << QList<int> { 3, 1, 0, 2 };
    QTest::newRow("multi-list by its separators")
        << QStringList { "a\nc", "a b", "a\nb" } << QList<int> { 2, 0, 1 };
    QTest::newRow("flags") << QStringList { FieldDef::flagSortKey(true),
        FieldDef::flagSortKey(false) }
                           << QList<int> { 1, 0 };
}

void TestSortKeyOrder::keysSortAsText()
{
    QFETCH(QStringList, keys);
    QFETCH(QList<int>, order);
    QCOMPARE(sortedPositions(keys), order);
}

QTEST_GUILESS_MAIN(TestSortKeyOrder)
#include "testsortkeyorder.moc"
