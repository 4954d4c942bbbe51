#include "app/dbdialog.h"
#include "app/dbeditor.h"
#include "app/mrldb.h"
#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "edit/dataeditor.h"
#include "edit/datascrollview.h"
#include "lib/qt/enterstringdialog.h"
#include "lib/qt/mrlaction.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "support/whenshown.h"
#include "views/listview.h"
#include "views/recorditem.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>
#include <QtTest>

// A new user's road through the real main window, by clicks and keys on what is on screen:
// a card made in the chooser, records added, one changed in place and one removed; then the
// card on disk holds exactly what the user kept.
class TestAcceptance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void newUserKeepsRecords();
};

namespace
{
void click(QWidget *widget)
{
    QVERIFY2(widget && widget->isVisible(), "a visible widget to click");
    QTest::mouseClick(widget, Qt::LeftButton);
}

QWidget *button(QWidget *dialog, const char *name)
{
    return dialog->findChild<QAbstractButton *>(QLatin1String(name));
}

QWidget *toolButton(MRLDB &window, const char *action)
{
    return window.findChild<QToolBar *>()->widgetForAction(window.action(action));
}

void answer(bool yes)
{
    whenShown<MRLDialog>(
        [yes](MRLDialog *box) { click(button(box, yes ? "button1" : "button2")); });
}

// The field editor is another window's work: the fields come through the card's own code.
void giveFields(const QString &path)
{
    DataManager card(path);
    QVERIFY(card.load());
    card.setFields({ testField(FieldDef::String, "Name"), testField(FieldDef::Integer, "Amount") });
    QVERIFY(card.forceSave());
}

QLineEdit *field(DataEditor *editor, int i)
{
    return qobject_cast<QLineEdit *>(editor->form()->valueWidget(i));
}

// New Record from the tool bar; the values typed, then Ok clicked or Return pressed.
void addRecord(MRLDB &window, const QString &name, const QString &amount, bool byReturn)
{
    whenShown<DataEditor>([=](DataEditor *editor) {
        QTest::keyClicks(field(editor, 0), name);
        QTest::keyClicks(field(editor, 1), amount);
        if (byReturn)
            QTest::keyClick(field(editor, 1), Qt::Key_Return);
        else
            click(button(editor, "btnOk"));
    });
    click(toolButton(window, "new"));
}

int rowOf(ListView *list, const QString &name)
{
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        auto *item = static_cast<RecordItem *>(list->topLevelItem(row));
        if (static_cast<DataRecord *>(item->record())->stringValue(0) == name)
            return row;
    }
    return -1;
}

// A tap in a cell, where the list looks for it: at the pointer.
void tapCell(ListView *list, int row, int column)
{
    QRect cell = list->visualItemRect(list->topLevelItem(row));
    cell.setLeft(list->header()->sectionViewportPosition(column));
    cell.setWidth(list->header()->sectionSize(column));
    QCursor::setPos(list->viewport()->mapToGlobal(cell.center()));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell.center());
}

QStringList onDisk(const QString &path)
{
    DataManager card(path);
    card.load();
    QStringList rows;
    for (const PIMRecord *record : card.records()) {
        const auto *data = static_cast<const DataRecord *>(record);
        rows << data->stringValue(0) + QLatin1Char(' ') + QString::number(data->intValue(1));
    }
    rows.sort();
    return rows;
}
} // namespace

void TestAcceptance::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

void TestAcceptance::newUserKeepsRecords()
{
    TestHome home;
    QString path;
    {
        MRLDB window;
        whenShown<DBDialog>([&path](DBDialog *chooser) {
            whenShown<DBEditor>([](DBEditor *details) {
                QTest::keyClicks(details->findChild<QLineEdit *>("title"), "Books");
                click(button(details, "btnOk"));
            });
            click(button(chooser, "btnNew"));
            path = chooser->selectedPath();
            QVERIFY(button(chooser, "btnSelect")->isEnabled());
            giveFields(path);
            QTest::keyClick(chooser->findChild<QWidget *>("db"), Qt::Key_Return);
        });
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_VERIFY_WITH_TIMEOUT(window.openedCard(), 5000);
        QCOMPARE(window.openedCard()->fieldCount(), 2);

        addRecord(window, "Alpha", "118234", false);
        addRecord(window, "Beta", "45678", false);
        addRecord(window, "Gamma", "7", true);
        QCOMPARE(window.openedCard()->count(), 3);

        ListView *list = window.records();
        // Five-digit numbers are not cut short where nobody set a width.
        const int amountWidth = list->header()->sectionSize(1);
        QVERIFY(amountWidth >= list->fontMetrics().horizontalAdvance(QStringLiteral("118234")));

        whenShown<EnterStringDialog>([](EnterStringDialog *edit) {
            QLineEdit *text = edit->findChild<QLineEdit *>("text");
            text->selectAll();
            QTest::keyClicks(text, "Beatrice");
            QTest::keyClick(text, Qt::Key_Return);
        });
        tapCell(list, rowOf(list, "Beta"), 0);
        QTRY_VERIFY(rowOf(list, "Beatrice") >= 0);

        list->setFocus();
        QTest::keyClick(list, Qt::Key_Home);
        const int gamma = rowOf(list, "Gamma");
        for (int row = 0; row < gamma; ++row)
            QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(static_cast<DataRecord *>(list->currentTask())->stringValue(0), "Gamma");
        answer(true);
        click(toolButton(window, "delete"));
        QCOMPARE(window.openedCard()->count(), 2);

        // A changed new record is not lost by the close button without a question; "No" keeps
        // the editor open, and Escape with "Yes" lets the record go.
        bool keptOpen = false;
        whenShown<DataEditor>([&keptOpen](DataEditor *editor) {
            QTest::keyClicks(field(editor, 0), "Delta");
            answer(false);
            editor->close();
            keptOpen = editor->isVisible();
            answer(true);
            QTest::keyClick(field(editor, 0), Qt::Key_Escape);
        });
        click(toolButton(window, "new"));
        QVERIFY(keptOpen);
        QCOMPARE(window.openedCard()->count(), 2);
        window.close();
    }
    QCOMPARE(onDisk(path), (QStringList { "Alpha 118234", "Beatrice 45678" }));
}

QTEST_MAIN(TestAcceptance)
#include "testacceptance.moc"
