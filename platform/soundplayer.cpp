#include "platform/soundplayer.h"

#include <QCoreApplication>
#include <QPointer>

SoundPlayer::SoundPlayer(QObject *parent)
    : QObject(parent)
{
    // A player's complaints (no sound server, say) are no business of the program's output.
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::finished, this, &SoundPlayer::startNext);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            startNext();
    });
}

// A sound still playing at the end is cut off rather than waited for.
SoundPlayer::~SoundPlayer()
{
    m_waiting.clear();
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished(1000);
}

SoundPlayer *SoundPlayer::instance()
{
    static QPointer<SoundPlayer> player;
    if (!player)
        player = new SoundPlayer(QCoreApplication::instance());
    return player;
}

bool SoundPlayer::play(const QStringList &command)
{
    if (command.isEmpty())
        return false;
    if (m_waiting.size() >= maxWaiting)
        return false;
    m_waiting.append(command);
    if (!isPlaying())
        startNext();
    return true;
}

void SoundPlayer::startNext()
{
    if (m_waiting.isEmpty() || isPlaying())
        return;
    QStringList command = m_waiting.takeFirst();
    const QString program = command.takeFirst();
    m_process.start(program, command);
}
