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
    void longNumbersStopAtFifteenDigits();
};

void TestMLCalculation::keys_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("display");

    QTest::newRow("addition") << ""
                              << "12+30="
                              << "42";
    QTest::newRow("division") << ""
                              << "7/2="
                              << "3.5";
    QTest::newRow("left to right") << ""
                                   << "2+3*4="
                                   << "20";
    QTest::newRow("operator shows running result") << ""
                                                   << "2+3*"
                                                   << "5";
    QTest::newRow("changed operator") << ""
                                      << "9+-4="
                                      << "5";
    QTest::newRow("decimal point") << ""
                                   << "1.5+.25="
                                   << "1.75";
    QTest::newRow("second point ignored") << ""
                                          << "1.2.3"
                                          << "1.23";
    QTest::newRow("binary rounding hidden") << ""
                                            << ".1+.2="
                                            << "0.3";
    QTest::newRow("backspace to nothing") << ""
                                          << "7\b"
                                          << "0";
    QTest::newRow("clear forgets the operation") << ""
                                                 << "12+C5="
                                                 << "5";
    QTest::newRow("digit after result starts anew") << ""
                                                    << "2+2=7"
                                                    << "7";
    QTest::newRow("equals twice") << ""
                                  << "2+3=="
                                  << "5";
    QTest::newRow("start value operated on") << "10"
                                             << "*3="
                                             << "30";
}

void TestMLCalculation::keys()
{
    QFETCH(QString, start);
    QFETCH(QString, keys);
    QFETCH(QString, display);

    MLCalculation calculation(start);
    calculation.pressAll(keys);
    QCOMPARE(calculation.display(), display);
    QVERIFY(!calculation.hasError());
}

void TestMLCalculation::startValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("display");

    QTest::newRow("fraction") << "2.50"
                              << "2.5";
    QTest::newRow("blanks around") << " 3 "
                                   << "3";
    QTest::newRow("empty") << ""
                           << "0";
    QTest::newRow("not a number") << "abc"
                                  << "0";
    QTest::newRow("infinite") << "inf"
                              << "0";
}

void TestMLCalculation::startValue()
{
    QFETCH(QString, text);
    QFETCH(QString, display);
    QCOMPARE(MLCalculation(text).display(), display);
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

void TestMLCalculation::longNumbersStopAtFifteenDigits()
{
    MLCalculation calculation;
    calculation.pressAll(QString(20, QLatin1Char('9')));
    QCOMPARE(calculation.display(), QString(15, QLatin1Char('9')));
}

QTEST_GUILESS_MAIN(TestMLCalculation)
#include "testmlcalculation.moc"
