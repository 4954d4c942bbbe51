#include "keyedmanager.h"
#include "support/testhome.h"

#include "platform/config.h"
#include "store/pimrecord.h"
#include "views/pimlistview.h"
#include "views/recorditem.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCursor>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

namespace
{
// A row that shows its record's key in every column.
class KeyItem : public RecordItem
{
public:
    using RecordItem::RecordItem;
    void update() override
    {
        for (int column = 0; column < list()->columnCount(); ++column)
            setText(column, record()->property(QStringLiteral("key")));
    }
};

class KeyList : public PIMListView
{
public:
    explicit KeyList(const QString &name = QString())
        : PIMListView(nullptr, name)
    {
    }
    QList<int> addedFields;
    QList<int> resized;

protected:
    void addField(int field, Config *) override
    {
        addedFields.append(field);
        addColumn(QString::number(field), 80);
    }
    void columnResized(int section, int width) override { resized << section << width; }
    RecordItem *createItem(PIMRecord *record) override { return new KeyItem(this, record); }
    RecordItem *createItem(PIMRecord *record, RecordItem *after) override
    {
        return new KeyItem(this, record, after);
    }
};

QStringList rowKeys(const PIMListView &list)
{
    QStringList keys;
    for (MRLListViewItem *item : list.items())
        keys << static_cast<RecordItem *>(item)->record()->property(QStringLiteral("key"));
    return keys;
}

QStringList keyRange(int first, int count)
{
    QStringList keys;
    for (int i = first; i < first + count; ++i)
        keys << KeyedManager::key(i);
    return keys;
}

QString currentKey(const PIMListView &list)
{
    PIMRecord *record = list.currentTask();
    return record ? record->property(QStringLiteral("key")) : QString();
}
} // namespace

class TestPIMListView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qApp->setObjectName(QStringLiteral("norvika"));
        qRegisterMetaType<MRLListViewItem *>();
    }
    void pageBar_data();
    void pageBar();
    void onlyOnePageOfRows();
    void pagesComeInAscendingOrder();
    void initReturnsToLastCurrent();
    void setPerPageKeepsCurrentInView();
    void removalPullsNextPageUp();
    void removalOfLastRowOfLastPage();
    void newRecordOnOtherPageMovesThere();
    void newRecordOnSamePageTakesItsPlace();
    void updateRejectedByFilterRemovesRow();
    void updateSortingElsewhereMovesRow();
    void updateSortingOntoOtherPageFollows();
    void showPageBlocksSignals();
    void showPageKeepsOuterBlock();
    void taskSelectedFollowsRecord();
    void notLiveListKeepsHandedRecords();
    void columnsAndSectionClick();
    void readColumnsFromSettings();
    void headerResizeReachesColumnResized();
    void managerGoneClearsList();
    void tapActivatesTouchedCell();
    void pressAndHoldPopsUpOnce();
    void pressOnEmptyAreaStartsNoTimer();
    void keysActivateAndPopUp();
    void pagingPanel();

private:
    struct Bound {
        std::unique_ptr<KeyedManager> manager;
        std::unique_ptr<KeyList> list;
    };
    static Bound bind(const TestHome &home, int records, bool paged = true);
    static QPoint cellCenter(PIMListView &list, int row, int column);
};

TestPIMListView::Bound TestPIMListView::bind(const TestHome &home, int records, bool paged)
{
    Bound bound { std::make_unique<KeyedManager>(home.path()), std::make_unique<KeyList>() };
    bound.manager->fill(records);
    bound.list->setManager(bound.manager.get(), true);
    bound.list->setColumns({ 0, 2 });
    bound.list->setPaged(paged);
    return bound;
}

QPoint TestPIMListView::cellCenter(PIMListView &list, int row, int column)
{
    QRect rect = list.visualItemRect(list.itemAtRow(row));
    rect.setLeft(list.header()->sectionViewportPosition(column));
    rect.setWidth(list.header()->sectionSize(column));
    return rect.center();
}

void TestPIMListView::pageBar_data()
{
    QTest::addColumn<int>("records");
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("back");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<int>("spinMinimum");
    QTest::addColumn<int>("spinMaximum");
    QTest::addColumn<int>("rows");

    QTest::newRow("empty") << 0 << " Page 1 [0] " << false << false << 0 << 0 << 0;
    QTest::newRow("one record") << 1 << " Page 1 [1] " << false << false << 1 << 1 << 1;
    QTest::newRow("one full page") << 15 << " Page 1 [1] " << false << false << 1 << 1 << 15;
    QTest::newRow("one more than a page") << 16 << " Page 1 [2] " << false << true << 1 << 2 << 15;
    QTest::newRow("two full pages") << 30 << " Page 1 [2] " << false << true << 1 << 2 << 15;
}

