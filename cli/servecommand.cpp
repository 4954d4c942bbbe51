#include "cli/servecommand.h"

#include "cli/argumentparser.h"
#include "pclink/transfercards.h"
#include "pclink/transferserver.h"
#include "store/dbmanager.h"

#include <QEventLoop>
#include <QTextStream>
#include <QTimer>

#include <csignal>

namespace
{
volatile std::sig_atomic_t stopRequested = 0;

void requestStop(int)
{
    stopRequested = 1;
}
} // namespace

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
    stopRequested = 0;
    std::signal(SIGINT, requestStop);
    std::signal(SIGTERM, requestStop);
    QEventLoop loop;
    // A signal handler may only set a flag; the loop looks at it a few times a second.
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&loop] {
        if (stopRequested)
            loop.quit();
    });
    poll.start(100);
    loop.exec();
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}
