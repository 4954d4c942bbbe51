#ifndef QCOPBRIDGE_H
#define QCOPBRIDGE_H

#include <QByteArray>
#include <QLocalServer>
#include <QObject>
#include <QString>

class QCopFrame;
class QLocalSocket;

// Carries QCop messages between processes: the running program listens on a local socket
// named for the user and the home (NORVIKA_HOME or the default), and another process
// (a second start, the command-line tool) hands it messages for channels it has no
// receiver for. A peer is held to bounded frames, a few connections and a short idle time.
class QCopBridge : public QObject
{
    Q_OBJECT

public:
    static constexpr int maxPeers = 16;
    static constexpr int idleTimeoutMs = 3000;
    static constexpr int clientTimeoutMs = 5000;
    static constexpr qint64 maxUnreadReplies = 64 * 1024;

    explicit QCopBridge(QObject *parent = nullptr);
    ~QCopBridge() override;

    // Starts serving the name; false when a live program already serves it or the socket
    // can't be made. A socket left by a program that did not end cleanly is taken over.
    bool listen();
    bool isListening() const { return m_server.isListening(); }

    // The bridge listening in this process, or null.
    static QCopBridge *serving();
    // The socket's path: per home, in a folder only this user can enter.
    static QString serverName();

    // Client side, blocking for at most clientTimeoutMs; usable without an event loop.
    // Whether a program is listening on the name.
    static bool isRunning();
    // Hands the message to the running program; true when it reached a receiver there.
    static bool forward(
        const QByteArray &channel, const QByteArray &message, const QByteArray &data);
    static bool isRegisteredRemotely(const QByteArray &channel);

private:
    void acceptPeers();
    void readPeer(QLocalSocket *peer);
    static void dropPeer(QLocalSocket *peer);
    static QCopFrame answer(const QCopFrame &request);
    static bool request(const QCopFrame &frame);

    QLocalServer m_server;
    int m_peers = 0;
};

#endif
