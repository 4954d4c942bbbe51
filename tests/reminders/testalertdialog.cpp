#include "alertwindow.h"

#include "lib/qt/mrllistviewitem.h"
#include "platform/alarmserver.h"
#include "platform/alarmtable.h"

#include <QDialogButtonBox>

// The reminder list: what an arriving alarm does in each state of the list, where the
// snooze choices move a reminder, and what its buttons do to the records and their alarms.
class TestAlertDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void arrivingAlarm_data();
    void arrivingAlarm();
    void snoozeMoment_data();
    void snoozeMoment();
    void buttons_data();
    void buttons();
    void manyAtOnce_data();
    void manyAtOnce();
    void pendingKeptAtQuit();
};

namespace
{
enum State { Idle, Alerting, Listing };
} // namespace

void TestAlertDialog::initTestCase()
{
    // A day with a change to summer time at 2:00.
    qputenv("TZ", "Europe/Berlin");
}

void TestAlertDialog::arrivingAlarm_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("which");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("pending");
    QTest::addColumn<int>("plays");
    QTest::addColumn<int>("freed");
    const char *states[] = { "idle", "alerting", "listing" };
    const char *cases[] = { "same card", "other card", "editor busy", "no reminder", "unknown" };
    // rows, pending, plays, freed for each state and case at the moment of the check.
    const int expected[3][5][4] = {
        { { 1, 0, 1, 0 }, { 1, 0, 1, 0 }, { 0, 1, 0, 0 }, { 0, 0, 0, 0 }, { 0, 0, 0, 0 } },
        { { 2, 0, 2, 0 }, { 1, 1, 1, 1 }, { 1, 1, 1, 0 }, { 1, 0, 1, 0 }, { 1, 0, 1, 0 } },
        { { 2, 0, 1, 0 }, { 1, 1, 1, 1 }, { 1, 1, 1, 0 }, { 1, 0, 1, 0 }, { 1, 0, 1, 0 } },
    };
    for (int s = 0; s < 3; ++s)
        for (int c = 0; c < 5; ++c) {
            const int *e = expected[s][c];
            QTest::addRow("%s, %s", states[s], cases[c]) << s << c << e[0] << e[1] << e[2] << e[3];
        }
}

void TestAlertDialog::arrivingAlarm()
{
    QFETCH(int, state);
    QFETCH(int, which);
    Window w;
    bool checked = false;
    auto snapshot = [&] {
        checked = true;
        QTEST(w.dialog.list()->itemCount(), "rows");
        QTEST(int(w.dialog.pendingMessages().size()), "pending");
        QCOMPARE(w.dialog.isRetrying(), w.dialog.pendingMessages().size() > 0);
        QTEST(w.plays, "plays");
        QTEST(w.freed, "freed");
    };
    auto arrive = [&] {
        w.busy = which == EditorBusy;
        w.deliver(w.message(Case(which)));
        w.busy = false;
        if (!checked)
            snapshot();
    };
    Answers answers(
        w.dialog,
        [&](Alert *alert) {
            if (state == Alerting)
                arrive();
            else if (state == Idle)
                snapshot();
            pressButton(alert, QStringLiteral("Ok"));
        },
        [&](AlertDialog *dialog) {
            if (state == Listing)
                arrive();
            QTest::mouseClick(
                dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Close),
                Qt::LeftButton);
        });
    if (state == Idle)
        arrive();
    else
        w.deliver(w.message(0));
    QVERIFY(checked);
    // Closed, the list holds nothing and no card it borrowed is left over.
    QCOMPARE(w.dialog.shownManager(), nullptr);
    QCOMPARE(w.dialog.list()->itemCount(), 0);
    QCOMPARE(w.freed, which == OtherCard ? 1 : 0);
}

