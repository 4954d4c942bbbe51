#ifndef SOUNDPLAYER_H
#define SOUNDPLAYER_H

#include <QList>
#include <QObject>
#include <QProcess>
#include <QStringList>

// Plays sounds one at a time through the desktop's player, each in a process of its own
// that the program never waits for. A sound asked for while another plays waits its turn;
// only a few may wait, later ones are dropped, so a pile of alarms never stacks up players.
class SoundPlayer : public QObject
{
    Q_OBJECT

public:
    static constexpr int maxWaiting = 2;

    explicit SoundPlayer(QObject *parent = nullptr);
    ~SoundPlayer() override;

    // The application's player, made on first use.
    static SoundPlayer *instance();

    // Runs the command (the player's program first) now or after those before it; false
    // when it was dropped because too many wait.
    bool play(const QStringList &command);
    bool isPlaying() const { return m_process.state() != QProcess::NotRunning; }
    int waiting() const { return int(m_waiting.size()); }

private:
    void startNext();

    QProcess m_process;
    QList<QStringList> m_waiting;
};

#endif
