#include "calc/formulaeditor.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "support/testhome.h"

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

// The formula editor as the user works it: lists to click, the edit, the preview, buttons.
class TestFormulaEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void form();
    void insertFunction_data();
    void insertFunction();
    void insertFieldAndAccept_data();
    void insertFieldAndAccept();
    void preview_data();
    void preview();
};

namespace
{
FieldDef field(const QString &title, int type)
{
    FieldDef def;
    def.title = title;
    def.type = type;
    return def;
}

QList<FieldDef> sampleFields()
{
    return { field("a", FieldDef::Integer), field("b", FieldDef::Double),
        field("c", FieldDef::Count), field("d", FieldDef::Increment), field("e", FieldDef::String),
        field("total", FieldDef::Double) };
}

template <class T> T *child(const QWidget &dialog, const char *name)
{
    T *found = dialog.findChild<T *>(QLatin1String(name));
    Q_ASSERT(found);
    return found;
}

void clickItem(QListWidget *list, const QString &text)
{
    QListWidgetItem *item = list->findItems(text, Qt::MatchExactly).value(0);
    QVERIFY(item);
    list->scrollToItem(item);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
}

QStringList texts(const QListWidget *list)
{
    QStringList result;
    for (int i = 0; i < list->count(); ++i)
        result << list->item(i)->text();
    return result;
}
} // namespace

void TestFormulaEditor::form()
{
    FormulaEditor editor("[F0]+[F1!]+[F9]", sampleFields(), "total");
    QCOMPARE(editor.windowTitle(), QStringLiteral("Formula Editor - [total]"));
    QCOMPARE(child<QPlainTextEdit>(editor, "fm")->toPlainText(), QStringLiteral("[a]+[b!]+[F9]"));
    QCOMPARE(texts(child<QListWidget>(editor, "fields")), QStringList({ "a", "b", "c", "d" }));
    QVERIFY(child<QRadioButton>(editor, "cr")->isChecked());
    QTest::mouseClick(child<QPushButton>(editor, "btnClear"), Qt::LeftButton);
    QVERIFY(child<QPlainTextEdit>(editor, "fm")->toPlainText().isEmpty());
}

void TestFormulaEditor::insertFunction_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("cursor");
    const auto row = [](const char *name, const char *start, const char *function, const char *text,
                         int cursor) {
        QTest::newRow(name) << QString(start) << QString(function) << QString(text) << cursor;
    };
    row("operator gets blanks", "1", "+", "1 + ", 4);
    row("cursor inside the parentheses", "", "sqrt()", "sqrt()", 5);
    row("after a line end", "2*\n", "abs()", "2*\nabs()", 7);
}

void TestFormulaEditor::insertFunction()
{
    QFETCH(QString, start);
    FormulaEditor editor(start, sampleFields(), "total");
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QFETCH(QString, function);
    clickItem(child<QListWidget>(editor, "functions"), function);
    auto *edit = child<QPlainTextEdit>(editor, "fm");
    QTEST(edit->toPlainText(), "text");
    QTEST(edit->textCursor().position(), "cursor");
    // Typing goes where the cursor stands.
    QTest::keyClicks(edit, "9");
    QFETCH(int, cursor);
    QCOMPARE(edit->toPlainText().mid(cursor, 1), QStringLiteral("9"));
}

void TestFormulaEditor::insertFieldAndAccept_data()
{
    QTest::addColumn<bool>("previous");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("formula");
    QTest::newRow("current record") << false << QStringLiteral("b") << QStringLiteral("[F1]");
    QTest::newRow("previous record") << true << QStringLiteral("a") << QStringLiteral("[F0!]");
    // Offered, but left as the title: the card reads it as no field.
    QTest::newRow("count stays a title") << false << QStringLiteral("c") << QStringLiteral("[c]");
}

void TestFormulaEditor::insertFieldAndAccept()
{
    FormulaEditor editor(QString(), sampleFields(), "total");
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QFETCH(bool, previous);
    if (previous)
        QTest::mouseClick(child<QRadioButton>(editor, "pr"), Qt::LeftButton);
    QFETCH(QString, field);
    clickItem(child<QListWidget>(editor, "fields"), field);
    QTest::mouseClick(child<QPushButton>(editor, "btnOk"), Qt::LeftButton);
    QCOMPARE(editor.result(), int(QDialog::Accepted));
    QTEST(editor.formula(), "formula");
}

void TestFormulaEditor::preview_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("withRecords");
    QTest::addColumn<QString>("shown");
    QTest::newRow("value on the current record") << "[a]*2+[b!]" << true << "Value: 7";
    QTest::newRow("no records read 0") << "[a]*2+[b!]" << false << "Value: 0";
    QTest::newRow("typo") << "[a]*" << true << "failed";
}

void TestFormulaEditor::preview()
{
    TestHome home;
    DataManager card(home.file("p.card"));
    card.setFields(sampleFields(), true);
    DataRecord *previous = card.newRecord();
    previous->setDoubleValue(1, 1.0);
    card.add(previous);
    DataRecord *record = card.newRecord();
    record->setDoubleValue(0, 3.0);
    card.add(record);

    FormulaEditor editor(QString(), sampleFields(), "total");
    QFETCH(bool, withRecords);
    if (withRecords)
        editor.setPreviewRecords(record, previous);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QFETCH(QString, typed);
    QTest::keyClicks(child<QPlainTextEdit>(editor, "fm"), typed);
    QTEST(child<QLabel>(editor, "preview")->text(), "shown");
}

QTEST_MAIN(TestFormulaEditor)
#include "testformulaeditor.moc"
