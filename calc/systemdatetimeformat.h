#ifndef SYSTEMDATETIMEFORMAT_H
#define SYSTEMDATETIMEFORMAT_H

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

// The forms of dates and times for a field without a format code. They follow the user's
// clock and date settings (DateTimeSettings) at every call: the order of day, month and
// year, the date separator, and the 12 or 24 hour clock. An invalid value gives the null
// string.

// Day and month with two digits, the year with four, in the short order, e.g. "03/04/2005".
QString formatDate(const QDate &date);
// Hours and minutes with two digits each: "13:05", or "01:05 PM" on a 12 hour clock.
QString formatTime(const QTime &time);
// The date, a blank, and the time.
QString formatDateTimeDefault(const QDateTime &dateTime);

#endif
