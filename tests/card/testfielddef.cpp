#include "card/fielddef.h"

#include <QTest>

class TestFieldDef : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void truncation_data();
    void truncation();
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

QTEST_GUILESS_MAIN(TestFieldDef)
#include "testfielddef.moc"
