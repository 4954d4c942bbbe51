#include "app/mrldb.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "lib/qt/mrlaction.h"
#include "lib/qt/mrllistviewitem.h"
#include "modaldriver.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"
#include "views/dblistview.h"
#include "views/listview.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>
#include <QWidgetAction>
#include <QtTest>

// The main window: its commands, tool bar, main menu, memo pane, zoom and the options it
// keeps, and the road by which cards open and close.
class TestMRLDB : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void actions_data();
    void actions();
    void toolBar();
    void mainMenu();
    void memoPane();
    void optionsAreReadOnShow_data();
    void optionsAreReadOnShow();
    void optionsAreWrittenOnHideAndDestruction();
    void zoomStepsTheListFont();
    void selectionClearedDisablesRecordCommands();
    void editDialogIsFreeWithoutEditor();
    void firstRunCreatesAndOpensCard();
    void openCardShowsPagedRecords_data();
    void openCardShowsPagedRecords();
    void lockedCard_data();
    void lockedCard();
    void removedCardFileStaysListed();
    void chooserCancelledReopensCard();
    void emptyListEndsProgram();
    void hideSavesCard();
    void reopenEventOpensCardAnew();
    void documentLaunchOpensCard_data();
    void documentLaunchOpensCard();
    void documentLaunchWaitsForRunningDialog();
    void getTaskFindsRecordOfAnotherCard();

private:
    static QStringList itemsOf(const QList<QAction *> &actions);
};

void TestMRLDB::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

QStringList TestMRLDB::itemsOf(const QList<QAction *> &actions)
{
    QStringList items;
    for (QAction *action : actions)
        items << (action->isSeparator() ? QStringLiteral("-") : action->objectName());
    return items;
}

void TestMRLDB::actions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<bool>("enabled");

    const QList<QStringList> table = {
        { "db", "Manager ...", "cards", "1" },
        { "newdb", "New Card ...", "std/c07", "1" },
        { "new", "New Record", "filenew", "0" },
        { "edit", "Edit Record", "edit", "0" },
        { "clone", "Duplicate Record", "editcopy", "0" },
        { "delete", "Remove Record", "remove", "0" },
        { "memo", "", "info", "1" },
        { "export", "Export ...", "export", "0" },
        { "import", "Import ...", "import", "0" },
        { "clear", "Clear Card", "remove", "0" },
        { "modify", "Card's Details ...", "document", "0" },
        { "remove", "Delete Card", "delete", "0" },
        { "fields", "Fields Editor ...", "view_detailed", "0" },
        { "report", "", "background", "0" },
        { "pclink", "PC Link ...", "pclink", "0" },
        { "sdata", "Send Data ...", "pclink", "0" },
        { "gdata", "Get Data ...", "pclink", "0" },
        { "options", "Options ...", "package_utilities", "0" },
        { "Brightloom", "About ...", "Brightloom", "1" },
        { "zoomin", "Zoom In", "viewmag+", "1" },
        { "zoomout", "Zoom Out", "viewmag-", "1" },
        { "exit", "Exit", "exit", "1" },
    };
    for (const QStringList &row : table)
        QTest::newRow(qPrintable(row.at(0)))
            << row.at(0) << row.at(1) << row.at(2) << (row.at(3) == QLatin1String("1"));
}

void TestMRLDB::actions()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, icon);
    QFETCH(bool, enabled);

    TestHome home;
    MRLDB window;
    MRLAction *action = window.action(name);
    QVERIFY(action);
    QCOMPARE(action->text(), text);
    QCOMPARE(action->iconName(), icon);
    QVERIFY(!action->icon().isNull());
    if (name != QLatin1String("zoomin") && name != QLatin1String("zoomout"))
        QCOMPARE(action->isEnabled(), enabled);
    QCOMPARE(action->isCheckable(), name == QLatin1String("memo"));
}

