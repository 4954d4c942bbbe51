#include "store/localstamp.h"

#include "store/bigendianwriter.h"

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

// The old stream versions write a date-time as its date and its time, whatever the zone, and a
// time that is no time of day as none. Written directly: a QDateTime of the local zone would
// first work out the zone's offset, a C library call for each stamp of every record saved.
void LocalStamp::encode(BigEndianWriter &out) const
{
    out.putUInt32(m_day);
    out.putTime(m_time);
}
