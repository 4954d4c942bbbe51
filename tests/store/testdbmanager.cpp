#include "card/datamanager.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/filesizelimit.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTest>

class TestDBManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deviceListFileForm();
    void extendedListFileForm();
    void extendedListRoundTrip();
    void loadMakesEntriesFromPaths();
    void refresh_data();
    void refresh();
    void titleChangeMovesFile();
    void failedMoveKeepsCard_data();
    void failedMoveKeepsCard();
    void removal_data();
    void removal();
    void duplicateGivesNewIdentities();
    void failedSaveKeepsOldList_data();
    void failedSaveKeepsOldList();
};

namespace
{
// The bytes of a file; empty for a missing one.
QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

// A card file with the given header values and count records.
void makeCard(const QString &path, const QString &icon = QString(),
    const QString &description = QString(), const QString &password = QString(), int count = 0)
{
    DataManager card(path);
    card.setIcon(icon);
    card.setDescription(description);
    card.setPassword(password);
    for (int i = 0; i < count; ++i)
        card.add(card.createRecord());
    QVERIFY(card.forceSave());
}

struct CardHeader {
    QString icon, description, password;
};

CardHeader readHeader(const QString &path)
{
    DataManager card(path, false, true);
    card.load();
    return { card.icon(), card.description(), card.password() };
}

DBRecord *entryAt(const DBManager &list, int i)
{
    return static_cast<DBRecord *>(list.records().at(i));
}

// An entry of a new card; the list writes its file when it is added.
DBRecord *newEntry(DBManager &list, const QString &folder, const QString &title)
{
    auto *record = new DBRecord(&list);
    record->setTitle(title);
    record->setPath(folder + QLatin1Char('/') + title + QStringLiteral(".card"));
    return record;
}

// Changes an entry the way the details dialog does: on a copy kept as the old state.
void editEntry(DBRecord *record, const QString &folder, const QString &title)
{
    auto *old = new DBRecord(*record);
    record->setTitle(title);
    record->setPath(folder + QLatin1Char('/') + title + QStringLiteral(".card"));
    record->save(old);
}
} // namespace

void TestDBManager::deviceListFileForm()
{
    TestHome home;
    const QString docs = home.documents();
    {
        DBManager list(false);
        list.load();
        QVERIFY(list.createCard(newEntry(list, docs, QStringLiteral("Books"))));
        QVERIFY(list.createCard(newEntry(list, docs, QStringLiteral("Line|Two"))));
    }
    const QByteArray expected
        = QStringLiteral("FOLDER\nSORT=-1\nSORTORDER=1\nPERPAGE=15\nTOTAL=-1\n"
                         "I=%1/Books.card\nI=%1/Line|Two.card\nEND\n")
              .arg(docs)
              .toUtf8();
    const QString file = home.file(QStringLiteral("data/norvika/norvikaIDX"));
    QCOMPARE(fileBytes(file), expected);
}