void TestMRLDB::toolBar()
{
    TestHome home;
    MRLDB window;
    const QList<QToolBar *> bars = window.findChildren<QToolBar *>();
    QCOMPARE(bars.size(), 1);
    QToolBar *bar = bars.first();
    QVERIFY(!bar->isMovable());
    QCOMPARE(window.toolBarArea(bar), Qt::TopToolBarArea);

    const QList<QAction *> items = bar->actions();
    QCOMPARE(items.size(), 11);
    QCOMPARE(itemsOf(items.mid(0, 5)), (QStringList { "db", "new", "edit", "clone", "delete" }));
    QCOMPARE(items.at(8)->objectName(), QStringLiteral("report"));

    const int buttonAt[] = { 5, 6, 7, 10 };
    for (int at : buttonAt) {
        auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(items.at(at)));
        QVERIFY2(button, qPrintable(QString::number(at)));
        QVERIFY(button->menu());
        QCOMPARE(button->popupMode(), QToolButton::InstantPopup);
        QVERIFY(!button->icon().isNull());
    }
    QWidget *spacer = bar->widgetForAction(items.at(9));
    QVERIFY(spacer);
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(bar->widgetForAction(items.at(10))->objectName(), QStringLiteral("mainMenuButton"));
}

void TestMRLDB::mainMenu()
{
    TestHome home;
    MRLDB window;
    auto *menu = window.findChild<QMenu *>(QStringLiteral("mainMenu"));
    QVERIFY(menu);
    QCOMPARE(itemsOf(menu->actions()),
        (QStringList { "modify", "fields", "-", "export", "clear", "remove", "-", "zoomin",
            "zoomout", "-", "memo", "options", "-", "pclink", "-", "Brightloom" }));
}

void TestMRLDB::memoPane()
{
    TestHome home;
    MRLDB window;
    auto *memo = window.findChild<QPlainTextEdit *>(QStringLiteral("memo"));
    QVERIFY(memo);
    QVERIFY(memo->isHidden());
    QCOMPARE(memo->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    QCOMPARE(memo->wordWrapMode(), QTextOption::WordWrap);
    const int line = memo->fontMetrics().lineSpacing();
    QVERIFY(memo->height() >= 4 * line);
    QVERIFY(memo->height() < 5 * line + 2 * memo->frameWidth());

    window.toggleMemo();
    QVERIFY(!memo->isHidden());
    QVERIFY(window.action(QStringLiteral("memo"))->isChecked());
    window.action(QStringLiteral("memo"))->trigger();
    QVERIFY(memo->isHidden());
    QVERIFY(!window.action(QStringLiteral("memo"))->isChecked());
}

void TestMRLDB::optionsAreReadOnShow_data()
{
    QTest::addColumn<bool>("memo");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("expectedZoom");

    QTest::newRow("memo shown, zoom 11 snaps down") << true << 11 << 10;
    QTest::newRow("memo hidden, zoom 24 stays") << false << 24 << 24;
    QTest::newRow("zoom below the steps") << false << 3 << 8;
    QTest::newRow("zoom above the steps") << false << 90 << 36;
}

void TestMRLDB::optionsAreReadOnShow()
{
    QFETCH(bool, memo);
    QFETCH(int, zoom);
    QFETCH(int, expectedZoom);

    TestHome home;
    {
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("Options"));
        config.writeEntry(QStringLiteral("memo"), memo);
        config.writeEntry(QStringLiteral("zoom"), zoom);
    }
    MRLDB window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(!window.findChild<QPlainTextEdit *>(QStringLiteral("memo"))->isHidden(), memo);
    QCOMPARE(window.action(QStringLiteral("memo"))->isChecked(), memo);
    QCOMPARE(window.recordListPlace()->font().pointSize(), expectedZoom);
}

void TestMRLDB::optionsAreWrittenOnHideAndDestruction()
{
    TestHome home;
    {
        MRLDB window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.toggleMemo();
        window.zoomin();
        window.hide();
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("Options"));
        QCOMPARE(config.readBoolEntry(QStringLiteral("memo"), false), true);
        QCOMPARE(config.readNumEntry(QStringLiteral("zoom"), 0),
            window.recordListPlace()->font().pointSize());

        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.toggleMemo();
    }
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("Options"));
    QCOMPARE(config.readBoolEntry(QStringLiteral("memo"), true), false);
}

void TestMRLDB::zoomStepsTheListFont()
{
    TestHome home;
    {
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("Options"));
        config.writeEntry(QStringLiteral("zoom"), 24);
    }
    MRLDB window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QWidget *list = window.recordListPlace();
    QCOMPARE(list->font().pointSize(), 24);

    window.zoomin();
    QCOMPARE(list->font().pointSize(), 36);
    QVERIFY(!window.action(QStringLiteral("zoomin"))->isEnabled());
    QVERIFY(window.action(QStringLiteral("zoomout"))->isEnabled());

    window.zoomout();
    QCOMPARE(list->font().pointSize(), 24);
    QVERIFY(window.action(QStringLiteral("zoomin"))->isEnabled());

    for (int i = 0; i < 12; ++i)
        window.action(QStringLiteral("zoomout"))->trigger();
    QCOMPARE(list->font().pointSize(), 8);
    QVERIFY(!window.action(QStringLiteral("zoomout"))->isEnabled());
}

