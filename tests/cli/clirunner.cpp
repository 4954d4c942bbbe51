#include "clirunner.h"

#include <QProcess>
#include <QProcessEnvironment>

CliResult runCli(const QString &home, const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("NORVIKA_HOME"), home);
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(NORVIKA_CLI_PATH), arguments);
    CliResult result;
    if (!process.waitForStarted(10000))
        return result;
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}
