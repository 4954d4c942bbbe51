#include "card/formulareferences.h"

#include <QTest>

class TestFormulaReferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void renumber_data();
    void renumber();
    void dependencies_data();
    void dependencies();
};

void TestFormulaReferences::renumber_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QList<int>>("map");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no reference") << "1 + 2" << QList<int> { 0 } << "1 + 2";
    QTest::newRow("swap") << "[F0] - [F1]" << QList<int> { 1, 0 } << "[F1] - [F0]";
    QTest::newRow("lower case and previous")
        << "[f2!] * [F2]" << QList<int> { 0, 1, 4 } << "[F4!] * [F4]";
    QTest::newRow("shorter numbers do not hide the next reference")
        << "[F10]+[F2]" << QList<int> { 0, 1, 3, 3, 4, 5, 6, 7, 8, 9, 1 } << "[F1]+[F3]";
    QTest::newRow("longer numbers") << "[F1]+[F0]" << QList<int> { 12, 10 } << "[F10]+[F12]";
    QTest::newRow("field gone") << "[F0] + [F1]" << QList<int> { 0, -1 } << QString();
    QTest::newRow("field past the list") << "[F7]" << QList<int> { 0 } << QString();
    QTest::newRow("several marks") << "[F0!!]" << QList<int> { 3 } << "[F3!]";
    QTest::newRow("not a reference") << "[G1] + [F]" << QList<int> {} << "[G1] + [F]";
}

void TestFormulaReferences::renumber()
{
    QFETCH(QString, formula);
    QFETCH(QList<int>, map);
    QFETCH(QString, expected);
    const QString result = FormulaReferences::renumber(formula, map);
    QCOMPARE(result, expected);
    QCOMPARE(result.isNull(), expected.isNull());
}

void TestFormulaReferences::dependencies_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QList<int>>("expected");
    QTest::addColumn<bool>("previous");
    QTest::newRow("none") << "sin(1)" << QList<int> {} << false;
    QTest::newRow("in text order") << "[F3]*[f1]+[F3]" << QList<int> { 3, 1, 3 } << false;
    QTest::newRow("previous is no dependency") << "[F1!] + [F2]" << QList<int> { 2 } << true;
    QTest::newRow("only previous") << "[F0!]" << QList<int> {} << true;
    QTest::newRow("number too large") << "[F99999999999]" << QList<int> {} << false;
}

void TestFormulaReferences::dependencies()
{
    QFETCH(QString, formula);
    bool usesPrevious = false;
    QTEST(FormulaReferences::dependencies(formula, &usesPrevious), "expected");
    QTEST(usesPrevious, "previous");
}

QTEST_GUILESS_MAIN(TestFormulaReferences)
#include "testformulareferences.moc"
