#ifndef SENDDATADIALOGSERVER_H
#define SENDDATADIALOGSERVER_H

#include "pclink/pclinkserver.h"
#include "pclink/transferprogressdialog.h"

class DBManager;
class PCLink;
class TransferServer;

// The server's window: listens while it is open and shows what the newest client does.
// Cards it receives join the card list. Only Close ends it.
class SendDataDialogServer : public TransferProgressDialog
{
    Q_OBJECT

public:
    SendDataDialogServer(
        DBManager *manager, QWidget *parent = nullptr, quint16 port = PCLinkServer::defaultPort);

    TransferServer *server() const { return m_server; }

private Q_SLOTS:
    void connected(PCLink *link);
    void disconnect();
    void sendingFile(const QString &name);
    void sendingFileFinished();
    void receiveFile(const QString &name);
    void receiveFileFinished(const QString &name);

private:
    TransferServer *m_server;
};

#endif