void TestPIMListView::pageBar()
{
    QFETCH(int, records);
    QFETCH(QString, label);
    QFETCH(bool, back);
    QFETCH(bool, forward);
    QFETCH(int, spinMinimum);
    QFETCH(int, spinMaximum);
    QFETCH(int, rows);
    TestHome home;
    Bound bound = bind(home, records);
    KeyList &list = *bound.list;

    QCOMPARE(list.findChild<QLabel *>(QStringLiteral("pageLabel"))->text(), label);
    QCOMPARE(list.findChild<QToolButton *>(QStringLiteral("pageBack"))->isEnabled(), back);
    QCOMPARE(list.findChild<QToolButton *>(QStringLiteral("pageForward"))->isEnabled(), forward);
    auto *spin = list.findChild<QSpinBox *>(QStringLiteral("pageSpin"));
    QCOMPARE(spin->minimum(), spinMinimum);
    QCOMPARE(spin->maximum(), spinMaximum);
    QCOMPARE(list.itemCount(), rows);
    QCOMPARE(list.currentTask() != nullptr, records > 0);
    QCOMPARE(list.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(list.findChild<QLabel *>(QStringLiteral("totalLabel"))->text(),
        QStringLiteral("Total records count: %1").arg(records));
}

void TestPIMListView::onlyOnePageOfRows()
{
    TestHome home;
    Bound bound = bind(home, 100000);
    KeyList &list = *bound.list;
    QAbstractItemModelTester tester(
        list.model(), QAbstractItemModelTester::FailureReportingMode::QtTest);

    QCOMPARE(list.pageCount(), 6667);
    QCOMPARE(list.findChild<QLabel *>(QStringLiteral("pageLabel"))->text(),
        QStringLiteral(" Page 1 [6667] "));
    QCOMPARE(list.itemCount(), 15);
    QCOMPARE(list.model()->rowCount(), 15);

    list.setPage(3000);
    QCOMPARE(rowKeys(list), keyRange(2999 * 15, 15));
    list.gotoLastPage();
    QCOMPARE(list.page(), 6667);
    QCOMPARE(rowKeys(list), keyRange(6666 * 15, 10));
    QCOMPARE(list.findChild<QLabel *>(QStringLiteral("pageLabel"))->text(),
        QStringLiteral(" Page 6667 [6667] "));
    QVERIFY(!list.findChild<QToolButton *>(QStringLiteral("pageForward"))->isEnabled());
}

void TestPIMListView::pagesComeInAscendingOrder()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    QCOMPARE(rowKeys(list), keyRange(0, 15));
    QCOMPARE(currentKey(list), KeyedManager::key(0));

    list.pageUp();
    QCOMPARE(list.page(), 2);
    QCOMPARE(rowKeys(list), keyRange(15, 15));
    QCOMPARE(currentKey(list), KeyedManager::key(15));
    list.pageUp();
    QCOMPARE(rowKeys(list), keyRange(30, 10));
    list.pageDown();
    QCOMPARE(rowKeys(list), keyRange(15, 15));

    // Nothing clamps the page: a page past the end is simply empty.
    list.setPage(9);
    QCOMPARE(list.itemCount(), 0);
    QVERIFY(!list.currentTask());
}

void TestPIMListView::initReturnsToLastCurrent()
{
    TestHome home;
    auto manager = std::make_unique<KeyedManager>(home.path());
    manager->fill(40);
    manager->setLastCurrent(manager->at(20)->uidString());
    KeyList list;
    list.setManager(manager.get(), true);
    list.setColumns({ 0 });
    list.setPaged(true);

    QCOMPARE(list.page(), 2);
    QCOMPARE(currentKey(list), KeyedManager::key(20));

    // A reload replaces every record; the current row's UID finds its record again.
    list.pageUp();
    list.setCurrentItem(list.itemAtRow(4));
    QCOMPARE(currentKey(list), KeyedManager::key(34));
    QCOMPARE(manager->lastCurrent(), manager->at(34)->uidString());
    Q_EMIT manager->updated();
    QCOMPARE(list.page(), 3);
    QCOMPARE(currentKey(list), KeyedManager::key(34));

    // A UID the manager no longer knows leads to the first page.
    list.setCurrentItem(nullptr);
    manager->setLastCurrent(QStringLiteral("00000000-0000-0000-0000-000000000001"));
    list.init();
    QCOMPARE(list.page(), 1);
    QCOMPARE(currentKey(list), KeyedManager::key(0));
}

