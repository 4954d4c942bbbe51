#include "reminders/alertdialog.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "platform/alarmserver.h"
#include "platform/qpeapplication.h"
#include "reminders/alarmnotification.h"
#include "reminders/reminder.h"
#include "store/pimmanager.h"
#include "views/pimlistview.h"
#include "views/recorditem.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

namespace
{
const char alarmPrefix[] = "alarm(QDateTime,int)";

// The offsets of the snooze choices but the last, which is one calendar day.
const int snoozeSeconds[] = { 300, 600, 900, 1800, 3600, 10800, 21600 };
} // namespace

AlertDialog::AlertDialog(QWidget *parent)
    : AlertDialogBase(parent)
    , notification(new AlarmNotification(this))
{
    setWindowTitle(tr("Reminders"));
    snoozebox->addItems(snoozeChoices());
    checkTimer.setInterval(retryMilliseconds);
    if (auto *application = qobject_cast<QPEApplication *>(qApp))
        connect(application, &QPEApplication::appMessage, this, &AlertDialog::appMessage);
    connect(lv, qOverload<PIMRecord *>(&PIMListView::selected), this, &AlertDialog::selected);
    connect(&checkTimer, &QTimer::timeout, this, &AlertDialog::check);
    connect(notification, &AlarmNotification::activated, this, &AlertDialog::raiseMainWindow);
    selected(nullptr);
}

// Alarms still waiting go back to the alarm service, due at once, so the next start
// brings them instead of their being lost with the program.
AlertDialog::~AlertDialog()
{
    const AlarmServer::Batch batch;
    for (const QString &message : std::as_const(pending))
        AlarmServer::addAlarm(
            QDateTime::currentDateTime(), DataManager::alarmChannel, message.toLatin1(), 0);
}

QStringList AlertDialog::snoozeChoices()
{
    return { tr("5 minutes"), tr("10 minutes"), tr("15 minutes"), tr("30 minutes"), tr("1 hour"),
        tr("3 hours"), tr("6 hours"), tr("1 day") };
}

// The seconds of now are kept and its milliseconds dropped, on now itself, so that the
// second pass of an hour the clocks go back over stays the second. The day moves by the
// calendar, so it keeps its clock time across a change of summer time.
QDateTime AlertDialog::snoozeMoment(const QDateTime &now, int choice)
{
    const QDateTime from = now.addMSecs(-now.time().msec());
    if (choice == OneDay)
        return from.addDays(1);
    return from.addSecs(snoozeSeconds[qBound(0, choice, OneDay - 1)]);
}

void AlertDialog::setAlarmOutput(Alert::PlayFunction play, Alert::LedFunction led)
{
    m_play = std::move(play);
    m_led = std::move(led);
}

void AlertDialog::appMessage(const QByteArray &msg, const QByteArray &)
{
    if (!msg.startsWith(alarmPrefix))
        return;
    const QString message = QString::fromLatin1(msg);
    if (!editorIsFree()) {
        postpone(message);
        return;
    }
    DataRecord *record = findTask(message.mid(int(qstrlen(alarmPrefix))));
    if (!record)
        return;
    PIMManager *owner = record->manager();
    if (manager && owner != manager) {
        // The list shows another card's reminders: this one waits until it is closed.
        Q_EMIT freeManager(owner);
        postpone(message);
        return;
    }
    if (!record->hasReminder()) {
        // Dismissed since the alarm was made.
        if (owner != manager)
            Q_EMIT freeManager(owner);
        return;
    }
    if (!manager) {
        manager = owner;
        Q_EMIT setupView(lv, record);
    }
    // The desktop's stand-in for the LED, and word of an alarm the user may not see.
    const bool notify = record->reminder()->led || mainWindowAway();
    addRow(record);
    if (notify)
        notification->show(noticeText(record));
    if (inDialog)
        return;
    if (alert) {
        alert->start(record->reminder());
        return;
    }
    runAlert(record);
    runList();
}

// The card on show is asked first: loaded anew, a card that is not open would come back
// as another card each time, and its alarms would wait for the list to close.
DataRecord *AlertDialog::findTask(const QString &uid)
{
    if (manager)
        if (PIMRecord *record = manager->findByUid(uid))
            return static_cast<DataRecord *>(record);
    DataRecord *record = nullptr;
    Q_EMIT getTask(&record, uid);
    return record;
}

bool AlertDialog::mainWindowAway() const
{
    const QWidget *main = parentWidget() ? parentWidget()->window() : nullptr;
    return !main || !main->isVisible() || main->isMinimized();
}

