// Writes the program's alarm sounds into the given folder; the build runs it for the
// share folder, so no sound file is kept in the sources.
#include "platform/wavwriter.h"

#include <QDir>
#include <QSaveFile>
#include <QTextStream>

namespace
{
bool save(const QString &path, const WavWriter &wav)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && wav.write(&file) && file.commit();
}

// Three short high beeps: the platform's own alarm.
WavWriter alarmSound()
{
    WavWriter wav;
    for (int i = 0; i < 3; ++i) {
        wav.addTone(1760.0, 110, 0.6);
        wav.addSilence(50);
    }
    return wav;
}

// A falling two-note chime of 300 ms: the default sound of a reminder.
WavWriter reminderSound()
{
    WavWriter wav;
    wav.addTone(987.77, 150, 0.5);
    wav.addTone(783.99, 150, 0.5);
    return wav;
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        QTextStream(stderr) << "usage: norvika-makesounds FOLDER\n";
        return 2;
    }
    const QDir dir(QString::fromLocal8Bit(argv[1]));
    if (!QDir().mkpath(dir.path()) || !save(dir.filePath(QStringLiteral("alarm.wav")), alarmSound())
        || !save(dir.filePath(QStringLiteral("alarma300.wav")), reminderSound())) {
        QTextStream(stderr) << "norvika-makesounds: cannot write into " << dir.path() << '\n';
        return 1;
    }
    return 0;
}
