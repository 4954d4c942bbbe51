#include "edit/popupchoosers.h"

#include "edit/popupdialog.h"
#include "lib/qt/mldateedit.h"
#include "lib/qt/mldatetimeedit.h"
#include "lib/qt/mltimeedit.h"
#include "store/mrlpim.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

// The pop-up choosers: what each button writes back and whether it reports a change.
class TestPopupChoosers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editDate_data();
    void editDate();
    void editTime_data();
    void editTime();
    void editDateTime_data();
    void editDateTime();
    void editReminderDateTime_data();
    void editReminderDateTime();
    void chooseFromList_data();
    void chooseFromList();
    void editText_data();
    void editText();
    void keptInside_data();
    void keptInside();

private:
    // Sets the pop-up's editor, then presses action: "button<n>" or "escape".
    template <class Editor>
    static void answer(const std::function<void(Editor *)> &edit, const QString &action);
    static void press(PopupDialog *popup, const QString &action);
    static bool nearNow(const QTime &time);
};

void TestPopupChoosers::press(PopupDialog *popup, const QString &action)
{
    if (action == QLatin1String("escape"))
        QTest::keyClick(popup, Qt::Key_Escape);
    else
        popup->findChild<QPushButton *>(action)->click();
}

template <class Editor>
void TestPopupChoosers::answer(const std::function<void(Editor *)> &edit, const QString &action)
{
    whenShown<PopupDialog>([edit, action](PopupDialog *popup) {
        if (edit)
            edit(popup->findChild<Editor *>(QStringLiteral("editor")));
        press(popup, action);
    });
}

bool TestPopupChoosers::nearNow(const QTime &time)
{
    const int apart = qAbs(time.secsTo(QTime::currentTime()));
    return time.isValid() && (apart <= 2 || apart >= 86398);
}

void TestPopupChoosers::editDate_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QDate>("typed");
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<QDate>("result");

    const QDate day(2004, 3, 7);
    const QDate other(2005, 1, 2);
    const QDate today = QDate::currentDate();
    QTest::newRow("set as it was") << day << QDate() << "button1" << false << day;
    QTest::newRow("set another") << day << other << "button1" << true << other;
    QTest::newRow("no date starts today") << QDate() << QDate() << "button1" << true << today;
    QTest::newRow("today") << day << other << "button2" << true << today;
    QTest::newRow("none") << day << QDate() << "button3" << true << QDate();
    QTest::newRow("none on none") << QDate() << QDate() << "button3" << false << QDate();
    QTest::newRow("dismissed") << day << other << "escape" << false << day;
}

void TestPopupChoosers::editDate()
{
    QFETCH(QDate, date);
    QFETCH(QDate, typed);
    QFETCH(QString, action);
    QFETCH(bool, changed);
    QFETCH(QDate, result);

    TestHome home;
    answer<MLDateEdit>(
        [typed](MLDateEdit *edit) {
            if (typed.isValid())
                edit->setDate(typed);
        },
        action);
    QCOMPARE(::editDate(nullptr, QPoint(10, 10), date), changed);
    QCOMPARE(date, result);
}

void TestPopupChoosers::editTime_data()
{
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QTime>("typed");
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<QTime>("result");

    const QTime time(13, 5, 42);
    QTest::newRow("set as it was") << time << QTime() << "button1" << false << time;
    QTest::newRow("set another") << time << QTime(8, 15) << "button1" << true << QTime(8, 15);
    QTest::newRow("current") << time << QTime() << "button2" << true << QTime();
    QTest::newRow("dismissed") << time << QTime(8, 15) << "escape" << false << time;
}

void TestPopupChoosers::editTime()
{
    QFETCH(QTime, time);
    QFETCH(QTime, typed);
    QFETCH(QString, action);
    QFETCH(bool, changed);
    QFETCH(QTime, result);

    TestHome home;
    answer<MLTimeEdit>(
        [typed](MLTimeEdit *edit) {
            if (typed.isValid())
                edit->setTime(typed);
        },
        action);
    QCOMPARE(::editTime(nullptr, QPoint(10, 10), time), changed);
    if (result.isValid())
        QCOMPARE(time, result);
    else
        QVERIFY(nearNow(time));
}

