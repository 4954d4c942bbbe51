#ifndef BIGENDIANWRITER_H
#define BIGENDIANWRITER_H

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QTime>
#include <QtEndian>

#include <algorithm>
#include <cstring>

// Puts values into bytes in the encoding of the card stream (big-endian, the old stream
// version's forms of strings, dates and times). A record's many small values go through it
// and then to the file at once: a write through a QDataStream costs a call into the device
// for every value, which is more than the value's bytes.
class BigEndianWriter
{
public:
    const char *data() const { return m_bytes.constData(); }
    qsizetype size() const { return m_size; }
    // Starts again from no bytes, keeping the room.
    void clear() { m_size = 0; }

    void putRaw(const void *data, qsizetype size) { std::memcpy(grow(size), data, size_t(size)); }
    void putUInt32(quint32 value) { qToBigEndian(value, grow(4)); }
    void putInt32(qint32 value) { putUInt32(quint32(value)); }
    void putDouble(double value)
    {
        quint64 bits;
        std::memcpy(&bits, &value, sizeof bits);
        qToBigEndian(bits, grow(8));
    }
    // A Julian day in 32 bits, 0 for a null date.
    void putDate(QDate date) { putUInt32(date.isValid() ? quint32(date.toJulianDay()) : 0); }
    // Milliseconds since midnight, 0 for a null time.
    void putTime(QTime time) { putUInt32(time.isValid() ? quint32(time.msecsSinceStartOfDay()) : 0); }
    void putString(const QString &text);
    void putNullString();
    // A text of length UTF-16 units (units may be null when length is 0).
    void putUtf16(const char16_t *units, quint32 length);
    void putStringList(const QStringList &list);

private:
    // Room for n more bytes, at the end of those written.
    char *grow(qsizetype n)
    {
        if (m_size + n > m_bytes.size())
            m_bytes.resize(std::max(m_size + n, 2 * m_bytes.size() + 256));
        char *at = m_bytes.data() + m_size;
        m_size += n;
        return at;
    }

    QByteArray m_bytes;
    qsizetype m_size = 0;
};

#endif
