#include "edit/fieldeditor.h"

#include "app/mrldialog.h"
#include "calc/formulaeditor.h"
#include "calc/formulatranslation.h"
#include "card/datamanager.h"
#include "card/schemachange.h"
#include "cli/clirunner.h"
#include "edit/autoincrementdialog.h"
#include "edit/scrollview.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QComboBox>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QtTest>

// The field editor driven as a user drives it: rows, type choosers, the row menus.
class TestFieldEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checkSpecFields_data();
    void checkSpecFields();
    void extendedMenu_data();
    void extendedMenu();
    void rowSteps_data();
    void rowSteps();
    void autoIncrement_data();
    void autoIncrement();
    void sameAsSetFields_data();
    void sameAsSetFields();
};

namespace
{
FieldDef field(const QString &title, int type)
{
    FieldDef def;
    def.title = title;
    def.label = title;
    def.type = type;
    return def;
}

std::unique_ptr<DataManager> cardWith(const TestHome &home, const QList<int> &types)
{
    auto card = std::make_unique<DataManager>(home.file("t.card"));
    QList<FieldDef> fields;
    for (int i = 0; i < types.size(); ++i)
        fields << field(QString(QChar('a' + i)), types.at(i));
    card->setFields(fields, true);
    return card;
}

QWidget *row(FieldEditor &editor, int index)
{
    QWidget *found = editor.form()->row(index);
    Q_ASSERT(found);
    return found;
}

template <class T> T *inRow(FieldEditor &editor, int index, const char *name)
{
    return row(editor, index)->findChild<T *>(QLatin1String(name));
}

// Opens the row's menu with its button and runs act on it while it is up.
void withMenu(FieldEditor &editor, int index, const std::function<void(QMenu *)> &act)
{
    bool shown = false;
    whenShown<QMenu>([&](QMenu *menu) {
        shown = true;
        act(menu);
        if (menu->isVisible())
            menu->close();
    });
    QTest::mouseClick(inRow<QPushButton>(editor, index, "more"), Qt::LeftButton);
    QVERIFY(shown);
}

void chooseFromMenu(FieldEditor &editor, int index, const QString &text)
{
    withMenu(editor, index, [text](QMenu *menu) {
        for (QAction *action : menu->actions()) {
            if (action->text() == text) {
                menu->setActiveAction(action);
                QTest::keyClick(menu, Qt::Key_Return);
                return;
            }
        }
        QFAIL(qPrintable(text + QStringLiteral(" is not in the menu")));
    });
}

void answerQuestion(bool yes)
{
    whenShown<MRLDialog>([yes](MRLDialog *box) {
        box->findChild<QPushButton *>(yes ? QStringLiteral("button1") : QStringLiteral("button2"))
            ->click();
    });
}

// "Memo Reminder Image" enabled in each row's chooser, as "MRI" with "-" for a disabled one.
QStringList specEnabled(FieldEditor &editor)
{
    QStringList rows;
    for (int i = 0; i < editor.fields().size(); ++i) {
        auto *model
            = qobject_cast<QStandardItemModel *>(inRow<QComboBox>(editor, i, "type")->model());
        QString flags;
        for (const auto &[type, letter] : { std::pair { 7, 'M' }, { 8, 'R' }, { 12, 'I' } })
            flags += model->item(type)->isEnabled() ? QChar(letter) : QChar('-');
        rows << flags;
    }
    return rows;
}

QStringList titles(const QList<FieldDef> &fields)
{
    QStringList result;
    for (const FieldDef &def : fields)
        result << def.title;
    return result;
}
} // namespace

void TestFieldEditor::checkSpecFields_data()
{
    QTest::addColumn<QList<int>>("types");
    QTest::addColumn<int>("retypeRow");
    QTest::addColumn<int>("retypeTo");
    QTest::addColumn<QStringList>("enabled");
    QTest::newRow("none held") << QList<int> { 0, 1 } << -1 << 0 << QStringList { "MRI", "MRI" };
    QTest::newRow("memo held") << QList<int> { 7, 0 } << -1 << 0 << QStringList { "MRI", "-RI" };
    QTest::newRow("all three held")
        << QList<int> { 7, 8, 12, 0 } << -1 << 0 << QStringList { "M--", "-R-", "--I", "---" };
    QTest::newRow("retyped to reminder")
        << QList<int> { 0, 0 } << 1 << 8 << QStringList { "M-I", "MRI" };
    QTest::newRow("retyped away frees it")
        << QList<int> { 12, 0 } << 0 << 0 << QStringList { "MRI", "MRI" };
}