void TestPopupChoosers::editDateTime_data()
{
    QTest::addColumn<QDateTime>("moment");
    QTest::addColumn<QDateTime>("typed");
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<QDateTime>("result");

    const QDateTime moment(QDate(2004, 3, 7), QTime(18, 5, 9));
    const QDateTime other(QDate(2006, 6, 6), QTime(6, 6));
    QTest::newRow("set as it was") << moment << QDateTime() << "button1" << false << moment;
    QTest::newRow("set another") << moment << other << "button1" << true << other;
    QTest::newRow("current") << moment << QDateTime() << "button2" << true << QDateTime();
    QTest::newRow("dismissed") << moment << other << "escape" << false << moment;
}

void TestPopupChoosers::editDateTime()
{
    QFETCH(QDateTime, moment);
    QFETCH(QDateTime, typed);
    QFETCH(QString, action);
    QFETCH(bool, changed);
    QFETCH(QDateTime, result);

    TestHome home;
    answer<MLDateTimeEdit>(
        [typed](MLDateTimeEdit *edit) {
            if (typed.isValid())
                edit->setDateTime(typed);
        },
        action);
    QCOMPARE(::editDateTime(nullptr, QPoint(10, 10), moment), changed);
    if (result.isValid()) {
        QCOMPARE(moment, result);
    } else {
        QVERIFY(qAbs(moment.secsTo(QDateTime::currentDateTime())) <= 2);
        QCOMPARE(moment.time().msec(), 0);
    }
}

void TestPopupChoosers::editReminderDateTime_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<bool>("removed");
    QTest::addColumn<QDateTime>("result");

    const QDateTime moment(QDate(2004, 3, 7), QTime(18, 5));
    const QDateTime other(QDate(2006, 6, 6), QTime(6, 6));
    QTest::newRow("remove reminder") << "button1" << true << true << moment;
    QTest::newRow("set") << "button2" << true << false << other;
    QTest::newRow("dismissed") << "escape" << false << false << moment;
}

void TestPopupChoosers::editReminderDateTime()
{
    QFETCH(QString, action);
    QFETCH(bool, changed);
    QFETCH(bool, removed);
    QFETCH(QDateTime, result);

    TestHome home;
    QStringList buttons;
    whenShown<PopupDialog>([action, &buttons](PopupDialog *popup) {
        for (const QPushButton *button : popup->findChildren<QPushButton *>())
            buttons << button->text();
        popup->findChild<MLDateTimeEdit *>(QStringLiteral("editor"))
            ->setDateTime(QDateTime(QDate(2006, 6, 6), QTime(6, 6)));
        press(popup, action);
    });
    QDateTime moment(QDate(2004, 3, 7), QTime(18, 5));
    bool wasRemoved = !removed;
    QCOMPARE(::editReminderDateTime(nullptr, QPoint(10, 10), moment, wasRemoved), changed);
    QCOMPARE(wasRemoved, removed);
    QCOMPARE(moment, result);
    QCOMPARE(buttons, (QStringList { QStringLiteral("Remove Reminder"), QStringLiteral("Set") }));
}

void TestPopupChoosers::chooseFromList_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<QString>("result");

    QTest::newRow("click another") << "Bergen"
                                   << "click:Oslo"
                                   << "Bergen" << true << "Oslo";
    QTest::newRow("click the same") << "Bergen"
                                    << "click:Bergen"
                                    << "Bergen" << false << "Bergen";
    QTest::newRow("return takes the current") << "Bergen"
                                              << "return"
                                              << "Bergen" << false << "Bergen";
    QTest::newRow("move and return") << "Oslo"
                                     << "down,return"
                                     << "Oslo" << true << "Bergen";
    QTest::newRow("cancel") << "Bergen"
                            << "button1"
                            << "Bergen" << false << "Bergen";
    QTest::newRow("dismissed") << "Bergen"
                               << "escape"
                               << "Bergen" << false << "Bergen";
    QTest::newRow("text not in the list") << "Narvik"
                                          << "click:Oslo"
                                          << "" << true << "Oslo";
}

