#include "app/mrldb.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "store/dbmanager.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "views/listview.h"

#include <QMenu>
#include <QToolButton>
#include <QtTest>

// The filter menu of the main window: its entries follow the card's filters.
class TestMRLDBFilters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void menuEntries_data();
    void menuEntries();
    void choosingEntryRebuildsMenu();
    void sortEntries_data();
    void sortEntries();
    void viewChangeReopensOnSameRecord();

private:
    static DataManager *openWithFilters(MRLDB &window, const TestHome &home, int count);
    static QMenu *toolMenu(const MRLDB &window, const QString &tip);
    static QMenu *filterMenu(const MRLDB &window)
    {
        return toolMenu(window, QStringLiteral("Filter"));
    }
    static void trigger(const QMenu *menu, int id);
    // "title id" of each entry that chooses a filter, with "*" when it is checked.
    static QStringList choices(const QMenu *menu);
};

void TestMRLDBFilters::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

DataManager *TestMRLDBFilters::openWithFilters(MRLDB &window, const TestHome &home, int count)
{
    DataManager *card = testCard(
        home.file(QStringLiteral("f.card")), { testField(FieldDef::String, "Name") }, { "a" })
                            .release();
    QList<FilterDef> filters;
    for (int i = 0; i < count; ++i) {
        filters << FilterDef();
        filters.last().title = QStringLiteral("f%1").arg(i);
    }
    card->setFilters(filters);
    window.showCard(card, QStringLiteral("Test card"));
    return card;
}

QMenu *TestMRLDBFilters::toolMenu(const MRLDB &window, const QString &tip)
{
    for (QToolButton *button : window.findChildren<QToolButton *>()) {
        if (button->toolTip() == tip)
            return button->menu();
    }
    return nullptr;
}

QStringList TestMRLDBFilters::choices(const QMenu *menu)
{
    QStringList entries;
    for (const QAction *entry : menu->actions()) {
        if (entry->data().isValid())
            entries << entry->text() + QLatin1Char(' ') + entry->data().toString()
                    + (entry->isChecked() ? QStringLiteral("*") : QString());
    }
    return entries;
}

void TestMRLDBFilters::menuEntries_data()
{
    QTest::addColumn<QString>("menu"); // "Filter" or "View"
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("current"); // -2: a find running
    QTest::addColumn<QStringList>("entries");
    // Five entries at most; the current one past them comes last, with no id.
    const QStringList f { "f0 1", "f1 2", "f2 3", "f3 4", "f4 5" };
    const QStringList v { "v0 1", "v1 2", "v2 3", "v3 4", "v4 5" };
    const QString all = QStringLiteral("All Records 0");
    QTest::newRow("no filters") << "Filter" << 0 << -1 << QStringList { all + "*" };
    QTest::newRow("five filters, the last current")
        << "Filter" << 5 << 4 << QStringList { all, "f0 1", "f1 2", "f2 3", "f3 4", "f4 5*" };
    QTest::newRow("seven filters, the sixth current")
        << "Filter" << 7 << 5 << QStringList { all } + f + QStringList { "f5 -1*" };
    QTest::newRow("seven filters, the seventh current")
        << "Filter" << 7 << 6 << QStringList { all } + f + QStringList { "f6 -1*" };
    QTest::newRow("seven filters, a find running")
        << "Filter" << 7 << -2 << QStringList { all } + f;
    QTest::newRow("no views") << "View" << 0 << -1 << QStringList { "Default 0*" };
    QTest::newRow("five views, the third current")
        << "View" << 5 << 2 << QStringList { "Default 0", "v0 1", "v1 2", "v2 3*", "v3 4", "v4 5" };
    QTest::newRow("seven views, default") << "View" << 7 << -1 << QStringList { "Default 0*" } + v;
    QTest::newRow("seven views, the seventh current")
        << "View" << 7 << 6 << QStringList { "Default 0" } + v + QStringList { "v6 -1*" };
}

void TestMRLDBFilters::menuEntries()
{
    QFETCH(QString, menu);
    QFETCH(int, count);
    QFETCH(int, current);
    TestHome home;
    MRLDB window;
    const bool filters = menu == QLatin1String("Filter");
    DataManager *card = openWithFilters(window, home, filters ? count : 0);
    if (filters) {
        if (current == -2)
            card->setAdHocFilter(FilterDef());
        else
            card->setCurrentFilter(current);
        window.showCard(card, QStringLiteral("Test card"));
    } else {
        QList<ViewDef> views(count);
        for (int i = 0; i < count; ++i)
            views[i].title = QStringLiteral("v%1").arg(i);
        card->setViews(views);
        card->setCurrentView(current);
        window.setupViews();
    }
    QMenu *shown = toolMenu(window, menu);
    QVERIFY(shown);
    // The filter menu's first entry is the find, checked while one runs.
    if (filters)
        QCOMPARE(shown->actions().first()->isChecked(), current == -2);
    QTEST(choices(shown), "entries");
}

