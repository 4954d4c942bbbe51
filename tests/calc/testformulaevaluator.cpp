#include "calc/formulaevaluator.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "card/fielddef.h"
#include "support/testhome.h"

#include <QElapsedTimer>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

class TestFormulaEvaluator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void language_data();
    void language();
    void functions_data();
    void functions();
    void neverEndingTextsFail_data();
    void neverEndingTextsFail();
    void hostileTexts_data();
    void hostileTexts();
    void nestingLimit();
    void references_data();
    void references();
    void previousAbsent();
    void evaluatorIsReused();
};

namespace
{

struct Result {
    double value;
    bool ok;
};

Result run(const QString &formula, const DataRecord *record = nullptr,
    const DataRecord *previous = nullptr)
{
    FormulaEvaluator evaluator;
    Result result { 0.0, false };
    result.value = evaluator.evaluate(formula, &result.ok, record, previous);
    return result;
}

QString repeated(const char *piece, qsizetype count)
{
    return QString::fromLatin1(piece).repeated(count);
}

} // namespace

void TestFormulaEvaluator::language_data()
{
    const double inf = std::numeric_limits<double>::infinity();
    QTest::addColumn<QString>("formula");
    QTest::addColumn<double>("expected");
    QTest::addColumn<bool>("ok");

    QTest::newRow("precedence") << "1+2*3" << 7.0 << true;
    QTest::newRow("brackets") << "(1+2)*3" << 9.0 << true;
    QTest::newRow("subtraction from the left") << "2-3-4" << -5.0 << true;
    QTest::newRow("division from the left") << "8/2/2" << 2.0 << true;
    QTest::newRow("unary minus binds tighter") << "-2*3" << -6.0 << true;
    QTest::newRow("double minus") << "--2" << 2.0 << true;
    QTest::newRow("plus and blank") << "+ 2" << 2.0 << true;
    QTest::newRow("sign after operator") << "2*-3" << -6.0 << true;
    QTest::newRow("blanks everywhere") << "  1 +\t2 *  3  " << 7.0 << true;
    QTest::newRow("no-break space is a blank") << QStringLiteral("1\u00a0+\u00a02") << 3.0 << true;
    QTest::newRow("decimals") << "1.5+.5" << 2.0 << true;
    QTest::newRow("trailing point") << "1." << 1.0 << true;
    QTest::newRow("empty text") << "" << 0.0 << true;
    QTest::newRow("blank text") << "   " << 0.0 << true;

    QTest::newRow("trailing operand ignored") << "2 3" << 2.0 << true;
    QTest::newRow("unclosed bracket") << "(2" << 0.0 << false;
    QTest::newRow("stray closing bracket") << "2)" << 2.0 << true;
    QTest::newRow("unknown name") << "bar(1)" << 0.0 << false;
    QTest::newRow("failure keeps the rest of the sum") << "1+bar(1)" << 1.0 << false;
    QTest::newRow("f reads field 0") << "foo(1)" << 0.0 << true;
    QTest::newRow("upper-case name") << "SIN(0)" << 0.0 << true;
    QTest::newRow("trailing blank after operator") << "1 + " << 1.0 << true;
    QTest::newRow("no exponent form") << "1e5" << 1.0 << true;
    QTest::newRow("two points read field 0") << "1.2.3" << 0.0 << true;
    QTest::newRow("lone point") << "." << 0.0 << false;
    QTest::newRow("other character") << "#" << 0.0 << false;
    QTest::newRow("surrogate pair") << QStringLiteral("1+\U0001F600") << 1.0 << false;
    QTest::newRow("lone surrogate")
        << QString(QChar(0xd800)) + QStringLiteral("+1") << 0.0 << false;

    QTest::newRow("division by zero") << "1/0" << inf << true;
    QTest::newRow("negative division by zero") << "-1/0" << -inf << true;
    QTest::newRow("zero by zero") << "0/0" << std::nan("") << true;
}

void TestFormulaEvaluator::language()
{
    QFETCH(QString, formula);
    QFETCH(double, expected);
    QFETCH(bool, ok);
    const Result result = run(formula);
    QCOMPARE(result.value, expected);
    QCOMPARE(result.ok, ok);
}

