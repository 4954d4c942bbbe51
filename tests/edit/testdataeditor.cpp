#include "edit/dataeditor.h"

#include "app/mrldialog.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "edit/customlistdialog.h"
#include "edit/datascrollview.h"
#include "exchange/imageeditorwidget.h"
#include "lib/qt/mlcombobox.h"
#include "lib/qt/mldateedit.h"
#include "lib/qt/mldatetimeedit.h"
#include "lib/qt/mlspinbox.h"
#include "lib/qt/mltabwidget.h"
#include "lib/qt/mltimeedit.h"
#include "reminders/reminder.h"
#include "reminders/remindereditor.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

#include <QTreeWidget>

#include <memory>

Q_DECLARE_METATYPE(FieldDef)

// The record editor: its pages, the row of each field type, loading and storing, and the
// navigator's moves, new, duplicate and remove with the saves they make.
class TestDataEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabs_data();
    void tabs();
    void askedPage_data();
    void askedPage();
    void rows_data();
    void rows();
    void roundTrip();
    void typedValuesAreStored();
    void fractionInIntegerStays();
    void moves_data();
    void moves();
    void navigator_data();
    void navigator();
    void cancelledNewIsDestroyedButCounterMoved();
    void cancelledEditKeepsTheRecord();
    void duplicate();
    void remove_data();
    void remove();
    void declinedRemoveChangesNothing();
    void editListKeepsItemsAfterCancel();
    void editMultiListTakesChoices();
    void memoAndReminderPages();
};

namespace
{
using Fields = QList<FieldDef>;

FieldDef field(int type, const QString &title = QStringLiteral("F"), const QString &formula = {})
{
    FieldDef f;
    f.type = type;
    f.title = title;
    f.label = title;
    f.formula = formula;
    return f;
}

std::unique_ptr<DataManager> card(const TestHome &home, const Fields &fields)
{
    auto manager = std::make_unique<DataManager>(home.file(QStringLiteral("test.card")));
    manager->setFields(fields, true);
    return manager;
}

// Stored records whose first field, a String, holds its name.
void addNamed(DataManager &manager, const QStringList &names)
{
    for (const QString &name : names) {
        auto *record = manager.newRecord();
        record->setStringValue(0, name);
        manager.add(record);
    }
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

QStringList tabLabels(const DataEditor *editor)
{
    QStringList labels;
    if (editor->tabs()) {
        for (int i = 0; i < editor->tabs()->count(); ++i)
            labels << editor->tabs()->tabLabel(i);
    }
    return labels;
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

template <class T> T *value(DataEditor *editor, int i)
{
    return qobject_cast<T *>(editor->form()->valueWidget(i));
}
} // namespace

void TestDataEditor::tabs_data()
{
    QTest::addColumn<Fields>("fields");
    QTest::addColumn<QStringList>("expected");
    const FieldDef calculated = field(FieldDef::Double, QStringLiteral("C"), QStringLiteral("1+1"));

    QTest::newRow("no memo or reminder: no tabs")
        << Fields { field(FieldDef::String), field(FieldDef::Integer) } << QStringList {};
    QTest::newRow("only memo and reminder: no record tab") << Fields { field(FieldDef::Memo),
        field(FieldDef::Reminder) } << QStringList { "Memo", "Reminder" };
    QTest::newRow("a field and a memo") << Fields { field(FieldDef::String), field(FieldDef::Memo) }
                                        << QStringList { "Record", "Memo" };
    QTest::newRow("a field and a reminder") << Fields { field(FieldDef::Date),
        field(FieldDef::Reminder) } << QStringList { "Record", "Reminder" };
    QTest::newRow("calculated and increment with a reminder: record tab removed")
        << Fields { calculated, field(FieldDef::Increment), field(FieldDef::Reminder) }
        << QStringList { "Reminder" };
    QTest::newRow("calculated and increment alone: no tabs")
        << Fields { calculated, field(FieldDef::Increment) } << QStringList {};
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
        labels = tabLabels(e);
        formShown = e->form()->isVisible();
        e->reject();
    });
    QCOMPARE(labels, expected);
    QCOMPARE(editor.tabs() != nullptr, !expected.isEmpty());
    QCOMPARE(formShown, expected.isEmpty() || expected.first() == "Record");
}

