#include "pclink/senddatadialogclient.h"

#include "app/mrldialog.h"
#include "pclink/pclink.h"
#include "pclink/transferrunner.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace
{
// How long the window is on screen before the connection is made.
constexpr int connectDelayMs = 500;
} // namespace

SendDataDialogClient::SendDataDialogClient(
    const QString &address, bool send, const QStringList &files, QWidget *parent, quint16 port)
    : QDialog(parent)
    , m_runner(new TransferRunner(address, port, send, files, this))
    , m_status(new QLabel(tr("Connecting ..."), this))
    , m_file(new QLabel(tr("Waiting for connection ..."), this))
    , m_progress(new QProgressBar(this))
{
    setWindowTitle(QApplication::applicationDisplayName());
    m_status->setAlignment(Qt::AlignCenter);
    m_file->setAlignment(Qt::AlignCenter);
    m_progress->setAlignment(Qt::AlignCenter);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(m_status);
    layout->addWidget(m_file);
    layout->addWidget(m_progress);
    layout->addStretch();
    layout->addWidget(buttons);

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
    m_status->setText(status);
    m_file->clear();
    m_progress->reset();
}

void SendDataDialogClient::progress(int done, int total)
{
    m_progress->setMaximum(total);
    m_progress->setValue(done);
}

void SendDataDialogClient::receiveFile(const QString &name)
{
    m_status->setText(tr("Receiving ..."));
    m_file->setText(name);
    m_progress->reset();
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
