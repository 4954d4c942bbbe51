#include "pclink/pclinkserver.h"

#include <QDebug>

PCLinkServer::PCLinkServer(quint16 port, QObject *parent, const QHostAddress &address)
    : QTcpServer(parent)
{
    setMaxPendingConnections(1);
    if (!listen(address, port))
        qDebug().noquote() << QStringLiteral("Failed to bind to port %1").arg(port);
}

void PCLinkServer::incomingConnection(qintptr socket)
{
    emit connected(int(socket));
}
