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
    // Sets the pop-up's editor, then presses action: "button<n>" or "escape".
    template <class Editor>
    static void answer(const std::function<void(Editor *)> &edit, const QString &action);
    static void press(PopupDialog *popup, const QString &action);
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
    QTest::newRow("move and return") << "Oslo"
                                     << "down,return"
                                     << "Oslo" << true << "Bergen";
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
