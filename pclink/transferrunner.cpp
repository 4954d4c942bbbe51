#include "pclink/transferrunner.h"

#include "pclink/pclink.h"

TransferRunner::TransferRunner(
    const QString &host, quint16 port, bool send, const QStringList &files, QObject *parent)
    : QObject(parent)
    , m_link(new PCLink(PCLink::Client, this))
    , m_host(host)
    , m_port(port)
    , m_send(send)
    , m_files(files)
{
    connect(m_link, &PCLink::connected, this, &TransferRunner::connected);
    connect(m_link, &PCLink::disconnected, this, &TransferRunner::connectionClosed);
    connect(m_link, &PCLink::errorOccurred, this, &TransferRunner::connectionFailed);
    connect(m_link, &PCLink::sendingFileFinished, this, [this] { fileFinished(true); });
    connect(m_link, &PCLink::receiveFileFinished, this, [this] { fileFinished(false); });
    connect(m_link, &PCLink::sendingFileFailed, this, [this] { fileFailed(true); });
    connect(m_link, &PCLink::receiveFileFailed, this, [this] { fileFailed(false); });
}

TransferRunner::~TransferRunner()
{
    m_done = true;
    delete m_link;
}

QString TransferRunner::connectionErrorText()
{
    return tr("Run server part first.");
}

QString TransferRunner::incompleteText()
{
    return tr("Data transfer is not completed.");
}

void TransferRunner::connectToServer()
{
    m_link->connectToHost(m_host, m_port);
}

void TransferRunner::connected()
{
    emit statusChanged(tr("Connect"));
    nextStep();
}

void TransferRunner::nextStep()
{
    if (m_done)
        return;
    if (m_files.size() < 2) {
        finish(true, QString());
        return;
    }
    if (m_send)
        m_link->sendFile(m_files.at(0), m_files.at(1));
    else
        m_link->requestFile(m_files.at(0), m_files.at(1));
}

void TransferRunner::fileFinished(bool sent)
{
    if (m_done || m_files.size() < 2)
        return;
    emit statusChanged(sent ? tr("Send Finished") : tr("Receive Finished"));
    const QString name = m_files.at(0);
    m_files.remove(0, 2);
    if (sent)
        emit sendFileSuccess(name);
    else
        emit getFileSuccess(name);
    nextStep();
}

void TransferRunner::fileFailed(bool sent)
{
    if (m_done || m_files.size() < 2)
        return;
    emit statusChanged(tr("Connect"));
    const QString name = m_files.at(0);
    m_files.remove(0, 2);
    bool stop = false;
    if (sent)
        emit sendFileFailed(name, stop);
    else
        emit getFileFailed(name, stop);
    if (stop)
        finish(false, QString());
    else
        nextStep();
}

void TransferRunner::connectionClosed()
{
    finish(false, m_link->transferState() != PCLink::Idle ? incompleteText() : QString());
}

void TransferRunner::connectionFailed()
{
    // A close by the peer reports itself as an error too; the close decides what it meant.
    if (m_link->error() == QAbstractSocket::RemoteHostClosedError
        && m_link->state() != QAbstractSocket::UnconnectedState)
        return;
    if (m_link->error() == QAbstractSocket::RemoteHostClosedError)
        return connectionClosed();
    finish(false, connectionErrorText());
}

void TransferRunner::finish(bool ok, const QString &error)
{
    if (m_done)
        return;
    m_done = true;
    emit finished(ok, error);
}
