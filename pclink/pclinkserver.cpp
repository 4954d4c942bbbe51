#include "pclink/pclinkserver.h"

#include <QLoggingCategory>

namespace
{
// Quiet unless asked for (QT_LOGGING_RULES="norvika.pclink.debug=true"): the command line
// reports a port in use in its own words.
Q_LOGGING_CATEGORY(pclinkLog, "norvika.pclink", QtInfoMsg)
} // namespace

PCLinkServer::PCLinkServer(quint16 port, QObject *parent, const QHostAddress &address)
    : QTcpServer(parent)
{
    setMaxPendingConnections(1);
    if (!listen(address, port))
        qCDebug(pclinkLog).noquote() << QStringLiteral("Failed to bind to port %1").arg(port);
}

void PCLinkServer::incomingConnection(qintptr socket)
{
    emit connected(int(socket));
}
