#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "support/whenshown.h"
#include "views/filtereditordialog.h"
#include "views/filterlistdialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTreeWidget>
#include <QtTest>

#include <climits>

// The filter editor and the filter list, driven by their buttons and keys.
class TestFilterEditorDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void valueWidgetPerType_data();
    void valueWidgetPerType();
    void storedCondition_data();
    void storedCondition();
    void removeRefillsWidgets();
    void emptyListTakesWidgets_data();
    void emptyListTakesWidgets();
    void liveCountOnePassPerBurst();
    void listUpdate_data();
    void listUpdate();
    void escapeAsksWhenEdited_data();
    void escapeAsksWhenEdited();

private:
    // Field i has type i; the String field holds the names.
    static std::unique_ptr<DataManager> allTypes(const TestHome &home);
};

void TestFilterEditorDialog::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

std::unique_ptr<DataManager> TestFilterEditorDialog::allTypes(const TestHome &home)
{
    QList<FieldDef> fields;
    for (int type = 0; type < FieldDef::TypeCount; ++type)
        fields << testField(type, FieldDef::typeName(type));
    return testCard(home.file(QStringLiteral("t.card")), fields, { "pear", "apple", "Peach" });
}

void TestFilterEditorDialog::valueWidgetPerType_data()
{
    QTest::addColumn<int>("field"); // the fs entry: 0 is "All Text Fields"
    QTest::addColumn<QString>("widget");
    QTest::addColumn<int>("operators");
    QTest::newRow("all text fields") << 0 << "QLineEdit" << 7;
    QTest::newRow("String") << 1 + FieldDef::String << "QLineEdit" << 7;
    QTest::newRow("Integer") << 1 + FieldDef::Integer << "QLineEdit" << 6;
    QTest::newRow("Double") << 1 + FieldDef::Double << "QLineEdit" << 6;
    QTest::newRow("Date") << 1 + FieldDef::Date << "MLDateEdit" << 3;
    QTest::newRow("Time") << 1 + FieldDef::Time << "MLTimeEdit" << 3;
    QTest::newRow("DateTime") << 1 + FieldDef::DateTime << "QWidget" << 3;
    QTest::newRow("Reminder") << 1 + FieldDef::Reminder << "QComboBox" << 1;
    QTest::newRow("Bool") << 1 + FieldDef::Bool << "QComboBox" << 2;
    QTest::newRow("Image") << 1 + FieldDef::Image << "QComboBox" << 1;
    QTest::newRow("Count") << 1 + FieldDef::Count << "QSpinBox" << 6;
    QTest::newRow("MultiList") << 1 + FieldDef::MultiList << "QLineEdit" << 7;
}

void TestFilterEditorDialog::valueWidgetPerType()
{
    QFETCH(int, field);
    QFETCH(QString, widget);
    QFETCH(int, operators);
    TestHome home;
    auto card = allTypes(home);
    FilterEditorDialog dialog(card.get(), FilterEditorDialog::NewFilter);
    dialog.findChild<QComboBox *>("fs")->setCurrentIndex(field);
    const auto values = dialog.findChildren<QWidget *>("val");
    QCOMPARE(values.size(), 1);
    QCOMPARE(QString::fromLatin1(values.first()->metaObject()->className()), widget);
    QCOMPARE(dialog.findChild<QComboBox *>("cond")->count(), operators);
}

void TestFilterEditorDialog::storedCondition_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("typed"); // into the line edit, or the combo or spin value
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<double>("real");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, int type, const char *typed, const char *text, int number,
                         double real, const QString &shown) {
        QTest::newRow(name) << type << QString(typed) << QString(text) << number << real << shown;
    };
    using F = FieldDef;
    row("String", F::String, "Ab", "Ab", 0, 0.0, "Ab");
    row("Integer truncates", F::Integer, "3.9", "", 3, 0.0, "3");
    row("Integer no number", F::Integer, "abc", "", 0, 0.0, "0");
    row("Integer clamps", F::Integer, "1e30", "", INT_MAX, 0.0, QString::number(INT_MAX));
    row("Integer not finite", F::Integer, "inf", "", 0, 0.0, "0");
    row("Double", F::Double, "2.125", "", 0, 2.125, "2.125");
    row("Double not finite", F::Double, "nan", "", 0, 0.0, "0");
    row("Bool No", F::Bool, "1", "", 1, 0.0, "No");
    row("Image Yes", F::Image, "0", "", 0, 0.0, "Yes");
    row("Count", F::Count, "7", "", 7, 0.0, "7");
}