void TestPIMListView::setPerPageKeepsCurrentInView()
{
    TestHome home;
    Bound bound = bind(home, 100);
    KeyList &list = *bound.list;
    list.setPage(3);
    list.setCurrentItem(list.itemAtRow(7)); // record 37
    list.setPerPage(10);
    QCOMPARE(bound.manager->perPage(), 10);
    QCOMPARE(list.page(), 4);
    QCOMPARE(rowKeys(list), keyRange(30, 10));
    QCOMPARE(currentKey(list), KeyedManager::key(37));

    // No page of fewer than one row, whatever the caller asks.
    list.setPerPage(0);
    QCOMPARE(list.perPage(), 1);
    QCOMPARE(rowKeys(list), QStringList { KeyedManager::key(37) });
}

void TestPIMListView::removalPullsNextPageUp()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    QAbstractItemModelTester tester(
        list.model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    list.setCurrentItem(list.itemAtRow(6));
    QSignalSpy selected(&list, &PIMListView::selected);

    bound.manager->remove(bound.manager->at(3));
    QStringList expected = keyRange(0, 3) + keyRange(4, 12);
    QCOMPARE(rowKeys(list), expected);
    QCOMPARE(currentKey(list), KeyedManager::key(6));
    QCOMPARE(selected.count(), 1);
    QCOMPARE(list.findChild<QLabel *>(QStringLiteral("pageLabel"))->text(),
        QStringLiteral(" Page 1 [3] "));

    // On the last page nothing moves up.
    list.gotoLastPage();
    bound.manager->remove(bound.manager->at(30));
    QCOMPARE(rowKeys(list), keyRange(32, 8));
}

void TestPIMListView::removalOfLastRowOfLastPage()
{
    TestHome home;
    Bound bound = bind(home, 16);
    KeyList &list = *bound.list;
    list.gotoLastPage();
    QCOMPARE(rowKeys(list), keyRange(15, 1));
    QSignalSpy selected(&list, &PIMListView::selected);

    bound.manager->remove(bound.manager->at(15));
    QCOMPARE(list.page(), 1);
    QCOMPARE(rowKeys(list), keyRange(0, 15));
    QCOMPARE(currentKey(list), KeyedManager::key(14));
    QCOMPARE(bound.manager->lastCurrent(), bound.manager->at(14)->uidString());
    QCOMPARE(list.findChild<QLabel *>(QStringLiteral("pageLabel"))->text(),
        QStringLiteral(" Page 1 [1] "));
    // The move is made quietly, and the list speaks again afterwards.
    QCOMPARE(selected.count(), 0);
    QVERIFY(!list.signalsBlocked());
    list.setCurrentItem(list.itemAtRow(2));
    QCOMPARE(selected.count(), 1);
}

void TestPIMListView::newRecordOnOtherPageMovesThere()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    QSignalSpy selected(&list, &PIMListView::selected);

    PIMRecord *record = bound.manager->addKeyed(KeyedManager::key(35) + QLatin1Char('a'));
    QCOMPARE(list.page(), 3);
    QCOMPARE(list.currentTask(), record);
    QCOMPARE(list.itemCount(), 11);
    QCOMPARE(list.itemAtRow(6), list.findItem(record));
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<PIMRecord *>(), record);
}

void TestPIMListView::newRecordOnSamePageTakesItsPlace()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    QAbstractItemModelTester tester(
        list.model(), QAbstractItemModelTester::FailureReportingMode::QtTest);

    PIMRecord *record = bound.manager->addKeyed(KeyedManager::key(4) + QLatin1Char('a'));
    QCOMPARE(list.page(), 1);
    QCOMPARE(list.itemCount(), 15);
    QCOMPARE(rowKeys(list),
        keyRange(0, 5) + QStringList { KeyedManager::key(4) + 'a' } + keyRange(5, 9));
    QCOMPARE(list.currentTask(), record);

    // The first row of a page goes in at the top.
    list.gotoLastPage();
    PIMRecord *first = bound.manager->addKeyed(KeyedManager::key(28) + QLatin1Char('a'));
    QCOMPARE(list.page(), 3);
    QCOMPARE(list.itemAtRow(0), list.findItem(first));
    QCOMPARE(list.itemCount(), 12);

    // A record the filter rejects gets no row.
    PIMRecord *hidden = bound.manager->makeRecord(KeyedManager::key(31));
    hidden->setProperty(QStringLiteral("hidden"), QStringLiteral("1"));
    bound.manager->add(hidden);
    QCOMPARE(list.itemCount(), 12);
    QVERIFY(!list.findItem(hidden));
}