void TestFormulaEvaluator::functions_data()
{
    const double pi = std::acos(-1.0);
    QTest::addColumn<QString>("formula");
    QTest::addColumn<double>("expected");
    QTest::addColumn<bool>("ok");

    QTest::newRow("sin") << "sin(1)" << std::sin(1.0) << true;
    QTest::newRow("cos") << "cos(0)" << 1.0 << true;
    QTest::newRow("tan") << "tan(1)" << std::tan(1.0) << true;
    QTest::newRow("arcsin") << "arcsin(1)" << pi / 2 << true;
    QTest::newRow("arccos") << "arccos(-1)" << pi << true;
    QTest::newRow("arctan") << "arctan(1)" << pi / 4 << true;
    QTest::newRow("abs") << "abs(-3)" << 3.0 << true;
    QTest::newRow("sqrt") << "sqrt(16)" << 4.0 << true;
    QTest::newRow("sqrt of negative") << "sqrt(-1)" << std::nan("") << true;
    QTest::newRow("arcsin out of range") << "arcsin(2)" << std::nan("") << true;
    QTest::newRow("atan of two") << "atan(1,1)" << pi / 4 << true;
    QTest::newRow("atan, other quadrant") << "atan(1,-1)" << 3 * pi / 4 << true;
    QTest::newRow("atan of one reads zero") << "atan(1)" << pi / 2 << true;
    QTest::newRow("atan separator unseen") << "atan(1;1)" << pi / 4 << true;
    QTest::newRow("argument is a sum") << "abs(1-3)*2" << 4.0 << true;
    QTest::newRow("nested calls") << "sqrt(abs(-16))" << 4.0 << true;
    QTest::newRow("bracket unseen") << "abs-3)" << 3.0 << true;
    QTest::newRow("blank before bracket, at the end") << "sin (1)" << std::sin(1.0) << true;
    QTest::newRow("blank before bracket, followed") << "sin (1)+1" << 0.0 << false;
    QTest::newRow("unclosed call") << "sin(1" << 0.0 << false;
    QTest::newRow("name without call") << "sin" << 0.0 << false;
}

void TestFormulaEvaluator::functions()
{
    QFETCH(QString, formula);
    QFETCH(double, expected);
    QFETCH(bool, ok);
    const Result result = run(formula);
    QCOMPARE(result.value, expected);
    QCOMPARE(result.ok, ok);
}

// These would take their last operator over and over; they stop and fail instead.
void TestFormulaEvaluator::neverEndingTextsFail_data()
{
    QTest::addColumn<QString>("formula");
    QTest::newRow("plus at the end") << "1+";
    QTest::newRow("blank before the plus") << "1 +";
    QTest::newRow("minus at the end") << "3-";
    QTest::newRow("times at the end") << "2*";
    QTest::newRow("divided at the end") << "2 /";
    QTest::newRow("after a sum") << "1+2-";
    QTest::newRow("inside a bracket") << "(1+";
    QTest::newRow("inside a call") << "sin(1*";
    QTest::newRow("after a failure") << "bar+";
    QTest::newRow("atan restarting the text") << "atan(1 ";
    QTest::newRow("atan restarting after a sum") << "1+atan(2 ";
}

void TestFormulaEvaluator::neverEndingTextsFail()
{
    QFETCH(QString, formula);
    const Result result = run(formula);
    QCOMPARE(result.value, 0.0);
    QCOMPARE(result.ok, false);
}

void TestFormulaEvaluator::hostileTexts_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<double>("expected");
    QTest::addColumn<bool>("ok");
    const qsizetype deep = 100000;
    QTest::newRow("nested brackets")
        << repeated("(", deep) + QStringLiteral("1") + repeated(")", deep) << 0.0 << false;
    QTest::newRow("unclosed brackets") << repeated("(", deep) << 0.0 << false;
    QTest::newRow("unary minus") << repeated("-", deep) + QStringLiteral("1") << 0.0 << false;
    QTest::newRow("nested calls") << repeated("sin(", deep) + QStringLiteral("1") << 0.0 << false;
    QTest::newRow("nested atan") << repeated("atan(1,", deep) << 0.0 << false;
    QTest::newRow("megabyte sum") << repeated("1+", 500000) + QStringLiteral("1") << 500001.0
                                  << true;
    QTest::newRow("megabyte sum ending in plus") << repeated("1+", 500000) << 0.0 << false;
    QTest::newRow("megabyte product")
        << repeated("1*", 500000) + QStringLiteral("2") << 2.0 << true;
    QTest::newRow("megabyte of blanks")
        << repeated(" ", 1000000) + QStringLiteral("7") << 7.0 << true;
    QTest::newRow("megabyte number") << repeated("1", 1000000) << 0.0 << true;
    QTest::newRow("megabyte name") << repeated("x", 1000000) << 0.0 << false;
}

void TestFormulaEvaluator::hostileTexts()
{
    QFETCH(QString, formula);
    QFETCH(double, expected);
    QFETCH(bool, ok);
    QElapsedTimer timer;
    timer.start();
    const Result result = run(formula);
    QCOMPARE(result.value, expected);
    QCOMPARE(result.ok, ok);
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
}

