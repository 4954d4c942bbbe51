#include "platform/qcopframe.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

namespace
{
constexpr int lengthSize = 4;
// Fixed so that programs built on different Qt versions still understand each other.
constexpr QDataStream::Version streamVersion = QDataStream::Qt_6_0;
} // namespace

QCopFrame QCopFrame::reply(bool answer)
{
    QCopFrame frame;
    frame.kind = Reply;
    frame.answer = answer;
    return frame;
}

QByteArray QCopFrame::encode() const
{
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    out.setVersion(streamVersion);
    out << quint8(kind) << channel << message << data << answer;
    QByteArray frame(lengthSize, '\0');
    qToBigEndian(quint32(payload.size()), frame.data());
    return frame + payload;
}

QCopFrame::ReadResult QCopFrame::read(QIODevice *device, QCopFrame &frame)
{
    if (device->bytesAvailable() < lengthSize)
        return Incomplete;
    const QByteArray head = device->peek(lengthSize);
    if (head.size() < lengthSize)
        return Incomplete;
    const quint32 length = qFromBigEndian<quint32>(head.constData());
    if (length == 0 || length > maxPayload)
        return Invalid;
    if (device->bytesAvailable() < lengthSize + qint64(length))
        return Incomplete;
    device->skip(lengthSize);
    return frame.decode(device->read(length)) ? Complete : Invalid;
}

bool QCopFrame::decode(const QByteArray &payload)
{
    QDataStream in(payload);
    in.setVersion(streamVersion);
    quint8 rawKind = 0;
    in >> rawKind >> channel >> message >> data >> answer;
    if (in.status() != QDataStream::Ok || !in.atEnd())
        return false;
    if (rawKind < Send || rawKind > Reply)
        return false;
    kind = Kind(rawKind);
    return isWellFormed();
}

bool QCopFrame::isWellFormed() const
{
    if (channel.size() > maxNameLength || message.size() > maxNameLength)
        return false;
    switch (kind) {
    case Send:
        return !channel.isEmpty() && !message.isEmpty();
    case Query:
        return !channel.isEmpty();
    case Reply:
        return channel.isEmpty() && message.isEmpty() && data.isEmpty();
    }
    return false;
}
