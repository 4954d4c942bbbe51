#include "calc/formulaevaluator.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "card/fielddef.h"
#include "support/testhome.h"

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
    void references_data();
    void references();
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
    QTest::addColumn<QString>("formula");
    QTest::addColumn<double>("expected");
    QTest::addColumn<bool>("ok");
    const auto row = [](const char *name, const QString &formula, double expected, bool ok) {
        QTest::newRow(name) << formula << expected << ok;
    };
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::nan("");
    const double pi = std::acos(-1.0);
    row("precedence", "1+2*3", 7, true);
    row("subtraction from the left", "2-3-4", -5, true);
    row("unary minus binds tighter", "-2*3", -6, true);
    row("double minus", "--2", 2, true);
    row("sign after operator", "2*-3", -6, true);
    row("blanks everywhere", "  1 +\t2 *  3  ", 7, true);
    row("no-break space is a blank", QStringLiteral("1\u00a0+\u00a02"), 3, true);
    row("trailing point", "1.", 1, true);
    row("empty text", "", 0, true);
    row("trailing operand ignored", "2 3", 2, true);
    row("unclosed bracket", "(2", 0, false);
    row("stray closing bracket", "2)", 2, true);
    row("unknown name", "bar(1)", 0, false);
    row("failure keeps the rest of the sum", "1+bar(1)", 1, false);
    row("upper-case name", "SIN(0)", 0, true);
    row("trailing blank after operator", "1 + ", 1, true);
    row("no exponent form", "1e5", 1, true);
    row("lone point", ".", 0, false);
    row("other character", "#", 0, false);
    row("surrogate pair", QStringLiteral("1+\U0001F600"), 1, false);
    row("lone surrogate", QString(QChar(0xd800)) + QStringLiteral("+1"), 0, false);
    row("division by zero", "1/0", inf, true);
    row("zero by zero", "0/0", nan, true);

    row("sin", "sin(1)", std::sin(1.0), true);
    row("arccos", "arccos(-1)", pi, true);
    row("sqrt of negative", "sqrt(-1)", nan, true);
    row("atan of two", "atan(1,1)", pi / 4, true);
    row("atan, other quadrant", "atan(1,-1)", 3 * pi / 4, true);
    row("atan of one reads zero", "atan(1)", pi / 2, true);
    row("atan separator unseen", "atan(1;1)", pi / 4, true);
    row("argument is a sum", "abs(1-3)*2", 4, true);
    row("bracket unseen", "abs-3)", 3, true);
    row("blank before bracket, at the end", "sin (1)", std::sin(1.0), true);
    row("blank before bracket, followed", "sin (1)+1", 0, false);
    row("unclosed call", "sin(1", 0, false);
    row("name without call", "sin", 0, false);

    // These would take their last operator over and over; they stop and fail instead.
    row("plus at the end", "1+", 0, false);
    row("blank before the plus", "1 +", 0, false);
    row("inside a bracket", "(1+", 0, false);
    row("inside a call", "sin(1*", 0, false);
    row("after a failure", "bar+", 0, false);
    row("atan restarting the text", "atan(1 ", 0, false);
    row("atan restarting after a sum", "1+atan(2 ", 0, false);

    // The deepest nesting allowed, and one level more.
    const int levels = FormulaEvaluator::maxDepth - 1;
    const QString allowed = repeated("(", levels) + QStringLiteral("2") + repeated(")", levels);
    row("deepest brackets allowed", allowed, 2, true);
    row("deepest minus allowed", repeated("-", levels) + QStringLiteral("2"), levels % 2 ? -2 : 2,
        true);
    row("one bracket too deep", QStringLiteral("(") + allowed + QStringLiteral(")"), 0, false);

    // Texts no user types, but a damaged card may hold: they end, and fail or add up.
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

void TestFormulaEvaluator::language()
{
    QFETCH(QString, formula);
    QFETCH(double, expected);
    QFETCH(bool, ok);
    const Result result = run(formula);
    QCOMPARE(result.value, expected);
    QCOMPARE(result.ok, ok);
}

void TestFormulaEvaluator::references_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<double>("expected");
    QTest::addColumn<bool>("ok");
    // Current record: 10, 20, 30, 40; previous record: 1, 2, 3, 4.
    QTest::newRow("field") << "[F1]" << 20.0 << true;
    QTest::newRow("previous record") << "[F1!]" << 2.0 << true;
    QTest::newRow("both records") << "[F0]+[F1!]" << 12.0 << true;
    QTest::newRow("lone f reads field 0") << "f" << 10.0 << true;
    QTest::newRow("foo reads field 0") << "foo(1)" << 10.0 << true;
    QTest::newRow("token unchecked") << "F]3]" << 40.0 << true;
    QTest::newRow("index read from the third character") << "F3]]" << 10.0 << true;
    QTest::newRow("unreadable index reads field 0") << "[Fx]" << 10.0 << true;
    QTest::newRow("field past the end") << "[F9]" << 0.0 << true;
    QTest::newRow("index too large") << "[F99999999999]" << 10.0 << true;
    QTest::newRow("mark without previous field") << "[F!]" << 1.0 << true;
    QTest::newRow("text field reads 0") << "[F4]+1" << 1.0 << true;
    QTest::newRow("no previous record") << "[F0]+[F0!]" << 10.0 << true;
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

    // The last row runs without a previous record.
    const bool withPrevious = !QByteArray(QTest::currentDataTag()).startsWith("no previous");
    const Result result = run(formula, &record, withPrevious ? &previous : nullptr);
    QCOMPARE(result.value, expected);
    QCOMPARE(result.ok, ok);
}

QTEST_GUILESS_MAIN(TestFormulaEvaluator)
#include "testformulaevaluator.moc"
