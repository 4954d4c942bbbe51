#include "keyedmanager.h"
#include "support/testhome.h"

#include "lib/qt/mrllistviewitem.h"
#include "platform/config.h"
#include "store/pimrecord.h"
#include "views/pimlistview.h"
#include "views/recorditem.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCursor>
#include <QHeaderView>
#include <QLabel>
#include <QSignalSpy>
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

protected:
    void addField(int field, Config *) override { addColumn(QString::number(field), 80); }
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
    void pagesComeInAscendingOrder();
    void removalPullsNextPageUp();
    void removalOfLastRowOfLastPage();
    void newRecordOnOtherPageMovesThere();
    void readColumnsFromSettings();
    void managerGoneClearsList();
    void touch_data();
    void touch();
    void rowHeightIgnoresColumns_data();
    void rowHeightIgnoresColumns();

private:
    // A home, a manager of the given number of keyed records, and a paged list showing it.
    struct Bound {
        explicit Bound(int records)
            : manager(std::make_unique<KeyedManager>(home.path()))
        {
            manager->fill(records);
            list->setManager(manager.get(), true);
            list->setColumns({ 0, 2 });
            list->setPaged(true);
        }
        TestHome home;
        std::unique_ptr<KeyedManager> manager;
        std::unique_ptr<KeyList> list = std::make_unique<KeyList>();
    };
};

void TestPIMListView::pageBar_data()
{
    QTest::addColumn<int>("records");
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("back");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<int>("rows");

    QTest::newRow("empty") << 0 << " Page 1 [0] " << false << false << 0;
    QTest::newRow("one full page") << 15 << " Page 1 [1] " << false << false << 15;
    QTest::newRow("one more than a page") << 16 << " Page 1 [2] " << false << true << 15;
}

void TestPIMListView::pageBar()
{
    QFETCH(int, records);
    QFETCH(QString, label);
    QFETCH(bool, back);
    QFETCH(bool, forward);
    QFETCH(int, rows);
    Bound bound(records);
    KeyList &list = *bound.list;

    QCOMPARE(list.findChild<QLabel *>(QStringLiteral("pageLabel"))->text(), label);
    QCOMPARE(list.findChild<QToolButton *>(QStringLiteral("pageBack"))->isEnabled(), back);
    QCOMPARE(list.findChild<QToolButton *>(QStringLiteral("pageForward"))->isEnabled(), forward);
    QCOMPARE(list.itemCount(), rows);
    QCOMPARE(list.currentTask() != nullptr, records > 0);
}

void TestPIMListView::pagesComeInAscendingOrder()
{
    Bound bound(40);
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

void TestPIMListView::removalPullsNextPageUp()
{
    Bound bound(40);
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
    Bound bound(16);
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
    Bound bound(40);
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

void TestPIMListView::managerGoneClearsList()
{
    Bound bound(20);
    KeyList &list = *bound.list;
    bound.manager.reset();
    QVERIFY(!list.manager());
    QCOMPARE(list.itemCount(), 0);
    QCOMPARE(list.columnCount(), 0);
    list.init();
    QCOMPARE(list.itemCount(), 0);
}

void TestPIMListView::touch_data()
{
    QTest::addColumn<bool>("hold");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("field"); // the list shows fields 0 and 2
    QTest::newRow("tap activates the touched cell") << false << 3 << 1 << 2;
    QTest::newRow("press and hold pops up once") << true << 5 << 0 << 0;
}

// A tap activates the cell under the pointer; a hold pops up, and the release after it is
// no tap.
void TestPIMListView::touch()
{
    QFETCH(bool, hold);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, field);
    Bound bound(20);
    KeyList &list = *bound.list;
    list.resize(400, 400);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy activate(&list, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::activate));
    QSignalSpy popup(&list, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::popup));

    QRect cell = list.visualItemRect(list.itemAtRow(row));
    cell.setLeft(list.header()->sectionViewportPosition(column));
    cell.setWidth(list.header()->sectionSize(column));
    const QPoint point = cell.center();
    QCursor::setPos(list.viewport()->mapToGlobal(point));
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents();
    if (hold)
        QTRY_COMPARE(popup.count(), 1);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents();

    const QSignalSpy &fired = hold ? popup : activate;
    QCOMPARE(fired.count(), 1);
    QCOMPARE((hold ? activate : popup).count(), 0);
    QCOMPARE(fired.at(0).at(0).toPoint(), QCursor::pos());
    QCOMPARE(fired.at(0).at(1).value<PIMRecord *>(), bound.manager->at(row));
    QCOMPARE(fired.at(0).at(2).toInt(), field);
}

QTEST_MAIN(TestPIMListView)
#include "testpimlistview.moc"

// The rows of a list keep one height whichever columns show: a list of text only is as
// high as one with a tall icon in its first row.
void TestPIMListView::rowHeightIgnoresColumns_data()
{
    QTest::addColumn<int>("iconColumn"); // -1 for none
    QTest::addColumn<int>("columns");
    QTest::newRow("text only") << -1 << 2;
    QTest::newRow("icon in the last column") << 2 << 3;
}

void TestPIMListView::rowHeightIgnoresColumns()
{
    QFETCH(int, iconColumn);
    QFETCH(int, columns);
    const auto rowHeight = [](int icon, int count) {
        MRLListView list;
        list.setRowIconHeight(40);
        auto *item = new MRLListViewItem(&list);
        for (int column = 0; column < count; ++column) {
            list.addColumn(QString::number(column), 60);
            item->setText(column, QStringLiteral("text"));
        }
        if (icon >= 0)
            item->setPixmap(icon, QPixmap(40, 40));
        list.show();
        return list.visualItemRect(item).height();
    };
    QCOMPARE(rowHeight(iconColumn, columns), rowHeight(0, 1));
    QVERIFY(rowHeight(iconColumn, columns) >= 40);
}
