#include "store/binaryformat.h"

#include <QIODevice>
#include <QtEndian>

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

// The stream's operator grows a string in steps and keeps the spare room: on a card of many
// texts that is a large part of the memory a loaded card takes.
bool BinaryFormat::readString(QDataStream &stream, QString &text)
{
    if (remaining(stream) < 0) {
        // A device that cannot tell what is left: the stream's own stepwise reading.
        stream >> text;
        return ok(stream);
    }
    quint32 bytes = 0;
    stream >> bytes;
    if (bytes == 0xffffffffu) {
        text = QString();
    } else if (bytes == 0) {
        text = QString(QLatin1StringView(""));
    } else if (bytes % 2 != 0) {
        text.clear();
        stream.setStatus(QDataStream::ReadCorruptData);
    } else if (bytes > remaining(stream)) {
        text.clear();
        stream.setStatus(QDataStream::ReadPastEnd);
    } else {
        text = QString(qsizetype(bytes / 2), Qt::Uninitialized);
        stream.readRawData(reinterpret_cast<char *>(text.data()), int(bytes));
        if (stream.byteOrder() == QDataStream::BigEndian)
            qFromBigEndian<char16_t>(text.constData(), text.size(), text.data());
        else
            qFromLittleEndian<char16_t>(text.constData(), text.size(), text.data());
    }
    return ok(stream);
}

bool BinaryFormat::readStringList(QDataStream &stream, QStringList &list)
{
    list.clear();
    quint32 count = 0;
    stream >> count;
    // Each string takes at least its 4-byte length.
    if (!ok(stream) || !countFits(stream, count, 4))
        return false;
    if (count > 0)
        list.reserve(qsizetype(qMin<quint32>(count, 4096)));
    for (quint32 i = 0; i < count && ok(stream); ++i) {
        QString s;
        readString(stream, s);
        list.append(s);
    }
    return ok(stream);
}
