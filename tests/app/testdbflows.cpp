#include "app/dbflows.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "modaldriver.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QTest>

class TestDBFlows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void newCard_data();
    void newCard();
    void editCard_data();
    void editCard();
    void deleteCard_data();
    void deleteCard();
    void removeFromList_data();
    void removeFromList();
    void duplicateCard();
    void duplicateOfMissingFile();
    void openCards();
};

namespace
{
const QString details = QStringLiteral("Card's Details");
const QString ask = QStringLiteral("Enter password");

// A list holding the card "Old" in the documents folder, with password if given.
struct Listed {
    explicit Listed(const QString &password = QString())
        : list(false)
    {
        list.load();
        record = new DBRecord(&list);
        record->setTitle(QStringLiteral("Old"));
        record->setPassword(password);
        record->setPath(docs() + QStringLiteral("/Old.card"));
        list.createCard(record);
        QFile(docs() + QStringLiteral("/blocker")).open(QIODevice::WriteOnly);
    }
    QString docs() const { return home.documents(); }
    QString card(const QString &title) const { return docs() + QLatin1Char('/') + title + ".card"; }

    TestHome home;
    DBManager list;
    DBRecord *record;
};

QString openCardPathSetting()
{
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("Options"));
    return config.readEntry(QStringLiteral("opencardpath"));
}
} // namespace

void TestDBFlows::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

void TestDBFlows::newCard_data()
{
    QTest::addColumn<QStringList>("steps"); // "%1" is the documents folder
    QTest::addColumn<QString>("created"); // the new card's title, or empty
    QTest::addColumn<QStringList>("messages");

    QTest::newRow("accepted") << QStringList { "title=Fresh btnOk" } << "Fresh" << QStringList {};
    QTest::newRow("folder missing")
        << QStringList { "title=Fresh path=%1/missing btnOk", "button1" } << ""
        << QStringList { "norvika ... | Cannot create Card.\nDestination location not available." };
}

void TestDBFlows::newCard()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, created);
    QFETCH(QStringList, messages);
    Listed listed;
    steps.replaceInStrings(QStringLiteral("%1"), listed.docs());
    ModalDriver driver(steps);
    DBRecord *record = DBFlows::newCard(&listed.list, nullptr);
    QCOMPARE(driver.seen(), QStringList(details) + messages);
    QCOMPARE(record ? record->title() : QString(), created);
    QCOMPARE(listed.list.count(), created.isEmpty() ? 1 : 2);
    QVERIFY(!listed.list.isChanged());
    if (record) {
        QCOMPARE(record->path(), listed.card(created));
        QVERIFY(QFileInfo::exists(record->path()));
        QVERIFY(listed.list.isAvailable(record));
    }
}

void TestDBFlows::editCard_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("path"); // relative to the documents folder
    QTest::addColumn<QStringList>("seen");

    const QString failed
        = QStringLiteral("norvika ... | Cannot update Card.\nDestination location not available!");
    QTest::newRow("renamed") << "" << QStringList { "title=Renamed btnOk" } << true
                             << "Renamed.card" << QStringList { details };
    QTest::newRow("unwritable folder")
        << "" << QStringList { "path=%1/blocker/sub btnOk", "button1" } << true << "Old.card"
        << QStringList { details, failed };
    QTest::newRow("locked, right password")
        << "pw" << QStringList { "p1=pw btnOk", "title=Renamed btnOk" } << true << "Renamed.card"
        << QStringList { ask, details };
    QTest::newRow("locked, wrong password")
        << "pw" << QStringList { "p1=PW btnOk", "button1" } << false << "Old.card"
        << QStringList { ask, "Invalid password ... | Access denied." };
}

void TestDBFlows::editCard()
{
    QFETCH(QString, password);
    QFETCH(QStringList, steps);
    QFETCH(QString, path);
    QFETCH(QStringList, seen);
    Listed listed(password);
    steps.replaceInStrings(QStringLiteral("%1"), listed.docs());
    ModalDriver driver(steps);
    QTEST(DBFlows::editCard(&listed.list, listed.record, nullptr), "result");
    QCOMPARE(driver.seen(), seen);
    const QString expected = listed.docs() + QLatin1Char('/') + path;
    QCOMPARE(listed.record->path(), expected);
    QVERIFY(QFileInfo::exists(expected));
    QCOMPARE(listed.record->title(), QFileInfo(expected).completeBaseName());
    QVERIFY(!listed.list.isChanged());
    QCOMPARE(listed.list.paths(), QStringList(expected));
    // A move leaves nothing behind.
    QCOMPARE(QFileInfo::exists(listed.card(QStringLiteral("Old"))), path == "Old.card");
}

void TestDBFlows::deleteCard_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("deleted");
    QTest::addColumn<QStringList>("seen");

    const QString sure
        = QStringLiteral("Delete ... | Are you sure you want to delete\nCard [Old] ?");
    QTest::newRow("confirmed") << "" << QStringList { "button1" } << true << QStringList { sure };
    QTest::newRow("locked, right password")
        << "pw" << QStringList { "p1=pw btnOk", "button1" } << true << QStringList { ask, sure };
}

