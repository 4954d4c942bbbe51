#include "edit/popupchoosers.h"

#include "edit/popupdialog.h"
#include "lib/qt/mldateedit.h"
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
    void chooseFromList_data();
    void chooseFromList();
    void editText_data();
    void editText();
    void keptInside_data();
    void keptInside();

private:
    // Presses action on the pop-up: "button<n>" or "escape".
    static void press(PopupDialog *popup, const QString &action);
};

void TestPopupChoosers::press(PopupDialog *popup, const QString &action)
{
    if (action == QLatin1String("escape"))
        QTest::keyClick(popup, Qt::Key_Escape);
    else
        popup->findChild<QPushButton *>(action)->click();
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
    QTest::newRow("set another") << day << other << "button1" << true << other;
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

    TestHome home;
    whenShown<PopupDialog>([typed, action](PopupDialog *popup) {
        if (typed.isValid())
            popup->findChild<MLDateEdit *>(QStringLiteral("editor"))->setDate(typed);
        press(popup, action);
    });
    QTEST(::editDate(nullptr, QPoint(10, 10), date), "changed");
    QTEST(date, "result");
}

void TestPopupChoosers::chooseFromList_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<QString>("result");

    const auto row = [](const char *name, const char *text, const char *action,
                         const char *selected, bool changed, const char *result) {
        QTest::newRow(name) << QString(text) << QString(action) << QString(selected) << changed
                            << QString(result);
    };
    row("click another", "Bergen", "click:Oslo", "Bergen", true, "Oslo");
    row("move and return", "Oslo", "down,return", "Oslo", true, "Bergen");
    row("dismissed", "Bergen", "escape", "Bergen", false, "Bergen");
    row("text not in the list", "Narvik", "click:Oslo", "", true, "Oslo");
}

void TestPopupChoosers::chooseFromList()
{
    QFETCH(QString, text);
    QFETCH(QString, action);

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
    QTEST(::chooseFromList(nullptr, QPoint(10, 10), text, QStringLiteral("towns")), "changed");
    QTEST(text, "result");
    QTEST(shownSelected, "selected");
}

void TestPopupChoosers::editText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<QString>("result");

    const auto row = [](const char *name, const char *typed, const char *action, bool changed,
                         const char *result) {
        QTest::newRow(name) << QString(typed) << QString(action) << changed << QString(result);
    };
    row("typed, close", " more", "button1", true, "Some text more");
    row("untouched, close", "", "button1", false, "Some text");
    row("typed, escape", "!", "escape", true, "Some text!");
}

void TestPopupChoosers::editText()
{
    QFETCH(QString, typed);
    QFETCH(QString, action);

    QString title;
    whenShown<PopupDialog>([&](PopupDialog *popup) {
        title = popup->findChild<QLabel *>(QStringLiteral("title"))->text();
        auto *edit = popup->findChild<QPlainTextEdit *>(QStringLiteral("editor"));
        edit->moveCursor(QTextCursor::End);
        QTest::keyClicks(edit, typed);
        press(popup, action);
    });
    QString text = QStringLiteral("Some text");
    QTEST(::editText(nullptr, QStringLiteral("Notes"), text), "changed");
    QTEST(text, "result");
    QCOMPARE(title, QStringLiteral("Notes"));
}

void TestPopupChoosers::keptInside_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<QPoint>("placed");

    QTest::newRow("fits") << QPoint(100, 100) << QPoint(100, 100);
    QTest::newRow("past the right") << QPoint(600, 100) << QPoint(540, 100);
    QTest::newRow("before the left") << QPoint(-20, -5) << QPoint(0, 0);
}

void TestPopupChoosers::keptInside()
{
    QFETCH(QPoint, pos);
    QTEST(PopupDialog::keptInside(pos, QSize(100, 50), QRect(0, 0, 640, 480)), "placed");
}

QTEST_MAIN(TestPopupChoosers)
#include "testpopupchoosers.moc"