void TestMRLDB::selectionClearedDisablesRecordCommands()
{
    TestHome home;
    MRLDB window;
    auto *memo = window.findChild<QPlainTextEdit *>(QStringLiteral("memo"));
    for (const char *name : { "edit", "clone", "delete", "report" })
        window.action(QString::fromLatin1(name))->setEnabled(true);
    memo->setEnabled(true);
    memo->setPlainText(QStringLiteral("left over"));

    window.selectionCleared();
    for (const char *name : { "edit", "clone", "delete", "report" })
        QVERIFY2(!window.action(QString::fromLatin1(name))->isEnabled(), name);
    QVERIFY(memo->toPlainText().isEmpty());
    QVERIFY(!memo->isEnabled());
}

void TestMRLDB::editDialogIsFreeWithoutEditor()
{
    TestHome home;
    MRLDB window;
    bool free = false;
    window.editDialogIsFree(&free);
    QVERIFY(free);
    window.editDialogIsFree(nullptr);
}

namespace
{
QString cardSetting()
{
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("Options"));
    return config.readEntry(QStringLiteral("card"));
}

void setCardSetting(const QString &path)
{
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("Options"));
    config.writeEntry(QStringLiteral("card"), path);
}

// Cards in the documents folder of a fresh home, put into the card list.
struct Cards {
    QString path(const QString &title) const
    {
        return home.documents() + QLatin1Char('/') + title + QStringLiteral(".card");
    }
    // A card of a String field, optionally a Memo field, and count records.
    QString make(
        const QString &title, int count, bool memo = false, const QString &password = QString())
    {
        DataManager card(path(title));
        QList<FieldDef> fields;
        FieldDef name;
        name.title = QStringLiteral("Name");
        fields << name;
        if (memo) {
            FieldDef notes;
            notes.title = QStringLiteral("Notes");
            notes.type = FieldDef::Memo;
            fields << notes;
        }
        card.setFields(fields, true);
        card.setPassword(password);
        for (int i = 0; i < count; ++i) {
            DataRecord *record = card.newRecord();
            record->setStringValue(0, QStringLiteral("r%1").arg(i, 3, 10, QLatin1Char('0')));
            if (memo)
                record->setMemo(QStringLiteral("memo %1").arg(i));
            card.add(record);
        }
        card.forceSave();
        DBManager list(false);
        list.load();
        list.addCard(path(title));
        return path(title);
    }

    TestHome home;
};
} // namespace

void TestMRLDB::firstRunCreatesAndOpensCard()
{
    Cards cards;
    MRLDB window;
    ModalDriver driver(QStringList { QStringLiteral("btnNew"), QStringLiteral("title=Fresh btnOk"),
        QStringLiteral("btnSelect") });
    window.show();
    QTRY_COMPARE(window.windowTitle(), QStringLiteral("Card : Fresh"));
    QCOMPARE(driver.seen(),
        QStringList({ QStringLiteral("Select Card"), QStringLiteral("Card's Details"),
            QStringLiteral("Select Card") }));
    const QString path = cards.path(QStringLiteral("Fresh"));
    QVERIFY(QFile::exists(path));
    QVERIFY(window.openedCard());
    QCOMPARE(window.openedCard()->fullPath(), path);
    QCOMPARE(cardSetting(), path);
    QVERIFY(window.action(QStringLiteral("modify"))->isEnabled());
}

void TestMRLDB::openCardShowsPagedRecords_data()
{
    QTest::addColumn<int>("records");
    QTest::addColumn<bool>("memo");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("pages");

    QTest::newRow("one page, memo field") << 3 << true << 3 << 1;
    QTest::newRow("two pages, no memo field") << 20 << false << 15 << 2;
}