void TestAlertDialog::snoozeMoment_data()
{
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<int>("choice");
    QTest::addColumn<QDateTime>("moment");
    auto at = [](const char *iso) {
        return QDateTime::fromString(QString::fromLatin1(iso), Qt::ISODateWithMs).toLocalTime();
    };
    // Each choice on a plain day, on the day clocks go from 2:00 to 3:00 and on the day
    // they go back from 3:00 to 2:00, at the second 1:30 hour: hours are elapsed time, a day
    // keeps the clock time, the seconds of now stay and its milliseconds go.
    const struct {
        const char *day;
        const char *now;
        const char *moments[AlertDialog::SnoozeChoiceCount];
    } days[] = {
        { "plain", "2030-06-10T12:34:56.789+02:00",
            { "12:39:56+02:00", "12:44:56+02:00", "12:49:56+02:00", "13:04:56+02:00",
                "13:34:56+02:00", "15:34:56+02:00", "18:34:56+02:00",
                "2030-06-11T12:34:56+02:00" } },
        { "spring", "2030-03-31T01:30:15.500+01:00",
            { "01:35:15+01:00", "01:40:15+01:00", "01:45:15+01:00", "03:00:15+02:00",
                "03:30:15+02:00", "05:30:15+02:00", "08:30:15+02:00",
                "2030-04-01T01:30:15+02:00" } },
        { "autumn", "2030-10-27T02:30:15.500+01:00",
            { "02:35:15+01:00", "02:40:15+01:00", "02:45:15+01:00", "03:00:15+01:00",
                "03:30:15+01:00", "05:30:15+01:00", "08:30:15+01:00",
                "2030-10-28T02:30:15+01:00" } },
    };
    const QStringList labels = AlertDialog::snoozeChoices();
    for (const auto &day : days)
        for (int choice = 0; choice < AlertDialog::SnoozeChoiceCount; ++choice) {
            const QByteArray moment = day.moments[choice];
            const QByteArray iso
                = moment.size() > 14 ? moment : QByteArray(day.now).left(11) + moment;
            QTest::addRow("%s, %s", day.day, qPrintable(labels.at(choice)))
                << at(day.now) << choice << at(iso.constData());
        }
}

void TestAlertDialog::snoozeMoment()
{
    QFETCH(QDateTime, now);
    QFETCH(int, choice);
    QTEST(AlertDialog::snoozeMoment(now, choice), "moment");
}

void TestAlertDialog::buttons_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("rowsLeft");
    QTest::addColumn<int>("remindersLeft");
    QTest::addColumn<int>("alarmsLeft");
    QTest::addColumn<int>("edits");
    QTest::addColumn<bool>("firstAlarm");
    // Two reminders of the open card listed, the first row current; one more in another card.
    QTest::newRow("Snooze") << "Snooze" << 1 << 2 << 3 << 0 << true;
    QTest::newRow("Dismiss") << "Dismiss" << 1 << 1 << 2 << 0 << false;
    QTest::newRow("Dismiss All") << "Dismiss All" << 0 << 0 << 1 << 0 << false;
    QTest::newRow("Open") << "Open" << 2 << 2 << 3 << 1 << true;
}

void TestAlertDialog::buttons()
{
    QFETCH(QString, button);
    Window w;
    int edits = 0;
    QObject::connect(&w.dialog, &AlertDialog::editTask, [&edits](DataRecord *) { ++edits; });
    const QDateTime before = static_cast<DataRecord *>(w.open->view().at(0))->reminder()->dateTime;
    Answers answers(
        w.dialog,
        [&](Alert *alert) {
            w.deliver(w.message(1));
            pressButton(alert, QStringLiteral("Ok"));
        },
        [&](AlertDialog *dialog) {
            static_cast<QTreeWidget *>(dialog->list())
                ->setCurrentItem(dialog->list()->itemAtRow(0));
            pressButton(dialog, button);
            QTEST(dialog->list()->itemCount(), "rowsLeft");
            if (dialog->isVisible())
                QTest::keyClick(dialog, Qt::Key_Escape);
        });
    w.deliver(w.message(0));
    QVERIFY(!w.dialog.isVisible());
    int reminders = 0;
    for (PIMRecord *record : w.open->view())
        reminders += static_cast<DataRecord *>(record)->hasReminder();
    QTEST(reminders, "remindersLeft");
    AlarmTable table;
    QTEST(int(table.alarms().size()), "alarmsLeft");
    QTEST(edits, "edits");
    const auto *first = static_cast<DataRecord *>(w.open->view().at(0))->reminder();
    const bool alarmed = std::any_of(
        table.alarms().cbegin(), table.alarms().cend(), [&](const AlarmTable::Alarm &alarm) {
            return first && alarm.message == w.message(0) && alarm.when == first->dateTime;
        });
    QTEST(alarmed, "firstAlarm");
    // Snoozed five minutes from now, the seconds of now kept.
    if (button == QLatin1String("Snooze"))
        QVERIFY(qAbs(first->dateTime.secsTo(QDateTime::currentDateTime().addSecs(300))) <= 2
            && first->dateTime != before);
}

