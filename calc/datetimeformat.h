#ifndef DATETIMEFORMAT_H
#define DATETIMEFORMAT_H

#include <QDateTime>
#include <QString>

// The text of a moment by a date-time format code such as "DD/MM/YYYY" or "hh:mm AM/PM".
// Runs of "D", "M", "Y", "h", "m" and "s" stand for the parts of the moment, "AM/PM" (or
// "^") for the half of the day; every other character is copied. An invalid date or time
// gives the null string.
QString formatDateTime(const QDateTime &dateTime, const QString &code);

#endif
