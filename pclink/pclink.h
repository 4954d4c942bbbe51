#ifndef PCLINK_H
#define PCLINK_H

#include <QByteArray>
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <QTcpSocket>
#include <QTimer>

#include <memory>

// One end of a PC Link connection: offers files and asks for them. The protocol is the same
// on both ends; the role only decides what a peer may ask of this end. Everything runs on
// the socket's signals: no threads, no waiting.
class PCLink : public QTcpSocket
{
    Q_OBJECT

public:
    enum State { Idle = 0, Sending = 1, Receiving = 2, Waiting = 3 };
    // A server serves its files on request; a client only answers its own requests.
    enum Role { Client, Server };

    static constexpr qint64 blockSize = 51200;
    static constexpr qint64 maxFileSize = qint64(1) << 31; // sizes travel as 32-bit ints
    static constexpr int defaultStallMs = 30000;

    explicit PCLink(Role role, QObject *parent = nullptr);
    ~PCLink() override;

    void sendFile(const QString &path, const QString &target);
    void requestFile(const QString &remote, const QString &local);
    int transferState() const { return m_state; }

    // Server: the cards of its card list, which it serves wherever they lie.
    void setServedFiles(const QStringList &paths) { m_servedFiles = paths; }
    // A peer that leaves a frame unfinished, or file bytes unsent, this long is dropped.
    void setStallTimeout(int ms) { m_stallTimer.setInterval(ms); }

Q_SIGNALS:
    void progress(int done, int total);
    // Declared for the dialogs' sake; no path emits it.
    void sendingFile(const QString &name);
    void sendingFileFinished();
    void sendingFileFailed();
    void receiveFile(const QString &path);
    void receiveFileFinished(const QString &path);
    void receiveFileFailed();

private Q_SLOTS:
    void readIncoming();
    void writeNextBlock(qint64 written);
    void dropStalledPeer();
    void abandonTransfer();

private:
    bool receiveContent();
    bool readFrames();
    bool appendChunk();
    void dispatch(const QByteArray &payload);
    void handleRequest(const QByteArray &payload);
    void handleOffer(const QByteArray &payload);
    bool openTarget();
    void refuseOffer();
    void handleAnswer(const QByteArray &payload);
    void handleFailure();
    void finishReceiving();
    void sendMessage(const QByteArray &tag, const QStringList &fields = {});
    void breakConnection();
    void watchStall();

    Role m_role;
    int m_state = Idle;
    QByteArray m_buffer;
    QFile m_file; // being sent
    std::unique_ptr<QSaveFile> m_target; // being received, renamed into place at the end
    quint32 m_transferred = 0;
    QString m_localPath;
    QString m_peerPath;
    int m_totalSize = 0;
    QString m_requestedLocal; // the local name of this end's pending request
    bool m_offerPending = false; // an I is out and its answer awaited
    QStringList m_servedFiles;
    QTimer m_stallTimer;
};

#endif