void TestAlertDialog::manyAtOnce_data()
{
    QTest::addColumn<int>("alarms");
    QTest::addColumn<bool>("cardOpen");
    QTest::addColumn<bool>("dismissAll");
    QTest::addColumn<int>("plays");
    QTest::newRow("one") << 1 << true << false << 1;
    QTest::newRow("two sound") << 2 << true << false << 2;
    QTest::newRow("the third only adds its row") << 3 << true << false << 2;
    QTest::newRow("a thousand after a long absence") << 1000 << true << false << 2;
    QTest::newRow("a thousand of a card not open") << 1000 << false << false << 2;
    QTest::newRow("one dismissed") << 1 << true << true << 1;
    QTest::newRow("a thousand dismissed") << 1000 << true << true << 2;
    QTest::newRow("a thousand of a card not open dismissed") << 1000 << false << true << 2;
}

// Alarms that fell due together arrive queued, as the alarm service sends them: each adds
// its row while the alert is up, the window keeps running, and the sounds stay capped.
// Dismissed all at once, their alarms go in one write of the table and the card keeps
// none of their reminders.
void TestAlertDialog::manyAtOnce()
{
    QFETCH(int, alarms);
    QFETCH(bool, cardOpen);
    QFETCH(bool, dismissAll);
    Window w(alarms);
    AlertDialog &dialog = w.dialog;
    w.cardOpen = cardOpen;
    {
        const AlarmServer::Batch batch;
        for (int i = 0; i < alarms; ++i) {
            const auto *record = static_cast<DataRecord *>(w.open->view().at(3 + i));
            AlarmServer::addAlarm(record->reminder()->dateTime, DataManager::alarmChannel,
                DataManager::alarmMessage(record));
        }
    }
    QVERIFY(w.open->save());
    for (int i = 0; i < alarms; ++i)
        QMetaObject::invokeMethod(
            &dialog, [&w, i] { w.deliver(w.message(3 + i)); }, Qt::QueuedConnection);
    // The longest the event loop went without turning while the alarms arrived.
    QElapsedTimer sinceTick;
    qint64 longestGap = 0;
    QTimer tick;
    QObject::connect(
        &tick, &QTimer::timeout, [&] { longestGap = qMax(longestGap, sinceTick.restart()); });
    tick.start(20);
    sinceTick.start();
    int rowsAtAlert = -1;
    qint64 gapWhileArriving = -1;
    int tableWrites = -1;
    Answers answers(
        dialog,
        [&](Alert *alert) {
            QTRY_COMPARE(dialog.list()->itemCount(), alarms);
            rowsAtAlert = dialog.list()->itemCount();
            gapWhileArriving = longestGap;
            QTEST(alert->repeatTimerCount(), "plays");
            pressButton(alert, QStringLiteral("Ok"));
        },
        [&](AlertDialog *list) {
            if (tableWrites >= 0)
                return;
            const int writesBefore = AlarmTable::writeCount();
            if (dismissAll)
                pressButton(list, QStringLiteral("Dismiss All"));
            else
                QTest::keyClick(list, Qt::Key_Escape);
            tableWrites = AlarmTable::writeCount() - writesBefore;
        });
    QTest::qWait(0);
    QCOMPARE(rowsAtAlert, alarms);
    QTEST(w.plays, "plays");
    // The card loaded for the list goes once it closes.
    QCOMPARE(w.freed, cardOpen ? 0 : 1);
    QVERIFY2(gapWhileArriving < 1000, qPrintable(QString::number(gapWhileArriving)));
    QCOMPARE(tableWrites, dismissAll ? 1 : 0);
    // The two reminders of the open card and the one of the other card stay.
    QCOMPARE(int(AlarmTable().alarms().size()), 3 + (dismissAll ? 0 : alarms));
    if (cardOpen)
        QVERIFY(w.open->save());
    DataManager saved(w.open->fullPath());
    QVERIFY(saved.load());
    int reminders = 0;
    for (PIMRecord *record : saved.view())
        reminders += static_cast<DataRecord *>(record)->hasReminder();
    QCOMPARE(reminders, 2 + (dismissAll ? 0 : alarms));
}

void TestAlertDialog::pendingKeptAtQuit()
{
    TestHome home;
    const QByteArray message = "alarm(QDateTime,int)0f8fad5b-d9cb-469f-a165-70867728950e";
    {
        AlertDialog dialog;
        QObject::connect(
            &dialog, &AlertDialog::editDialogIsFree, [](bool *free) { *free = false; });
        dialog.appMessage(message, {});
        QCOMPARE(dialog.pendingMessages().size(), 1);
    }
    AlarmTable table;
    QCOMPARE(table.alarms().size(), 1);
    QCOMPARE(table.alarms().first().message, message);
    QVERIFY(table.alarms().first().when <= QDateTime::currentDateTime());
}

QTEST_MAIN(TestAlertDialog)
#include "testalertdialog.moc"
