#include "cli/servecommand.h"

#include "cli/argumentparser.h"
#include "pclink/transfercards.h"
#include "pclink/transferserver.h"
#include "platform/stopsignals.h"
#include "store/dbmanager.h"

#include <QEventLoop>
#include <QTextStream>

QString ServeCommand::summary() const
{
    return QStringLiteral("serve this home's cards over PC Link until stopped");
}

int ServeCommand::run(const ArgumentParser &arguments)
{
    quint16 linkPort = 0;
    if (!port(arguments, linkPort))
        return usageError(
            QStringLiteral("not a port: %1").arg(arguments.value(QStringLiteral("port"))));
    DBManager cards(false);
    cards.load();
    TransferCards::publishCatalogue(cards);
    TransferServer server(&cards, linkPort);
    if (!server.isListening()) {
        TransferCards::withdrawCatalogue();
        return fail(QStringLiteral("Failed to bind to port %1").arg(linkPort));
    }
    out() << "listening on port " << server.port() << '\n';
    out().flush();
    serveUntilStopped();
    TransferCards::withdrawCatalogue();
    return Success;
}

void ServeCommand::serveUntilStopped()
{
    QEventLoop loop;
    StopSignals stopSignals;
    QObject::connect(&stopSignals, &StopSignals::stopRequested, &loop, &QEventLoop::quit);
    loop.exec();
}
