#include "exchange/datetimeparser.h"

struct DateTimeParser::Parts {
    int year = 0;
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

int readNumber(QStringView text, qsizetype &pos, qsizetype maxDigits, bool *ok)
{
    int value = 0;
    qsizetype digits = 0;
    while (pos < text.size() && digits < maxDigits && text.at(pos).isDigit()) {
        const char16_t c = text.at(pos).unicode();
        value = value * 10 + (c >= u'0' && c <= u'9' ? c - u'0' : text.at(pos).digitValue());
        ++pos;
        ++digits;
    }
    *ok = digits > 0;
    return value;
}
} // namespace

DateTimeParser::DateTimeParser(const QString &code)
    : m_code(code)
    , m_year(QDate::currentDate().year())
{
    m_code.replace(QStringLiteral("AM/PM"), QStringLiteral("^"));
    for (qsizetype i = 0; i < m_code.size();) {
        const QChar c = m_code.at(i);
        qsizetype run = 1;
        while (isActing(c) && i + run < m_code.size() && m_code.at(i + run) == c)
            ++run;
        i += run;
        m_runs.append(Run { c, isActing(c) ? run : 0 });
    }
}

bool DateTimeParser::readRun(QStringView text, qsizetype &pos, const Run &run, Parts &parts) const
{
    const QChar letter = run.letter;
    const qsizetype length = run.length;
    if (length == 0) {
        if (pos >= text.size() || text.at(pos) != letter)
            return false;
        ++pos;
        return true;
    }
    if (letter == QLatin1Char('^')) {
        const QStringView half = text.mid(pos, 2);
        const bool pm = half.compare(QLatin1String("PM"), Qt::CaseInsensitive) == 0;
        if (!pm && half.compare(QLatin1String("AM"), Qt::CaseInsensitive) != 0)
            return false;
        parts.half = pm ? 1 : 0;
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
    if (m_code.isEmpty())
        return QDateTime::fromString(text.trimmed(), Qt::ISODate);
    QDate date;
    QTime time;
    return parse(text, &date, &time) ? QDateTime(date, time) : QDateTime();
}

bool DateTimeParser::parse(const QString &text, QDate *date, QTime *time) const
{
    if (m_code.isEmpty()) {
        const QDateTime moment = parse(text);
        *date = moment.date();
        *time = moment.time();
        return moment.isValid();
    }
    const QStringView trimmed = QStringView(text).trimmed();
    Parts parts;
    parts.year = m_year;
    qsizetype pos = 0;
    for (const Run &run : m_runs) {
        if (!readRun(trimmed, pos, run, parts))
            return false;
    }
    if (parts.half == 1 && parts.hour < 12)
        parts.hour += 12;
    else if (parts.half == 0 && parts.hour == 12)
        parts.hour = 0;
    *date = QDate(parts.year, parts.month, parts.day);
    *time = QTime(parts.hour, parts.minute, parts.second);
    return date->isValid() && time->isValid();
}