void TestDBManager::extendedListFileForm()
{
    TestHome home;
    const QString file = home.file(QStringLiteral("data/norvika/norvikaIDX_EXT"));
    QString uid;
    {
        DBManager list(true);
        list.load();
        auto *record = new DBRecord(&list);
        record->setTitle(QStringLiteral("Books"));
        record->setDescription(QStringLiteral("Reading list\nsecond line"));
        record->setPassword(QStringLiteral("se\ncret"));
        record->setPath(QStringLiteral("/mnt/card/Books.card"));
        record->setCreated(QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
        record->setUpdated(QDateTime(QDate(2004, 3, 7), QTime(18, 40, 0)));
        auto *plain = new DBRecord(&list);
        plain->setTitle(QStringLiteral("Plain"));
        plain->setIcon(QStringLiteral("7"));
        plain->setPath(QStringLiteral("/nowhere/Plain.card"));
        plain->setCreated(QDateTime(QDate(2010, 1, 2), QTime(3, 4, 5)));
        plain->setUpdated(QDateTime(QDate(2010, 1, 2), QTime(3, 4, 5)));
        list.add(record);
        list.add(plain);
        QVERIFY(list.save());
        uid = record->uidString() + QLatin1Char(' ') + plain->uidString();
        // The extended list is a catalogue: nothing in it is checked against the disk.
        QVERIFY(list.isAvailable(plain));
        QVERIFY(list.paths().isEmpty());
    }
    const QStringList uids = uid.split(QLatin1Char(' '));
    const QByteArray expected = "FOLDER\nSORT=-1\nSORTORDER=1\nPERPAGE=15\nTOTAL=2\nEND\n"
                                "T=Books\nI=12\nD=Reading list|second line\nX=se|cret\n"
                                "P=/mnt/card/Books.card\nUID="
        + uids[0].toLatin1()
        + "\nCREATED=7 3 2004 18 5 9\nUPDATED=7 3 2004 18 40 0\nEND\n"
          "T=Plain\nI=7\nP=/nowhere/Plain.card\nUID="
        + uids[1].toLatin1() + "\nCREATED=2 1 2010 3 4 5\nUPDATED=2 1 2010 3 4 5\nEND\n";
    QCOMPARE(fileBytes(file), expected);
    QVERIFY(!QFileInfo::exists(QStringLiteral("/nowhere/Plain.card")));
}

void TestDBManager::extendedListRoundTrip()
{
    TestHome home;
    writeFile(home.file(QStringLiteral("data/norvika/norvikaIDX_EXT")),
        "FOLDER\nSORT=1\nSORTORDER=0\nPERPAGE=15\nTOTAL=1\nEND\n"
        "T=A=B\nI=3\nD=x|y\nX=p=w\nP=/a/A=B.card\nQ=ignored\n"
        "UID=6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b\nEND\n");
    DBManager list(true);
    QVERIFY(list.load());
    QCOMPARE(list.count(), 1);
    const DBRecord *record = entryAt(list, 0);
    QCOMPARE(record->title(), QStringLiteral("A=B"));
    QCOMPARE(record->icon(), QStringLiteral("3"));
    QCOMPARE(record->description(), QStringLiteral("x\ny"));
    QCOMPARE(record->password(), QStringLiteral("p=w"));
    QCOMPARE(record->path(), QStringLiteral("/a/A=B.card"));
    QCOMPARE(record->uidString(), QStringLiteral("6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b"));
    QCOMPARE(list.sortColumn(), 1);
    QVERIFY(!list.sortOrder());
}

void TestDBManager::loadMakesEntriesFromPaths()
{
    TestHome home;
    writeFile(home.file(QStringLiteral("data/norvika/norvikaIDX")),
        "FOLDER\nSORT=-1\nSORTORDER=1\nPERPAGE=15\nTOTAL=-1\nI=/x/One.card\nI=/y/Two|Lines.card\n"
        "END\n");
    DBManager list(false);
    QVERIFY(list.load());
    QCOMPARE(list.paths(),
        QStringList({ QStringLiteral("/x/One.card"), QStringLiteral("/y/Two\nLines.card") }));
    QCOMPARE(list.count(), 2);
    QCOMPARE(list.view().size(), 2);
    QCOMPARE(entryAt(list, 0)->path(), QStringLiteral("/x/One.card"));
    QVERIFY(entryAt(list, 0)->title().isEmpty());
    QVERIFY(!list.isAvailable(entryAt(list, 0)));
    QCOMPARE(entryAt(list, 1)->path(), QStringLiteral("/y/Two\nLines.card"));
}

void TestDBManager::refresh_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content"); // empty: a real card is made
    QTest::addColumn<QString>("icon");
    QTest::addColumn<bool>("available");
    QTest::addColumn<QString>("expectedIcon");
    QTest::addColumn<QString>("expectedTitle");

    QTest::newRow("card") << "Books.card" << QByteArray() << "5" << true << "5"
                          << "Books";
    QTest::newRow("card without icon") << "Plain.card" << QByteArray() << "" << true << "12"
                                       << "Plain";
    QTest::newRow("dotted title") << "v1.2.card" << QByteArray() << "3" << true << "3"
                                  << "v1.2";
    QTest::newRow("missing") << "Gone.card" << QByteArray("-") << "" << false << "12"
                             << "Gone";
    QTest::newRow("not a card") << "Text.card" << QByteArray("hello, world\n") << "" << false
                                << "12"
                                << "Text";
}

