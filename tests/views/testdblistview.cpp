#include "app/resourceicons.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"
#include "views/dblistview.h"
#include "views/dbselectlistview.h"
#include "views/recorditem.h"

#include <QApplication>
#include <QHeaderView>
#include <QTest>

// The card lists: their cells, kept widths, and the transfer ticks of the selecting list.
class TestDBListView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cells_data();
    void cells();
    void widthsAreKept();
    void transferHeaderTicks_data();
    void transferHeaderTicks();
};

namespace
{
// A device list whose entries exist only in memory; their paths lead nowhere.
struct Cards {
    Cards()
        : list(false)
    {
    }
    DBRecord *add(
        const QString &title, const QString &description, const QString &password, bool available)
    {
        auto *record = new DBRecord(&list);
        record->setTitle(title);
        record->setDescription(description);
        record->setPassword(password);
        record->setPath(QStringLiteral("/nowhere/%1.card").arg(title));
        list.add(record);
        list.setAvailable(record, available);
        return record;
    }

    TestHome home;
    DBManager list;
};

QString widthSetting(const char *key)
{
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("db_columns"));
    return config.readEntry(QString::fromLatin1(key));
}
} // namespace

void TestDBListView::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

void TestDBListView::cells_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("password");
    QTest::addColumn<int>("descriptionIcon");
    QTest::addColumn<int>("lockIcon");

    QTest::newRow("plain") << QString() << QString() << 0 << 0;
    QTest::newRow("both") << QStringLiteral("notes") << QStringLiteral("pw")
                          << int(DBListView::DocumentIcon) << int(DBListView::LockIcon);
}

void TestDBListView::cells()
{
    QFETCH(QString, description);
    QFETCH(QString, password);
    QFETCH(int, descriptionIcon);
    QFETCH(int, lockIcon);
    Cards cards;
    cards.add(QStringLiteral("Books"), description, password, true);
    DBListView view;
    view.setColumns({ 0, 1, 2, 3, 4 });
    view.setManager(&cards.list, true);
    view.init();
    QCOMPARE(view.itemCount(), 1);
    QVERIFY(view.icon(DBListView::DocumentIcon).toImage() != view.icon(0).toImage());
    QVERIFY(view.icon(DBListView::LockIcon).toImage() != view.icon(0).toImage());
    MRLListViewItem *row = view.firstItem();
    QCOMPARE(row->pixmap(2).toImage(), view.icon(descriptionIcon).toImage());
    QCOMPARE(row->pixmap(3).toImage(), view.icon(lockIcon).toImage());
    QCOMPARE(row->text(4), QStringLiteral("/nowhere"));
}

void TestDBListView::widthsAreKept()
{
    TestHome home;
    {
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("db_columns"));
        config.writeEntry(QStringLiteral("title_width"), 150);
    }
    DBListView view;
    view.setColumns({ 0, 1, 2, 3, 4 });
    QCOMPARE(view.columnWidth(1), 150);
    QCOMPARE(view.columnWidth(4), int(DBListView::defaultWidth));
    view.header()->resizeSection(4, 77);
    QCOMPARE(widthSetting("path_width"), QStringLiteral("77"));
    QCOMPARE(widthSetting("title_width"), QStringLiteral("150"));
}

void TestDBListView::transferHeaderTicks_data()
{
    QTest::addColumn<QList<bool>>("ticked"); // before the click, by row
    QTest::addColumn<QList<bool>>("expected");

    // The third card can't be read: it is never ticked.
    QTest::newRow("some ticked") << QList<bool> { true, false, false }
                                 << QList<bool> { true, true, false };
    QTest::newRow("all ticked") << QList<bool> { true, true, true }
                                << QList<bool> { false, false, false };
}

void TestDBListView::transferHeaderTicks()
{
    QFETCH(QList<bool>, ticked);
    QFETCH(QList<bool>, expected);
    Cards cards;
    QList<DBRecord *> records;
    for (int i = 0; i < ticked.size(); ++i) {
        records << cards.add(QStringLiteral("Card%1").arg(i), QString(), QString(), i < 2);
        if (ticked.at(i))
            records.last()->setProperty(QStringLiteral("transfer"), QStringLiteral("1"));
    }
    DBSelectListView view;
    view.setColumns({ 0, 1, 2, 3, 4, DBSelectListView::TransferField });
    view.setManager(&cards.list, true);
    view.init();
    view.sectionClicked(5);
    for (int i = 0; i < records.size(); ++i) {
        QCOMPARE(DBSelectListView::isTicked(records.at(i)), expected.at(i));
        auto *row = static_cast<RecordItem *>(view.itemAtRow(i));
        QCOMPARE(row->pixmap(5).toImage(),
            view.icon(expected.at(i) ? DBSelectListView::OnIcon : DBSelectListView::OffIcon)
                .toImage());
    }
}

QTEST_MAIN(TestDBListView)
#include "testdblistview.moc"
