#include "platform/qcopchannel.h"

#include "platform/qcopbridge.h"

#include <QMultiHash>

namespace
{
// The channel objects of this process by name. All use is on the main thread.
QMultiHash<QByteArray, QCopChannel *> &registry()
{
    static QMultiHash<QByteArray, QCopChannel *> channels;
    return channels;
}
} // namespace

QCopChannel::QCopChannel(const QByteArray &channel, QObject *parent)
    : QObject(parent)
    , m_channel(channel)
{
    registry().insert(m_channel, this);
}

QCopChannel::~QCopChannel()
{
    registry().remove(m_channel, this);
}

void QCopChannel::receive(const QByteArray &message, const QByteArray &data)
{
    Q_EMIT received(message, data);
}

bool QCopChannel::isRegisteredLocally(const QByteArray &channel)
{
    return registry().contains(channel);
}

bool QCopChannel::sendLocally(
    const QByteArray &channel, const QByteArray &message, const QByteArray &data)
{
    const QList<QCopChannel *> receivers = registry().values(channel);
    for (QCopChannel *receiver : receivers) {
        // The receiver is the context: one deleted before the event runs gets nothing.
        QMetaObject::invokeMethod(
            receiver, [receiver, message, data] { receiver->receive(message, data); },
            Qt::QueuedConnection);
    }
    return !receivers.isEmpty();
}

bool QCopChannel::isRegistered(const QByteArray &channel)
{
    if (isRegisteredLocally(channel))
        return true;
    return !QCopBridge::serving() && QCopBridge::isRegisteredRemotely(channel);
}

bool QCopChannel::send(const QByteArray &channel, const QByteArray &message, const QByteArray &data)
{
    if (sendLocally(channel, message, data))
        return true;
    // The serving process is the running program itself: there is nobody else to ask.
    if (QCopBridge::serving())
        return false;
    return QCopBridge::forward(channel, message, data);
}