void TestDBManager::refresh()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, icon);
    QFETCH(bool, available);
    QFETCH(QString, expectedIcon);
    QFETCH(QString, expectedTitle);
    TestHome home;
    const QString path = home.documents() + QLatin1Char('/') + name;
    if (content.isEmpty())
        makeCard(path, icon, QStringLiteral("About\nthis"), QStringLiteral("Пароль"));
    else if (content != "-")
        writeFile(path, content);
    const QByteArray before = fileBytes(path);

    DBManager list(false);
    auto *record = new DBRecord(&list);
    record->setPath(path);
    list.refresh(record);
    QCOMPARE(record->title(), expectedTitle);
    QCOMPARE(list.isAvailable(record), available);
    QCOMPARE(record->icon(), expectedIcon);
    QCOMPARE(record->description(), available ? QStringLiteral("About\nthis") : QString());
    QCOMPARE(record->password(), available ? QStringLiteral("Пароль") : QString());
    // Reading a card's header never writes it.
    QCOMPARE(fileBytes(path), before);
    delete record;
}

void TestDBManager::titleChangeMovesFile()
{
    TestHome home;
    const QString docs = home.documents();
    QDir().mkpath(docs + QStringLiteral("/other"));
    DBManager list(false);
    list.load();
    DBRecord *first = newEntry(list, docs, QStringLiteral("First"));
    QVERIFY(list.createCard(first));
    DBRecord *record = newEntry(list, docs, QStringLiteral("Old"));
    record->setDescription(QStringLiteral("moving"));
    QVERIFY(list.createCard(record));

    editEntry(record, docs + QStringLiteral("/other"), QStringLiteral("New"));
    QVERIFY(list.save());
    const QString moved = docs + QStringLiteral("/other/New.card");
    QVERIFY(!QFileInfo::exists(docs + QStringLiteral("/Old.card")));
    QVERIFY(QFileInfo::exists(moved));
    QCOMPARE(record->path(), moved);
    QCOMPARE(readHeader(moved).description, QStringLiteral("moving"));
    QCOMPARE(list.paths(), QStringList({ first->path(), moved }));
    const QByteArray text = fileBytes(list.fullPath());
    QVERIFY(text.contains("I=" + moved.toUtf8() + "\n"));
    QVERIFY(!text.contains("Old.card"));
}

void TestDBManager::failedMoveKeepsCard_data()
{
    QTest::addColumn<bool>("taken");
    // A folder below a regular file can't be made or written, even by the superuser.
    QTest::newRow("folder below a file") << false;
    QTest::newRow("another card in the way") << true;
}

// A move that can't be made leaves the entry, its file and any other card as they were.
void TestDBManager::failedMoveKeepsCard()
{
    QFETCH(bool, taken);
    TestHome home;
    const QString docs = home.documents();
    const QString target
        = docs + (taken ? QStringLiteral("/other") : QStringLiteral("/blocker/sub"));
    const QString theirPath = docs + QStringLiteral("/other/Stay.card");
    if (taken) {
        QDir().mkpath(docs + QStringLiteral("/other"));
        makeCard(theirPath, QStringLiteral("9"), "theirs");
    } else {
        writeFile(docs + QStringLiteral("/blocker"), "file");
    }
    const QByteArray theirs = fileBytes(theirPath);
    DBManager list(false);
    list.load();
    DBRecord *record = newEntry(list, docs, QStringLiteral("Stay"));
    QVERIFY(list.createCard(record));
    const QString original = record->path();

    editEntry(record, target, taken ? QStringLiteral("Stay") : QStringLiteral("Moved"));
    QCOMPARE(record->path(), original);
    QCOMPARE(record->title(), QStringLiteral("Stay"));
    QVERIFY(list.isAvailable(record));
    QVERIFY(QFileInfo::exists(original));
    QCOMPARE(fileBytes(theirPath), theirs);
    QVERIFY(list.isChanged());
    QCOMPARE(list.paths(), QStringList(original));
}

void TestDBManager::removal_data()
{
    QTest::addColumn<bool>("deleteFile");
    QTest::newRow("remove from list") << false;
    QTest::newRow("delete card") << true;
}