// The card left open at the last hide comes back at the next show, without a dialog.
void TestMRLDB::openCardShowsPagedRecords()
{
    QFETCH(int, records);
    QFETCH(bool, memo);
    QFETCH(int, rows);
    QFETCH(int, pages);
    Cards cards;
    const QString path = cards.make(QStringLiteral("Books"), records, memo);
    setCardSetting(path);
    {
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("Options"));
        config.writeEntry(QStringLiteral("memo"), true);
    }
    MRLDB window;
    ModalDriver driver(QList<ModalDriver::Step> {});
    window.show();
    QVERIFY(window.openedCard());
    QCOMPARE(window.windowTitle(), QStringLiteral("Card : Books"));
    ListView *list = window.records();
    QCOMPARE(list->itemCount(), rows);
    QCOMPARE(list->pageCount(), pages);
    QCOMPARE(list->columnCount(), memo ? 2 : 1);
    QCOMPARE(list->firstItem()->text(0), QStringLiteral("r000"));
    QCOMPARE(window.action(QStringLiteral("memo"))->isEnabled(), memo);
    auto *memoPane = window.findChild<QPlainTextEdit *>(QStringLiteral("memo"));
    QCOMPARE(memoPane->isHidden(), !memo);
    // The first row is current, and the pane shows its memo.
    QCOMPARE(window.records()->currentTask(), window.openedCard()->first());
    QCOMPARE(memoPane->toPlainText(), memo ? QStringLiteral("memo 0") : QString());
    QVERIFY(window.action(QStringLiteral("edit"))->isEnabled());
    QCOMPARE(cardSetting(), path);
    QTest::qWait(2 * MRLDB::deferMilliseconds);
    QVERIFY(driver.seen().isEmpty());
}

void TestMRLDB::lockedCard_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("opened");
    QTest::addColumn<QStringList>("seen");

    const QString ask = QStringLiteral("Enter password");
    const QString chooser = QStringLiteral("Select Card");
    QTest::newRow("right password")
        << QStringList { "p1=secret btnOk" } << true << QStringList { ask };
    QTest::newRow("wrong password ends the program")
        << QStringList { "p1=Secret btnOk" } << false << QStringList { ask };
    QTest::newRow("exit") << QStringList { "p1=secret btnCancel" } << false << QStringList { ask };
    // The chooser closed with no card open opens the first available card, which asks again.
    QTest::newRow("back to the chooser") << QStringList { "btnCards", "btnOk", "p1=secret btnOk" }
                                         << true << QStringList { ask, chooser, ask };
}

void TestMRLDB::lockedCard()
{
    QFETCH(QStringList, steps);
    QFETCH(bool, opened);
    QFETCH(QStringList, seen);
    Cards cards;
    const QString path = cards.make(QStringLiteral("Locked"), 2, false, QStringLiteral("secret"));
    setCardSetting(path);
    MRLDB window;
    ModalDriver driver(steps);
    window.show();
    if (opened) {
        QTRY_COMPARE(window.windowTitle(), QStringLiteral("Card : Locked"));
        QCOMPARE(window.records()->itemCount(), 2);
    } else {
        QTRY_VERIFY(!window.isVisible());
        QVERIFY(!window.openedCard());
        QCOMPARE(cardSetting(), QString());
    }
    QCOMPARE(driver.seen(), seen);
}

// An entry whose file is gone brings up the chooser, stays listed there and can't be opened.
void TestMRLDB::removedCardFileStaysListed()
{
    Cards cards;
    cards.make(QStringLiteral("Kept"), 1);
    const QString gone = cards.make(QStringLiteral("Gone"), 1);
    QFile::remove(gone);
    setCardSetting(gone);
    MRLDB window;
    int rows = 0;
    bool selectable = true;
    ModalDriver driver(QList<ModalDriver::Step> { [&](QWidget *dialog) {
        auto *list = dialog->findChild<DBListView *>(QStringLiteral("db"));
        rows = list->itemCount();
        DBRecord *entry = window.cards()->findByPath(gone);
        list->showRecord(entry);
        selectable = dialog->findChild<QPushButton *>(QStringLiteral("btnSelect"))->isEnabled();
        ModalDriver::click(dialog, "btnSelect");
        ModalDriver::click(dialog, "btnOk");
    } });
    window.show();
    QTRY_COMPARE(window.windowTitle(), QStringLiteral("Card : Kept"));
    QCOMPARE(rows, 2);
    QVERIFY(!selectable);
    DBRecord *entry = window.cards()->findByPath(gone);
    QVERIFY(entry);
    QVERIFY(!window.cards()->isAvailable(entry));
    QCOMPARE(entry->title(), QStringLiteral("Gone"));
}

