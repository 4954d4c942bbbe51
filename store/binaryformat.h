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

    // Reads a string as the stream's own operator does (null for 0xFFFFFFFF, "" for 0, corrupt
    // for an odd byte count, empty and past the end when cut off), but in one allocation of
    // exactly its length, made only once the bytes are known to be there.
    static bool readString(QDataStream &stream, QString &text);

    // Reads a 32-bit count and the strings, refusing a count the stream cannot hold.
    static bool readStringList(QDataStream &stream, QStringList &list);

    static bool ok(const QDataStream &stream) { return stream.status() == QDataStream::Ok; }
};

#endif