void TestFormulaEvaluator::nestingLimit()
{
    const int levels = FormulaEvaluator::maxDepth - 1;
    const QString allowed = repeated("(", levels) + QStringLiteral("2") + repeated(")", levels);
    QCOMPARE(run(allowed).value, 2.0);
    QVERIFY(run(allowed).ok);
    const QString minus = repeated("-", levels) + QStringLiteral("2");
    QCOMPARE(run(minus).value, levels % 2 ? -2.0 : 2.0);
    const QString tooDeep = QStringLiteral("(") + allowed + QStringLiteral(")");
    QCOMPARE(run(tooDeep).ok, false);
    QCOMPARE(run(tooDeep).value, 0.0);
}

void TestFormulaEvaluator::references_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<double>("expected");
    QTest::addColumn<bool>("ok");
    // Current record: 10, 20, 30, 40; previous record: 1, 2, 3, 4.
    QTest::newRow("field") << "[F1]" << 20.0 << true;
    QTest::newRow("lower case") << "[f2]" << 30.0 << true;
    QTest::newRow("previous record") << "[F1!]" << 2.0 << true;
    QTest::newRow("both records") << "[F0]+[F1!]" << 12.0 << true;
    QTest::newRow("in an expression") << "([F3] - [F0]) / [F2!]" << 10.0 << true;
    QTest::newRow("in a call") << "sqrt([F3]*[F1]*2)" << 40.0 << true;
    QTest::newRow("lone f reads field 0") << "f" << 10.0 << true;
    QTest::newRow("foo reads field 0") << "foo(1)" << 10.0 << true;
    QTest::newRow("two points read field 0") << "1.2.3" << 10.0 << true;
    QTest::newRow("brackets without F") << "[12]" << 30.0 << true;
    QTest::newRow("token unchecked") << "F]3]" << 40.0 << true;
    QTest::newRow("index read from the third character") << "F3]]" << 10.0 << true;
    QTest::newRow("unreadable index reads field 0") << "[Fx]" << 10.0 << true;
    QTest::newRow("field past the end") << "[F9]" << 0.0 << true;
    QTest::newRow("index too large") << "[F99999999999]" << 10.0 << true;
    QTest::newRow("mark without previous field") << "[F!]" << 1.0 << true;
    QTest::newRow("text field reads 0") << "[F4]+1" << 1.0 << true;
}

void TestFormulaEvaluator::references()
{
    QFETCH(QString, formula);
    QFETCH(double, expected);
    QFETCH(bool, ok);
    TestHome home;
    DataManager manager(home.file(QStringLiteral("numbers.card")));
    QList<FieldDef> fields;
    for (int i = 0; i < 5; ++i) {
        FieldDef field;
        field.title = QStringLiteral("F%1").arg(i);
        field.type = i < 4 ? FieldDef::Double : FieldDef::String;
        fields.append(field);
    }
    manager.setFields(fields, true);
    DataRecord record(&manager);
    DataRecord previous(&manager);
    for (int i = 0; i < 4; ++i) {
        record.setDoubleValue(i, 10.0 * (i + 1));
        previous.setDoubleValue(i, i + 1);
    }
    record.setStringValue(4, QStringLiteral("42"));

    const Result result = run(formula, &record, &previous);
    QCOMPARE(result.value, expected);
    QCOMPARE(result.ok, ok);
}

void TestFormulaEvaluator::previousAbsent()
{
    TestHome home;
    DataManager manager(home.file(QStringLiteral("one.card")));
    FieldDef field;
    field.type = FieldDef::Integer;
    manager.setFields({ field }, true);
    DataRecord record(&manager);
    record.setDoubleValue(0, 5);

    Result result = run(QStringLiteral("[F0]+[F0!]"), &record, nullptr);
    QCOMPARE(result.value, 5.0);
    QVERIFY(result.ok);
    result = run(QStringLiteral("[F0]+[F0!]"), nullptr, nullptr);
    QCOMPARE(result.value, 0.0);
    QVERIFY(result.ok);
}

void TestFormulaEvaluator::evaluatorIsReused()
{
    FormulaEvaluator evaluator;
    bool ok = true;
    QCOMPARE(evaluator.evaluate(QStringLiteral("1+"), &ok, nullptr, nullptr), 0.0);
    QVERIFY(!ok);
    QCOMPARE(evaluator.evaluate(QStringLiteral("(2"), &ok, nullptr, nullptr), 0.0);
    QVERIFY(!ok);
    QCOMPARE(evaluator.evaluate(QStringLiteral("2*(3+4)"), &ok, nullptr, nullptr), 14.0);
    QVERIFY(ok);
    QCOMPARE(evaluator.evaluate(QStringLiteral("sqrt(9)"), nullptr, nullptr, nullptr), 3.0);
}

QTEST_GUILESS_MAIN(TestFormulaEvaluator)
#include "testformulaevaluator.moc"