void TestFieldEditor::checkSpecFields()
{
    QFETCH(int, retypeRow);
    TestHome home;
    QFETCH(QList<int>, types);
    auto card = cardWith(home, types);
    FieldEditor editor(card.get());
    QFETCH(int, retypeTo);
    if (retypeRow >= 0)
        inRow<QComboBox>(editor, retypeRow, "type")->setCurrentIndex(retypeTo);
    QTEST(specEnabled(editor), "enabled");
}

// The items of the menu between "Up"/"Down" and "Remove", joined by "|".
void TestFieldEditor::extendedMenu_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("defaultValue");
    QTest::addColumn<QString>("items");
    const auto row
        = [](const char *name, int type, int index, const char *value, const char *items) {
              QTest::newRow(name) << type << index << QString(value) << QString(items);
          };
    row("String first", 0, 0, "", "Up off|Down|Default ...");
    row("Integer last", 1, 2, "", "Up|Down off|Formula ...|Format ...|Default ...");
    row("Double", 2, 1, "", "Up|Down|Formula ...|Format ...|Default ...");
    row("Date", 3, 1, "", "Up|Down|Format ...");
    row("Time", 4, 1, "", "Up|Down|Format ...");
    row("DateTime", 5, 1, "", "Up|Down|Format ...");
    row("Text", 6, 1, "", "Up|Down|Default ...");
    row("Memo", 7, 1, "", "Up|Down|Default ...");
    row("Reminder", 8, 1, "", "Up|Down|Format ...");
    row("List", 9, 1, "", "Up|Down|Edit List ...|Default ...");
    row("Bool", 10, 1, "", "Up|Down|Default ...");
    row("Count", 11, 1, "", "Up|Down|Format ...|Default ...");
    row("Image without default", 12, 1, "", "Up|Down|Default ...");
    row("Image with default", 12, 1, "pic.png", "Up|Down|Unset Image|Default ...");
    row("MultiList", 13, 1, "", "Up|Down|Edit List ...|Default ...");
    row("Increment", 14, 1, "", "Up|Down|Format ...|Default ...");
}

void TestFieldEditor::extendedMenu()
{
    QFETCH(int, index);
    TestHome home;
    QList<int> types { 0, 0, 0 };
    QFETCH(int, type);
    types[index] = type;
    auto card = cardWith(home, types);
    QList<FieldDef> fields = card->fields();
    QFETCH(QString, defaultValue);
    fields[index].defaultValue = defaultValue;
    card->setFields(fields, true);
    FieldEditor editor(card.get());
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QStringList shown;
    withMenu(editor, index, [&shown](QMenu *menu) {
        for (const QAction *action : menu->actions()) {
            if (!action->isSeparator())
                shown << action->text()
                        + (action->isEnabled() ? QString() : QStringLiteral(" off"));
        }
    });
    QFETCH(QString, items);
    QCOMPARE(shown.join('|'), items + QStringLiteral("|Remove"));
    QVERIFY(inRow<QLineEdit>(editor, index, "name")->hasSelectedText());
}