void TestDataEditor::askedPage_data()
{
    QTest::addColumn<Fields>("fields");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("current");

    const Fields all { field(FieldDef::String), field(FieldDef::Memo), field(FieldDef::Reminder) };
    QTest::newRow("record") << all << 0 << "Record";
    QTest::newRow("memo") << all << 1 << "Memo";
    QTest::newRow("reminder") << all << 2 << "Reminder";
    QTest::newRow("reminder missing")
        << Fields { field(FieldDef::String), field(FieldDef::Memo) } << 2 << "Record";
    // An asked page that exists keeps the empty form's tab.
    QTest::newRow("memo of an empty form")
        << Fields { field(FieldDef::Increment), field(FieldDef::Memo) } << 1 << "Memo";
}

void TestDataEditor::askedPage()
{
    QFETCH(Fields, fields);
    QFETCH(int, page);
    QFETCH(QString, current);
    TestHome home;
    auto manager = card(home, fields);
    DataEditor editor(manager.get());
    QString shown;
    runEditor(
        editor, manager->newRecord(),
        [&](DataEditor *e) {
            shown = e->tabs()->tabLabel(e->tabs()->currentIndex());
            e->reject();
        },
        page);
    QCOMPARE(shown, current);
}

void TestDataEditor::rows_data()
{
    QTest::addColumn<FieldDef>("def");
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("button");

    QTest::newRow("String") << field(FieldDef::String) << "QLineEdit"
                            << "";
    QTest::newRow("Integer") << field(FieldDef::Integer) << "QLineEdit"
                             << "calc";
    QTest::newRow("Double") << field(FieldDef::Double) << "QLineEdit"
                            << "calc";
    QTest::newRow("Date") << field(FieldDef::Date) << "MLDateEdit"
                          << "";
    QTest::newRow("Time") << field(FieldDef::Time) << "MLTimeEdit"
                          << "";
    QTest::newRow("DateTime") << field(FieldDef::DateTime) << "MLDateTimeEdit"
                              << "";
    QTest::newRow("Text") << field(FieldDef::Text) << "QPlainTextEdit"
                          << "";
    QTest::newRow("List") << field(FieldDef::List) << "MLComboBox"
                          << "0";
    QTest::newRow("Bool") << field(FieldDef::Bool) << "QCheckBox"
                          << "";
    QTest::newRow("Count") << field(FieldDef::Count) << "MLSpinBox"
                           << "";
    QTest::newRow("Image") << field(FieldDef::Image) << "ImageEditorWidget"
                           << "";
    QTest::newRow("MultiList") << field(FieldDef::MultiList) << "QLineEdit"
                               << "0";
    QTest::newRow("Memo: hidden") << field(FieldDef::Memo) << ""
                                  << "";
    QTest::newRow("Reminder: hidden") << field(FieldDef::Reminder) << ""
                                      << "";
    QTest::newRow("Increment: hidden") << field(FieldDef::Increment) << ""
                                       << "";
    QTest::newRow("calculated: hidden")
        << field(FieldDef::Double, QStringLiteral("F"), QStringLiteral("2*3")) << ""
        << "";
}

void TestDataEditor::rows()
{
    QFETCH(FieldDef, def);
    QFETCH(QString, widget);
    QFETCH(QString, button);
    TestHome home;
    // A String beside it, so that the form keeps its tab.
    auto manager = card(home, { def, field(FieldDef::String, QStringLiteral("Longer title")) });
    DataEditor editor(manager.get());
    runEditor(editor, manager->newRecord(), [&](DataEditor *e) {
        QWidget *row = e->form()->row(0);
        QVERIFY(row);
        QWidget *val = e->form()->valueWidget(0);
        auto *label = row->findChild<QLabel *>(QStringLiteral("label"));
        if (widget.isEmpty()) {
            QVERIFY(row->isHidden());
            QVERIFY(!row->isEnabled());
            QVERIFY(!label);
        } else {
            QVERIFY(row->isVisible());
            QCOMPARE(val->metaObject()->className(), widget.toLatin1());
            QCOMPARE(label->text(), QStringLiteral("F: "));
            // Labels share the width of the widest.
            auto *other = e->form()->row(1)->findChild<QLabel *>(QStringLiteral("label"));
            QCOMPARE(label->width(), other->width());
        }
        if (!button.isEmpty())
            QVERIFY(row->findChild<QToolButton *>(button));
        e->reject();
    });
}

