#include "pclink/transferserver.h"

#include "pclink/pclink.h"
#include "pclink/pclinkserver.h"
#include "pclink/transfercards.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"

#include <QFileInfo>

TransferServer::TransferServer(
    DBManager *cards, quint16 port, QObject *parent, const QHostAddress &address)
    : QObject(parent)
    , m_cards(cards)
    , m_server(new PCLinkServer(port, this, address))
    , m_stallMs(PCLink::defaultStallMs)
{
    connect(m_server, &PCLinkServer::connected, this, &TransferServer::accept);
}

bool TransferServer::isListening() const
{
    return m_server->isListening();
}

PCLink *TransferServer::link() const
{
    return m_link;
}

quint16 TransferServer::port() const
{
    return m_server->serverPort();
}

void TransferServer::accept(int socket)
{
    // The newest connection wins, so no two transfers ever run at once.
    delete m_link;
    m_link = new PCLink(PCLink::Server, m_server);
    m_link->setStallTimeout(m_stallMs);
    if (!m_link->setSocketDescriptor(socket)) {
        delete m_link;
        return;
    }
    QStringList served;
    for (PIMRecord *record : m_cards->records())
        served << static_cast<DBRecord *>(record)->path();
    m_link->setServedFiles(served);
    connect(m_link, &PCLink::disconnected, this, &TransferServer::linkClosed);
    connect(m_link, &PCLink::receiveFileFinished, this, &TransferServer::received);
    emit linkOpened(m_link);
}

void TransferServer::received(const QString &path)
{
    // A refused empty file reports an end as well; only a file that is there is listed.
    if (!TransferCards::isCard(path) || !QFileInfo(path).isFile())
        return;
    TransferCards::registerCard(*m_cards, path);
    emit cardListed(path);
}
