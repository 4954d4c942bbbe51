#include "pclink/senddatadialogserver.h"

#include "app/resourceicons.h"
#include "pclink/pclink.h"
#include "pclink/transferserver.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

SendDataDialogServer::SendDataDialogServer(DBManager *manager, QWidget *parent, quint16 port)
    : QDialog(parent)
    , m_server(new TransferServer(manager, port, this))
    , m_status(new QLabel(this))
    , m_file(new QLabel(this))
    , m_progress(new QProgressBar(this))
{
    setWindowTitle(QApplication::applicationDisplayName());
    auto *picture = new QLabel(this);
    picture->setPixmap(loadPixmap(QStringLiteral("syncing")));
    picture->setAlignment(Qt::AlignCenter);
    m_status->setAlignment(Qt::AlignCenter);
    m_file->setAlignment(Qt::AlignCenter);
    m_progress->setAlignment(Qt::AlignCenter);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(picture);
    layout->addWidget(m_status);
    layout->addWidget(m_file);
    layout->addWidget(m_progress);
    layout->addStretch();
    layout->addWidget(buttons);

    connect(m_server, &TransferServer::linkOpened, this, &SendDataDialogServer::connected);
    connect(m_server, &TransferServer::linkClosed, this, &SendDataDialogServer::disconnect);
    disconnect();
}

void SendDataDialogServer::showState(const QString &status, const QString &file)
{
    m_status->setText(status);
    m_file->setText(file);
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
    m_progress->reset();
}

void SendDataDialogServer::progress(int done, int total)
{
    m_progress->setMaximum(total);
    m_progress->setValue(done);
}

void SendDataDialogServer::sendingFile(const QString &name)
{
    showState(tr("File [%1]").arg(name), tr("Sending ..."));
}

void SendDataDialogServer::sendingFileFinished()
{
    showState(tr("Send Finished"), QString());
    m_progress->reset();
}

void SendDataDialogServer::receiveFile(const QString &name)
{
    showState(tr("File [%1]").arg(name), tr("Receiving ..."));
}

void SendDataDialogServer::receiveFileFinished(const QString &)
{
    // The server object lists a received card itself.
    showState(tr("Receive Finished"), QString());
    m_progress->reset();
}