void TestDataEditor::roundTrip()
{
    TestHome home;
    FieldDef list = field(FieldDef::List);
    list.items = QStringList { "red", "green" };
    FieldDef multi = field(FieldDef::MultiList);
    multi.items = QStringList { "a", "b", "c" };
    auto manager = card(home,
        { field(FieldDef::String), field(FieldDef::Integer), field(FieldDef::Double),
            field(FieldDef::Date), field(FieldDef::Time), field(FieldDef::DateTime),
            field(FieldDef::Text), list, field(FieldDef::Bool), field(FieldDef::Count),
            field(FieldDef::Image), multi });
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
        e->accept();
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

void TestDataEditor::typedValuesAreStored()
{
    TestHome home;
    auto manager = card(home,
        { field(FieldDef::String), field(FieldDef::Date), field(FieldDef::Count),
            field(FieldDef::Bool), field(FieldDef::List) });
    DataEditor editor(manager.get());
    runEditor(editor, manager->newRecord(), [](DataEditor *e) {
        QCOMPARE(e->windowTitle(), QStringLiteral("New Record - test"));
        value<QLineEdit>(e, 0)->setText("typed");
        value<MLDateEdit>(e, 1)->setDate(QDate());
        value<MLSpinBox>(e, 2)->setValue(0);
        value<QCheckBox>(e, 3)->setChecked(true);
        value<MLComboBox>(e, 4)->setEditText("not an item");
        e->accept();
    });
    QCOMPARE(manager->count(), 1);
    const DataRecord *record = at(*manager, 0);
    QCOMPARE(record->stringValue(0), QStringLiteral("typed"));
    QVERIFY(!record->dateValue(1).isValid());
    QCOMPARE(record->intValue(2), 0);
    QCOMPARE(record->intValue(3), 1);
    QCOMPARE(record->stringValue(4), QStringLiteral("not an item"));
}

void TestDataEditor::fractionInIntegerStays()
{
    TestHome home;
    auto manager = card(home, { field(FieldDef::Integer), field(FieldDef::Double) });
    DataEditor editor(manager.get());
    runEditor(editor, manager->newRecord(), [](DataEditor *e) {
        value<QLineEdit>(e, 0)->setText("2.5");
        value<QLineEdit>(e, 1)->setText("not a number");
        e->accept();
    });
    QCOMPARE(at(*manager, 0)->doubleValue(0), 2.5);
    QCOMPARE(at(*manager, 0)->doubleValue(1), 0.0);
}

void TestDataEditor::moves_data()
{
    QTest::addColumn<int>("start"); // -1: a new record
    QTest::addColumn<QString>("move");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("stored");

    const QStringList three { "a", "b", "c" };
    QTest::newRow("back") << 1 << "doBack"
                          << "a" << three;
    QTest::newRow("forward") << 1 << "doForward"
                             << "c" << three;
    QTest::newRow("start") << 2 << "doStart"
                           << "a" << three;
    QTest::newRow("end") << 0 << "doEnd"
                         << "c" << three;
    QTest::newRow("spin box") << 0 << "3"
                              << "c" << three;
    // A new record stands behind the last: it is saved, empty or not, by any move. Its
    // forward and end are disabled, but lead to the last record, itself once saved.
    const QStringList four { "a", "b", "c", "" };
    QTest::newRow("new, back") << -1 << "doBack"
                               << "c" << four;
    QTest::newRow("new, forward") << -1 << "doForward"
                                  << "" << four;
    QTest::newRow("new, start") << -1 << "doStart"
                                << "a" << four;
    QTest::newRow("new, end") << -1 << "doEnd"
                              << "" << four;
    QTest::newRow("new, spin box") << -1 << "2"
                                   << "b" << four;
}

void TestDataEditor::moves()
{
    QFETCH(int, start);
    QFETCH(QString, move);
    QFETCH(QString, shown);
    QFETCH(QStringList, stored);
    TestHome home;
    auto manager = card(home, { field(FieldDef::String) });
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
        e->reject();
    });
    QCOMPARE(shownText, shown);
    QCOMPARE(names(*manager), stored);
}