void TestPopupChoosers::chooseFromList()
{
    QFETCH(QString, text);
    QFETCH(QString, action);
    QFETCH(QString, selected);
    QFETCH(bool, changed);
    QFETCH(QString, result);

    TestHome home;
    MRLPIM::saveDataList(QStringLiteral("towns"),
        { QStringLiteral("Oslo"), QStringLiteral("Bergen"), QStringLiteral("Troms\u00f8") });
    QString shownSelected;
    whenShown<PopupDialog>([action, &shownSelected](PopupDialog *popup) {
        auto *list = popup->findChild<QListWidget *>(QStringLiteral("editor"));
        QCOMPARE(list->count(), 3);
        const QList<QListWidgetItem *> selection = list->selectedItems();
        shownSelected = selection.isEmpty() ? QString() : selection.first()->text();
        if (action.startsWith(QLatin1String("click:"))) {
            QListWidgetItem *item = list->findItems(action.mid(6), Qt::MatchExactly).first();
            QTest::mouseClick(
                list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
        } else if (action.endsWith(QLatin1String("return"))) {
            if (action.startsWith(QLatin1String("down")))
                QTest::keyClick(list, Qt::Key_Down);
            QTest::keyClick(list, Qt::Key_Return);
        } else {
            press(popup, action);
        }
    });
    QCOMPARE(::chooseFromList(nullptr, QPoint(10, 10), text, QStringLiteral("towns")), changed);
    QCOMPARE(text, result);
    QCOMPARE(shownSelected, selected);
}

void TestPopupChoosers::editText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<QString>("result");

    QTest::newRow("typed, close") << " more"
                                  << "button1" << true << "Some text more";
    QTest::newRow("untouched, close") << ""
                                      << "button1" << false << "Some text";
    QTest::newRow("typed, escape") << "!"
                                   << "escape" << true << "Some text!";
}

void TestPopupChoosers::editText()
{
    QFETCH(QString, typed);
    QFETCH(QString, action);
    QFETCH(bool, changed);
    QFETCH(QString, result);

    QString title;
    whenShown<PopupDialog>([&](PopupDialog *popup) {
        title = popup->findChild<QLabel *>(QStringLiteral("title"))->text();
        auto *edit = popup->findChild<QPlainTextEdit *>(QStringLiteral("editor"));
        edit->moveCursor(QTextCursor::End);
        QTest::keyClicks(edit, typed);
        press(popup, action);
    });
    QString text = QStringLiteral("Some text");
    QCOMPARE(::editText(nullptr, QStringLiteral("Notes"), text), changed);
    QCOMPARE(text, result);
    QCOMPARE(title, QStringLiteral("Notes"));
}

void TestPopupChoosers::keptInside_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<QPoint>("placed");

    QTest::newRow("fits") << QPoint(100, 100) << QPoint(100, 100);
    QTest::newRow("past the right") << QPoint(600, 100) << QPoint(540, 100);
    QTest::newRow("past the bottom") << QPoint(10, 460) << QPoint(10, 430);
    QTest::newRow("before the left") << QPoint(-20, -5) << QPoint(0, 0);
}

void TestPopupChoosers::keptInside()
{
    QFETCH(QPoint, pos);
    QFETCH(QPoint, placed);
    QCOMPARE(PopupDialog::keptInside(pos, QSize(100, 50), QRect(0, 0, 640, 480)), placed);
}

QTEST_MAIN(TestPopupChoosers)
#include "testpopupchoosers.moc"
