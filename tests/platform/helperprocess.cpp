#include "helperprocess.h"

#include <QProcess>
#include <QSignalSpy>

int HelperProcess::run(
    const QString &home, const QStringList &arguments, const QString &workingDirectory)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("NORVIKA_HOME"), home);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(env);
    process.setWorkingDirectory(workingDirectory.isEmpty() ? home : workingDirectory);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    QSignalSpy finished(&process, &QProcess::finished);
    process.start(QStringLiteral(PLATFORM_HELPER), arguments);
    if (!process.waitForStarted(5000))
        return -1;
    if (!finished.wait(20000)) {
        process.kill();
        process.waitForFinished();
        return -1;
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}
