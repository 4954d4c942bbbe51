#include "calc/numberformat.h"

#include <cmath>

namespace
{

bool isPatternChar(QChar c)
{
    return c == QLatin1Char('0') || c == QLatin1Char('#') || c == QLatin1Char('?')
        || c == QLatin1Char('.');
}

QChar firstChar(const QString &text)
{
    return text.isEmpty() ? QChar() : text.at(0);
}

QString general(double value)
{
    return QString::number(value, 'g', 6);
}

// The parts of a code, and the integer pattern reduced to its leading kind of character.
struct NumberCode {
    QString prefix;
    QString suffix;
    QString intPattern;
    QString fracPattern;
    bool hasPoint = false;
    QChar intChar;
    QChar fracChar;
    QChar separator;
    qsizetype plus = -1;
    qsizetype minus = -1;

    bool signInPrefix() const { return plus >= 0 || minus >= 0; }
};

// Takes every character that differs from the first out of the integer pattern; the
// last one taken becomes the group separator, even when it is a digit placeholder.
void takeSeparator(NumberCode &code)
{
    QString kept;
    for (const QChar c : std::as_const(code.intPattern)) {
        if (c == code.intChar)
            kept.append(c);
        else
            code.separator = c;
    }
    code.intPattern = kept;
}

NumberCode splitPattern(const QString &prefix, const QString &pattern, const QString &suffix)
{
    NumberCode code;
    code.prefix = prefix;
    code.suffix = suffix;
    code.plus = prefix.lastIndexOf(QLatin1Char('+'));
    code.minus = prefix.lastIndexOf(QLatin1Char('-'));
    const qsizetype point = pattern.indexOf(QLatin1Char('.'));
    code.hasPoint = point >= 0;
    code.intPattern = code.hasPoint ? pattern.left(point) : pattern;
    code.fracPattern = code.hasPoint ? pattern.mid(point + 1) : QString();
    code.intChar = firstChar(code.intPattern);
    code.fracChar = firstChar(code.fracPattern);
    takeSeparator(code);
    return code;
}

QString grouped(const QString &digits, QChar separator)
{
    QString result;
    for (qsizetype i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0)
            result.append(separator);
        result.append(digits.at(i));
    }
    return result;
}

QString integerPart(const NumberCode &code, QString digits, bool negative)
{
    if (code.intChar == QLatin1Char('0'))
        digits = digits.rightJustified(code.intPattern.size(), QLatin1Char('0'));
    if (!code.separator.isNull())
        digits = grouped(digits, code.separator);
    if (negative && !code.signInPrefix())
        digits.prepend(QLatin1Char('-'));
    if (code.intChar == QLatin1Char('?')) {
        qsizetype width = code.intPattern.size();
        if (!code.separator.isNull())
            width = width * 4 / 3;
        digits = digits.rightJustified(width, QLatin1Char(' '));
        // Keeps positive numbers in line with negative ones in a column.
        if (!negative && !code.signInPrefix())
            digits.prepend(QLatin1Char(' '));
    }
    return digits;
}

QString signedPrefix(const NumberCode &code, bool negative)
{
    QString prefix = code.prefix;
    if (code.minus >= 0) {
        if (negative)
            return prefix;
        if (code.intChar == QLatin1Char('?'))
            prefix[code.minus] = QLatin1Char(' ');
        else
            prefix.remove(code.minus, 1);
    } else if (code.plus >= 0 && negative) {
        prefix[code.plus] = QLatin1Char('-');
    }
    return prefix;
}

QString withoutTrailingZeros(QString fraction)
{
    while (fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    return fraction;
}

// The "." stays even when no digit is left behind it.
QString fractionPart(const NumberCode &code, const QString &fraction)
{
    if (code.fracPattern.isEmpty())
        return code.hasPoint ? QStringLiteral(".") : QString();
    QString text = fraction;
    if (code.fracChar == QLatin1Char('#'))
        text = withoutTrailingZeros(text);
    else if (code.fracChar == QLatin1Char('?'))
        text = withoutTrailingZeros(text).leftJustified(code.fracPattern.size(), QLatin1Char(' '));
    return QLatin1Char('.') + text;
}

QString formatByCode(double value, const NumberCode &code)
{
    const bool negative = value < 0;
    const QString number = QString::number(std::fabs(value), 'f', int(code.fracPattern.size()));
    const qsizetype point = number.indexOf(QLatin1Char('.'));
    const QString digits = point >= 0 ? number.left(point) : number;
    const QString fraction = point >= 0 ? number.mid(point + 1) : QString();
    return signedPrefix(code, negative) + integerPart(code, digits, negative)
        + fractionPart(code, fraction) + code.suffix;
}

} // namespace

QString formatNumber(double value, const QString &code)
{
    if (code.isEmpty())
        return general(value);
    qsizetype first = 0;
    while (first < code.size() && !isPatternChar(code.at(first)))
        ++first;
    const QString prefix = code.left(first);
    if (first == code.size())
        return prefix + general(value);
    qsizetype end = code.size();
    while (!isPatternChar(code.at(end - 1)))
        --end;
    return formatByCode(value, splitPattern(prefix, code.mid(first, end - first), code.mid(end)));
}
