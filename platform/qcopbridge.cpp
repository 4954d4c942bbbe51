#include "platform/qcopbridge.h"

#include "platform/platformpaths.h"
#include "platform/qcopchannel.h"
#include "platform/qcopframe.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QTimer>

#include <unistd.h>

namespace
{
QCopBridge *servingBridge = nullptr;

bool isPrivateFolder(const QString &path)
{
    const QFileInfo info(path);
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
        | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    return info.isDir() && !info.isSymLink() && info.ownerId() == ::getuid()
        && (info.permissions() & others) == 0;
}

// A folder only this user can enter: the session's runtime folder, or one of our own
// under the temporary folder.
QString privateFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && isPrivateFolder(runtime))
        return runtime;
    const QString own
        = QDir::tempPath() + QStringLiteral("/norvika-") + QString::number(::getuid());
    if (QDir().mkdir(own))
        QFile::setPermissions(own, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (isPrivateFolder(own))
        return own;
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}
} // namespace

QCopBridge::QCopBridge(QObject *parent)
    : QObject(parent)
{
    m_server.setMaxPendingConnections(maxPeers);
    connect(&m_server, &QLocalServer::newConnection, this, &QCopBridge::acceptPeers);
}

QCopBridge::~QCopBridge()
{
    // Peers go while the count they keep is still there.
    qDeleteAll(m_server.findChildren<QLocalSocket *>());
    if (servingBridge == this)
        servingBridge = nullptr;
}

QCopBridge *QCopBridge::serving()
{
    return servingBridge;
}

QString QCopBridge::serverName()
{
    const QByteArray home = PlatformPaths::settingsDir().toUtf8();
    const QByteArray hash
        = QCryptographicHash::hash(home, QCryptographicHash::Sha1).toHex().left(16);
    return privateFolder() + QStringLiteral("/norvika-") + QString::fromLatin1(hash);
}

bool QCopBridge::listen()
{
    if (m_server.isListening())
        return true;
    const QString name = serverName();
    if (!m_server.listen(name)) {
        if (m_server.serverError() != QAbstractSocket::AddressInUseError || isRunning())
            return false;
        QLocalServer::removeServer(name);
        if (!m_server.listen(name))
            return false;
    }
    servingBridge = this;
    return true;
}

void QCopBridge::acceptPeers()
{
    while (QLocalSocket *peer = m_server.nextPendingConnection()) {
        if (m_peers >= maxPeers) {
            dropPeer(peer);
            continue;
        }
        ++m_peers;
        connect(peer, &QObject::destroyed, this, [this] { --m_peers; });
        connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
        // Whole frames only are taken off the buffer, so it never needs more than one.
        peer->setReadBufferSize(QCopFrame::maxPayload + 8);
        auto *idle = new QTimer(peer);
        idle->setSingleShot(true);
        idle->start(idleTimeoutMs);
        connect(idle, &QTimer::timeout, this, [peer] { dropPeer(peer); });
        connect(peer, &QLocalSocket::readyRead, this, [this, peer, idle] {
            idle->start(idleTimeoutMs);
            readPeer(peer);
        });
        readPeer(peer);
    }
}

void QCopBridge::dropPeer(QLocalSocket *peer)
{
    peer->abort();
    peer->deleteLater();
}

void QCopBridge::readPeer(QLocalSocket *peer)
{
    QCopFrame frame;
    for (;;) {
        switch (QCopFrame::read(peer, frame)) {
        case QCopFrame::Incomplete:
            return;
        case QCopFrame::Invalid:
            qWarning("QCopBridge: dropped a peer that sent a malformed frame");
            dropPeer(peer);
            return;
        case QCopFrame::Complete:
            // A peer that asks without reading the answers would make them pile up here.
            if (frame.kind == QCopFrame::Reply || peer->bytesToWrite() > maxUnreadReplies) {
                dropPeer(peer);
                return;
            }
            peer->write(answer(frame).encode());
            break;
        }
    }
}

QCopFrame QCopBridge::answer(const QCopFrame &request)
{
    if (request.kind == QCopFrame::Query)
        return QCopFrame::reply(QCopChannel::isRegisteredLocally(request.channel));
    return QCopFrame::reply(
        QCopChannel::sendLocally(request.channel, request.message, request.data));
}

bool QCopBridge::isRunning()
{
    QLocalSocket socket;
    socket.connectToServer(serverName());
    return socket.waitForConnected(clientTimeoutMs);
}

bool QCopBridge::forward(
    const QByteArray &channel, const QByteArray &message, const QByteArray &data)
{
    QCopFrame frame;
    frame.kind = QCopFrame::Send;
    frame.channel = channel;
    frame.message = message;
    frame.data = data;
    return request(frame);
}

bool QCopBridge::isRegisteredRemotely(const QByteArray &channel)
{
    QCopFrame frame;
    frame.kind = QCopFrame::Query;
    frame.channel = channel;
    return request(frame);
}

bool QCopBridge::request(const QCopFrame &frame)
{
    const QByteArray bytes = frame.encode();
    if (bytes.size() > qsizetype(QCopFrame::maxPayload) + 4)
        return false;
    QLocalSocket socket;
    const QDeadlineTimer deadline(clientTimeoutMs);
    socket.connectToServer(serverName());
    if (!socket.waitForConnected(int(deadline.remainingTime())))
        return false;
    socket.write(bytes);
    if (!socket.waitForBytesWritten(int(deadline.remainingTime())))
        return false;
    QCopFrame reply;
    while (socket.waitForReadyRead(int(deadline.remainingTime()))) {
        const QCopFrame::ReadResult result = QCopFrame::read(&socket, reply);
        if (result == QCopFrame::Invalid)
            return false;
        if (result == QCopFrame::Complete)
            return reply.kind == QCopFrame::Reply && reply.answer;
    }
    return false;
}
