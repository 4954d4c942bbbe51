#include "cli/linkcommand.h"

#include "cli/argumentparser.h"
#include "pclink/pclinkserver.h"
#include "pclink/transferrunner.h"

#include <QEventLoop>

void LinkCommand::declareOptions(ArgumentParser &parser) const
{
    parser.addValueOption(QStringLiteral("port"));
}

bool LinkCommand::port(const ArgumentParser &arguments, quint16 &port)
{
    port = PCLinkServer::defaultPort;
    if (!arguments.isSet(QStringLiteral("port")))
        return true;
    bool ok = false;
    const uint value = arguments.value(QStringLiteral("port")).toUInt(&ok);
    if (!ok || value > 65535)
        return false;
    port = quint16(value);
    return true;
}

bool LinkCommand::runToEnd(TransferRunner &runner)
{
    QEventLoop loop;
    bool whole = true;
    QObject::connect(&runner, &TransferRunner::finished, &loop, [&](bool ok, const QString &error) {
        if (!ok) {
            whole = false;
            fail(error.isEmpty() ? TransferRunner::incompleteText() : error);
        }
        loop.quit();
    });
    runner.connectToServer();
    loop.exec();
    return whole;
}
