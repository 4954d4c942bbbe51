#include "store/binaryformat.h"

#include <QIODevice>

void BinaryFormat::prepare(QDataStream &stream)
{
    stream.setVersion(streamVersion);
    stream.setByteOrder(QDataStream::BigEndian);
}

qint64 BinaryFormat::remaining(const QDataStream &stream)
{
    const QIODevice *device = stream.device();
    if (!device || device->isSequential())
        return -1;
    return device->size() - device->pos();
}

bool BinaryFormat::countFits(QDataStream &stream, qint64 count, qint64 minBytesEach)
{
    if (count < 0) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    const qint64 left = remaining(stream);
    if (left >= 0 && count > left / qMax<qint64>(1, minBytesEach)) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    return true;
}

bool BinaryFormat::readStringList(QDataStream &stream, QStringList &list)
{
    list.clear();
    quint32 count = 0;
    stream >> count;
    // Each string takes at least its 4-byte length.
    if (!ok(stream) || !countFits(stream, count, 4))
        return false;
    list.reserve(qsizetype(qMin<quint32>(count, 4096)));
    for (quint32 i = 0; i < count && ok(stream); ++i) {
        QString s;
        stream >> s;
        list.append(s);
    }
    return ok(stream);
}
