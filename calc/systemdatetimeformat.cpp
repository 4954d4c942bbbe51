#include "calc/systemdatetimeformat.h"

#include "platform/datetimesettings.h"

#include <algorithm>
#include <array>

namespace
{

enum DatePart { Day = 1, Month = 2, Year = 4 };

// The order packs the parts in octal digits, the first part in the lowest: 0421 (273) is
// day, month, year; 0412 (266) month, day, year; 0124 (84) year, month, day.
constexpr int dayMonthYear = 0421;

std::array<int, 3> partsOf(int order)
{
    std::array<int, 3> parts {};
    for (int &part : parts) {
        part = order & 07;
        order >>= 3;
    }
    return parts;
}

// An order that does not name each part once falls back to the settings' default.
std::array<int, 3> dateParts(int order)
{
    const std::array<int, 3> parts = partsOf(order);
    const auto single = [](int part) { return part == Day || part == Month || part == Year; };
    const bool valid = order >> 9 == 0 && std::all_of(parts.begin(), parts.end(), single)
        && (parts[0] | parts[1] | parts[2]) == (Day | Month | Year);
    return valid ? parts : partsOf(dayMonthYear);
}

QString twoDigits(int number)
{
    return QString::number(number).rightJustified(2, QLatin1Char('0'));
}

QString partText(int part, const QDate &date)
{
    switch (part) {
    case Day:
        return twoDigits(date.day());
    case Month:
        return twoDigits(date.month());
    default:
        return QStringLiteral("%1").arg(date.year(), 4, 10, QLatin1Char('0'));
    }
}

} // namespace

QString formatDate(const QDate &date)
{
    if (!date.isValid())
        return QString();
    DateTimeSettings *settings = DateTimeSettings::instance();
    const QChar separator = settings->dateSeparator();
    QString text;
    for (const int part : dateParts(settings->shortOrder())) {
        if (!text.isEmpty())
            text.append(separator);
        text.append(partText(part, date));
    }
    return text;
}

QString formatTime(const QTime &time)
{
    if (!time.isValid())
        return QString();
    const int hour = time.hour();
    const QString minutes = QLatin1Char(':') + twoDigits(time.minute());
    if (!DateTimeSettings::instance()->ampm())
        return twoDigits(hour) + minutes;
    const int clockHour = hour % 12 == 0 ? 12 : hour % 12;
    return twoDigits(clockHour) + minutes
        + (hour < 12 ? QLatin1String(" AM") : QLatin1String(" PM"));
}

QString formatDateTimeDefault(const QDateTime &dateTime)
{
    if (!dateTime.date().isValid() || !dateTime.time().isValid())
        return QString();
    return formatDate(dateTime.date()) + QLatin1Char(' ') + formatTime(dateTime.time());
}
