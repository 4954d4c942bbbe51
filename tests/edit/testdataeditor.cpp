#include "edit/dataeditor.h"

#include "app/mrldialog.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "edit/datascrollview.h"
#include "lib/qt/mlcombobox.h"
#include "lib/qt/mlspinbox.h"
#include "lib/qt/mltabwidget.h"
#include "reminders/reminder.h"
#include "reminders/remindereditor.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(FieldDef)

// The record editor: its pages, loading and storing, and the navigator's moves, new,
// duplicate and remove with the saves they make.
class TestDataEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabs_data();
    void tabs();
    void roundTrip();
    void moves_data();
    void moves();
    void cancelledEditKeepsTheRecord();
    void closing_data();
    void closing();
    void remove_data();
    void remove();
    void memoAndReminderPages();
};

namespace
{
using Fields = QList<FieldDef>;

std::unique_ptr<DataManager> card(const TestHome &home, const Fields &fields)
{
    return testCard(home.file(QStringLiteral("test.card")), fields);
}

DataRecord *at(const DataManager &manager, int i)
{
    return static_cast<DataRecord *>(manager.records().at(i));
}

QStringList names(const DataManager &manager)
{
    QStringList result;
    for (const PIMRecord *record : manager.records())
        result << static_cast<const DataRecord *>(record)->stringValue(0);
    return result;
}

// Runs the editor on record and does act while it is on screen; act closes it.
int runEditor(DataEditor &editor, DataRecord *record, const std::function<void(DataEditor *)> &act,
    int page = DataEditor::RecordPage)
{
    whenShown<DataEditor>(act);
    return editor.run(record, page);
}

void answerYesNo(bool yes)
{
    whenShown<MRLDialog>([yes](MRLDialog *box) {
        box->findChild<QPushButton *>(yes ? QStringLiteral("button1") : QStringLiteral("button2"))
            ->click();
    });
}

void press(QWidget *dialog, const char *button)
{
    QTest::mouseClick(dialog->findChild<QPushButton *>(QLatin1String(button)), Qt::LeftButton);
}

template <class T> T *value(DataEditor *editor, int i)
{
    return qobject_cast<T *>(editor->form()->valueWidget(i));
}
} // namespace

void TestDataEditor::tabs_data()
{
    QTest::addColumn<Fields>("fields");
    QTest::addColumn<QStringList>("expected");
    const FieldDef calculated
        = testField(FieldDef::Double, QStringLiteral("C"), QStringLiteral("1+1"));

    QTest::newRow("no memo or reminder: no tabs")
        << Fields { testField(FieldDef::String), testField(FieldDef::Integer) } << QStringList {};
    QTest::newRow("only memo and reminder: no record tab") << Fields { testField(FieldDef::Memo),
        testField(FieldDef::Reminder) } << QStringList { "Memo", "Reminder" };
    QTest::newRow("a field and a memo") << Fields { testField(FieldDef::String),
        testField(FieldDef::Memo) } << QStringList { "Record", "Memo" };
    QTest::newRow("calculated and increment with a reminder: record tab removed")
        << Fields { calculated, testField(FieldDef::Increment), testField(FieldDef::Reminder) }
        << QStringList { "Reminder" };
}

void TestDataEditor::tabs()
{
    QFETCH(Fields, fields);
    QFETCH(QStringList, expected);
    TestHome home;
    auto manager = card(home, fields);
    DataEditor editor(manager.get());
    QStringList labels;
    bool formShown = false;
    runEditor(editor, manager->newRecord(), [&](DataEditor *e) {
        for (int i = 0; e->tabs() && i < e->tabs()->count(); ++i)
            labels << e->tabs()->tabLabel(i);
        formShown = e->form()->isVisible();
        press(e, "btnCancel");
    });
    QCOMPARE(labels, expected);
    QCOMPARE(formShown, expected.isEmpty() || expected.first() == "Record");
}

