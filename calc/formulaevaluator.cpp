#include "calc/formulaevaluator.h"

#include "card/datarecord.h"

#include <QRegularExpression>

#include <cmath>

namespace
{

// The six scanners, built on first use and kept for the life of the program.
struct Scanners {
    QRegularExpression expressionSkip;
    QRegularExpression termSkip;
    QRegularExpression factorSkip;
    QRegularExpression numberEnd;
    QRegularExpression referenceEnd;
    QRegularExpression nameEnd;
};

QRegularExpression scanner(const QString &pattern, QRegularExpression::PatternOptions options)
{
    QRegularExpression expression(pattern, options);
    expression.optimize();
    return expression;
}

const Scanners &scanners()
{
    // Blanks are what QChar::isSpace calls blank, not only the ASCII ones.
    const auto blank = QRegularExpression::UseUnicodePropertiesOption;
    const auto anyCase = QRegularExpression::CaseInsensitiveOption;
    static const Scanners scanners {
        scanner(QStringLiteral("[^\\s]"), blank),
        scanner(QStringLiteral("[^\\s]"), blank),
        scanner(QStringLiteral("[^\\s]"), blank),
        scanner(QStringLiteral("[^0-9\\.]"), QRegularExpression::NoPatternOption),
        scanner(QStringLiteral("[^\\[fF0-9\\!\\]]"), anyCase),
        scanner(QStringLiteral("[^a-zA-Z]"), anyCase),
    };
    return scanners;
}

// The scanners search with the subject's check switched off, since checking a long text
// at every step would make the whole run quadratic. That is safe only on valid UTF-16 in
// which every offset starts a character, so each surrogate becomes U+FFFD: for every
// rule of the language both are the same kind of character.
QString withoutSurrogates(const QString &text)
{
    QString result = text;
    for (QChar &c : result) {
        if (c.isSurrogate())
            c = QChar::ReplacementCharacter;
    }
    return result;
}

// A run that comes to an end moves forward through the text and comes back only to its
// last character, in fewer than two steps per character. Far more than that can only be
// a run that would never end.
constexpr qsizetype stepsPerCharacter = 64;

} // namespace

FormulaEvaluator::FormulaEvaluator()
{
    const char *const names[]
        = { "sin", "cos", "tan", "arcsin", "arccos", "arctan", "abs", "sqrt", "atan" };
    for (int i = Sin; i <= Atan; ++i)
        m_functions.insert(QLatin1String(names[i]), i);
}

double FormulaEvaluator::evaluate(
    const QString &formula, bool *ok, const DataRecord *record, const DataRecord *previous)
{
    m_record = record;
    m_previous = previous;
    m_failed = false;
    m_text = withoutSurrogates(formula);
    m_position = 0;
    m_aborted = false;
    m_depth = 0;
    m_steps = 0;
    m_stepLimit = stepsPerCharacter * (m_text.size() + 1);

    double value = expression();
    if (m_aborted)
        value = 0.0;
    if (ok)
        *ok = !m_failed && !m_aborted;
    m_text.clear();
    return value;
}

double FormulaEvaluator::expression()
{
    double value = term();
    qsizetype lastTaken = -1;
    while (!m_aborted) {
        m_position = skip(scanners().expressionSkip);
        if (m_position < 0)
            break;
        const QChar op = m_text.at(m_position);
        if (op != QLatin1Char('+') && op != QLatin1Char('-'))
            break;
        if (!takeOperator(&lastTaken))
            break;
        const double operand = term();
        value = op == QLatin1Char('+') ? value + operand : value - operand;
    }
    return value;
}

double FormulaEvaluator::term()
{
    double value = factor();
    qsizetype lastTaken = -1;
    while (!m_aborted) {
        m_position = skip(scanners().termSkip);
        if (m_position < 0)
            break;
        const QChar op = m_text.at(m_position);
        if (op != QLatin1Char('*') && op != QLatin1Char('/'))
            break;
        if (!takeOperator(&lastTaken))
            break;
        const double operand = factor();
        value = op == QLatin1Char('*') ? value * operand : value / operand;
    }
    return value;
}

double FormulaEvaluator::factor()
{
    if (m_aborted || m_depth >= maxDepth || ++m_steps > m_stepLimit)
        return abort();
    ++m_depth;
    const double value = readFactor();
    --m_depth;
    return value;
}