void TestDBFlows::deleteCard()
{
    QFETCH(QString, password);
    QFETCH(QStringList, steps);
    QFETCH(bool, deleted);
    QFETCH(QStringList, seen);
    Listed listed(password);
    const QString path = listed.record->path();
    ModalDriver driver(steps);
    QCOMPARE(DBFlows::deleteCard(&listed.list, listed.record, nullptr), deleted);
    QCOMPARE(driver.seen(), seen);
    QCOMPARE(QFileInfo::exists(path), !deleted);
    QCOMPARE(listed.list.count(), deleted ? 0 : 1);
}

void TestDBFlows::removeFromList_data()
{
    QTest::addColumn<bool>("listBlocked");
    QTest::newRow("list saved") << false;
    QTest::newRow("list cannot be saved") << true;
}

// No password is asked and the file on disk stays; a list that cannot be saved is told
// after the confirmation.
void TestDBFlows::removeFromList()
{
    QFETCH(bool, listBlocked);
    Listed listed(QStringLiteral("pw"));
    const QString path = listed.record->path();
    const QByteArray before = [&] {
        QFile file(listed.list.fullPath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    if (listBlocked)
        QVERIFY(QDir().mkpath(listed.list.fullPath() + QStringLiteral(".new")));
    ModalDriver driver(QStringList { QStringLiteral("button1"), QStringLiteral("button1") });
    QVERIFY(DBFlows::removeFromList(&listed.list, listed.record, nullptr));
    QCOMPARE(driver.seen().size(), listBlocked ? 2 : 1);
    QVERIFY(QFileInfo::exists(path));
    QVERIFY(listed.list.paths().isEmpty());
    QFile file(listed.list.fullPath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll() == before, listBlocked);
    if (listBlocked)
        QVERIFY2(driver.seen().at(1).contains(QStringLiteral("Cannot write")),
            qPrintable(driver.seen().at(1)));
}

void TestDBFlows::duplicateCard()
{
    Listed listed;
    ModalDriver driver(QStringList { "button1", "button1" });
    DBRecord *first = DBFlows::duplicateCard(&listed.list, listed.record, nullptr);
    DBRecord *second = DBFlows::duplicateCard(&listed.list, listed.record, nullptr);
    QCOMPARE(driver.seen(),
        QStringList({ "norvika ... | Duplicate done!", "norvika ... | Duplicate done!" }));
    QVERIFY(first && second);
    QCOMPARE(first->path(), listed.card(QStringLiteral("Old_Copy_1")));
    QCOMPARE(second->path(), listed.card(QStringLiteral("Old_Copy_2")));
    QCOMPARE(listed.list.count(), 3);
}

void TestDBFlows::duplicateOfMissingFile()
{
    Listed listed;
    QFile::remove(listed.record->path());
    ModalDriver driver(QStringList { "button1" });
    QVERIFY(!DBFlows::duplicateCard(&listed.list, listed.record, nullptr));
    QCOMPARE(driver.seen(), QStringList(QStringLiteral("norvika ... | Duplicate failed!")));
    QCOMPARE(listed.list.count(), 1);
}

void TestDBFlows::openCards()
{
    Listed listed;
    const QString other = listed.docs() + QStringLiteral("/other");
    QDir().mkpath(other);
    for (const char *name : { "/A.card", "/B.card" }) {
        DataManager card(other + QString::fromLatin1(name));
        card.forceSave();
    }
    QDir().mkpath(listed.home.file(QStringLiteral("data/norvika")));
    listed.list.addCard(other + QStringLiteral("/A.card"));

    QString startFolder;
    QStringList filters;
    ModalDriver driver(QList<ModalDriver::Step> {
        [&](QWidget *widget) {
            auto *dialog = qobject_cast<QFileDialog *>(widget);
            startFolder = dialog->directory().absolutePath();
            filters = dialog->nameFilters();
            dialog->setDirectory(other);
            ModalDriver::type(dialog, "fileNameEdit", QStringLiteral("\"A.card\" \"B.card\""));
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        },
        ModalDriver::script(QStringLiteral("button1")) });
    DBRecord *added = DBFlows::openCards(&listed.list, nullptr);
    QCOMPARE(driver.seen().value(1), QStringLiteral("norvika ... | Card [A]\nalready in list!"));
    QCOMPARE(startFolder, QDir::homePath());
    QCOMPARE(filters, QStringList({ "Card (*.card)", "All Files (*)" }));
    QVERIFY(added);
    QCOMPARE(added->path(), other + QStringLiteral("/B.card"));
    QVERIFY(listed.list.isAvailable(added));
    QCOMPARE(listed.list.count(), 3);
    QCOMPARE(openCardPathSetting(), other);
    QCOMPARE(DBFlows::openCardPath(), other);
}

QTEST_MAIN(TestDBFlows)
#include "testdbflows.moc"