void TestDataEditor::navigator_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("start"); // -1: a new record
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("backward");
    QTest::addColumn<bool>("forward");

    QTest::newRow("first of three") << 3 << 0 << 3 << 1 << false << true;
    QTest::newRow("middle of three") << 3 << 1 << 3 << 2 << true << true;
    QTest::newRow("last of three") << 3 << 2 << 3 << 3 << true << false;
    QTest::newRow("new behind three") << 3 << -1 << 4 << 4 << true << false;
    QTest::newRow("new in an empty card") << 0 << -1 << 1 << 1 << false << false;
    QTest::newRow("only record") << 1 << 0 << 1 << 1 << false << false;
}

void TestDataEditor::navigator()
{
    QFETCH(int, count);
    QFETCH(int, start);
    QFETCH(int, maximum);
    QFETCH(int, position);
    QFETCH(bool, backward);
    QFETCH(bool, forward);
    TestHome home;
    auto manager = card(home, { field(FieldDef::String) });
    for (int i = 0; i < count; ++i)
        addNamed(*manager, { QString::number(i) });
    DataEditor editor(manager.get());
    runEditor(editor, start < 0 ? manager->newRecord() : at(*manager, start), [&](DataEditor *e) {
        auto *spin = e->findChild<MLSpinBox *>(QStringLiteral("position"));
        QCOMPARE(spin->minimum(), 1);
        QCOMPARE(spin->maximum(), maximum);
        QCOMPARE(spin->value(), position);
        QCOMPARE(e->findChild<QAction *>("back")->isEnabled(), backward);
        QCOMPARE(e->findChild<QAction *>("start")->isEnabled(), backward);
        QCOMPARE(e->findChild<QAction *>("forward")->isEnabled(), forward);
        QCOMPARE(e->findChild<QAction *>("end")->isEnabled(), forward);
        e->reject();
    });
}

void TestDataEditor::cancelledNewIsDestroyedButCounterMoved()
{
    TestHome home;
    FieldDef counter = field(FieldDef::Increment);
    counter.defaultValue = QStringLiteral("7;1");
    auto manager = card(home, { field(FieldDef::String), counter });
    DataEditor editor(manager.get());
    const int result = runEditor(editor, manager->newRecord(), [](DataEditor *e) {
        value<QLineEdit>(e, 0)->setText("dropped");
        e->reject();
    });
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(manager->count(), 0);
    QVERIFY(!editor.record());
    std::unique_ptr<DataRecord> next(manager->newRecord());
    QCOMPARE(next->intValue(1), 8);
}

void TestDataEditor::cancelledEditKeepsTheRecord()
{
    TestHome home;
    auto manager = card(home, { field(FieldDef::String) });
    addNamed(*manager, { "a", "b" });
    DataEditor editor(manager.get());
    runEditor(editor, at(*manager, 0), [](DataEditor *e) {
        value<QLineEdit>(e, 0)->setText("saved by the move");
        e->findChild<QAction *>("forward")->trigger();
        value<QLineEdit>(e, 0)->setText("thrown away");
        e->reject();
    });
    QCOMPARE(names(*manager), (QStringList { "saved by the move", "b" }));
}

void TestDataEditor::duplicate()
{
    TestHome home;
    auto manager = card(home, { field(FieldDef::String) });
    addNamed(*manager, { "a" });
    DataRecord *source = at(*manager, 0);
    const QDateTime updated(QDate(2020, 1, 2), QTime(3, 4));
    source->setUpdated(updated);
    const QString sourceUid = source->uidString();
    DataEditor editor(manager.get());
    runEditor(editor, source, [&](DataEditor *e) {
        e->findChild<QAction *>("clone")->trigger();
        QCOMPARE(manager->count(), 1);
        QVERIFY(e->record() != source);
        QVERIFY(e->record()->uidString() != sourceUid);
        QCOMPARE(e->record()->stringValue(0), QStringLiteral("a"));
        QVERIFY(e->record()->created().secsTo(QDateTime::currentDateTime()) < 5);
        QCOMPARE(e->windowTitle(), QStringLiteral("New Record - test"));
        e->accept();
    });
    QCOMPARE(manager->count(), 2);
}

