#ifndef ALERT_H
#define ALERT_H

#include <QDateTime>
#include <QDialog>
#include <QList>

#include <functional>

class QLabel;
class Reminder;

// The alarm screen: the clock, the time of day kept current, and the sound and LED of the
// reminders started on it. Closing it turns the LED off.
class Alert : public QDialog
{
    Q_OBJECT

public:
    static constexpr int clockMilliseconds = 30000;
    static constexpr int repeatMilliseconds = 60000;
    // Starts within one minute that still sound; later ones only add their row, so that a
    // pile of alarms after a long absence does not stack up sounds.
    static constexpr int soundingStartsPerMinute = 2;

    using PlayFunction = std::function<void()>;
    using LedFunction = std::function<void(bool, int)>;

    // play and led default to the device's playAlarm and setLed.
    explicit Alert(QWidget *parent = nullptr, PlayFunction play = {}, LedFunction led = {});
    ~Alert() override;

    // Turns on what reminder asks for; the pointer is kept, not owned.
    void start(const Reminder *reminder);
    // The repeat timers running, one per start that sounded.
    int repeatTimerCount() const { return m_repeatTimers; }

public Q_SLOTS:
    void updateTime();
    void repeatSound();

private:
    bool mayStartSound();

    QLabel *m_label;
    const Reminder *m_reminder = nullptr;
    PlayFunction m_play;
    LedFunction m_led;
    QList<QDateTime> m_soundStarts;
    int m_repeatTimers = 0;
};

#endif
