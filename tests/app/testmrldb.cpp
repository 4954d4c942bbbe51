#include "app/mrldb.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "lib/qt/mrlaction.h"
#include "modaldriver.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "views/dblistview.h"
#include "views/listview.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

// The main window: which commands it offers, and the road by which cards open and close.
class TestMRLDB : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void selectionClearedDisablesRecordCommands();
    void openCardShowsPagedRecords_data();
    void openCardShowsPagedRecords();
    void cardRoad_data();
    void cardRoad();
    void removedCardFileStaysListed();
    void hideSavesCard();
    void documentLaunchOpensCard_data();
    void documentLaunchOpensCard();
    void documentLaunchImportsText();
    void getTaskFindsRecordOfAnotherCard();
};

void TestMRLDB::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

// With no card open only the commands that need none are offered.
void TestMRLDB::selectionClearedDisablesRecordCommands()
{
    TestHome home;
    MRLDB window;
    auto *memo = window.findChild<QPlainTextEdit *>(QStringLiteral("memo"));
    for (const char *name : { "edit", "clone", "delete", "report" })
        window.action(QString::fromLatin1(name))->setEnabled(true);
    memo->setPlainText(QStringLiteral("left over"));
    window.selectionCleared();
    for (const char *name : { "edit", "clone", "delete", "report" })
        QVERIFY2(!window.action(QString::fromLatin1(name))->isEnabled(), name);
    QVERIFY(memo->toPlainText().isEmpty());
}

namespace
{
QString cardSetting()
{
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("Options"));
    return config.readEntry(QStringLiteral("card"));
}

// The card to open at the next show, or another option of the program.
template <class T> void setOption(const T &value, const char *key = "card")
{
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("Options"));
    config.writeEntry(QString::fromLatin1(key), value);
}

// Cards in the documents folder of a fresh home, put into the card list.
struct Cards {
    QString path(const QString &title) const
    {
        return home.documents() + QLatin1Char('/') + title + QStringLiteral(".card");
    }
    // A listed card of a String field, optionally a Memo field, and count records.
    QString make(
        const QString &title, int count, bool memo = false, const QString &password = QString())
    {
        QList<FieldDef> fields { testField(FieldDef::String, QStringLiteral("Name")) };
        if (memo)
            fields << testField(FieldDef::Memo, QStringLiteral("Notes"));
        QStringList names;
        for (int i = 0; i < count; ++i)
            names << QStringLiteral("r%1").arg(i, 3, 10, QLatin1Char('0'));
        auto card = testCard(path(title), fields, names);
        card->setPassword(password);
        for (int i = 0; memo && i < count; ++i)
            static_cast<DataRecord *>(card->records().at(i))
                ->setMemo(QStringLiteral("memo %1").arg(i));
        card->forceSave();
        DBManager list(false);
        list.load();
        list.addCard(path(title));
        return path(title);
    }

    TestHome home;
};
} // namespace

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
    Cards cards;
    const QString path = cards.make(QStringLiteral("Books"), records, memo);
    setOption(path);
    setOption(true, "memo");
    MRLDB window;
    ModalDriver driver(QList<ModalDriver::Step> {});
    window.show();
    QVERIFY(window.openedCard());
    QCOMPARE(window.windowTitle(), QStringLiteral("Card : Books"));
    ListView *list = window.records();
    QTEST(list->itemCount(), "rows");
    QTEST(list->pageCount(), "pages");
    QCOMPARE(window.action(QStringLiteral("memo"))->isEnabled(), memo);
    // The first row is current, and the pane shows its memo.
    QCOMPARE(window.records()->currentTask(), window.openedCard()->first());
    QCOMPARE(window.findChild<QPlainTextEdit *>(QStringLiteral("memo"))->toPlainText(),
        memo ? QStringLiteral("memo 0") : QString());
    QVERIFY(window.action(QStringLiteral("edit"))->isEnabled());
    QCOMPARE(cardSetting(), path);
    QVERIFY(driver.seen().isEmpty());
}

void TestMRLDB::cardRoad_data()
{
    QTest::addColumn<bool>("locked"); // a listed card "Locked" of two records, left open
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("opened"); // empty: the program ends
    QTest::addColumn<QStringList>("seen");

    const QString ask = QStringLiteral("Enter password");
    const QString chooser = QStringLiteral("Select Card");
    QTest::newRow("first run makes and opens a card")
        << false << QStringList { "btnNew", "title=Fresh btnOk", "btnSelect" } << "Fresh"
        << QStringList { chooser, QStringLiteral("Card's Details"), chooser };
    QTest::newRow("empty list ends the program")
        << false << QStringList { "btnOk" } << QString() << QStringList { chooser };
    QTest::newRow("right password")
        << true << QStringList { "p1=secret btnOk" } << "Locked" << QStringList { ask };
    QTest::newRow("wrong password ends the program")
        << true << QStringList { "p1=Secret btnOk" } << QString() << QStringList { ask };
    // The chooser closed with no card open opens the first available card, which asks again.
    QTest::newRow("back to the chooser")
        << true << QStringList { "btnCards", "btnOk", "p1=secret btnOk" } << "Locked"
        << QStringList { ask, chooser, ask };
}