void TestPIMListView::updateRejectedByFilterRemovesRow()
{
    TestHome home;
    Bound bound = bind(home, 20);
    KeyList &list = *bound.list;
    bound.manager->hide(bound.manager->at(2));
    QCOMPARE(rowKeys(list), keyRange(0, 2) + keyRange(3, 13));

    // And back in: the row returns in its place.
    PIMRecord *record = bound.manager->records().at(2);
    auto *old = new PIMRecord(*record);
    record->removeProperty(QStringLiteral("hidden"));
    bound.manager->update(old, record);
    QCOMPARE(rowKeys(list), keyRange(0, 15));
    QCOMPARE(list.currentTask(), record);
}

void TestPIMListView::updateSortingElsewhereMovesRow()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    QAbstractItemModelTester tester(
        list.model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    PIMRecord *record = bound.manager->at(2);

    bound.manager->changeKey(record, KeyedManager::key(9) + QLatin1Char('a'));
    QCOMPARE(rowKeys(list),
        keyRange(0, 2) + keyRange(3, 7) + QStringList { KeyedManager::key(9) + 'a' }
            + keyRange(10, 5));
    QCOMPARE(list.currentTask(), record);

    bound.manager->changeKey(record, QStringLiteral("0"));
    QCOMPARE(list.itemAtRow(0), list.findItem(record));
    QCOMPARE(list.itemCount(), 15);
}

void TestPIMListView::updateSortingOntoOtherPageFollows()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    PIMRecord *record = bound.manager->at(2);

    bound.manager->changeKey(record, KeyedManager::key(33) + QLatin1Char('a'));
    QCOMPARE(list.page(), 3);
    QCOMPARE(list.currentTask(), record);
    QCOMPARE(rowKeys(list),
        keyRange(31, 3) + QStringList { KeyedManager::key(33) + 'a' } + keyRange(34, 6));
}

void TestPIMListView::showPageBlocksSignals()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    QSignalSpy selected(&list, &PIMListView::selected);
    QSignalSpy cleared(&list, &PIMListView::selectionCleared);
    QSignalSpy rowChanged(&list, &MRLListView::currentListItemChanged);

    list.setPage(2);
    // Fifteen rows were made and the current row moved, but only the result is told.
    QCOMPARE(rowChanged.count(), 0);
    QCOMPARE(cleared.count(), 0);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<PIMRecord *>(), bound.manager->at(15));
    QCOMPARE(bound.manager->lastCurrent(), bound.manager->at(15)->uidString());
    QVERIFY(!list.signalsBlocked());

    list.setPage(4);
    QCOMPARE(cleared.count(), 1);
    QCOMPARE(selected.count(), 1);
}

void TestPIMListView::showPageKeepsOuterBlock()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    QSignalSpy selected(&list, &PIMListView::selected);
    list.blockSignals(true);
    list.setPage(2);
    QVERIFY(list.signalsBlocked());
    QCOMPARE(selected.count(), 0);
    list.blockSignals(false);
}

void TestPIMListView::taskSelectedFollowsRecord()
{
    TestHome home;
    Bound bound = bind(home, 40);
    KeyList &list = *bound.list;
    QSignalSpy selected(&list, &PIMListView::selected);
    QSignalSpy cleared(&list, &PIMListView::selectionCleared);

    bound.manager->at(5)->select();
    QCOMPARE(currentKey(list), KeyedManager::key(5));
    QCOMPARE(selected.count(), 1);

    bound.manager->select(nullptr);
    QVERIFY(!list.currentTask());
    QVERIFY(list.selectedItems().isEmpty());
    QCOMPARE(cleared.count(), 1);

    // A record on another page brings its page.
    bound.manager->at(25)->select();
    QCOMPARE(list.page(), 2);
    QCOMPARE(currentKey(list), KeyedManager::key(25));
}

