#include "calc/datetimeformat.h"

namespace
{

const QChar dayHalfMarker = QLatin1Char('^');

bool isActing(QChar c)
{
    return c == QLatin1Char('D') || c == QLatin1Char('M') || c == QLatin1Char('Y')
        || c == QLatin1Char('h') || c == QLatin1Char('m') || c == QLatin1Char('s')
        || c == dayHalfMarker;
}

// A run of one letter wider than one character asks for two digits.
QString padded(int number, qsizetype runLength)
{
    const QString text = QString::number(number);
    return runLength == 1 ? text : text.rightJustified(2, QLatin1Char('0'));
}

int clockHour(int hour, bool twelveHour)
{
    if (!twelveHour)
        return hour;
    if (hour > 12)
        return hour - 12;
    return hour == 0 ? 12 : hour;
}

QString runText(QChar letter, qsizetype length, const QDateTime &dateTime, bool twelveHour)
{
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    switch (letter.unicode()) {
    case 'D':
        return padded(date.day(), length);
    case 'M':
        return padded(date.month(), length);
    case 'Y': {
        const QString year = QString::number(date.year());
        return length <= 2 ? year.right(2) : year;
    }
    case 'h':
        return padded(clockHour(time.hour(), twelveHour), length);
    case 'm':
        return padded(time.minute(), length);
    case 's':
        return padded(time.second(), length);
    default:
        return time.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM");
    }
}

} // namespace

QString formatDateTime(const QDateTime &dateTime, const QString &code)
{
    if (!dateTime.date().isValid() || !dateTime.time().isValid())
        return QString();
    QString work = code;
    const qsizetype marker = work.indexOf(QLatin1String("AM/PM"));
    const bool twelveHour = marker >= 0;
    if (twelveHour)
        work.replace(marker, 5, dayHalfMarker);

    QString result;
    for (qsizetype i = 0; i < work.size();) {
        const QChar c = work.at(i);
        qsizetype end = i + 1;
        if (isActing(c)) {
            while (end < work.size() && work.at(end) == c)
                ++end;
            result.append(runText(c, end - i, dateTime, twelveHour));
        } else {
            result.append(c);
        }
        i = end;
    }
    return result;
}
