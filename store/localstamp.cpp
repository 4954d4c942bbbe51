#include "store/localstamp.h"

#include <QDataStream>

// The day is kept as the old stream versions write it: the Julian day cut to 32 bits, and 0
// for a null date.
LocalStamp::LocalStamp(const QDateTime &when)
    : m_day(when.date().isNull() ? 0 : quint32(when.date().toJulianDay()))
    , m_time(when.time())
{
}

// The old stream versions store a date-time as its date and its time, nothing else.
QDataStream &operator>>(QDataStream &stream, LocalStamp &stamp)
{
    return stream >> stamp.m_day >> stamp.m_time;
}

// Written through QDateTime, so that the bytes are those of the value callers see.
QDataStream &operator<<(QDataStream &stream, const LocalStamp &stamp)
{
    return stream << stamp.toDateTime();
}
