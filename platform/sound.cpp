#include "platform/sound.h"

#include "platform/resource.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

void Sound::soundAlarm()
{
    if (!play(Resource::findSound(QStringLiteral("alarm"))))
        QApplication::beep();
}

QString Sound::player()
{
    for (const QString &name : { QStringLiteral("paplay"), QStringLiteral("aplay") }) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty())
            return path;
    }
    return QString();
}

bool Sound::play(const QString &file)
{
    const QString program = player();
    if (file.isEmpty() || !QFileInfo(file).isFile() || program.isEmpty())
        return false;
    QProcess process;
    process.setProgram(program);
    QStringList arguments;
    if (QFileInfo(program).fileName() == QLatin1String("aplay"))
        arguments << QStringLiteral("-q");
    process.setArguments(arguments << file);
    // A player's complaints (no sound server, say) are no business of the program's output.
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}
