#include "pclink/senddatadialogserver.h"

#include "app/resourceicons.h"
#include "pclink/pclink.h"
#include "pclink/transferserver.h"

SendDataDialogServer::SendDataDialogServer(DBManager *manager, QWidget *parent, quint16 port)
    : TransferProgressDialog(parent, loadPixmap(QStringLiteral("syncing")))
    , m_server(new TransferServer(manager, port, this))
{
    connect(m_server, &TransferServer::linkOpened, this, &SendDataDialogServer::connected);
    connect(m_server, &TransferServer::linkClosed, this, &SendDataDialogServer::disconnect);
    disconnect();
}

void SendDataDialogServer::connected(PCLink *link)
{
    showState(tr("Connect"), QString());
    connect(link, &PCLink::progress, this, &SendDataDialogServer::progress);
    connect(link, &PCLink::sendingFile, this, &SendDataDialogServer::sendingFile);
    connect(link, &PCLink::sendingFileFinished, this, &SendDataDialogServer::sendingFileFinished);
    connect(link, &PCLink::receiveFile, this, &SendDataDialogServer::receiveFile);
    connect(link, &PCLink::receiveFileFinished, this, &SendDataDialogServer::receiveFileFinished);
}

void SendDataDialogServer::disconnect()
{
    showState(tr("Waiting for connection ..."), QString());
    resetProgress();
}

void SendDataDialogServer::sendingFile(const QString &name)
{
    showState(tr("File [%1]").arg(name), tr("Sending ..."));
}

void SendDataDialogServer::sendingFileFinished()
{
    showState(tr("Send Finished"), QString());
    resetProgress();
}

void SendDataDialogServer::receiveFile(const QString &name)
{
    showState(tr("File [%1]").arg(name), tr("Receiving ..."));
}

void SendDataDialogServer::receiveFileFinished(const QString &)
{
    // The server object lists a received card itself.
    showState(tr("Receive Finished"), QString());
    resetProgress();
}