void TestFilterEditorDialog::storedCondition()
{
    QFETCH(int, type);
    QFETCH(QString, typed);
    TestHome home;
    auto card = allTypes(home);
    FilterEditorDialog dialog(card.get(), FilterEditorDialog::NewFilter);
    dialog.findChild<QComboBox *>("fs")->setCurrentIndex(type + 1);
    QWidget *value = dialog.findChild<QWidget *>("val");
    if (auto *edit = qobject_cast<QLineEdit *>(value))
        QTest::keyClicks(edit, typed);
    else if (auto *combo = qobject_cast<QComboBox *>(value))
        combo->setCurrentIndex(typed.toInt());
    else
        static_cast<QSpinBox *>(value)->setValue(typed.toInt());
    QTest::mouseClick(dialog.findChild<QPushButton *>("btnAdd"), Qt::LeftButton);

    QCOMPARE(dialog.conditions().size(), 1);
    const FilterCondition stored = dialog.conditions().first();
    QCOMPARE(stored.field, type);
    QTEST(stored.text, "text");
    QTEST(stored.number, "number");
    QTEST(stored.real, "real");
    QTEST(dialog.findChild<QTreeWidget *>("list")->topLevelItem(0)->text(2), "shown");
}

void TestFilterEditorDialog::removeRefillsWidgets()
{
    TestHome home;
    auto card = allTypes(home);
    FilterEditorDialog dialog(card.get(), FilterEditorDialog::NewFilter);
    auto *fs = dialog.findChild<QComboBox *>("fs");
    fs->setCurrentIndex(1 + FieldDef::Integer);
    dialog.findChild<QComboBox *>("cond")->setCurrentIndex(FilterCondition::AtLeast);
    QTest::keyClicks(dialog.findChild<QLineEdit *>("val"), "42");
    auto *add = dialog.findChild<QPushButton *>("btnAdd");
    QTest::mouseClick(add, Qt::LeftButton);
    fs->setCurrentIndex(0); // the widgets move on before the row is taken back
    auto *list = dialog.findChild<QTreeWidget *>("list");
    auto *remove = dialog.findChild<QPushButton *>("btnRemove");
    QVERIFY(!remove->isEnabled());
    list->setCurrentItem(list->topLevelItem(0));
    QTest::mouseClick(remove, Qt::LeftButton);

    QCOMPARE(list->topLevelItemCount(), 0);
    QVERIFY(dialog.conditions().isEmpty());
    QCOMPARE(fs->currentIndex(), 1 + FieldDef::Integer);
    QCOMPARE(dialog.findChild<QComboBox *>("cond")->currentIndex(), int(FilterCondition::AtLeast));
    QCOMPARE(dialog.findChild<QLineEdit *>("val")->text(), QStringLiteral("42"));
    QTest::mouseClick(add, Qt::LeftButton); // corrected and added again
    QCOMPARE(dialog.conditions().first().number, 42);
}

void TestFilterEditorDialog::emptyListTakesWidgets_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("currentFilter");
    QTest::newRow("new filter") << int(FilterEditorDialog::NewFilter) << -1;
    QTest::newRow("find") << int(FilterEditorDialog::Find) << -2;
}

