#include "platform/sound.h"

#include "platform/resource.h"
#include "platform/soundplayer.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>

void Sound::soundAlarm()
{
    const QString file = Resource::findSound(QStringLiteral("alarm"));
    if (file.isEmpty() || player().isEmpty())
        QApplication::beep();
    else
        play(file);
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
    QStringList command { program };
    if (QFileInfo(program).fileName() == QLatin1String("aplay"))
        command << QStringLiteral("-q");
    return SoundPlayer::instance()->play(command << file);
}