void TestMRLDB::chooserCancelledReopensCard()
{
    Cards cards;
    const QString first = cards.make(QStringLiteral("First"), 1);
    cards.make(QStringLiteral("Second"), 1);
    MRLDB window;
    ModalDriver driver(QStringList { QStringLiteral("btnOk") });
    window.openCard(first);
    QVERIFY(driver.seen().isEmpty());
    QCOMPARE(window.windowTitle(), QStringLiteral("Card : First"));
    window.action(QStringLiteral("db"))->trigger();
    QCOMPARE(driver.seen(), QStringList { QStringLiteral("Select Card") });
    QVERIFY(window.openedCard());
    QCOMPARE(window.openedCard()->fullPath(), first);
    QCOMPARE(window.windowTitle(), QStringLiteral("Card : First"));
}

void TestMRLDB::emptyListEndsProgram()
{
    Cards cards;
    MRLDB window;
    ModalDriver driver(QStringList { QStringLiteral("btnOk") });
    window.show();
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(driver.seen(), QStringList { QStringLiteral("Select Card") });
    QCOMPARE(window.windowTitle(), QStringLiteral("norvika"));
}

void TestMRLDB::hideSavesCard()
{
    Cards cards;
    const QString path = cards.make(QStringLiteral("Books"), 1);
    MRLDB window;
    window.openCard(path);
    DataRecord *record = window.openedCard()->newRecord();
    record->setStringValue(0, QStringLiteral("added"));
    window.openedCard()->add(record);
    QCOMPARE(window.records()->itemCount(), 2);
    window.show();
    window.hide();
    DataManager stored(path);
    QVERIFY(stored.load());
    QCOMPARE(stored.count(), 2);
}

// The list is rebuilt from a new manager; the current record survives by its UID.
void TestMRLDB::reopenEventOpensCardAnew()
{
    Cards cards;
    const QString path = cards.make(QStringLiteral("Books"), 20);
    MRLDB window;
    window.openCard(path);
    QSignalSpy closed(window.openedCard(), &QObject::destroyed);
    PIMRecord *last = window.openedCard()->last();
    window.records()->showRecord(last);
    const QString uid = last->uidString();
    QCoreApplication::postEvent(&window, new QEvent(QEvent::Type(MRLDB::ReopenCardEvent)));
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(window.openedCard());
    QCOMPARE(window.openedCard()->fullPath(), path);
    QCOMPARE(window.records()->page(), 2);
    QCOMPARE(window.records()->currentTask()->uidString(), uid);
}

void TestMRLDB::documentLaunchOpensCard_data()
{
    QTest::addColumn<bool>("listed");
    QTest::newRow("card in the list") << true;
    QTest::newRow("card new to the list") << false;
}

void TestMRLDB::documentLaunchOpensCard()
{
    QFETCH(bool, listed);
    Cards cards;
    QString path = cards.make(QStringLiteral("Books"), 2);
    if (!listed) {
        DBManager list(false);
        list.load();
        list.removeCard(list.findByPath(path), false);
        list.save();
    }
    MRLDB window;
    window.setDocument(path);
    QVERIFY(window.openedCard());
    QCOMPARE(window.openedCard()->fullPath(), path);
    QVERIFY(window.cards()->findByPath(path));
}

void TestMRLDB::documentLaunchWaitsForRunningDialog()
{
    Cards cards;
    const QString path = cards.make(QStringLiteral("Books"), 2);
    MRLDB window;
    QDialog running;
    running.show();
    window.setDocument(path);
    QVERIFY(!window.openedCard());
}

void TestMRLDB::getTaskFindsRecordOfAnotherCard()
{
    Cards cards;
    const QString open = cards.make(QStringLiteral("Open"), 1);
    const QString other = cards.make(QStringLiteral("Other"), 3);
    QString uid;
    {
        DataManager card(other);
        card.load();
        uid = card.records().at(2)->uidString();
    }
    MRLDB window;
    window.openCard(open);
    DataRecord *found = nullptr;
    window.getTask(&found, uid);
    QVERIFY(found);
    QCOMPARE(found->uidString(), uid);
    QVERIFY(found->manager() != window.openedCard());
    window.freeManager(found->manager());
    window.getTask(&found, window.openedCard()->first()->uidString());
    QCOMPARE(found, window.openedCard()->first());
}

QTEST_MAIN(TestMRLDB)
#include "testmrldb.moc"
