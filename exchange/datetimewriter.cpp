#include "exchange/datetimewriter.h"

#include "calc/systemdatetimeformat.h"

namespace
{
const QChar dayHalf = QLatin1Char('^');

bool isActing(QChar c)
{
    return c == QLatin1Char('D') || c == QLatin1Char('M') || c == QLatin1Char('Y')
        || c == QLatin1Char('h') || c == QLatin1Char('m') || c == QLatin1Char('s') || c == dayHalf;
}

// A run of one letter asks for the plain number, a longer one for two digits at least.
// The digits go straight into the text: a number string apiece would cost an allocation.
void appendNumber(QString &out, int number, int length)
{
    if (number < 0 || number > 9999) {
        out += QString::number(number);
        return;
    }
    char digits[4];
    int count = 0;
    do {
        digits[count++] = char('0' + number % 10);
        number /= 10;
    } while (number > 0);
    if (length > 1 && count == 1)
        out += QLatin1Char('0');
    while (count > 0)
        out += QLatin1Char(digits[--count]);
}
} // namespace

DateTimeWriter::DateTimeWriter(const QString &code, Parts systemParts)
    : m_systemParts(systemParts)
    , m_system(code.isEmpty())
{
    QString work = code;
    const qsizetype marker = work.indexOf(QLatin1String("AM/PM"));
    m_twelveHour = marker >= 0;
    if (m_twelveHour)
        work.replace(marker, 5, dayHalf);
    for (qsizetype i = 0; i < work.size();) {
        const QChar c = work.at(i);
        qsizetype end = i + 1;
        if (isActing(c)) {
            while (end < work.size() && work.at(end) == c)
                ++end;
        }
        m_runs.append(Run { c, isActing(c) ? int(end - i) : 0 });
        i = end;
    }
}

void DateTimeWriter::appendRun(QString &out, const Run &run, const Day &day, QTime time) const
{
    switch (run.length == 0 ? 0 : run.letter.unicode()) {
    case 0:
        out += run.letter;
        break;
    case 'D':
        appendNumber(out, day.day, run.length);
        break;
    case 'M':
        appendNumber(out, day.month, run.length);
        break;
    case 'Y': {
        if (day.year >= 1000 && day.year <= 9999) {
            appendNumber(out, run.length <= 2 ? day.year % 100 : day.year, 2);
            break;
        }
        const QString year = QString::number(day.year);
        out += run.length <= 2 ? QStringView(year).right(2) : QStringView(year);
        break;
    }
    case 'h': {
        int hour = time.hour();
        if (m_twelveHour)
            hour = hour > 12 ? hour - 12 : (hour == 0 ? 12 : hour);
        appendNumber(out, hour, run.length);
        break;
    }
    case 'm':
        appendNumber(out, time.minute(), run.length);
        break;
    case 's':
        appendNumber(out, time.second(), run.length);
        break;
    default:
        out += time.hour() < 12 ? QLatin1String("AM") : QLatin1String("PM");
        break;
    }
}

void DateTimeWriter::append(QString &out, QDate date, QTime time) const
{
    if (!date.isValid() || !time.isValid())
        return;
    if (m_system) {
        if (m_systemParts & DatePart)
            out += formatDate(date);
        if (m_systemParts == BothParts)
            out += QLatin1Char(' ');
        if (m_systemParts & TimePart)
            out += formatTime(time);
        return;
    }
    // The calendar works the three parts out of the day number at once.
    Day day;
    date.getDate(&day.year, &day.month, &day.day);
    for (const Run &run : m_runs)
        appendRun(out, run, day, time);
}