// Return accepts an empty list with a typed value; that value becomes the one condition.
void TestFilterEditorDialog::emptyListTakesWidgets()
{
    QFETCH(int, index);
    TestHome home;
    auto card = allTypes(home);
    FilterEditorDialog dialog(card.get(), index);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.findChild<QLineEdit *>("fname")->clear();
    QTest::keyClicks(dialog.findChild<QLineEdit *>("val"), "pe");
    QTest::keyClick(dialog.findChild<QLineEdit *>("val"), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    dialog.apply();

    QTEST(card->currentFilter(), "currentFilter");
    const FilterDef stored
        = index == FilterEditorDialog::Find ? card->adHocFilter() : card->filters().value(0);
    QCOMPARE(stored.title, QStringLiteral("Filter"));
    QCOMPARE(stored.conditions.size(), 1);
    QCOMPARE(stored.conditions.first().text, QStringLiteral("pe"));
    if (index == FilterEditorDialog::Find)
        QCOMPARE(card->view().size(), 2); // "pear" and "Peach"
}

void TestFilterEditorDialog::liveCountOnePassPerBurst()
{
    TestHome home;
    auto card = allTypes(home);
    FilterEditorDialog dialog(card.get(), FilterEditorDialog::Find);
    QSignalSpy passes(&dialog, &FilterEditorDialog::matchesCounted);
    QVERIFY(passes.wait());
    QCOMPARE(passes.takeFirst().first().toInt(), 3); // an empty "contains" passes all
    QTest::keyClicks(dialog.findChild<QLineEdit *>("val"), "PEA");
    QVERIFY(passes.wait());
    QTest::qWait(200);
    QCOMPARE(passes.size(), 1);
    QCOMPARE(passes.first().first().toInt(), 2);
    QCOMPARE(dialog.findChild<QLabel *>("matches")->text(), QStringLiteral("2 records match"));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(card->currentFilter(), -1); // the list changes only on Ok
}

void TestFilterEditorDialog::listUpdate_data()
{
    QTest::addColumn<QStringList>("start");
    QTest::addColumn<QString>("steps"); // buttons pressed, the second row being current
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<int>("currentFilter");
    const QStringList abc { "a", "b", "c" };
    QTest::newRow("close") << abc << "btnClose" << abc << -1;
    QTest::newRow("escape") << abc << "escape" << abc << -1;
    QTest::newRow("select") << abc << "btnSelect" << abc << 1;
    QTest::newRow("down, select") << abc << "btnDown btnSelect" << QStringList { "a", "c", "b" }
                                  << 2;
    QTest::newRow("up, close") << abc << "btnUp btnClose" << QStringList { "b", "a", "c" } << -1;
    QTest::newRow("remove, select")
        << abc << "btnRemove btnSelect" << QStringList { "a", "c" } << 1;
    QTest::newRow("sort, select") << QStringList { "c", "b", "a" } << "btnSort btnSelect" << abc
                                  << 0;
}

void TestFilterEditorDialog::listUpdate()
{
    QFETCH(QStringList, start);
    QFETCH(QString, steps);
    TestHome home;
    auto card = allTypes(home);
    QList<FilterDef> filters;
    for (const QString &title : start) {
        filters << FilterDef();
        filters.last().title = title;
    }
    card->setFilters(filters);
    {
        FilterListDialog dialog(card.get());
        auto *list = dialog.findChild<QTreeWidget *>("list");
        list->setCurrentItem(list->topLevelItem(1));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        // Yes to the removal question; the watch goes with the dialog where none comes.
        whenShown<MRLDialog>(
            [](MRLDialog *box) {
                box->findChild<QPushButton *>(QStringLiteral("button1"))->click();
            },
            &dialog);
        for (const QString &step : steps.split(' ')) {
            if (step == QLatin1String("escape"))
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                QTest::mouseClick(dialog.findChild<QPushButton *>(step), Qt::LeftButton);
        }
        QVERIFY(!dialog.isVisible());
    }
    QStringList titles;
    for (const FilterDef &filter : card->filters())
        titles << filter.title;
    QTEST(titles, "titles");
    QTEST(card->currentFilter(), "currentFilter");
}

void TestFilterEditorDialog::escapeAsksWhenEdited_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("edit"); // the widget the user changes before Escape
    QTest::addColumn<QString>("answer"); // the button pressed on the question; none expected
    QTest::addColumn<bool>("closed");
    const auto row
        = [](const char *name, int index, const char *edit, const char *answer, bool closed) {
              QTest::newRow(name) << index << QString(edit) << QString(answer) << closed;
          };
    const int stored = 0;
    const int added = FilterEditorDialog::NewFilter;
    row("untouched filter", stored, "", "", true);
    row("renamed, discarded", stored, "fname", "button1", true);
    row("renamed, kept", stored, "fname", "button2", false);
    row("value typed in a new filter, kept", added, "val", "button2", false);
    row("condition added, discarded", added, "btnAdd", "button1", true);
    row("find drops its text unasked", FilterEditorDialog::Find, "val", "", true);
}

void TestFilterEditorDialog::escapeAsksWhenEdited()
{
    QFETCH(int, index);
    QFETCH(QString, edit);
    QFETCH(QString, answer);
    TestHome home;
    auto card = allTypes(home);
    card->setFilters({ FilterDef() });
    const QList<FilterDef> before = card->filters();
    FilterEditorDialog dialog(card.get(), index);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    if (edit == QLatin1String("btnAdd"))
        QTest::mouseClick(dialog.findChild<QPushButton *>("btnAdd"), Qt::LeftButton);
    else if (!edit.isEmpty())
        QTest::keyClicks(dialog.findChild<QLineEdit *>(edit), "pe");
    QString asked;
    whenShown<MRLDialog>(
        [&](MRLDialog *box) {
            asked = box->windowTitle();
            box->findChild<QPushButton *>(answer)->click();
        },
        &dialog);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(asked.isEmpty(), answer.isEmpty());
    QTEST(!dialog.isVisible(), "closed");
    QCOMPARE(card->filters(), before);
    QCOMPARE(card->currentFilter(), -1);
}

QTEST_MAIN(TestFilterEditorDialog)
#include "testfiltereditordialog.moc"
