#include "card/fielddef.h"

#include <QTest>

class TestFieldDef : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void truncation_data();
    void truncation();
    void doubleSortKey_data();
    void doubleSortKey();
    void integerSortKey_data();
    void integerSortKey();
};

void TestFieldDef::truncation_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("positive fraction") << 2.9 << 2;
    QTest::newRow("negative fraction") << -2.9 << -2;
    QTest::newRow("too large") << 1e20 << std::numeric_limits<int>::max();
    QTest::newRow("too small") << -1e20 << std::numeric_limits<int>::min();
    QTest::newRow("not a number") << qQNaN() << 0;
    QTest::newRow("infinity") << qInf() << std::numeric_limits<int>::max();
}

void TestFieldDef::truncation()
{
    QFETCH(double, value);
    QTEST(FieldDef::truncated(value), "expected");
}

void TestFieldDef::doubleSortKey_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("padded") << 1.5 << "000001.50000";
    QTest::newRow("padded after the sign") << -1.5 << "-00001.50000";
    QTest::newRow("negative zero") << -0.0 << "000000.00000";
    QTest::newRow("exact tie of the sixth decimal") << 0.015625 << "000000.01563";
    QTest::newRow("wider than the width") << -123456789.125 << "-123456789.12500";
    QTest::newRow("not a number") << qQNaN() << "         nan";
    QTest::newRow("minus infinity") << -qInf() << "        -inf";
}

void TestFieldDef::integerSortKey_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("padded") << qint64(42) << "00000042";
    QTest::newRow("padded after the sign") << qint64(-42) << "-0000042";
    QTest::newRow("wider than the width") << qint64(-123456789012) << "-123456789012";
    QTest::newRow("lowest") << std::numeric_limits<qint64>::min() << "-9223372036854775808";
}

void TestFieldDef::integerSortKey()
{
    QFETCH(qint64, value);
    QFETCH(QString, expected);
    QCOMPARE(QString::asprintf("%08lld", static_cast<long long>(value)), expected);
    QCOMPARE(FieldDef::integerSortKey(value), expected);
}

// Sort keys of Double and number fields are the texts of the printf forms; orders depend on them.
void TestFieldDef::doubleSortKey()
{
    QFETCH(double, value);
    QFETCH(QString, expected);
    QCOMPARE(QString::asprintf("%012.05f", value), expected);
    QCOMPARE(FieldDef::doubleSortKey(value), expected);
}

QTEST_GUILESS_MAIN(TestFieldDef)
#include "testfielddef.moc"