double FormulaEvaluator::readFactor()
{
    m_position = skip(scanners().factorSkip);
    if (m_position < 0)
        return 0.0;
    const QChar c = m_text.at(m_position);
    if (c == QLatin1Char('+')) {
        ++m_position;
        return factor();
    }
    if (c == QLatin1Char('-')) {
        ++m_position;
        return -factor();
    }
    if (c == QLatin1Char('(')) {
        ++m_position;
        return closeGroup(expression());
    }
    double value = 0.0;
    if (readNumber(&value) || readReference(&value))
        return value;
    const int function = readFunctionName();
    if (function < 0)
        return fail();
    return closeGroup(call(function));
}

bool FormulaEvaluator::readNumber(double *value)
{
    const qsizetype end = stretchEnd(scanners().numberEnd);
    if (end == m_position)
        return false;
    bool ok = false;
    const double number = QStringView(m_text).sliced(m_position, end - m_position).toDouble(&ok);
    if (!ok)
        return false;
    m_position = end;
    *value = number;
    return true;
}

bool FormulaEvaluator::readReference(double *value)
{
    const qsizetype end = stretchEnd(scanners().referenceEnd);
    if (end == m_position)
        return false;
    const QStringView token = QStringView(m_text).sliced(m_position, end - m_position);
    m_position = end;
    *value = fieldValue(token);
    return true;
}

// The token is taken to begin with "[F" and end with "]", whatever it holds: "f" reads
// field 0 and "[12]" field 2.
double FormulaEvaluator::fieldValue(QStringView token) const
{
    const DataRecord *source = m_record;
    if (token.size() >= 2 && token.at(token.size() - 2) == QLatin1Char('!')) {
        token.chop(1);
        source = m_previous;
    }
    const int index = token.size() > 3 ? token.sliced(2, token.size() - 3).toInt() : 0;
    return source ? source->doubleValue(index) : 0.0;
}

int FormulaEvaluator::readFunctionName()
{
    const qsizetype end = stretchEnd(scanners().nameEnd);
    if (end == m_position)
        return -1;
    const int function
        = m_functions.value(m_text.sliced(m_position, end - m_position).toLower(), -1);
    if (function >= 0)
        m_position = end;
    return function;
}

// The steps over "(" and "," do not look at what they pass: a blank between a name and
// its "(" is what gets passed, and the "(" then opens a group of its own.
double FormulaEvaluator::call(int function)
{
    ++m_position;
    const double first = expression();
    switch (function) {
    case Sin:
        return std::sin(first);
    case Cos:
        return std::cos(first);
    case Tan:
        return std::tan(first);
    case ArcSin:
        return std::asin(first);
    case ArcCos:
        return std::acos(first);
    case ArcTan:
        return std::atan(first);
    case Abs:
        return std::fabs(first);
    case Sqrt:
        return std::sqrt(first);
    }
    // A first argument that ran out on a trailing blank leaves -1, and the step would
    // start the text again from its beginning inside this same call, without end.
    if (m_position < 0)
        return abort();
    ++m_position;
    const double second = expression();
    return std::atan2(first, second);
}

double FormulaEvaluator::closeGroup(double value)
{
    if (charAtPosition() != QLatin1Char(')'))
        return fail();
    ++m_position;
    return value;
}

double FormulaEvaluator::fail()
{
    m_failed = true;
    return 0.0;
}

// A search from a negative position counts from the end of the text, so after a factor
// that found nothing (-1) the next search starts at the last character again.
qsizetype FormulaEvaluator::skip(const QRegularExpression &scanner) const
{
    const qsizetype start = m_position < 0 ? m_position + m_text.size() : m_position;
    if (start < 0 || start >= m_text.size())
        return -1;
    const QRegularExpressionMatch match = scanner.match(m_text, start,
        QRegularExpression::NormalMatch, QRegularExpression::DontCheckSubjectStringMatchOption);
    return match.hasMatch() ? match.capturedStart() : -1;
}

qsizetype FormulaEvaluator::stretchEnd(const QRegularExpression &stop) const
{
    const QRegularExpressionMatch match = stop.match(m_text, m_position,
        QRegularExpression::NormalMatch, QRegularExpression::DontCheckSubjectStringMatchOption);
    return match.hasMatch() ? match.capturedStart() : m_text.size();
}

QChar FormulaEvaluator::charAtPosition() const
{
    return m_position >= 0 && m_position < m_text.size() ? m_text.at(m_position) : QChar();
}

// Taking the operator at the same place again means the operand behind it found nothing
// at the end of the text and the search came round to the operator: the run would repeat
// from here for ever.
bool FormulaEvaluator::takeOperator(qsizetype *lastTaken)
{
    if (m_position == *lastTaken || ++m_steps > m_stepLimit) {
        abort();
        return false;
    }
    *lastTaken = m_position;
    ++m_position;
    return true;
}

double FormulaEvaluator::abort()
{
    m_aborted = true;
    return 0.0;
}