void TestDataEditor::roundTrip()
{
    TestHome home;
    FieldDef list = testField(FieldDef::List);
    list.items = QStringList { "red", "green" };
    FieldDef multi = testField(FieldDef::MultiList);
    multi.items = QStringList { "a", "b", "c" };
    auto manager = card(home,
        { testField(FieldDef::String), testField(FieldDef::Integer), testField(FieldDef::Double),
            testField(FieldDef::Date), testField(FieldDef::Time), testField(FieldDef::DateTime),
            testField(FieldDef::Text), list, testField(FieldDef::Bool), testField(FieldDef::Count),
            testField(FieldDef::Image), multi });
    auto *record = manager->newRecord();
    const QDateTime moment(QDate(2024, 2, 29), QTime(13, 45));
    record->setStringValue(0, "name");
    record->setIntValue(1, 42);
    record->setDoubleValue(2, 3.25);
    record->setDateValue(3, QDate(1999, 12, 31));
    record->setTimeValue(4, QTime(7, 30));
    record->setDateTimeValue(5, moment);
    record->setStringValue(6, "line one\nline two");
    record->setStringValue(7, "green");
    record->setIntValue(8, 5);
    record->setIntValue(9, 17);
    record->setImage(home.file("missing.png"));
    record->setStringValue(11, "a\nc");
    manager->add(record);

    DataEditor editor(manager.get());
    runEditor(editor, record, [](DataEditor *e) {
        QCOMPARE(value<QLineEdit>(e, 2)->text(), QStringLiteral("3.25"));
        QCOMPARE(value<MLComboBox>(e, 7)->currentText(), QStringLiteral("green"));
        QVERIFY(value<QCheckBox>(e, 8)->isChecked());
        QCOMPARE(value<QLineEdit>(e, 11)->text(), QStringLiteral("a;c"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Edit Record - test"));
        press(e, "btnOk");
    });
    QCOMPARE(record->stringValue(0), QStringLiteral("name"));
    QCOMPARE(record->doubleValue(1), 42.0);
    QCOMPARE(record->doubleValue(2), 3.25);
    QCOMPARE(record->dateValue(3), QDate(1999, 12, 31));
    QCOMPARE(record->timeValue(4), QTime(7, 30));
    QCOMPARE(record->dateTimeValue(5), moment);
    QCOMPARE(record->stringValue(6), QStringLiteral("line one\nline two"));
    QCOMPARE(record->stringValue(7), QStringLiteral("green"));
    QCOMPARE(record->intValue(8), 1);
    QCOMPARE(record->intValue(9), 17);
    QCOMPARE(record->image(), home.file("missing.png"));
    QCOMPARE(record->stringValue(11), QStringLiteral("a\nc"));
}

void TestDataEditor::moves_data()
{
    QTest::addColumn<int>("start"); // -1: a new record
    QTest::addColumn<QString>("move");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("stored");

    const auto row = [](const char *name, int start, const char *move, const char *shown,
                         const QStringList &stored) {
        QTest::newRow(name) << start << QString(move) << QString(shown) << stored;
    };
    const QStringList three { "a", "b", "c" };
    row("back", 1, "doBack", "a", three);
    row("spin box", 0, "3", "c", three);
    // A new record stands behind the last: it is saved, empty or not, by any move. Its
    // forward and end are disabled, but lead to the last record, itself once saved.
    const QStringList four { "a", "b", "c", "" };
    row("new, back", -1, "doBack", "c", four);
    row("new, forward", -1, "doForward", "", four);
    row("new, spin box", -1, "2", "b", four);
}

void TestDataEditor::moves()
{
    QFETCH(int, start);
    QFETCH(QString, move);
    QFETCH(QString, shown);
    QFETCH(QStringList, stored);
    TestHome home;
    auto manager = card(home, { testField(FieldDef::String) });
    addNamed(*manager, { "a", "b", "c" });
    DataRecord *record = start < 0 ? manager->newRecord() : at(*manager, start);
    DataEditor editor(manager.get());
    QString shownText;
    runEditor(editor, record, [&](DataEditor *e) {
        bool isNumber = false;
        const int position = move.toInt(&isNumber);
        if (isNumber)
            e->findChild<MLSpinBox *>(QStringLiteral("position"))->setValue(position);
        else
            QMetaObject::invokeMethod(e, move.toLatin1().constData());
        shownText = value<QLineEdit>(e, 0)->text();
        QCOMPARE(e->record()->stringValue(0), shownText);
        press(e, "btnCancel");
    });
    QCOMPARE(shownText, shown);
    QCOMPARE(names(*manager), stored);
}

void TestDataEditor::cancelledEditKeepsTheRecord()
{
    TestHome home;
    auto manager = card(home, { testField(FieldDef::String) });
    addNamed(*manager, { "a", "b" });
    DataEditor editor(manager.get());
    runEditor(editor, at(*manager, 0), [](DataEditor *e) {
        value<QLineEdit>(e, 0)->setText("saved by the move");
        e->findChild<QAction *>("forward")->trigger();
        value<QLineEdit>(e, 0)->setText("thrown away");
        answerYesNo(true);
        press(e, "btnCancel");
    });
    QCOMPARE(names(*manager), (QStringList { "saved by the move", "b" }));
}

void TestDataEditor::closing_data()
{
    QTest::addColumn<bool>("stored"); // else a new record
    QTest::addColumn<QString>("typed"); // into the String field; empty: nothing typed
    QTest::addColumn<QString>("way"); // "ok", "cancel", "return", "escape", "close", "memo"
    QTest::addColumn<int>("answer"); // to the question: -1 none asked, 0 no, 1 yes
    QTest::addColumn<int>("result"); // -1: still open after the way out
    QTest::addColumn<QString>("kept"); // the String value of the card's first record

    const auto row = [](const char *name, bool stored, const char *typed, const char *way,
                         int answer, int result, const char *kept) {
        QTest::newRow(name) << stored << QString(typed) << QString(way) << answer << result
                            << QString(kept);
    };
    row("Ok", true, "x", "ok", -1, 1, "x");
    row("Return in a line edit", false, "x", "return", -1, 1, "x");
    row("Return in a text field is a new line", true, "", "memo", -1, -1, "old");
    row("untouched new, Escape: no question", false, "", "escape", -1, 0, "");
    row("untouched stored, close button", true, "", "close", -1, 0, "old");
    row("changed, Cancel, yes", true, "x", "cancel", 1, 0, "old");
    row("changed, Escape, no: stays", true, "x", "escape", 0, -1, "old");
    row("new, close button, no: stays", false, "x", "close", 0, -1, "");
    row("new, close button, yes", false, "x", "close", 1, 0, "");
    row("new, Cancel, yes", false, "x", "cancel", 1, 0, "");
}

void TestDataEditor::closing()
{
    QFETCH(bool, stored);
    QFETCH(QString, typed);
    QFETCH(QString, way);
    QFETCH(int, answer);
    QFETCH(int, result);
    QFETCH(QString, kept);
    TestHome home;
    FieldDef counter = testField(FieldDef::Increment);
    counter.defaultValue = QStringLiteral("7;1");
    auto manager = card(home, { testField(FieldDef::String), testField(FieldDef::Text), counter });
    if (stored)
        addNamed(*manager, { "old" });
    DataEditor editor(manager.get());
    int asked = -1;
    int openAfter = -1;
    const int closed
        = runEditor(editor, stored ? at(*manager, 0) : manager->newRecord(), [&](DataEditor *e) {
              auto *line = value<QLineEdit>(e, 0);
              if (!typed.isEmpty()) {
                  line->selectAll();
                  QTest::keyClicks(line, typed);
              }
              if (answer >= 0)
                  whenShown<MRLDialog>([&asked, answer](MRLDialog *box) {
                      asked = answer;
                      press(box, answer ? "button1" : "button2");
                  });
              if (way == "ok")
                  press(e, "btnOk");
              else if (way == "cancel")
                  press(e, "btnCancel");
              else if (way == "return")
                  QTest::keyClick(line, Qt::Key_Return);
              else if (way == "memo")
                  QTest::keyClick(value<QPlainTextEdit>(e, 1), Qt::Key_Return);
              else if (way == "escape")
                  QTest::keyClick(line, Qt::Key_Escape);
              else
                  e->close();
              if (e->isVisible()) {
                  openAfter = 1;
                  answerYesNo(true);
                  press(e, "btnCancel");
              }
          });
    QCOMPARE(asked, answer);
    QCOMPARE(openAfter == 1 ? -1 : closed, result);
    QCOMPARE(manager->count() ? at(*manager, 0)->stringValue(0) : QString(), kept);
    // A new record thrown away is destroyed, but the number it took stays taken.
    if (!stored && result == 0)
        QVERIFY(!editor.record() && manager->count() == 0);
    std::unique_ptr<DataRecord> next(manager->newRecord());
    QCOMPARE(next->intValue(2), 8);
}

void TestDataEditor::remove_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("start"); // -1: a new record
    QTest::addColumn<QString>("shown"); // empty: the dialog closed
    QTest::addColumn<QStringList>("stored");

    QTest::newRow("first: the next takes its place") << 3 << 0 << "1" << QStringList { "1", "2" };
    QTest::newRow("last: the new last") << 3 << 2 << "1" << QStringList { "0", "1" };
    QTest::newRow("new: destroyed, the last shown") << 2 << -1 << "1" << QStringList { "0", "1" };
    QTest::newRow("only record: closes") << 1 << 0 << "" << QStringList {};
    QTest::newRow("new in an empty card: closes") << 0 << -1 << "" << QStringList {};
}

void TestDataEditor::remove()
{
    QFETCH(int, count);
    QFETCH(int, start);
    QFETCH(QString, shown);
    QFETCH(QStringList, stored);
    TestHome home;
    auto manager = card(home, { testField(FieldDef::String) });
    for (int i = 0; i < count; ++i)
        addNamed(*manager, { QString::number(i) });
    DataEditor editor(manager.get());
    QString shownText;
    const int result = runEditor(
        editor, start < 0 ? manager->newRecord() : at(*manager, start), [&](DataEditor *e) {
            answerYesNo(true);
            e->findChild<QAction *>("delete")->trigger();
            if (e->isVisible()) {
                shownText = value<QLineEdit>(e, 0)->text();
                press(e, "btnCancel");
            }
        });
    QCOMPARE(shownText, shown);
    QCOMPARE(names(*manager), stored);
    if (shown.isEmpty()) {
        QCOMPARE(result, int(QDialog::Accepted));
        QVERIFY(!editor.record());
    }
}

void TestDataEditor::memoAndReminderPages()
{
    TestHome home;
    auto manager = card(home,
        { testField(FieldDef::String), testField(FieldDef::Memo), testField(FieldDef::Reminder) });
    auto *record = manager->newRecord();
    record->setMemo("old memo");
    manager->add(record);
    const QDateTime moment = QDateTime::currentDateTime().addDays(3);
    DataEditor editor(manager.get());
    runEditor(editor, record, [&](DataEditor *e) {
        auto *memo = e->findChild<QPlainTextEdit *>(QStringLiteral("memo"));
        QCOMPARE(memo->toPlainText(), QStringLiteral("old memo"));
        memo->setPlainText("new memo");
        auto *reminder = e->findChild<ReminderEditor *>(QStringLiteral("reminder"));
        QVERIFY(!reminder->reminder());
        Reminder set;
        set.dateTime = moment;
        set.sound = true;
        set.type = 2;
        reminder->setReminder(&set);
        press(e, "btnOk");
    });
    QCOMPARE(record->memo(), QStringLiteral("new memo"));
    QVERIFY(record->hasReminder());
    QCOMPARE(record->reminder()->type, 2);
    QCOMPARE(record->reminder()->dateTime.date(), moment.date());
}

QTEST_MAIN(TestDataEditor)
#include "testdataeditor.moc"
