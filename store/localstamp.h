#ifndef LOCALSTAMP_H
#define LOCALSTAMP_H

#include <QDate>
#include <QDateTime>
#include <QTime>

class BigEndianWriter;
class QDataStream;

// A local date and time as a card file holds it: a 32-bit Julian day (0 for none) and the
// time. Making a QDateTime of the local zone works out the zone's offset, a C library call
// that a load would otherwise pay several times per record; a stamp is read without it, takes
// no more room than a QDateTime, and makes its QDateTime only when one is asked for.
class LocalStamp
{
public:
    LocalStamp() = default;
    // A stamp of a local time; a time of another zone keeps its date and time fields.
    explicit LocalStamp(const QDateTime &when);

    QDate date() const { return m_day == 0 ? QDate() : QDate::fromJulianDay(m_day); }
    // The value the stream's own QDateTime reading makes of the same bytes.
    QDateTime toDateTime() const { return QDateTime(date(), m_time); }

    // Puts the stamp as the stream of the card's old version writes it.
    void encode(BigEndianWriter &out) const;

    friend QDataStream &operator>>(QDataStream &stream, LocalStamp &stamp);

private:
    quint32 m_day = 0;
    QTime m_time;
};

#endif