// The record as its row shows it, and its card, titled by its file name as in the list.
QString AlertDialog::noticeText(DataRecord *record) const
{
    QStringList cells;
    if (const RecordItem *row = lv->findItem(record))
        for (int column = 0; column < lv->columnCount(); ++column)
            if (!row->text(column).isEmpty())
                cells << row->text(column);
    return cells.join(QStringLiteral("  ")) + QLatin1Char('\n')
        + QFileInfo(record->manager()->fullPath()).completeBaseName();
}

bool AlertDialog::editorIsFree()
{
    bool free = true;
    Q_EMIT editDialogIsFree(&free);
    return free;
}

void AlertDialog::postpone(const QString &message)
{
    pending.append(message);
    checkTimer.start();
}

void AlertDialog::addRow(DataRecord *record)
{
    Q_EMIT raiseMainWindow();
    // The main window come to the front must not bury what the user is to answer.
    if (alert)
        alert->raise();
    else if (inDialog)
        raise();
    lv->newTask(record);
    setWindowTitle(QString::number(lv->itemCount()) + QLatin1Char(' ') + tr("Reminders"));
}

void AlertDialog::runAlert(DataRecord *record)
{
    alert = new Alert(parentWidget(), m_play, m_led);
    alert->start(record->reminder());
    alert->exec();
    delete alert;
    alert = nullptr;
    notification->close();
}

void AlertDialog::runList()
{
    // Everything may have gone while the alert was up.
    if (!manager || lv->itemCount() == 0)
        return;
    // Maximized by state, not shown beforehand: a dialog already visible when exec() starts
    // would not become modal and stay blocked behind any dialog opened before it.
    setWindowState(windowState() | Qt::WindowMaximized);
    inDialog = true;
    lv->setFocus();
    exec();
    inDialog = false;
}

void AlertDialog::check()
{
    if (!editorIsFree())
        return;
    if (pending.isEmpty()) {
        checkTimer.stop();
        return;
    }
    const QString message = pending.takeFirst();
    if (pending.isEmpty())
        checkTimer.stop();
    appMessage(message.toLatin1(), QByteArray());
}

void AlertDialog::selected(PIMRecord *record)
{
    const Reminder *reminder = record ? static_cast<DataRecord *>(record)->reminder() : nullptr;
    if (!reminder)
        date->clear();
    else if (!reminder->dateTime.date().isValid())
        date->setText(tr("None"));
    else
        date->setText(reminder->dateTime.date().toString());
    snoozebutton->setEnabled(reminder != nullptr);
    snoozebox->setEnabled(reminder != nullptr);
}

DataRecord *AlertDialog::currentRecord() const
{
    return static_cast<DataRecord *>(lv->currentTask());
}

// The saved copy moves the record's alarm to the new moment.
void AlertDialog::snooze()
{
    DataRecord *record = currentRecord();
    if (!record || !record->hasReminder())
        return;
    auto *old = new DataRecord(*record);
    record->reminder()->dateTime
        = snoozeMoment(QDateTime::currentDateTime(), snoozebox->currentIndex());
    const AlarmServer::Batch batch;
    record->save(old);
    lv->removeTask(record);
    closeWhenEmpty();
}

void AlertDialog::dismiss()
{
    DataRecord *record = currentRecord();
    if (!record)
        return;
    lv->removeTask(record);
    const AlarmServer::Batch batch;
    dismissRecord(record);
    closeWhenEmpty();
}

// The rows go at once and the alarms of all in one write of the alarm table; the card
// counts the changes and saves once, from the event loop.
void AlertDialog::dismissAll()
{
    QList<DataRecord *> records;
    records.reserve(lv->itemCount());
    for (int row = 0; row < lv->itemCount(); ++row)
        records << static_cast<DataRecord *>(static_cast<RecordItem *>(lv->itemAtRow(row))->record());
    lv->clear();
    {
        const AlarmServer::Batch batch;
        for (DataRecord *record : std::as_const(records))
            dismissRecord(record);
    }
    accept();
}

// Saving the copy without a reminder deletes the record's alarm.
void AlertDialog::dismissRecord(DataRecord *record)
{
    auto *old = new DataRecord(*record);
    record->setReminder(nullptr);
    record->save(old);
}

void AlertDialog::closeWhenEmpty()
{
    if (lv->itemCount() == 0)
        accept();
}

void AlertDialog::open()
{
    if (DataRecord *record = currentRecord())
        Q_EMIT editTask(record);
}

// Every way out lets the card go and empties the list.
void AlertDialog::done(int result)
{
    PIMManager *shown = manager;
    manager = nullptr;
    lv->setManager(nullptr, false);
    lv->clear();
    notification->close();
    Q_EMIT freeManager(shown);
    AlertDialogBase::done(result);
}