// From the first show to an open card or to the end of the program, by the dialogs alone.
void TestMRLDB::cardRoad()
{
    QFETCH(bool, locked);
    QFETCH(QStringList, steps);
    QFETCH(QString, opened);
    Cards cards;
    if (locked)
        setOption(cards.make(QStringLiteral("Locked"), 2, false, QStringLiteral("secret")));
    MRLDB window;
    ModalDriver driver(steps);
    window.show();
    if (opened.isEmpty()) {
        QTRY_VERIFY(!window.isVisible());
        QVERIFY(!window.openedCard());
        QCOMPARE(cardSetting(), QString());
        QCOMPARE(window.windowTitle(), QStringLiteral("norvika"));
    } else {
        QTRY_COMPARE(window.windowTitle(), QStringLiteral("Card : ") + opened);
        const QString path = cards.path(opened);
        QVERIFY(QFile::exists(path));
        QCOMPARE(window.openedCard()->fullPath(), path);
        QCOMPARE(window.records()->itemCount(), locked ? 2 : 0);
        QCOMPARE(cardSetting(), path);
        QVERIFY(window.action(QStringLiteral("modify"))->isEnabled());
    }
    QTEST(driver.seen(), "seen");
}

// An entry whose file is gone brings up the chooser and stays listed there (that it can't be
// opened is the chooser's own test).
void TestMRLDB::removedCardFileStaysListed()
{
    Cards cards;
    cards.make(QStringLiteral("Kept"), 1);
    const QString gone = cards.make(QStringLiteral("Gone"), 1);
    QFile::remove(gone);
    setOption(gone);
    MRLDB window;
    int rows = 0;
    ModalDriver driver(QList<ModalDriver::Step> { [&](QWidget *dialog) {
        rows = dialog->findChild<DBListView *>(QStringLiteral("db"))->itemCount();
        ModalDriver::click(dialog, "btnOk");
    } });
    window.show();
    QTRY_COMPARE(window.windowTitle(), QStringLiteral("Card : Kept"));
    QCOMPARE(rows, 2);
    DBRecord *entry = window.cards()->findByPath(gone);
    QVERIFY(entry);
    QVERIFY(!window.cards()->isAvailable(entry));
    QCOMPARE(entry->title(), QStringLiteral("Gone"));
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

void TestMRLDB::documentLaunchOpensCard_data()
{
    QTest::addColumn<bool>("listed");
    QTest::addColumn<bool>("dialogRunning"); // the launch leaves the dialog alone
    QTest::newRow("card in the list") << true << false;
    QTest::newRow("card new to the list") << false << false;
    QTest::newRow("a dialog running") << true << true;
}

void TestMRLDB::documentLaunchOpensCard()
{
    QFETCH(bool, listed);
    QFETCH(bool, dialogRunning);
    Cards cards;
    QString path = cards.make(QStringLiteral("Books"), 2);
    if (!listed) {
        DBManager list(false);
        list.load();
        list.removeCard(list.findByPath(path), false);
        list.save();
    }
    MRLDB window;
    QDialog running;
    if (dialogRunning)
        running.show();
    window.setDocument(path);
    QCOMPARE(bool(window.openedCard()), !dialogRunning);
    if (!dialogRunning) {
        QCOMPARE(window.openedCard()->fullPath(), path);
        QVERIFY(window.cards()->findByPath(path));
    }
}

// "Import" for a launched text file: the import dialog comes preset to it, the wizard's
// steps are pressed through, and the new card is open and listed afterwards.
void TestMRLDB::documentLaunchImportsText()
{
    Cards cards;
    cards.make(QStringLiteral("Books"), 1);
    const QString text = cards.home.documents() + QStringLiteral("/people.csv");
    QFile file(text);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Ann\t1\nBob\t2\n");
    file.close();
    // A step's button is pressed once the pass that fills the step has let it go.
    const auto whenEnabled = [](const char *name) {
        return [name](QWidget *dialog) {
            auto *button = dialog->findChild<QPushButton *>(QLatin1String(name));
            QVERIFY(QTest::qWaitFor([button] { return button->isEnabled(); }));
            QTest::qWait(100);
            button->click();
        };
    };
    ModalDriver driver(QList<ModalDriver::Step> { ModalDriver::script(QStringLiteral("button1")),
        ModalDriver::script(QStringLiteral("btnImport")), whenEnabled("btnNext"),
        whenEnabled("btnOk"), ModalDriver::script(QStringLiteral("button2")) });
    MRLDB window;
    window.setDocument(text);
    const QString card = cards.path(QStringLiteral("people"));
    QVERIFY2(window.openedCard(), qPrintable(driver.seen().join(QStringLiteral(", "))));
    QCOMPARE(window.openedCard()->fullPath(), card);
    QCOMPARE(window.openedCard()->count(), 2);
    QVERIFY(window.cards()->findByPath(card));
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
