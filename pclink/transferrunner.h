#ifndef TRANSFERRUNNER_H
#define TRANSFERRUNNER_H

#include <QObject>
#include <QString>
#include <QStringList>

class PCLink;

// The client's run through a file list of pairs (source, destination): connects, offers or
// requests the head pair, drops it when it has finished or failed, and goes on until the
// list is empty. The head of the list is always the transfer in progress.
class TransferRunner : public QObject
{
    Q_OBJECT

public:
    TransferRunner(const QString &host, quint16 port, bool send, const QStringList &files,
        QObject *parent = nullptr);
    ~TransferRunner() override;

    void connectToServer();
    PCLink *link() const { return m_link; }
    static QString connectionErrorText();
    static QString incompleteText();

Q_SIGNALS:
    void statusChanged(const QString &status);
    void sendFileFailed(const QString &name, bool &stop);
    void getFileFailed(const QString &name, bool &stop);
    void sendFileSuccess(const QString &name);
    void getFileSuccess(const QString &name);
    // The run is over: with ok the list ran out, otherwise error says why (or is empty when
    // the server closed between files).
    void finished(bool ok, const QString &error);

private:
    void connected();
    void nextStep();
    void fileFinished(bool sent);
    void fileFailed(bool sent);
    void connectionClosed();
    void connectionFailed();
    void finish(bool ok, const QString &error);

    PCLink *m_link;
    QString m_host;
    quint16 m_port;
    bool m_send;
    QStringList m_files;
    bool m_done = false;
};

#endif