void TestDataEditor::remove_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("start"); // -1: a new record
    QTest::addColumn<QString>("shown"); // empty: the dialog closed
    QTest::addColumn<QStringList>("stored");

    QTest::newRow("first: the next takes its place") << 3 << 0 << "1" << QStringList { "1", "2" };
    QTest::newRow("middle: the next takes its place") << 3 << 1 << "2" << QStringList { "0", "2" };
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
    auto manager = card(home, { field(FieldDef::String) });
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
                e->reject();
            }
        });
    QCOMPARE(shownText, shown);
    QCOMPARE(names(*manager), stored);
    if (shown.isEmpty()) {
        QCOMPARE(result, int(QDialog::Accepted));
        QVERIFY(!editor.record());
    }
}

void TestDataEditor::declinedRemoveChangesNothing()
{
    TestHome home;
    auto manager = card(home, { field(FieldDef::String) });
    addNamed(*manager, { "a", "b" });
    DataEditor editor(manager.get());
    runEditor(editor, at(*manager, 1), [](DataEditor *e) {
        answerYesNo(false);
        e->findChild<QAction *>("delete")->trigger();
        QCOMPARE(value<QLineEdit>(e, 0)->text(), QStringLiteral("b"));
        e->reject();
    });
    QCOMPARE(names(*manager), (QStringList { "a", "b" }));
}

void TestDataEditor::editListKeepsItemsAfterCancel()
{
    TestHome home;
    FieldDef list = field(FieldDef::List, QStringLiteral("Colour"));
    list.items = QStringList { "red", "green" };
    auto manager = card(home, { list });
    auto *record = manager->newRecord();
    record->setStringValue(0, "green");
    manager->add(record);
    DataEditor editor(manager.get());
    QString caption;
    runEditor(editor, record, [&](DataEditor *e) {
        whenShown<CustomListDialog>([&](CustomListDialog *dialog) {
            caption = dialog->windowTitle();
            dialog->doNew();
            dialog->doUpdate(QStringLiteral("blue"));
            dialog->reject();
        });
        e->form()->row(0)->findChild<QToolButton *>(QStringLiteral("0"))->click();
        auto *combo = value<MLComboBox>(e, 0);
        QCOMPARE(combo->count(), 3);
        QCOMPARE(combo->currentText(), QStringLiteral("green"));
        e->reject();
    });
    QCOMPARE(caption, QStringLiteral("Edit Colour"));
    QCOMPARE(manager->fieldItems(0), (QStringList { "red", "green", "blue" }));
}

void TestDataEditor::editMultiListTakesChoices()
{
    TestHome home;
    FieldDef multi = field(FieldDef::MultiList, QStringLiteral("Tags"));
    multi.items = QStringList { "a", "b", "c" };
    auto manager = card(home, { multi });
    auto *record = manager->newRecord();
    record->setStringValue(0, "a");
    manager->add(record);
    DataEditor editor(manager.get());
    runEditor(editor, record, [&](DataEditor *e) {
        whenShown<CustomListDialog>([](CustomListDialog *dialog) {
            QCOMPARE(dialog->choices(), QStringList { "a" });
            dialog->doNew();
            dialog->doUpdate(QStringLiteral("d"));
            auto *list = dialog->findChild<QTreeWidget *>(QStringLiteral("list"));
            // Tick "c" by a click, as the user does.
            QTreeWidgetItem *c = list->topLevelItem(2);
            QTest::mouseClick(
                list->viewport(), Qt::LeftButton, {}, list->visualItemRect(c).center());
            dialog->accept();
        });
        e->form()->row(0)->findChild<QToolButton *>(QStringLiteral("0"))->click();
        QCOMPARE(value<QLineEdit>(e, 0)->text(), QStringLiteral("a;c"));
        e->accept();
    });
    QCOMPARE(record->stringValue(0), QStringLiteral("a\nc"));
    QCOMPARE(manager->fieldItems(0), (QStringList { "a", "b", "c", "d" }));
}

void TestDataEditor::memoAndReminderPages()
{
    TestHome home;
    auto manager
        = card(home, { field(FieldDef::String), field(FieldDef::Memo), field(FieldDef::Reminder) });
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
        e->accept();
    });
    QCOMPARE(record->memo(), QStringLiteral("new memo"));
    QVERIFY(record->hasReminder());
    QCOMPARE(record->reminder()->type, 2);
    QCOMPARE(record->reminder()->dateTime.date(), moment.date());
}

QTEST_MAIN(TestDataEditor)
#include "testdataeditor.moc"