void TestDBManager::removal()
{
    QFETCH(bool, deleteFile);
    TestHome home;
    DBManager list(false);
    list.load();
    DBRecord *record = newEntry(list, home.documents(), QStringLiteral("Card"));
    QVERIFY(list.createCard(record));
    const QString path = record->path();
    QVERIFY(list.removeCard(record, deleteFile));
    QCOMPARE(list.count(), 0);
    QVERIFY(list.paths().isEmpty());
    QCOMPARE(QFileInfo::exists(path), !deleteFile);
    QVERIFY(!fileBytes(list.fullPath()).contains("I="));
}

void TestDBManager::duplicateGivesNewIdentities()
{
    TestHome home;
    const QString path = home.documents() + QStringLiteral("/Source.card");
    makeCard(path, QStringLiteral("8"), QStringLiteral("text"), QString(), 3);
    {
        DataManager card(path);
        card.load();
        card.setLastCurrent(card.records().first()->uidString());
        card.save();
    }
    DBManager list(false);
    list.load();
    DBRecord *source = list.addCard(path);
    DBRecord *copy = list.duplicateCard(source);
    QVERIFY(copy);
    QCOMPARE(copy->path(), home.documents() + QStringLiteral("/Source_Copy_1.card"));
    QCOMPARE(copy->title(), QStringLiteral("Source_Copy_1"));
    QCOMPARE(copy->icon(), QStringLiteral("8"));
    QVERIFY(copy->uidString() != source->uidString());
    QCOMPARE(list.count(), 2);
    QVERIFY(!list.isChanged());

    DataManager original(path);
    DataManager duplicate(copy->path());
    QVERIFY(original.load());
    QVERIFY(duplicate.load());
    QCOMPARE(duplicate.count(), 3);
    QVERIFY(duplicate.lastCurrent().isEmpty());
    QSet<QString> uids;
    for (const PIMRecord *record : original.records())
        uids.insert(record->uidString());
    for (const PIMRecord *record : duplicate.records())
        QVERIFY(!uids.contains(record->uidString()));
    QCOMPARE(duplicate.description(), QStringLiteral("text"));
}

void TestDBManager::failedSaveKeepsOldList_data()
{
    QTest::addColumn<bool>("extended");
    QTest::addColumn<bool>("fullDisk");
    QTest::newRow("device list, full disk") << false << true;
    QTest::newRow("device list, unwritable") << false << false;
    QTest::newRow("extended list, full disk") << true << true;
    QTest::newRow("extended list, unwritable") << true << false;
}

// Unwritable: a folder where the list's pending file goes, which binds every user.
void TestDBManager::failedSaveKeepsOldList()
{
    QFETCH(bool, extended);
    QFETCH(bool, fullDisk);
    TestHome home;
    const QString folder = home.documents();
    DBManager list(extended);
    list.load();
    list.createCard(newEntry(list, folder, QStringLiteral("Old")));
    QVERIFY(list.save() && !list.isChanged());
    const QByteArray before = fileBytes(list.fullPath());
    QVERIFY(!before.isEmpty());

    DBRecord *entry = newEntry(list, folder, QStringLiteral("New"));
    list.add(entry);
    if (!fullDisk)
        QVERIFY(QDir().mkpath(list.fullPath() + QStringLiteral(".new")));
    {
        FileSizeLimit limit(fullDisk ? rlim_t(before.size()) : RLIM_INFINITY);
        QVERIFY(!list.save());
    }
    QVERIFY(list.isChanged());
    QVERIFY2(list.errorString().contains(list.fullPath()), qPrintable(list.errorString()));
    QCOMPARE(fileBytes(list.fullPath()), before);
    if (fullDisk)
        QVERIFY(!QFile::exists(list.fullPath() + QStringLiteral(".new")));
    else
        QVERIFY(QDir().rmdir(list.fullPath() + QStringLiteral(".new")));
    QVERIFY(list.save());
    QVERIFY(fileBytes(list.fullPath()).contains(entry->title().toUtf8()));
}

QTEST_GUILESS_MAIN(TestDBManager)
#include "testdbmanager.moc"
