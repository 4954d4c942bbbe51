#include "card/datamanager.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
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
    void deletedCardStaysListedAfterRestart();
    void newCardWritesItsFile();
    void newCardInMissingFolderIsDropped();
    void existingUnreadableFileIsNotOverwritten();
    void titleChangeMovesFile();
    void moveIntoUnwritableFolderRestores();
    void moveNeverOverwritesAnotherCard();
    void removalRewritesFollowerHeader();
    void removal_data();
    void removal();
    void addCardOnlyOnce();
    void duplicateGivesNewIdentities();
    void duplicateNamesCount();
    void duplicateOfMissingCardFails();
    void copyFile_data();
    void copyFile();
    void copyFileFailures();
    void sortByColumn_data();
    void sortByColumn();
    void sortKeysChanged_data();
    void sortKeysChanged();
    void updateMovesEntryInView();
    void iconDirFallsBackToLowResolution();
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

QStringList viewTitles(const DBManager &list)
{
    QStringList titles;
    for (const PIMRecord *record : list.view())
        titles << record->title();
    return titles;
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
    const QByteArray expected = "FOLDER\n"
                                "SORT=-1\n"
                                "SORTORDER=1\n"
                                "PERPAGE=15\n"
                                "TOTAL=-1\n"
                                "I="
        + docs.toUtf8()
        + "/Books.card\n"
          "I="
        + docs.toUtf8()
        + "/Line|Two.card\n"
          "END\n";
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

void TestDBManager::deletedCardStaysListedAfterRestart()
{
    TestHome home;
    const QString docs = home.documents();
    {
        DBManager list(false);
        list.load();
        QVERIFY(list.createCard(newEntry(list, docs, QStringLiteral("Kept"))));
        QVERIFY(list.createCard(newEntry(list, docs, QStringLiteral("Lost"))));
    }
    QVERIFY(QFile::remove(docs + QStringLiteral("/Lost.card")));
    DBManager list(false);
    QVERIFY(list.load());
    list.refreshAll();
    QCOMPARE(list.count(), 2);
    QVERIFY(list.isAvailable(entryAt(list, 0)));
    QCOMPARE(entryAt(list, 1)->title(), QStringLiteral("Lost"));
    QVERIFY(!list.isAvailable(entryAt(list, 1)));
}

void TestDBManager::newCardWritesItsFile()
{
    TestHome home;
    DBManager list(false);
    list.load();
    DBRecord *record = newEntry(list, home.documents(), QStringLiteral("New"));
    record->setIcon(QStringLiteral("30"));
    record->setDescription(QStringLiteral("fresh"));
    record->setPassword(QStringLiteral("lock"));
    QVERIFY(list.createCard(record));
    QVERIFY(list.isAvailable(record));
    QCOMPARE(list.paths(), QStringList(record->path()));
    const CardHeader header = readHeader(record->path());
    QCOMPARE(header.icon, QStringLiteral("30"));
    QCOMPARE(header.description, QStringLiteral("fresh"));
    QCOMPARE(header.password, QStringLiteral("lock"));
    QVERIFY(!list.isChanged());
}

void TestDBManager::newCardInMissingFolderIsDropped()
{
    TestHome home;
    DBManager list(false);
    list.load();
    QVERIFY(!list.createCard(newEntry(list, home.file(QStringLiteral("absent")), "X")));
    QCOMPARE(list.count(), 0);
    QVERIFY(list.paths().isEmpty());
    QVERIFY(!fileBytes(list.fullPath()).contains("I="));
}

void TestDBManager::existingUnreadableFileIsNotOverwritten()
{
    TestHome home;
    const QString path = home.documents() + QStringLiteral("/Notes.card");
    writeFile(path, "not a card at all");
    DBManager list(false);
    list.load();
    DBRecord *record = list.addCard(path);
    QVERIFY(record);
    QVERIFY(!list.isAvailable(record));
    QCOMPARE(fileBytes(path), QByteArray("not a card at all"));
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

void TestDBManager::moveIntoUnwritableFolderRestores()
{
    TestHome home;
    const QString docs = home.documents();
    // A folder below a regular file can't be made or written, even by the superuser.
    writeFile(docs + QStringLiteral("/blocker"), "file");
    DBManager list(false);
    list.load();
    DBRecord *record = newEntry(list, docs, QStringLiteral("Stay"));
    QVERIFY(list.createCard(record));
    const QString original = record->path();

    editEntry(record, docs + QStringLiteral("/blocker/sub"), QStringLiteral("Moved"));
    QCOMPARE(record->path(), original);
    QCOMPARE(record->title(), QStringLiteral("Stay"));
    QVERIFY(list.isAvailable(record));
    QVERIFY(QFileInfo::exists(original));
    QVERIFY(list.isChanged());
    QCOMPARE(list.paths(), QStringList(original));
}

void TestDBManager::moveNeverOverwritesAnotherCard()
{
    TestHome home;
    const QString docs = home.documents();
    QDir().mkpath(docs + QStringLiteral("/other"));
    makeCard(docs + QStringLiteral("/other/Same.card"), QStringLiteral("9"), "theirs");
    const QByteArray theirs = fileBytes(docs + QStringLiteral("/other/Same.card"));
    DBManager list(false);
    list.load();
    DBRecord *record = newEntry(list, docs, QStringLiteral("Same"));
    QVERIFY(list.createCard(record));

    editEntry(record, docs + QStringLiteral("/other"), QStringLiteral("Same"));
    QCOMPARE(record->path(), docs + QStringLiteral("/Same.card"));
    QCOMPARE(fileBytes(docs + QStringLiteral("/other/Same.card")), theirs);
    QVERIFY(QFileInfo::exists(docs + QStringLiteral("/Same.card")));
}

void TestDBManager::removalRewritesFollowerHeader()
{
    TestHome home;
    const QString docs = home.documents();
    DBManager list(false);
    list.load();
    QVERIFY(list.createCard(newEntry(list, docs, QStringLiteral("Gone"))));
    DBRecord *follower = newEntry(list, docs, QStringLiteral("Follower"));
    QVERIFY(list.createCard(follower));
    follower->setDescription(QStringLiteral("from the list"));

    QVERIFY(list.removeCard(entryAt(list, 0), false));
    QCOMPARE(list.count(), 1);
    QCOMPARE(readHeader(follower->path()).description, QStringLiteral("from the list"));
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

void TestDBManager::addCardOnlyOnce()
{
    TestHome home;
    const QString path = home.documents() + QStringLiteral("/Outside.card");
    makeCard(path, QStringLiteral("4"), QStringLiteral("d"));
    DBManager list(false);
    list.load();
    DBRecord *record = list.addCard(path);
    QVERIFY(record);
    QVERIFY(list.isAvailable(record));
    QCOMPARE(record->title(), QStringLiteral("Outside"));
    QCOMPARE(record->icon(), QStringLiteral("4"));
    QVERIFY(!list.addCard(path));
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.findByPath(path), record);
    QCOMPARE(list.findByTitle(QStringLiteral("Outside")), record);
    QVERIFY(!list.findByTitle(QStringLiteral("outside")));
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

void TestDBManager::duplicateNamesCount()
{
    TestHome home;
    const QString path = home.documents() + QStringLiteral("/Twice.card");
    makeCard(path);
    DBManager list(false);
    list.load();
    DBRecord *source = list.addCard(path);
    QVERIFY(list.duplicateCard(source));
    DBRecord *second = list.duplicateCard(source);
    QVERIFY(second);
    QCOMPARE(second->path(), home.documents() + QStringLiteral("/Twice_Copy_2.card"));
    QCOMPARE(list.duplicatePath(source), home.documents() + QStringLiteral("/Twice_Copy_3.card"));
}

void TestDBManager::duplicateOfMissingCardFails()
{
    TestHome home;
    DBManager list(false);
    list.load();
    DBRecord *source = newEntry(list, home.documents(), QStringLiteral("Source"));
    QVERIFY(list.createCard(source));
    QVERIFY(QFile::remove(source->path()));
    QVERIFY(!list.duplicateCard(source));
    QCOMPARE(list.count(), 1);
    QVERIFY(!QFileInfo::exists(home.documents() + QStringLiteral("/Source_Copy_1.card")));
}

void TestDBManager::copyFile_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("remove");
    QTest::newRow("empty") << 0 << false;
    QTest::newRow("small, moved") << 10 << true;
    QTest::newRow("one block") << 16384 << false;
    QTest::newRow("blocks and a rest, moved") << 3 * 16384 + 17 << true;
}

void TestDBManager::copyFile()
{
    QFETCH(int, size);
    QFETCH(bool, remove);
    TestHome home;
    const QString source = home.file(QStringLiteral("source"));
    const QString target = home.file(QStringLiteral("target"));
    QByteArray bytes(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        bytes[i] = char(i * 7 + i / 256);
    writeFile(source, bytes);
    writeFile(target, "older, longer content than some sources");
    QVERIFY(DBManager::copyFile(source, target, remove));
    QCOMPARE(fileBytes(target), bytes);
    QCOMPARE(QFileInfo::exists(source), !remove);
}

void TestDBManager::copyFileFailures()
{
    TestHome home;
    const QString source = home.file(QStringLiteral("source"));
    const QString target = home.file(QStringLiteral("target"));
    writeFile(target, "kept");
    QVERIFY(!DBManager::copyFile(home.file(QStringLiteral("missing")), target, true));
    QCOMPARE(fileBytes(target), QByteArray("kept"));

    writeFile(source, "content");
    writeFile(home.file(QStringLiteral("blocker")), "file");
    QVERIFY(!DBManager::copyFile(source, home.file(QStringLiteral("blocker/target")), true));
    QCOMPARE(fileBytes(source), QByteArray("content"));
}

void TestDBManager::sortByColumn_data()
{
    // Entries as "title|icon|description|password|path"; keys differ within each row's column,
    // since equal keys keep no defined order.
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QStringList>("order");

    const QStringList three { "b|1|||/a/b.card", "c|0|x||/z/c.card", "a|2|||/m/a.card" };
    QTest::newRow("icon") << 0 << true << three << QStringList { "c", "b", "a" };
    QTest::newRow("title") << 1 << true << three << QStringList { "a", "b", "c" };
    QTest::newRow("title descending") << 1 << false << three << QStringList { "c", "b", "a" };
    QTest::newRow("folder") << 4 << true << three << QStringList { "b", "a", "c" };
    QTest::newRow("folder descending") << 4 << false << three << QStringList { "c", "a", "b" };
    QTest::newRow("description") << 2 << true << QStringList { "x|1|text||/a/x", "y|1|||/a/y" }
                                 << QStringList { "y", "x" };
    QTest::newRow("password") << 3 << false << QStringList { "x|1|||/a/x", "y|1||pw|/a/y" }
                              << QStringList { "y", "x" };
}

void TestDBManager::sortByColumn()
{
    QFETCH(int, column);
    QFETCH(bool, ascending);
    QFETCH(QStringList, entries);
    QFETCH(QStringList, order);
    TestHome home;
    DBManager list(true);
    for (const QString &text : std::as_const(entries)) {
        const QStringList parts = text.split(QLatin1Char('|'));
        auto *record = new DBRecord(&list);
        record->setTitle(parts[0]);
        record->setIcon(parts[1]);
        record->setDescription(parts[2]);
        record->setPassword(parts[3]);
        record->setPath(parts[4]);
        list.add(record);
    }
    list.setSort(column, ascending);
    QCOMPARE(viewTitles(list), order);
}

namespace
{
class ExposedList : public DBManager
{
public:
    using DBManager::DBManager;
    using DBManager::sortKeysChanged;
};
} // namespace

void TestDBManager::sortKeysChanged_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("changed");

    QTest::newRow("icon") << 0 << "icon"
                          << "1"
                          << "2" << true;
    QTest::newRow("same icon") << 0 << "icon"
                               << "1"
                               << "1" << false;
    QTest::newRow("title") << 1 << "title"
                           << "a"
                           << "b" << true;
    QTest::newRow("title on icon column") << 0 << "title"
                                          << "a"
                                          << "b" << false;
    QTest::newRow("description filled") << 2 << "description"
                                        << ""
                                        << "now" << true;
    QTest::newRow("description rewritten") << 2 << "description"
                                           << "was"
                                           << "is" << false;
    QTest::newRow("password removed") << 3 << "password"
                                      << "pw"
                                      << "" << true;
    QTest::newRow("password changed") << 3 << "password"
                                      << "pw"
                                      << "other" << false;
    QTest::newRow("other folder") << 4 << "path"
                                  << "/a/t.card"
                                  << "/b/t.card" << true;
    QTest::newRow("same folder") << 4 << "path"
                                 << "/a/t.card"
                                 << "/a/u.card" << false;
    QTest::newRow("select column") << 5 << "title"
                                   << "a"
                                   << "b" << false;
}

void TestDBManager::sortKeysChanged()
{
    QFETCH(int, column);
    QFETCH(QString, field);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(bool, changed);
    TestHome home;
    ExposedList list(true);
    list.setSort(column, true);
    DBRecord old(&list);
    const auto set = [&field](DBRecord &record, const QString &value) {
        if (field == QLatin1String("icon"))
            record.setIcon(value);
        else if (field == QLatin1String("title"))
            record.setTitle(value);
        else if (field == QLatin1String("description"))
            record.setDescription(value);
        else if (field == QLatin1String("password"))
            record.setPassword(value);
        else
            record.setPath(value);
    };
    set(old, before);
    DBRecord record(old);
    set(record, after);
    QCOMPARE(list.sortKeysChanged(&old, &record), changed);
}

void TestDBManager::updateMovesEntryInView()
{
    TestHome home;
    DBManager list(true);
    for (const char *title : { "a", "m" }) {
        auto *record = new DBRecord(&list);
        record->setTitle(QString::fromLatin1(title));
        list.add(record);
    }
    list.setSort(1, true);
    auto *record = static_cast<DBRecord *>(list.view().first());
    auto *old = new DBRecord(*record);
    record->setTitle(QStringLiteral("z"));
    record->save(old);
    QCOMPARE(viewTitles(list), QStringList({ "m", "z" }));
}

void TestDBManager::iconDirFallsBackToLowResolution()
{
    TestHome home;
    const QString share = home.file(QStringLiteral("share"));
    qputenv("NORVIKA_SHARE", share.toUtf8());
    const QString low = share + QStringLiteral("/pics/norvika/icons/");
    const QString high = share + QStringLiteral("/pics144/norvika/icons/");
    QCOMPARE(DBManager::iconDir(false), low);
    QCOMPARE(DBManager::iconDir(true), low);
    QDir().mkpath(high);
    QCOMPARE(DBManager::iconDir(true), high);
    QCOMPARE(DBManager::iconDir(false), low);
    qunsetenv("NORVIKA_SHARE");
}

QTEST_GUILESS_MAIN(TestDBManager)
#include "testdbmanager.moc"
