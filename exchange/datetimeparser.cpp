#include "exchange/datetimeparser.h"

struct DateTimeParser::Parts {
    int year = QDate::currentDate().year();
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int half = -1; // 0 for AM, 1 for PM, -1 without a marker
};

namespace
{
bool isActing(QChar c)
{
    return QStringLiteral("DMYhms^").contains(c);
}

int readNumber(const QString &text, qsizetype &pos, qsizetype maxDigits, bool *ok)
{
    int value = 0;
    qsizetype digits = 0;
    while (pos < text.size() && digits < maxDigits && text.at(pos).isDigit()) {
        value = value * 10 + text.at(pos).digitValue();
        ++pos;
        ++digits;
    }
    *ok = digits > 0;
    return value;
}
} // namespace

DateTimeParser::DateTimeParser(const QString &code)
    : m_code(code)
{
    m_code.replace(QStringLiteral("AM/PM"), QStringLiteral("^"));
}

bool DateTimeParser::readRun(
    const QString &text, qsizetype &pos, QChar letter, qsizetype length, Parts &parts) const
{
    if (letter == QLatin1Char('^')) {
        const QString half = text.mid(pos, 2).toUpper();
        if (half != QLatin1String("AM") && half != QLatin1String("PM"))
            return false;
        parts.half = half == QLatin1String("PM") ? 1 : 0;
        pos += 2;
        return true;
    }
    bool ok = false;
    const bool year = letter == QLatin1Char('Y');
    const int value = readNumber(text, pos, year && length > 2 ? 4 : 2, &ok);
    if (!ok)
        return false;
    switch (letter.unicode()) {
    case 'D':
        parts.day = value;
        break;
    case 'M':
        parts.month = value;
        break;
    case 'Y':
        parts.year = length > 2 ? value : value + (value < 70 ? 2000 : 1900);
        break;
    case 'h':
        parts.hour = value;
        break;
    case 'm':
        parts.minute = value;
        break;
    default:
        parts.second = value;
        break;
    }
    return true;
}

QDateTime DateTimeParser::parse(const QString &text) const
{
    const QString trimmed = text.trimmed();
    if (m_code.isEmpty())
        return QDateTime::fromString(trimmed, Qt::ISODate);
    Parts parts;
    qsizetype pos = 0;
    for (qsizetype i = 0; i < m_code.size();) {
        const QChar c = m_code.at(i);
        qsizetype run = 1;
        while (isActing(c) && i + run < m_code.size() && m_code.at(i + run) == c)
            ++run;
        i += run;
        if (!isActing(c)) {
            if (pos >= trimmed.size() || trimmed.at(pos) != c)
                return QDateTime();
            ++pos;
        } else if (!readRun(trimmed, pos, c, run, parts)) {
            return QDateTime();
        }
    }
    if (parts.half == 1 && parts.hour < 12)
        parts.hour += 12;
    else if (parts.half == 0 && parts.hour == 12)
        parts.hour = 0;
    return QDateTime(
        QDate(parts.year, parts.month, parts.day), QTime(parts.hour, parts.minute, parts.second));
}
