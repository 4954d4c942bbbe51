#ifndef BINARYFORMAT_H
#define BINARYFORMAT_H

#include <QDataStream>
#include <QStringList>

// The binary stores use the toolkit's stream encoding of its 2.x series (null strings as
// 0xFFFFFFFF, dates as 32-bit Julian days, times as 32-bit milliseconds), so card files
// are byte for byte those of the old program. These helpers also guard every count read
// from a file against the bytes that remain, before anything is allocated.
class BinaryFormat
{
public:
    static constexpr QDataStream::Version streamVersion = QDataStream::Qt_2_1;

    // Sets the version and big-endian order on a stream about to read or write a store.
    static void prepare(QDataStream &stream);

    // Bytes left to read on the stream's device, or -1 when the device cannot tell.
    static qint64 remaining(const QDataStream &stream);

    // True when count items of at least minBytesEach bytes can still be in the stream.
    // A false answer also marks the stream's status as corrupt.
    static bool countFits(QDataStream &stream, qint64 count, qint64 minBytesEach);

    // Reads a 32-bit count and the strings, refusing a count the stream cannot hold.
    static bool readStringList(QDataStream &stream, QStringList &list);

    static bool ok(const QDataStream &stream) { return stream.status() == QDataStream::Ok; }
};

#endif
