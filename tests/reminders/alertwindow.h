#ifndef ALERTWINDOW_H
#define ALERTWINDOW_H

#include "card/taskfinder.h"
#include "reminders/alertdialog.h"
#include "reminders/reminder.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "views/listview.h"

#include <QPushButton>
#include <QtTest>

#include <functional>

// What the reminder list's tests share: the main window's part around an AlertDialog, and
// a user who answers the alert screen and the list as each comes up.
enum Case { SameCard, OtherCard, EditorBusy, NoReminder, UnknownUid };

// The main window's part: an open card, another card on disk, and the services.
struct Window {
    TestHome home;
    std::unique_ptr<DataManager> open
        = testCard(home.file(QStringLiteral("a.card")), { testField(0) }, { "a1", "a2", "a3" });
    QString otherPath = home.file(QStringLiteral("b.card"));
    QString otherUid;
    AlertDialog dialog;
    bool busy = false;
    bool cardOpen = true;
    int plays = 0;
    int freed = 0;

    // extra more records of the open card, with reminders due a day ago.
    explicit Window(int extra = 0)
    {
        for (int i = 0; i < extra; ++i) {
            addNamed(*open, { QStringLiteral("r%1").arg(i) });
            auto *reminder = new Reminder;
            reminder->dateTime = QDateTime::currentDateTime().addDays(-1);
            reminder->sound = true;
            static_cast<DataRecord *>(open->view().last())->setReminder(reminder);
        }
        for (int row : { 0, 1 })
            setReminder(open->view().at(row), QDateTime::currentDateTime().addSecs(600));
        auto other = testCard(otherPath, { testField(0) }, { "b1" });
        setReminder(other->view().at(0), QDateTime::currentDateTime().addSecs(600));
        otherUid = other->view().at(0)->uidString();
        other->save();
        dialog.setAlarmOutput([this] { ++plays; }, [](bool, int) {});
        QObject::connect(
            &dialog, &AlertDialog::editDialogIsFree, [this](bool *free) { *free = !busy; });
        QObject::connect(
            &dialog, &AlertDialog::getTask, [this](DataRecord **result, const QString &uid) {
                *result = TaskFinder::find(
                    cardOpen ? open.get() : nullptr, { open->fullPath(), otherPath }, uid);
            });
        QObject::connect(&dialog, &AlertDialog::freeManager, [this](PIMManager *manager) {
            if (manager && manager != open.get()) {
                ++freed;
                delete manager;
            }
        });
        QObject::connect(
            &dialog, &AlertDialog::setupView, [](PIMListView *view, DataRecord *record) {
                view->setManager(record->manager(), false);
                static_cast<ListView *>(view)->setFields(
                    static_cast<DataManager *>(record->manager())->fields());
                view->setColumns({ 0 });
                view->init();
            });
    }
    // Saved through a copy, as the editor does, so that the alarm is registered.
    static void setReminder(PIMRecord *record, const QDateTime &when)
    {
        auto *data = static_cast<DataRecord *>(record);
        auto *old = new DataRecord(*data);
        auto *reminder = new Reminder;
        reminder->dateTime = when;
        reminder->sound = true;
        data->setReminder(reminder);
        data->save(old);
    }
    QByteArray message(int row) const
    {
        return "alarm(QDateTime,int)" + open->view().at(row)->uidString().toLatin1();
    }
    QByteArray message(Case which) const
    {
        switch (which) {
        case SameCard:
            return message(1);
        case OtherCard:
            return "alarm(QDateTime,int)" + otherUid.toLatin1();
        case NoReminder:
            return message(2);
        case UnknownUid:
            return "alarm(QDateTime,int)0badc0de";
        default:
            return message(0);
        }
    }
    void deliver(const QByteArray &msg) { dialog.appMessage(msg, QByteArray()); }
};

// Answers the alert screen and then the list once each is up, as the user would.
struct Answers {
    QTimer poll;
    Answers(AlertDialog &dialog, const std::function<void(Alert *)> &onAlert,
        const std::function<void(AlertDialog *)> &onList)
    {
        poll.setInterval(10);
        QObject::connect(&poll, &QTimer::timeout, [&dialog, onAlert, onList] {
            Alert *alert = dialog.runningAlert();
            if (alert && alert->isVisible() && !alert->property("answered").toBool()) {
                alert->setProperty("answered", true);
                onAlert(alert);
            } else if (dialog.isListing() && dialog.isVisible()) {
                onList(&dialog);
            }
        });
        poll.start();
    }
};

template <class T> void pressButton(T *dialog, const QString &text)
{
    const auto buttons = dialog->template findChildren<QPushButton *>();
    for (QPushButton *button : buttons)
        if (button->text() == text && button->isVisible())
            return QTest::mouseClick(button, Qt::LeftButton);
    QFAIL(qPrintable(QStringLiteral("no button ") + text));
}

#endif