// Steps: "up N", "down N", "remove N yes|no", "new", "title N text"; "empty" first opens a card
// of no fields instead of "a", "b", "c". Then the titles in order, and every row shows its entry
// under its running number.
void TestFieldEditor::rowSteps_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("empty card") << QStringList { "empty" } << QStringList { "Field 1" };
    QTest::newRow("down") << QStringList { "down 0" } << QStringList { "b", "a", "c" };
    QTest::newRow("bracketed title, then up")
        << QStringList { "title 1 [x]", "up 1" } << QStringList { "[x]", "a", "c" };
    QTest::newRow("up") << QStringList { "up 2" } << QStringList { "a", "c", "b" };
    QTest::newRow("there and back")
        << QStringList { "down 1", "up 2" } << QStringList { "a", "b", "c" };
    QTest::newRow("remove refused")
        << QStringList { "remove 1 no" } << QStringList { "a", "b", "c" };
    QTest::newRow("remove") << QStringList { "remove 1 yes" } << QStringList { "a", "c" };
    QTest::newRow("remove all, then new") << QStringList { "remove 0 yes", "remove 0 yes",
        "remove 0 yes", "new" } << QStringList { "Field 1" };
    QTest::newRow("new numbers by count")
        << QStringList { "remove 0 yes", "new", "down 1" } << QStringList { "b", "Field 3", "c" };
}

