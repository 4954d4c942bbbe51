#include "cli/sendcommand.h"

#include "cli/argumentparser.h"
#include "pclink/transfercards.h"
#include "pclink/transferrunner.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QTextStream>

QString SendCommand::summary() const
{
    return QStringLiteral("offer cards to a PC Link server");
}

int SendCommand::run(const ArgumentParser &arguments)
{
    quint16 linkPort = 0;
    if (!port(arguments, linkPort))
        return usageError(
            QStringLiteral("not a port: %1").arg(arguments.value(QStringLiteral("port"))));
    QStringList files;
    QHash<QString, QString> given; // absolute path to the argument as typed
    for (const QString &card : arguments.positional().mid(1)) {
        const QString path = QDir::cleanPath(QFileInfo(card).absoluteFilePath());
        given.insert(path, card);
        files << path << TransferCards::sendTarget(path);
    }
    TransferRunner runner(arguments.positional().at(0), linkPort, true, files);
    bool allSent = true;
    QObject::connect(&runner, &TransferRunner::sendFileSuccess, [](const QString &path) {
        out() << path << '\n';
        out().flush();
    });
    QObject::connect(&runner, &TransferRunner::sendFileFailed, [&](const QString &path, bool &) {
        allSent = false;
        fail(QStringLiteral("Failed send file: %1.").arg(given.value(path, path)));
    });
    if (!runToEnd(runner))
        return Failure;
    return allSent ? Success : Failure;
}
