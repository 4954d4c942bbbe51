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
    void equalKeysAreNeitherLess();
};

namespace
{
QStringList integerKeys(const QList<qint64> &values)
{
    QStringList keys;
    for (qint64 value : values)
        keys.append(FieldDef::integerSortKey(value));
    return keys;
}

QStringList doubleKeys(const QList<double> &values)
{
    QStringList keys;
    for (double value : values)
        keys.append(FieldDef::doubleSortKey(value));
    return keys;
}

QStringList dateKeys(const QList<QDate> &values)
{
    QStringList keys;
    for (const QDate &value : values)
        keys.append(FieldDef::dateSortKey(value));
    return keys;
}

QStringList dateTimeKeys(const QList<QDateTime> &values)
{
    QStringList keys;
    for (const QDateTime &value : values)
        keys.append(FieldDef::dateTimeSortKey(value));
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
    RecordSorter::sort(view);
    QList<int> positions;
    for (const PIMRecord *record : std::as_const(view)) {
        for (int i = 0; i < int(owned.size()); ++i) {
            if (owned[size_t(i)].get() == record)
                positions.append(i);
        }
    }
    return positions;
}
} // namespace

void TestSortKeyOrder::keysSortAsText_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QList<int>>("order"); // input positions, first shown first

    QTest::newRow("integers of the format's width")
        << integerKeys({ 30, 4, 200 }) << QList<int> { 1, 0, 2 };
    QTest::newRow("negative integers first and backwards")
        << integerKeys({ 1, -1, -2, 0 }) << QList<int> { 1, 2, 3, 0 };
    QTest::newRow("wide integers by their leading digits")
        << integerKeys({ 99999999, 123456789 }) << QList<int> { 1, 0 };
    QTest::newRow("-1.5 before 0") << doubleKeys({ 0.0, -1.5 }) << QList<int> { 1, 0 };
    QTest::newRow("negative doubles backwards")
        << doubleKeys({ -3.0, -1.5, 2.0 }) << QList<int> { 1, 0, 2 };
    QTest::newRow("unset dates first")
        << dateKeys({ QDate(2004, 3, 7), QDate(), QDate(1980, 1, 1) }) << QList<int> { 1, 2, 0 };
    QTest::newRow("dates before 1980 first")
        << dateKeys({ QDate(1980, 1, 2), QDate(1979, 12, 31) }) << QList<int> { 1, 0 };
    QTest::newRow("date-times of ten digits before those of nine") << dateTimeKeys(
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

void TestSortKeyOrder::equalKeysAreNeitherLess()
{
    PIMRecord a(nullptr);
    PIMRecord b(nullptr);
    a.setSortKeys({ FieldDef::doubleSortKey(2.0) });
    b.setSortKeys({ FieldDef::doubleSortKey(2.0) });
    QVERIFY(!a.lessThan(b));
    QVERIFY(!b.lessThan(a));
}

QTEST_GUILESS_MAIN(TestSortKeyOrder)
#include "testsortkeyorder.moc"
