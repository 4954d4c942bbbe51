#ifndef REMINDEREDITOR_H
#define REMINDEREDITOR_H

#include <QTimer>
#include <QWidget>

#include <functional>

class MLDateTimeEdit;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QPushButton;
class Reminder;

// The reminder of a record: whether there is one, its moment, and whether the sound and
// the LED (with its pattern) alert the user. "Test" plays the alert as it will come.
class ReminderEditor : public QWidget
{
    Q_OBJECT

public:
    // How long a test keeps the LED on: the length of the device's alarm.
    static constexpr int testMilliseconds = 2000;

    // withTime shows the time of the moment beside its date.
    explicit ReminderEditor(bool withTime = true, QWidget *parent = nullptr);
    // Closed during a test, the editor switches the LED off itself.
    ~ReminderEditor() override;

    // Null switches the reminder off.
    void setReminder(const Reminder *reminder);
    // A new reminder the caller owns, or null when switched off. Seconds are cut off.
    Reminder *reminder() const;

    // Replaces what test() drives; by default the device's playAlarm and setLed.
    void setAlarmOutput(std::function<void()> play, std::function<void(bool, int)> led);

    // The labels of the LED patterns, in the order of their type numbers.
    static QStringList patternNames();

public Q_SLOTS:
    // Switched on, the reminder starts now with sound, LED and the "Normal" pattern.
    void alarmOnOff(bool on);
    void typeChanged();
    // Plays the alert: LED on and the sound, then after testMilliseconds the LED off.
    void test();

private:
    void buildNotification(QGroupBox *alert);
    void endTest();

    QCheckBox *m_alarm;
    MLDateTimeEdit *m_dt;
    QGroupBox *m_panel = nullptr;
    QCheckBox *m_sound = nullptr;
    QCheckBox *m_ledBox = nullptr;
    QComboBox *m_led = nullptr;
    QPushButton *m_test = nullptr;
    std::function<void()> m_playAlarm;
    std::function<void(bool, int)> m_setLed;
    QTimer m_testEnd;
    bool m_testLedOn = false;
};

#endif