void TestFieldEditor::rowSteps()
{
    TestHome home;
    QFETCH(QStringList, steps);
    auto card = cardWith(home, steps.value(0) == "empty" ? QList<int>() : QList<int> { 0, 1, 2 });
    FieldEditor editor(card.get());
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    for (const QString &step : steps) {
        const QStringList words = step.split(' ');
        const int index = words.value(1).toInt();
        if (words[0] == "empty")
            continue;
        if (words[0] == "up")
            chooseFromMenu(editor, index, "Up");
        else if (words[0] == "down")
            chooseFromMenu(editor, index, "Down");
        else if (words[0] == "new")
            QTest::mouseClick(editor.form()->newFieldButton(), Qt::LeftButton);
        else if (words[0] == "title") {
            inRow<QLineEdit>(editor, index, "name")->selectAll();
            QTest::keyClicks(inRow<QLineEdit>(editor, index, "name"), words[2]);
        } else {
            answerQuestion(words[2] == "yes");
            chooseFromMenu(editor, index, "Remove");
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    const QList<FieldDef> fields = editor.fields();
    QTEST(titles(fields), "titles");
    QCOMPARE(editor.form()->rowCount(), fields.size());
    for (int i = 0; i < fields.size(); ++i) {
        QCOMPARE(inRow<QLineEdit>(editor, i, "name")->text(), fields[i].title);
        QCOMPARE(fields[i].label, fields[i].title);
        // A field the editor made pairs with none of the card's.
        QCOMPARE(fields[i].origin == -1, fields[i].title.startsWith("Field "));
        QCOMPARE(inRow<QLabel>(editor, i, "label")->text(), QStringLiteral(" %1.").arg(i + 1));
        QCOMPARE(inRow<QComboBox>(editor, i, "type")->currentIndex(), fields[i].type);
    }
}

void TestFieldEditor::autoIncrement_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("result");
    QTest::newRow("both") << "5;2" << 5 << 2 << int(Qt::Key_Return) << "5;2";
    QTest::newRow("empty start kept") << ";3" << 0 << 3 << int(Qt::Key_Return) << "0;3";
    QTest::newRow("no step") << "7" << 7 << 0 << int(Qt::Key_Return) << "7;0";
    QTest::newRow("junk reads 0") << "x;y;z" << 0 << 0 << int(Qt::Key_Return) << "0;0";
    QTest::newRow("escape") << "1;1" << 1 << 1 << int(Qt::Key_Escape) << "";
}

void TestFieldEditor::autoIncrement()
{
    QFETCH(QString, value);
    AutoIncrementDialog dialog("Number", value);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTEST(dialog.findChild<QSpinBox *>("start")->value(), "start");
    QTEST(dialog.findChild<QSpinBox *>("step")->value(), "step");
    QFETCH(int, key);
    QTest::keyClick(&dialog, Qt::Key(key));
    QFETCH(QString, result);
    QCOMPARE(dialog.result(), int(result.isEmpty() ? QDialog::Rejected : QDialog::Accepted));
    if (!result.isEmpty())
        QCOMPARE(dialog.value(), result);
}

// Changes: "type I T", "up I", "down I", "remove I", "new", "formula I TEXT". The editor
// takes them through its rows and menus; the JSON for set-fields takes them as plain edits.
void TestFieldEditor::sameAsSetFields_data()
{
    QTest::addColumn<QStringList>("changes");
    QTest::newRow("String to Integer, Integer to Double, Date to String")
        << QStringList { "type 0 1", "type 1 2", "type 3 0" };
    QTest::newRow("across families, list items go")
        << QStringList { "type 2 3", "type 4 0", "type 8 1", "type 7 13" };
    QTest::newRow("move and remove") << QStringList { "down 0", "up 5", "remove 7", "remove 0" };
    QTest::newRow("add") << QStringList { "new", "type 10 2" };
    QTest::newRow("formula after a move")
        << QStringList { "down 1", "formula 2 [Price]*2+[Price!]" };
    QTest::newRow("formula, then remove its field")
        << QStringList { "formula 2 [Count]+1", "remove 1" };
}

void TestFieldEditor::sameAsSetFields()
{
    TestHome home;
    const QString a = home.file("a.card");
    const QString b = home.file("b.card");
    QCOMPARE(runCli(home.path(), { "generate", "--records", "4", a }).status, 0);
    QVERIFY(QFile::copy(a, b));

    QList<FieldDef> expected;
    QList<FieldDef> original;
    {
        DataManager card(a);
        QVERIFY(card.load());
        expected = card.fields();
        original = expected;
        FieldEditor editor(&card);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        QFETCH(QStringList, changes);
        for (const QString &change : changes) {
            const QStringList words = change.split(' ');
            const int index = words.value(1).toInt();
            if (words[0] == "type") {
                inRow<QComboBox>(editor, index, "type")->setCurrentIndex(words[2].toInt());
                FieldDef &def = expected[index];
                def.type = words[2].toInt();
                def.formula.clear();
                def.defaultValue.clear();
                def.format.clear();
                def.items.clear();
            } else if (words[0] == "up" || words[0] == "down") {
                chooseFromMenu(editor, index, words[0] == "up" ? "Up" : "Down");
                expected.swapItemsAt(index, words[0] == "up" ? index - 1 : index + 1);
            } else if (words[0] == "remove") {
                answerQuestion(true);
                chooseFromMenu(editor, index, "Remove");
                expected.removeAt(index);
            } else if (words[0] == "new") {
                QTest::mouseClick(editor.form()->newFieldButton(), Qt::LeftButton);
                FieldDef def = field(QStringLiteral("Field %1").arg(expected.size() + 1), 0);
                expected << def;
            } else {
                const QString text = change.section(' ', 2);
                whenShown<FormulaEditor>([text](FormulaEditor *dialog) {
                    auto *edit = dialog->findChild<QPlainTextEdit *>("fm");
                    edit->selectAll();
                    QTest::keyClicks(edit, text);
                    QTest::mouseClick(dialog->findChild<QPushButton *>("btnOk"), Qt::LeftButton);
                });
                chooseFromMenu(editor, index, "Formula ...");
                // set-fields reads the numbers of a formula as those of the card before the change.
                expected[index].formula = FormulaTranslation::stored(text, original);
            }
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QTest::keyClick(&editor, Qt::Key_Escape);
        QVERIFY(SchemaChange::apply(card, editor.fields()));
    }

    QJsonArray json;
    for (const FieldDef &def : expected) {
        json.append(QJsonObject { { "title", def.title }, { "label", def.label },
            { "type", def.type }, { "formula", def.formula }, { "defaultValue", def.defaultValue },
            { "format", def.format }, { "items", QJsonArray::fromStringList(def.items) },
            { "width", def.width }, { "origin", def.origin } });
    }
    QFile file(home.file("fields.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(json).toJson());
    file.close();
    QCOMPARE(runCli(home.path(), { "set-fields", b, file.fileName() }).status, 0);

    const CliResult dumpA = runCli(home.path(), { "dump", a });
    const CliResult dumpB = runCli(home.path(), { "dump", b });
    QCOMPARE(dumpA.status, 0);
    QVERIFY(dumpA.out.size() > 100);
    QCOMPARE(QString::fromUtf8(dumpA.out).replace(a, b), QString::fromUtf8(dumpB.out));
}

QTEST_MAIN(TestFieldEditor)
#include "testfieldeditor.moc"