void TestMRLDBFilters::choosingEntryRebuildsMenu()
{
    TestHome home;
    MRLDB window;
    DataManager *card = openWithFilters(window, home, 7);
    QMenu *menu = filterMenu(window);
    const QList<QAction *> entries = menu->actions();
    auto second = std::find_if(entries.cbegin(), entries.cend(),
        [](const QAction *entry) { return entry->data().toInt() == 2; });
    QVERIFY(second != entries.cend());
    (*second)->trigger();
    QCOMPARE(card->currentFilter(), 1);
    QCoreApplication::sendPostedEvents(&window);
    QVERIFY(choices(menu).contains(QStringLiteral("f1 2*")));
    QVERIFY(!choices(menu).contains(QStringLiteral("All Records 0*")));
}

void TestMRLDBFilters::trigger(const QMenu *menu, int id)
{
    for (QAction *entry : menu->actions()) {
        if (entry->data().isValid() && entry->data().toInt() == id) {
            entry->trigger();
            return;
        }
    }
    QFAIL("no such entry");
}

void TestMRLDBFilters::sortEntries_data()
{
    QTest::addColumn<QList<int>>("chosen"); // ids, one menu after the other
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("ascending");
    QTest::newRow("nothing chosen")
        << QList<int> {} << QStringList { "Unsorted 0*", "Reversed 1", "Name 2" } << -1 << true;
    QTest::newRow("reversed unsorted")
        << QList<int> { 1 } << QStringList { "Unsorted 0*", "Reversed 1*", "Name 2" } << -1
        << false;
    QTest::newRow("reversed twice")
        << QList<int> { 1, 1 } << QStringList { "Unsorted 0*", "Reversed 1", "Name 2" } << -1
        << true;
    QTest::newRow("field, then reversed")
        << QList<int> { 2, 1 } << QStringList { "Unsorted 0", "Reversed 1*", "Name 2*" } << 0
        << false;
    QTest::newRow("field, then unsorted")
        << QList<int> { 2, 0 } << QStringList { "Unsorted 0*", "Reversed 1", "Name 2" } << -1
        << true;
}

// Each choice is applied by the posted event, and the menu follows the card's sort.
void TestMRLDBFilters::sortEntries()
{
    QFETCH(QList<int>, chosen);
    TestHome home;
    MRLDB window;
    DataManager *card = openWithFilters(window, home, 0);
    QMenu *menu = toolMenu(window, QStringLiteral("Sort"));
    QVERIFY(menu && menu->parentWidget());
    for (int id : chosen) {
        trigger(menu, id);
        QCoreApplication::sendPostedEvents(&window);
    }
    QTEST(choices(menu), "entries");
    QTEST(card->sortColumn(), "column");
    QTEST(card->sortOrder(), "ascending");
}

// The card opens again with the view's columns, on the record that was current; a running
// find does not outlive it.
void TestMRLDBFilters::viewChangeReopensOnSameRecord()
{
    TestHome home;
    const QString path = home.documents() + QStringLiteral("/Books.card");
    {
        QStringList names;
        for (int i = 0; i < 40; ++i)
            names << QStringLiteral("r%1").arg(i, 3, 10, QLatin1Char('0'));
        auto card = testCard(path,
            { testField(FieldDef::String, "Name"), testField(FieldDef::Integer, "N") }, names);
        ViewDef view;
        view.title = QStringLiteral("Names");
        view.columns = { 0 };
        card->setViews({ view });
        card->forceSave();
        DBManager list(false);
        list.load();
        list.addCard(path);
    }
    MRLDB window;
    window.openCard(path);
    FilterDef find;
    find.conditions << FilterCondition();
    find.conditions.first().text = QStringLiteral("r02");
    window.openedCard()->setAdHocFilter(find);
    PIMRecord *wanted = window.openedCard()->view().at(7);
    const QString uid = wanted->uidString();
    window.records()->showRecord(wanted);
    QCOMPARE(window.records()->currentTask(), wanted);

    trigger(toolMenu(window, QStringLiteral("View")), 1);
    QCoreApplication::sendPostedEvents(&window);
    DataManager *reopened = window.openedCard();
    QVERIFY(reopened);
    QCOMPARE(reopened->currentView(), 0);
    QCOMPARE(reopened->currentColumns(), QList<int> { 0 });
    QCOMPARE(reopened->currentFilter(), -1);
    QVERIFY(window.records()->currentTask());
    QCOMPARE(window.records()->currentTask()->uidString(), uid);
}

QTEST_MAIN(TestMRLDBFilters)
#include "testmrldbfilters.moc"