void TestPIMListView::notLiveListKeepsHandedRecords()
{
    TestHome home;
    KeyedManager manager(home.path());
    manager.fill(10);
    KeyList list;
    list.setManager(&manager, false);
    list.setColumns({ 0 });
    list.init();
    QCOMPARE(list.itemCount(), 0);

    list.newTask(manager.at(7));
    list.newTask(manager.at(2));
    list.newTask(manager.at(5));
    QCOMPARE(rowKeys(list),
        (QStringList { KeyedManager::key(7), KeyedManager::key(2), KeyedManager::key(5) }));
    QCOMPARE(currentKey(list), KeyedManager::key(5));

    // Records added to the manager do not come in by themselves.
    manager.addKeyed(QStringLiteral("x"));
    QCOMPARE(list.itemCount(), 3);

    list.setCurrentItem(list.itemAtRow(1));
    list.init();
    QCOMPARE(rowKeys(list),
        (QStringList { KeyedManager::key(7), KeyedManager::key(2), KeyedManager::key(5) }));
    QCOMPARE(currentKey(list), KeyedManager::key(2));

    manager.remove(manager.at(7));
    QCOMPARE(rowKeys(list), (QStringList { KeyedManager::key(2), KeyedManager::key(5) }));
}

void TestPIMListView::columnsAndSectionClick()
{
    TestHome home;
    Bound bound = bind(home, 5);
    KeyList &list = *bound.list;
    list.setColumns({ 3, 0, 7 });
    QCOMPARE(list.addedFields, (QList<int> { 0, 2, 3, 0, 7 }));
    QCOMPARE(list.columnCount(), 3);
    QCOMPARE(list.fieldAt(2), 7);
    QCOMPARE(list.columnOf(0), 1);
    QCOMPARE(list.columnOf(5), -1);
    QTest::ignoreMessage(QtWarningMsg, "PIMListView::fieldAt: column 3 out of range");
    QCOMPARE(list.fieldAt(3), -1);

    // A header click asks the manager to sort by the column's field; the same again flips it.
    Q_EMIT list.header()->sectionClicked(2);
    QCOMPARE(bound.manager->sortColumn(), 7);
    QVERIFY(bound.manager->sortOrder());
    Q_EMIT list.header()->sectionClicked(2);
    QVERIFY(!bound.manager->sortOrder());
}

void TestPIMListView::readColumnsFromSettings()
{
    TestHome home;
    {
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("alarm_columns"));
        config.writeEntry(QStringLiteral("column"), QStringLiteral("4;1;x;0"));
    }
    KeyList list(QStringLiteral("alarm"));
    list.readColumns();
    QCOMPARE(list.fieldColumns(), (QList<int> { 4, 1, 0 }));
    QCOMPARE(list.columnCount(), 3);
}

void TestPIMListView::headerResizeReachesColumnResized()
{
    TestHome home;
    Bound bound = bind(home, 3);
    KeyList &list = *bound.list;
    QVERIFY(list.resized.isEmpty()); // making columns is no resize
    list.header()->resizeSection(1, 123);
    QCOMPARE(list.resized, (QList<int> { 1, 123 }));
}

void TestPIMListView::managerGoneClearsList()
{
    TestHome home;
    Bound bound = bind(home, 20);
    KeyList &list = *bound.list;
    bound.manager.reset();
    QVERIFY(!list.manager());
    QCOMPARE(list.itemCount(), 0);
    QCOMPARE(list.columnCount(), 0);
    list.init();
    QCOMPARE(list.itemCount(), 0);
}

void TestPIMListView::tapActivatesTouchedCell()
{
    TestHome home;
    Bound bound = bind(home, 20);
    KeyList &list = *bound.list;
    list.resize(400, 400);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy activate(&list, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::activate));
    QSignalSpy popup(&list, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::popup));

    const QPoint point = cellCenter(list, 3, 1);
    QCursor::setPos(list.viewport()->mapToGlobal(point));
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents();
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents();

    QCOMPARE(activate.count(), 1);
    QCOMPARE(activate.at(0).at(1).value<PIMRecord *>(), bound.manager->at(3));
    QCOMPARE(activate.at(0).at(2).toInt(), 2);
    QCOMPARE(activate.at(0).at(0).toPoint(), QCursor::pos());
    QTest::qWait(PIMListView::holdMilliseconds + 100);
    QCOMPARE(popup.count(), 0);
}

