#include "cli/getcommand.h"

#include "cli/argumentparser.h"
#include "pclink/transfercards.h"
#include "pclink/transferrunner.h"
#include "store/dbmanager.h"

#include <QFileInfo>
#include <QHash>
#include <QTextStream>

QString GetCommand::summary() const
{
    return QStringLiteral("fetch files from a PC Link server");
}

void GetCommand::declareOptions(ArgumentParser &parser) const
{
    LinkCommand::declareOptions(parser);
    parser.addFlag(QStringLiteral("overwrite"));
}

int GetCommand::run(const ArgumentParser &arguments)
{
    quint16 linkPort = 0;
    if (!port(arguments, linkPort))
        return usageError(
            QStringLiteral("not a port: %1").arg(arguments.value(QStringLiteral("port"))));
    DBManager cards(false);
    cards.load();
    cards.refreshAll();
    bool whole = true;
    QStringList files;
    QHash<QString, QString> destinations;
    for (const QString &remote : arguments.positional().mid(1)) {
        const QString destination = TransferCards::getDestination(cards, remote);
        if (QFileInfo::exists(destination) && !arguments.isSet(QStringLiteral("overwrite"))) {
            whole = false;
            fail(QStringLiteral("Card %1 already exists.").arg(destination));
            continue;
        }
        destinations.insert(remote, destination);
        files << remote << destination;
    }
    TransferRunner runner(arguments.positional().at(0), linkPort, false, files);
    QObject::connect(&runner, &TransferRunner::getFileSuccess, [&](const QString &remote) {
        if (TransferCards::isCard(remote))
            TransferCards::registerFetched(cards, remote);
        out() << destinations.value(remote) << '\n';
        out().flush();
    });
    QObject::connect(&runner, &TransferRunner::getFileFailed, [&](const QString &remote, bool &) {
        whole = false;
        fail(QStringLiteral("Failed receive file: %1.").arg(remote));
    });
    if (!runToEnd(runner))
        return Failure;
    return whole ? Success : Failure;
}
