#ifndef ALERTDIALOG_H
#define ALERTDIALOG_H

#include "reminders/alert.h"
#include "reminders/alertdialogbase.h"

#include <QDateTime>
#include <QStringList>
#include <QTimer>

class AlarmNotification;
class DataRecord;
class PIMManager;
class PIMRecord;

// What the program does when a reminder's alarm arrives: it finds the record, alerts the
// user with the Alert screen, then lists the reminders that came, from which each is
// snoozed, dismissed or opened. The reminders of one card are listed at a time; an alarm
// of another card, or one that comes while a record editor is open, waits and is tried
// again every ten seconds. The main window serves the signals.
class AlertDialog : public AlertDialogBase
{
    Q_OBJECT

public:
    static constexpr int retryMilliseconds = 10000;
    enum SnoozeChoice {
        FiveMinutes,
        TenMinutes,
        FifteenMinutes,
        HalfAnHour,
        OneHour,
        ThreeHours,
        SixHours,
        OneDay,
        SnoozeChoiceCount
    };

    explicit AlertDialog(QWidget *parent = nullptr);
    ~AlertDialog() override;

    // The moment a snooze of the given choice moves a reminder to, from now.
    static QDateTime snoozeMoment(const QDateTime &now, int choice);
    static QStringList snoozeChoices();

    // Replaces what the Alert screen drives; by default the device's playAlarm and setLed.
    void setAlarmOutput(Alert::PlayFunction play, Alert::LedFunction led);

    PIMManager *shownManager() const { return manager; }
    Alert *runningAlert() const { return alert; }
    bool isListing() const { return inDialog; }
    QStringList pendingMessages() const { return pending; }
    bool isRetrying() const { return checkTimer.isActive(); }
    PIMListView *list() const { return lv; }

public Q_SLOTS:
    void appMessage(const QByteArray &msg, const QByteArray &data);
    void check();
    void selected(PIMRecord *record);
    void snooze() override;
    void dismiss() override;
    void dismissAll() override;
    void open() override;
    void done(int result) override;

Q_SIGNALS:
    void editDialogIsFree(bool *free);
    void getTask(DataRecord **result, const QString &uid);
    void freeManager(PIMManager *manager);
    void raiseMainWindow();
    void setupView(PIMListView *view, DataRecord *record);
    void editTask(DataRecord *record);

private:
    bool editorIsFree();
    DataRecord *findTask(const QString &uid);
    bool mainWindowAway() const;
    QString noticeText(DataRecord *record) const;
    void postpone(const QString &message);
    void addRow(DataRecord *record);
    void runAlert(DataRecord *record);
    void runList();
    DataRecord *currentRecord() const;
    void dismissRecord(DataRecord *record);
    void closeWhenEmpty();

    PIMManager *manager = nullptr;
    Alert *alert = nullptr;
    bool inDialog = false;
    QStringList pending;
    QTimer checkTimer;
    AlarmNotification *notification;
    Alert::PlayFunction m_play;
    Alert::LedFunction m_led;
};

#endif