void TestPIMListView::pressAndHoldPopsUpOnce()
{
    TestHome home;
    Bound bound = bind(home, 20);
    KeyList &list = *bound.list;
    list.resize(400, 400);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy activate(&list, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::activate));
    QSignalSpy popup(&list, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::popup));

    const QPoint point = cellCenter(list, 5, 0);
    QCursor::setPos(list.viewport()->mapToGlobal(point));
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, point);
    QTest::qWait(PIMListView::holdMilliseconds / 2);
    QCOMPARE(popup.count(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(popup.count(), 1, PIMListView::holdMilliseconds * 2);
    QCOMPARE(popup.at(0).at(1).value<PIMRecord *>(), bound.manager->at(5));
    QCOMPARE(popup.at(0).at(2).toInt(), 0);

    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, point);
    QTest::qWait(PIMListView::holdMilliseconds + 100);
    QCOMPARE(popup.count(), 1);
    QCOMPARE(activate.count(), 0);
}

void TestPIMListView::pressOnEmptyAreaStartsNoTimer()
{
    TestHome home;
    Bound bound = bind(home, 3);
    KeyList &list = *bound.list;
    list.resize(400, 400);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QVERIFY(list.currentTask());
    QSignalSpy popup(&list, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::popup));
    QSignalSpy activate(&list, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::activate));

    const QPoint below(20, list.viewport()->height() - 5);
    QVERIFY(!list.listItemAt(below));
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, below);
    QTest::qWait(PIMListView::holdMilliseconds + 100);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, below);
    QCoreApplication::processEvents();
    QCOMPARE(popup.count(), 0);
    QCOMPARE(activate.count(), 0);
}

void TestPIMListView::keysActivateAndPopUp()
{
    TestHome home;
    Bound bound = bind(home, 20);
    KeyList &list = *bound.list;
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    list.setCurrentItem(list.itemAtRow(2));
    QSignalSpy activate(&list, qOverload<PIMRecord *>(&PIMListView::activate));
    QSignalSpy popup(&list, qOverload<const QPoint &, PIMRecord *>(&PIMListView::popup));

    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Enter);
    QCOMPARE(activate.count(), 2);
    QCOMPARE(activate.at(0).at(0).value<PIMRecord *>(), bound.manager->at(2));

    QTest::keyClick(&list, Qt::Key_Space);
    QCOMPARE(popup.count(), 1);
    const QPoint expected = list.viewport()->mapToGlobal(
        QPoint(50, list.visualItemRect(list.itemAtRow(2)).top() + 10));
    QCOMPARE(popup.at(0).at(0).toPoint(), expected);
    QCOMPARE(popup.at(0).at(1).value<PIMRecord *>(), bound.manager->at(2));

    list.setCurrentItem(nullptr);
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(activate.count(), 2);
}

void TestPIMListView::pagingPanel()
{
    TestHome home;
    Bound bound = bind(home, 100);
    KeyList &list = *bound.list;
    // Room on the left for a panel wider than the bar.
    list.setGeometry(300, 250, 400, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    auto *bar = list.findChild<QWidget *>(QStringLiteral("pageBar"));
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->height(), list.horizontalScrollBar()->height());

    auto *label = list.findChild<QLabel *>(QStringLiteral("pageLabel"));
    auto *popup = list.findChild<QMenu *>(QStringLiteral("pagePopup"));
    QTest::mouseClick(label, Qt::LeftButton);
    QTRY_VERIFY(popup->isVisible());
    QCOMPARE(popup->geometry().right(), bar->mapToGlobal(QPoint(bar->width() - 1, 0)).x());
    QCOMPARE(popup->geometry().bottom(), bar->mapToGlobal(QPoint(0, 0)).y() - 1);

    auto *pageSpin = popup->findChild<QSpinBox *>(QStringLiteral("pageSpin"));
    pageSpin->setValue(5);
    QCOMPARE(list.page(), 5);
    QCOMPARE(rowKeys(list), keyRange(60, 15));

    auto *perPageSpin = popup->findChild<QSpinBox *>(QStringLiteral("perPageSpin"));
    perPageSpin->setValue(50);
    QCOMPARE(bound.manager->perPage(), 50);
    QCOMPARE(list.page(), 2);
    QCOMPARE(label->text(), QStringLiteral(" Page 2 [2] "));
    QCOMPARE(pageSpin->maximum(), 2);

    popup->findChild<QPushButton *>(QStringLiteral("firstPageButton"))->click();
    QCOMPARE(list.page(), 1);
    QVERIFY(!popup->isVisible());

    list.setPaged(false);
    QVERIFY(!bar->isVisible());
    QCOMPARE(list.itemCount(), 100);
}

QTEST_MAIN(TestPIMListView)
#include "testpimlistview.moc"
