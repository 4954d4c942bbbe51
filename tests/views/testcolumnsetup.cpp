#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "support/whenshown.h"
#include "views/columnsetup.h"
#include "views/viewlistdialog.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

// The view editor and the view list, driven by their buttons and keys.
class TestColumnSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void filterChoices_data();
    void filterChoices();
    void newViewFromButtons();
    void listSelectsView_data();
    void listSelectsView();
    void escapeAsksWhenEdited_data();
    void escapeAsksWhenEdited();

private:
    // Fields "Name" and "Count"; filters f0, f1; views v0 to v5, v4 and v5 filtered by f1.
    static std::unique_ptr<DataManager> card(const TestHome &home);
    static QStringList rows(const QTreeWidget *tree);
};

void TestColumnSetup::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

std::unique_ptr<DataManager> TestColumnSetup::card(const TestHome &home)
{
    auto card = testCard(home.file(QStringLiteral("c.card")),
        { testField(FieldDef::String, "Name"), testField(FieldDef::Integer, "Count") }, { "a" });
    QList<FilterDef> filters(2);
    filters[0].title = QStringLiteral("f0");
    filters[1].title = QStringLiteral("f1");
    card->setFilters(filters);
    QList<ViewDef> views(6);
    for (int i = 0; i < views.size(); ++i) {
        views[i].title = QStringLiteral("v%1").arg(i);
        views[i].columns = { 1 };
        views[i].filter = i >= 4 ? filters[1].uuidString() : QString();
    }
    card->setViews(views);
    return card;
}

QStringList TestColumnSetup::rows(const QTreeWidget *tree)
{
    QStringList titles;
    for (int row = 0; row < tree->topLevelItemCount(); ++row)
        titles << tree->topLevelItem(row)->text(0);
    return titles;
}

void TestColumnSetup::filterChoices_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("choices");
    QTest::addColumn<int>("selected");
    QTest::addColumn<QString>("name");
    QTest::newRow("fifth view") << 4 << 3 << 2 << "v4";
    QTest::newRow("sixth view: all records alone") << 5 << 1 << 0 << "v5";
    QTest::newRow("new view: the current filter") << -1 << 3 << 1 << "Filter";
}

void TestColumnSetup::filterChoices()
{
    QFETCH(int, index);
    TestHome home;
    auto manager = card(home);
    manager->setCurrentFilter(0);
    ColumnSetup setup(manager.get(), index);
    QTEST(setup.findChild<QComboBox *>("filter")->count(), "choices");
    QTEST(setup.findChild<QComboBox *>("filter")->currentIndex(), "selected");
    QTEST(setup.findChild<QLineEdit *>("vname")->text(), "name");
}

// Get steps down the field list; the columns are taken in row order; Return stores the view.
void TestColumnSetup::newViewFromButtons()
{
    TestHome home;
    auto manager = card(home);
    manager->setSort(1, false);
    ColumnSetup setup(manager.get(), -1);
    setup.show();
    QVERIFY(QTest::qWaitForWindowExposed(&setup));
    auto *list = setup.findChild<QTreeWidget *>("list");
    QCOMPARE(rows(list), (QStringList { "Name", "Count" }));
    auto press = [&](const char *button) {
        QTest::mouseClick(setup.findChild<QPushButton *>(button), Qt::LeftButton);
    };
    QVERIFY(!setup.findChild<QPushButton *>("btnRemove")->isEnabled());
    press("btnGet"); // Name, then Count becomes current
    press("btnGet");
    QCOMPARE(rows(list), (QStringList { "Name", "Count", "Name", "Count" }));
    list->setCurrentItem(list->topLevelItem(0));
    press("btnRemove");
    list->setCurrentItem(list->topLevelItem(2));
    QVERIFY(!setup.findChild<QPushButton *>("btnDown")->isEnabled());
    press("btnUp");
    QCOMPARE(rows(list), (QStringList { "Count", "Count", "Name" }));
    setup.findChild<QComboBox *>("filter")->setCurrentIndex(2);
    QTest::keyClick(setup.findChild<QLineEdit *>("vname"), Qt::Key_Return);
    QCOMPARE(setup.result(), int(QDialog::Accepted));
    setup.apply();

    const ViewDef stored = manager->views().last();
    QCOMPARE(manager->views().size(), 7);
    QCOMPARE(stored.title, QStringLiteral("Filter"));
    QCOMPARE(stored.columns, (QList<int> { 1, 1, 0 }));
    QCOMPARE(stored.sort, 1);
    QCOMPARE(stored.ascending, false);
    QCOMPARE(stored.filter, manager->filters().at(1).uuidString());
}

void TestColumnSetup::listSelectsView_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<int>("currentView");
    QTest::addColumn<QString>("second");
    QTest::newRow("select") << "btnSelect" << 1 << "v1";
    QTest::newRow("down, select") << "btnDown btnSelect" << 2 << "v2";
    QTest::newRow("down, close") << "btnDown btnClose" << -1 << "v2";
}

void TestColumnSetup::listSelectsView()
{
    QFETCH(QString, steps);
    TestHome home;
    auto manager = card(home);
    {
        ViewListDialog dialog(manager.get());
        auto *list = dialog.findChild<QTreeWidget *>("list");
        list->setCurrentItem(list->topLevelItem(1));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        for (const QString &step : steps.split(' '))
            QTest::mouseClick(dialog.findChild<QPushButton *>(step), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
    }
    QTEST(manager->currentView(), "currentView");
    QTEST(manager->views().at(1).title, "second");
}

void TestColumnSetup::escapeAsksWhenEdited_data()
{
    QTest::addColumn<QString>("edit"); // the widget the user changes before Escape
    QTest::addColumn<QString>("answer"); // the button pressed on the question; none expected
    QTest::addColumn<bool>("closed");
    const auto row = [](const char *name, const char *edit, const char *answer, bool closed) {
        QTest::newRow(name) << QString(edit) << QString(answer) << closed;
    };
    row("untouched closes at once", "", "", true);
    row("renamed, discarded", "vname", "button1", true);
    row("renamed, kept", "vname", "button2", false);
    row("column added, kept", "btnGet", "button2", false);
    row("order changed, discarded", "order", "button1", true);
}

void TestColumnSetup::escapeAsksWhenEdited()
{
    QFETCH(QString, edit);
    QFETCH(QString, answer);
    TestHome home;
    auto manager = card(home);
    ColumnSetup setup(manager.get(), 0);
    setup.show();
    QVERIFY(QTest::qWaitForWindowExposed(&setup));
    if (edit == QLatin1String("vname"))
        QTest::keyClicks(setup.findChild<QLineEdit *>("vname"), "x");
    else if (edit == QLatin1String("btnGet"))
        QTest::mouseClick(setup.findChild<QPushButton *>("btnGet"), Qt::LeftButton);
    else if (edit == QLatin1String("order"))
        setup.findChild<QComboBox *>("order")->setCurrentIndex(1);
    QString asked;
    whenShown<MRLDialog>(
        [&](MRLDialog *box) {
            asked = box->windowTitle();
            box->findChild<QPushButton *>(answer)->click();
        },
        &setup);
    QTest::keyClick(&setup, Qt::Key_Escape);
    QCOMPARE(asked.isEmpty(), answer.isEmpty());
    QTEST(!setup.isVisible(), "closed");
    QCOMPARE(manager->views().at(0).title, QStringLiteral("v0"));
}

QTEST_MAIN(TestColumnSetup)
#include "testcolumnsetup.moc"
