#include "exchange/csvlineparser.h"

namespace
{
// The doubled qualifier is matched as a wildcard pattern, as the files we read were
// written against: "?" stands for any character, "*" for any run, "[" opens a set.
QRegularExpression wildcardPattern(const QString &pattern)
{
    QString expression;
    for (const QChar c : pattern) {
        if (c == QLatin1Char('?'))
            expression += QLatin1Char('.');
        else if (c == QLatin1Char('*'))
            expression += QStringLiteral(".*");
        else if (c == QLatin1Char('['))
            return QRegularExpression(); // a set never closed: the pattern matches nothing
        else
            expression += QRegularExpression::escape(QString(c));
    }
    return QRegularExpression(expression);
}
} // namespace

CsvLineParser::CsvLineParser(
    const QString &delimiter, const QString &qualifier, qsizetype maxValues)
    : m_delimiter(delimiter.isEmpty() ? QStringLiteral(" ") : delimiter)
    , m_qualifier(qualifier)
    , m_doubled(wildcardPattern(qualifier + qualifier))
    , m_maxValues(maxValues)
{
}

// Only a qualifier of exactly one character can open a quoted value.
bool CsvLineParser::startsQuoted(QStringView line, qsizetype pos) const
{
    return m_qualifier.size() == 1 && line.at(pos) == m_qualifier.at(0);
}

QString CsvLineParser::undoubled(QString text) const
{
    if (m_doubled.isValid() && !m_doubled.pattern().isEmpty()) {
        // A pattern that matches the empty text would put a delimiter between all
        // characters; that is what the old rule does, and it ends.
        text.replace(m_doubled, m_delimiter);
    }
    return text;
}

bool CsvLineParser::append(QStringList &values, bool open, QString text) const
{
    if (open && !values.isEmpty()) {
        values.last() += text;
        return true;
    }
    if (values.size() >= m_maxValues)
        return false;
    values.append(std::move(text));
    return true;
}

CsvLineParser::Result CsvLineParser::parse(QStringView line, QStringList &values, bool &open) const
{
    qsizetype pos = 0;
    while (pos < line.size()) {
        if (!open && !startsQuoted(line, pos)) {
            const qsizetype found = m_delimiter.size() == 1 ? line.indexOf(m_delimiter.front(), pos)
                                                            : line.indexOf(m_delimiter, pos);
            const QStringView value = found < 0 ? line.sliced(pos) : line.sliced(pos, found - pos);
            if (!append(values, false, value.toString()))
                return TooManyValues;
            if (found < 0)
                return Success;
            pos = found + 1;
            continue;
        }
        const Result result = parseQuoted(line, pos, values, open);
        if (result != Success || open)
            return result;
    }
    return Success;
}

// One quoted value, or the continuation of an open one; pos ends behind it.
CsvLineParser::Result CsvLineParser::parseQuoted(
    QStringView line, qsizetype &pos, QStringList &values, bool &open) const
{
    if (!open)
        ++pos;
    const qsizetype start = open ? 0 : pos;
    bool doubled = false;
    for (;;) {
        if (pos >= line.size()) {
            open = false;
            return Failure;
        }
        // Only a qualifier of one character opens a quoted value.
        const qsizetype k = line.indexOf(m_qualifier.front(), pos);
        if (k < 0) {
            QString text = line.sliced(start).toString();
            if (doubled)
                text = undoubled(text);
            text += QLatin1Char('\n');
            if (!append(values, open, std::move(text)))
                return TooManyValues;
            open = true;
            return Success;
        }
        if (k + 1 < line.size() && line.at(k + 1) == m_qualifier.at(0)) {
            doubled = true;
            pos = k + 2;
            continue;
        }
        QString text = line.sliced(start, k - start).toString();
        if (doubled)
            text = undoubled(text);
        pos = k + 1;
        if (line.mid(pos, m_delimiter.size()) == m_delimiter)
            ++pos;
        if (!append(values, open, std::move(text)))
            return TooManyValues;
        open = false;
        return Success;
    }
}
