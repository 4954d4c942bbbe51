#include "pclink/senddatadialogclient.h"

#include "app/mrldialog.h"
#include "pclink/pclink.h"
#include "pclink/transferrunner.h"

#include <QTimer>

namespace
{
// How long the window is on screen before the connection is made.
constexpr int connectDelayMs = 500;
} // namespace

SendDataDialogClient::SendDataDialogClient(
    const QString &address, bool send, const QStringList &files, QWidget *parent, quint16 port)
    : TransferProgressDialog(parent)
    , m_runner(new TransferRunner(address, port, send, files, this))
{
    showState(tr("Connecting ..."), tr("Waiting for connection ..."));
    connect(m_runner, &TransferRunner::statusChanged, this, &SendDataDialogClient::statusChanged);
    connect(m_runner, &TransferRunner::finished, this, &SendDataDialogClient::finished);
    connect(m_runner, &TransferRunner::sendFileFailed, this, &SendDataDialogClient::sendFileFailed);
    connect(m_runner, &TransferRunner::getFileFailed, this, &SendDataDialogClient::getFileFailed);
    connect(
        m_runner, &TransferRunner::sendFileSuccess, this, &SendDataDialogClient::sendFileSuccess);
    connect(m_runner, &TransferRunner::getFileSuccess, this, &SendDataDialogClient::getFileSuccess);
    PCLink *link = m_runner->link();
    connect(link, &PCLink::progress, this, &SendDataDialogClient::progress);
    connect(link, &PCLink::receiveFile, this, &SendDataDialogClient::receiveFile);
    QTimer::singleShot(connectDelayMs, this, &SendDataDialogClient::connecting);
}

void SendDataDialogClient::connecting()
{
    m_runner->connectToServer();
}

void SendDataDialogClient::statusChanged(const QString &status)
{
    showState(status, QString());
    resetProgress();
}

void SendDataDialogClient::receiveFile(const QString &name)
{
    showState(tr("Receiving ..."), name);
    resetProgress();
}

void SendDataDialogClient::finished(bool ok, const QString &error)
{
    if (ok) {
        accept();
        return;
    }
    if (!error.isEmpty())
        MRLDialog::critical(tr("Connection error"), error);
    reject();
}
