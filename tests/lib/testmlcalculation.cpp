#include "lib/qt/mlcalculation.h"

#include <QtTest>

// The calculator's arithmetic, key by key.
class TestMLCalculation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keys_data();
    void keys();
    void startValue_data();
    void startValue();
    void divisionByZeroIsAnErrorUntilCleared();
    void finishWorksOutThePendingOperation();
};

void TestMLCalculation::keys_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("display");
    const auto row = [](const char *name, const char *start, const char *keys, const char *shown) {
        QTest::newRow(name) << QString::fromLatin1(start) << QString::fromLatin1(keys)
                            << QString::fromLatin1(shown);
    };
    row("addition", "", "12+30=", "42");
    row("division", "", "7/2=", "3.5");
    row("left to right", "", "2+3*4=", "20");
    row("operator shows running result", "", "2+3*", "5");
    row("changed operator", "", "9+-4=", "5");
    row("decimal point", "", "1.5+.25=", "1.75");
    row("second point ignored", "", "1.2.3", "1.23");
    row("binary rounding hidden", "", ".1+.2=", "0.3");
    row("backspace to nothing", "", "7\b", "0");
    row("clear forgets the operation", "", "12+C5=", "5");
    row("digit after result starts anew", "", "2+2=7", "7");
    row("equals twice", "", "2+3==", "5");
    row("start value operated on", "10", "*3=", "30");
    // Fifteen digits are the most a display holds; further ones are dropped.
    row("long numbers stop at fifteen digits", "", "99999999999999999999", "999999999999999");
}

void TestMLCalculation::keys()
{
    QFETCH(QString, start);
    QFETCH(QString, keys);
    MLCalculation calculation(start);
    calculation.pressAll(keys);
    QTEST(calculation.display(), "display");
    QVERIFY(!calculation.hasError());
}

void TestMLCalculation::startValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("display");

    const auto row = [](const char *name, const char *text, const char *shown) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(shown);
    };
    row("fraction", "2.50", "2.5");
    row("blanks around", " 3 ", "3");
    row("empty", "", "0");
    row("not a number", "abc", "0");
    row("infinite", "inf", "0");
}

void TestMLCalculation::startValue()
{
    QFETCH(QString, text);
    QTEST(MLCalculation(text).display(), "display");
}

void TestMLCalculation::divisionByZeroIsAnErrorUntilCleared()
{
    MLCalculation calculation;
    calculation.pressAll(QStringLiteral("5/0="));
    QVERIFY(calculation.hasError());
    calculation.pressAll(QStringLiteral("+=\b"));
    QVERIFY(calculation.hasError());
    calculation.press(QLatin1Char('C'));
    QVERIFY(!calculation.hasError());
    QCOMPARE(calculation.display(), QStringLiteral("0"));

    // A digit after an error starts a new sum.
    calculation.pressAll(QStringLiteral("1/0="));
    QVERIFY(calculation.hasError());
    calculation.press(QLatin1Char('4'));
    QVERIFY(!calculation.hasError());
    QCOMPARE(calculation.display(), QStringLiteral("4"));
}

void TestMLCalculation::finishWorksOutThePendingOperation()
{
    MLCalculation calculation(QStringLiteral("8"));
    calculation.pressAll(QStringLiteral("-3"));
    QVERIFY(calculation.hasPending());
    calculation.finish();
    QVERIFY(!calculation.hasPending());
    QCOMPARE(calculation.display(), QStringLiteral("5"));
}

QTEST_GUILESS_MAIN(TestMLCalculation)
#include "testmlcalculation.moc"
