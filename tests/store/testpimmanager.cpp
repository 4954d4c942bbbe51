#include "storefixtures.h"
#include "support/filesizelimit.h"
#include "support/testhome.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <cerrno>
#include <cstring>
#include <unistd.h>

class TestPIMManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textFileLayout();
    void oddTextFiles_data();
    void oddTextFiles();
    void binaryRoundTrip();
    void headerOnlySaveCopiesRecordPart_data();
    void headerOnlySaveCopiesRecordPart();
    void headerOnlyTextSaveAfterOutsideRewrite();
    void eleventhChangePostsOneSave();
    void viewInsertion_data();
    void viewInsertion();
    void failedSaveKeepsOldFile_data();
    void failedSaveKeepsOldFile();
    void damagedBinaryLoadsWholeRecords_data();
    void damagedBinaryLoadsWholeRecords();
    void loadTakesPendingNewFile();
};

namespace
{
// Filler making records large enough to exceed small file-size limits.
QString filler(int n)
{
    return QString(n, QLatin1Char('x'));
}

// A card of three records in the given form, saved and loaded back: its bytes and path.
QByteArray makeCard(const QString &name, int format, QString *path = nullptr)
{
    KeyedManager manager(name, format);
    manager.setProperty(QStringLiteral("p"), QStringLiteral("v"));
    for (const char *key : { "alpha", "beta", "gamma" })
        manager.addKeyed(QString::fromLatin1(key))->setCategories({ QStringLiteral("c") });
    manager.save();
    if (path)
        *path = manager.fullPath();
    return fileBytes(manager.fullPath());
}

// The titles of the records a header-only manager reads one at a time: what a load keeps.
QStringList visitedTitles(const QString &name, int format)
{
    KeyedManager manager(name, format, true);
    manager.setReadOnly(true);
    manager.load();
    QStringList titles;
    manager.visitPassingRecords([&](const PIMRecord &record) { titles.append(record.title()); });
    return titles;
}

// Counts the automatic-save events that reach a manager.
class SaveEventCounter : public QObject
{
public:
    int count = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Type(PIMManager::AutoSaveEvent))
            ++count;
        return false;
    }
};
} // namespace

void TestPIMManager::textFileLayout()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("layout"));
    manager.setSyncDateTime(QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
    manager.setProperty(QStringLiteral("converted"), QStringLiteral("2"));
    manager.setProperty(QStringLiteral("a"), QStringLiteral("x\ny"));
    manager.setLastCurrent(QStringLiteral("6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b"));
    manager.setSort(0, false);
    manager.setPerPage(30);
    KeyedRecord *record = manager.addKeyed(QStringLiteral("k"));
    record->titleText = QStringLiteral("Books");
    record->setCreated(QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
    record->setUpdated(QDateTime(QDate(2004, 3, 7), QTime(18, 40, 0)));
    QVERIFY(manager.save());
    const QByteArray expected = "FOLDER\nSYNCDATETIME=7 3 2004 18 5 9\nSORT=0\nSORTORDER=0\n"
                                "PERPAGE=30\nPROP=a=x|y\nPROP=converted=2\n"
                                "LASTCURRENT=6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b\nTOTAL=1\nEND\n"
                                "T=Books\nI=\nD=\nP=\nUID="
        + record->uidString().toLatin1()
        + "\nCREATED=7 3 2004 18 5 9\nUPDATED=7 3 2004 18 40 0\nPROP=k0=k\nEND\n";
    QCOMPARE(fileBytes(manager.fullPath()), expected);
    QVERIFY(!QFile::exists(manager.fullPath() + QStringLiteral(".new")));

    KeyedManager read(QStringLiteral("layout"));
    QSignalSpy updated(&read, &PIMManager::updated);
    QVERIFY(read.load());
    QCOMPARE(updated.size(), 1);
    QCOMPARE(read.afterLoadCalls, 1);
    QCOMPARE(read.sortColumn(), 0);
    QCOMPARE(read.sortOrder(), false);
    QCOMPARE(read.properties(), manager.properties());
    QCOMPARE(static_cast<KeyedRecord *>(read.first())->titleText, QStringLiteral("Books"));
    QVERIFY(!read.loadedDamaged());
    QVERIFY(!read.isChanged());
}

void TestPIMManager::oddTextFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<bool>("damaged");
    QTest::newRow("empty tokens dropped")
        << QByteArray("FOLDER\nLASTCURRENT=a==b=\nPROP=k=x==y=\n\nBOGUS=1\nEND\n") << QStringList()
        << false;
    QTest::newRow("no FOLDER: bare blocks") << QByteArray("T=one\nEND\nT=two\nPROP=k0=z\nEND\n")
                                            << QStringList { "one", "two" } << false;
    QTest::newRow("total larger than blocks")
        << QByteArray("FOLDER\nTOTAL=2000000000\nEND\nT=one\nEND\nT=two\nEND\n")
        << QStringList { "one", "two" } << true;
    QTest::newRow("partial block dropped")
        << QByteArray("FOLDER\nTOTAL=-1\nEND\nT=one\nEND\nT=two\nPROP=a=b\n")
        << QStringList { "one" } << true;
    // Found by fuzzing: the header's bytes that are no UTF-8 once left the reading of the
    // records in an endless loop.
    QTest::newRow("no UTF-8 in the header, partial block") << QByteArray("FOLDER\nSORT\x1d-\xc4"
                                                                         "1\nPERPAG\xbb\xc2"
                                                                         "15\nTOTAL=3\nEND\nER")
                                                           << QStringList() << true;
    QTest::newRow("no UTF-8 in the header, whole block") << QByteArray("FOLDER\nSORT\x1d-\xc4"
                                                                       "1\nEND\r\nT=one\nEND\n")
                                                         << QStringList { "one" } << false;
}

void TestPIMManager::oddTextFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, titles);
    QFETCH(bool, damaged);
    TestHome home;
    KeyedManager manager(QStringLiteral("odd"));
    writeBytes(manager.fullPath(), bytes);
    QVERIFY(manager.load());
    QStringList read;
    for (const PIMRecord *record : manager.view())
        read.append(record->title());
    QCOMPARE(read, titles);
    QCOMPARE(manager.count(), titles.size());
    QCOMPARE(manager.loadedDamaged(), damaged);
    QCOMPARE(manager.sortColumn(), -1);
    if (manager.hasProperty(QStringLiteral("k"))) {
        QCOMPARE(manager.lastCurrent(), QStringLiteral("a=b"));
        QCOMPARE(manager.property(QStringLiteral("k")), QStringLiteral("x=y"));
    }
    QCOMPARE(visitedTitles(QStringLiteral("odd"), PIMManager::TextFormat), titles);
}

void TestPIMManager::binaryRoundTrip()
{
    TestHome home;
    QString path;
    makeCard(QStringLiteral("binary"), PIMManager::BinaryFormat, &path);
    KeyedManager manager(QStringLiteral("binary"), PIMManager::BinaryFormat);
    manager.extra.clear();
    QVERIFY(manager.load());
    QCOMPARE(manager.extra, QStringLiteral("extra"));
    QCOMPARE(manager.count(), 3);
    QCOMPARE(manager.total(), 3);
    QCOMPARE(manager.viewKeys(), (QStringList { "alpha", "beta", "gamma" }));
    QCOMPARE(manager.last()->categories(), QStringList { "c" });
    QCOMPARE(manager.property(QStringLiteral("p")), QStringLiteral("v"));
    QVERIFY(!manager.loadedDamaged());
    // Header: version, sync date-time, sort column, order, per page, last current, total,
    // property count, then the manager's own string.
    const QByteArray bytes = fileBytes(path);
    QCOMPARE(bytes.left(33).toHex(),
        QByteArray::fromHex("00000000"
                            "0000000000000000"
                            "ffffffff"
                            "01"
                            "0000000f"
                            "ffffffff"
                            "00000003"
                            "00000001")
            .toHex());
}

void TestPIMManager::headerOnlySaveCopiesRecordPart_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("text") << int(PIMManager::TextFormat);
    QTest::newRow("binary") << int(PIMManager::BinaryFormat);
}

void TestPIMManager::headerOnlySaveCopiesRecordPart()
{
    QFETCH(int, format);
    TestHome home;
    QString path;
    {
        KeyedManager full(QStringLiteral("headeronly"), format);
        // Enough records that the copy takes several blocks.
        for (int i = 0; i < 300; ++i)
            full.addKeyed(QString::number(i))->setProperty(QStringLiteral("f"), filler(100));
        QVERIFY(full.save());
        path = full.fullPath();
    }
    const QByteArray before = fileBytes(path);
    QVERIFY(before.size() > 3 * 16384);

    KeyedManager header(QStringLiteral("headeronly"), format, true);
    QVERIFY(header.load());
    QCOMPARE(header.count(), 0);
    QCOMPARE(header.total(), 300);
    header.setPerPage(99);
    header.setProperty(QStringLiteral("longer"), QStringLiteral("header now"));
    QVERIFY(header.save());

    KeyedManager check(QStringLiteral("headeronly"), format);
    QVERIFY(check.load());
    QCOMPARE(check.perPage(), 99);
    QCOMPARE(check.count(), 300);
    QCOMPARE(check.total(), 300);
    QVERIFY(!check.loadedDamaged());

    // The part behind the header is the old one, byte for byte; only the header grew.
    const qsizetype oldHeaderSize
        = format == PIMManager::TextFormat ? before.indexOf("\nEND\n") + 5 : 33 + 14;
    const QByteArray recordPart = before.mid(oldHeaderSize);
    const QByteArray after = fileBytes(path);
    QVERIFY(after.size() > before.size());
    QVERIFY(after.endsWith(recordPart));
    if (format == PIMManager::TextFormat)
        QCOMPARE(after.indexOf("\nEND\n") + 5, after.size() - recordPart.size());
}

// Another program rewrote the file with a longer header after it was loaded header-only: the
// records copied across are those behind the new header, not bytes from its middle.
void TestPIMManager::headerOnlyTextSaveAfterOutsideRewrite()
{
    TestHome home;
    {
        KeyedManager full(QStringLiteral("list"));
        full.addKeyed(QStringLiteral("a"));
        QVERIFY(full.save());
    }
    KeyedManager header(QStringLiteral("list"), PIMManager::TextFormat, true);
    QVERIFY(header.load());
    {
        KeyedManager outside(QStringLiteral("list"));
        QVERIFY(outside.load());
        outside.setProperty(QStringLiteral("added"), filler(200));
        outside.addKeyed(QStringLiteral("b"));
        QVERIFY(outside.save());
    }
    header.setPerPage(42);
    QVERIFY(header.save());

    KeyedManager check(QStringLiteral("list"));
    QVERIFY(check.load());
    QVERIFY(!check.loadedDamaged());
    QCOMPARE(check.perPage(), 42);
    QCOMPARE(check.viewKeys(), QStringList({ "a", "b" }));
}

void TestPIMManager::eleventhChangePostsOneSave()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("counter"));
    SaveEventCounter counter;
    manager.installEventFilter(&counter);
    for (int i = 0; i < 10; ++i)
        manager.countChange();
    QCoreApplication::sendPostedEvents(&manager);
    QCOMPARE(counter.count, 0);
    QVERIFY(!QFile::exists(manager.fullPath()));

    manager.countChange();
    // The save runs from the event loop, not inside the counting call.
    QVERIFY(!QFile::exists(manager.fullPath()));
    manager.countChange();
    QCoreApplication::sendPostedEvents(&manager);
    QCOMPARE(counter.count, 1);
    QVERIFY(QFile::exists(manager.fullPath()));
    QVERIFY(!manager.isChanged());
}

void TestPIMManager::viewInsertion_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QStringList>("added");
    QTest::addColumn<QStringList>("view");
    const QStringList added { "b", "d", "a", "c", "b" };
    QTest::newRow("unsorted ascending appends") << -1 << true << added << added;
    QTest::newRow("unsorted descending prepends")
        << -1 << false << added << QStringList { "b", "c", "a", "d", "b" };
    QTest::newRow("sorted ascending")
        << 0 << true << added << QStringList { "a", "b", "b", "c", "d" };
    QTest::newRow("sorted descending")
        << 0 << false << added << QStringList { "d", "c", "b", "b", "a" };
}

void TestPIMManager::viewInsertion()
{
    QFETCH(int, column);
    QFETCH(bool, ascending);
    QFETCH(QStringList, added);
    QFETCH(QStringList, view);
    TestHome home;
    KeyedManager manager(QStringLiteral("view"));
    manager.setSort(column, ascending);
    QSignalSpy newTask(&manager, &PIMManager::newTask);
    for (const QString &key : added)
        manager.addKeyed(key);
    QCOMPARE(newTask.size(), added.size());
    QCOMPARE(manager.viewKeys(), view);
    QCOMPARE(manager.sortOrder(), ascending);
    // A hidden record stays out of the view.
    manager.addKeyed(QStringLiteral("zz"))->setProperty(QStringLiteral("hidden"), "1");
    manager.rebuildView();
    QCOMPARE(manager.viewKeys(), view);
    QCOMPARE(manager.count(), added.size() + 1);
}

void TestPIMManager::failedSaveKeepsOldFile_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("format");
    const int text = PIMManager::TextFormat;
    QTest::newRow("new file blocked by a folder") << "newIsFolder" << text;
    QTest::newRow("parent is a regular file") << "parentIsFile" << text;
    QTest::newRow("read-only folder") << "readOnlyFolder" << text;
    QTest::newRow("full disk, text") << "fullDisk" << text;
    QTest::newRow("full disk, binary") << "fullDisk" << int(PIMManager::BinaryFormat);
    QTest::newRow("full disk past the first megabyte, binary")
        << "fullDiskLate" << int(PIMManager::BinaryFormat);
}

// The disk is "full" through a file-size limit of the process.
void TestPIMManager::failedSaveKeepsOldFile()
{
    QFETCH(QString, how);
    QFETCH(int, format);
    const bool late = how == QLatin1String("fullDiskLate");
    const bool fullDisk = late || how == QLatin1String("fullDisk");
    TestHome home;
    const QString dir = home.file(QStringLiteral("cards"));
    QVERIFY(QDir().mkpath(dir));
    QString path = dir + QStringLiteral("/a.card");
    QByteArray old;
    if (how == QLatin1String("parentIsFile")) {
        writeBytes(dir + QStringLiteral("/plain"), "x");
        path = dir + QStringLiteral("/plain/a.card");
    } else {
        old = makeCard(path, format);
        QVERIFY(!old.isEmpty());
    }
    if (how == QLatin1String("newIsFolder"))
        QVERIFY(QDir().mkpath(path + QStringLiteral(".new")));
    if (how == QLatin1String("readOnlyFolder")) {
        if (geteuid() == 0)
            QSKIP("Folder permissions do not bind the superuser");
        QVERIFY(QFile::setPermissions(dir, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    }

    KeyedManager manager(path, format);
    const bool loaded = manager.load();
    QVERIFY(loaded || old.isEmpty());
    for (int i = 0; i < (late ? 6000 : 50); ++i)
        manager.addKeyed(filler(200));
    bool saved = true;
    QString error;
    {
        FileSizeLimit limit(late ? 1536 * 1024 : fullDisk ? 4096 : RLIM_INFINITY);
        saved = manager.save();
        error = manager.errorString();
    }
    const bool changed = manager.isChanged();
    QFile::setPermissions(
        dir, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QVERIFY(!saved);
    QVERIFY(changed);
    QVERIFY(!error.isEmpty());
    if (fullDisk)
        QVERIFY2(error.contains(QString::fromLocal8Bit(std::strerror(EFBIG))), qPrintable(error));
    QCOMPARE(fileBytes(path), old);
    if (how == QLatin1String("newIsFolder"))
        QVERIFY(QDir().rmdir(path + QStringLiteral(".new")));
    else
        QVERIFY(!QFile::exists(path + QStringLiteral(".new")));
    if (how == QLatin1String("parentIsFile"))
        return;
    QVERIFY(manager.save());
    QVERIFY(fileBytes(path).size() > 4096);
}

void TestPIMManager::damagedBinaryLoadsWholeRecords_data()
{
    QTest::addColumn<QString>("damage");
    QTest::addColumn<int>("records");
    QTest::addColumn<bool>("headerWhole");
    // The card: base header (33 bytes, then the property "p" in 12), the manager's own
    // string (14), then three records.
    QTest::newRow("cut in the base header") << "cut:20" << 0 << false;
    QTest::newRow("cut in the subclass header") << "cut:50" << 0 << false;
    QTest::newRow("cut behind the header") << "cut:59" << 0 << true;
    QTest::newRow("cut in the first record") << "cut:70" << 0 << true;
    QTest::newRow("cut in the last record") << "cut:-3" << 2 << true;
    QTest::newRow("huge record count") << "total" << 3 << true;
    QTest::newRow("huge property count in header") << "properties" << 0 << false;
    QTest::newRow("huge property count in a record") << "recordprops" << 0 << true;
    QTest::newRow("empty file") << "cut:0" << 0 << false;
}

void TestPIMManager::damagedBinaryLoadsWholeRecords()
{
    QFETCH(QString, damage);
    QFETCH(int, records);
    QFETCH(bool, headerWhole);
    TestHome home;
    QString path;
    QByteArray bytes = makeCard(QStringLiteral("damaged"), PIMManager::BinaryFormat, &path);
    if (damage.startsWith(QLatin1String("cut:"))) {
        const int at = damage.mid(4).toInt();
        bytes.truncate(at < 0 ? bytes.size() + at : at);
    } else if (damage == QLatin1String("total")) {
        bytes.replace(25, 4, QByteArray::fromHex("7fffffff"));
    } else if (damage == QLatin1String("properties")) {
        bytes.replace(29, 4, QByteArray::fromHex("7ffffff0"));
    } else if (damage == QLatin1String("recordprops")) {
        bytes.replace(59 + 32, 4, QByteArray::fromHex("7fffffff"));
    }
    writeBytes(path, bytes);
    QCOMPARE(visitedTitles(QStringLiteral("damaged"), PIMManager::BinaryFormat).size(), records);

    KeyedManager manager(QStringLiteral("damaged"), PIMManager::BinaryFormat);
    QVERIFY(manager.load());
    QVERIFY(manager.loadedDamaged());
    QVERIFY(!manager.errorString().isEmpty());
    QCOMPARE(manager.count(), records);
    QCOMPARE(manager.view().size(), records);
    if (headerWhole)
        QCOMPARE(manager.property(QStringLiteral("p")), QStringLiteral("v"));
    QVERIFY(!QFile::exists(path + QStringLiteral(".damaged")));

    manager.addKeyed(QStringLiteral("new"));
    QVERIFY(manager.save());
    QCOMPARE(fileBytes(path + QStringLiteral(".damaged")), bytes);
    KeyedManager check(QStringLiteral("damaged"), PIMManager::BinaryFormat);
    QVERIFY(check.load());
    QVERIFY(!check.loadedDamaged());
    QCOMPARE(check.count(), records + 1);
}

void TestPIMManager::loadTakesPendingNewFile()
{
    TestHome home;
    QString path;
    const QByteArray bytes = makeCard(QStringLiteral("pending"), PIMManager::TextFormat, &path);
    QVERIFY(QFile::rename(path, path + QStringLiteral(".new")));
    KeyedManager manager(QStringLiteral("pending"));
    QVERIFY(manager.load());
    QCOMPARE(manager.count(), 3);
    QCOMPARE(fileBytes(path), bytes);
    QVERIFY(!QFile::exists(path + QStringLiteral(".new")));

    // Beside an existing file a ".new" is the remains of an unfinished save and is cleared.
    writeBytes(path + QStringLiteral(".new"), "FOLDER\nTOTAL=0\nEND\n");
    QVERIFY(manager.load());
    QCOMPARE(manager.count(), 3);
    QVERIFY(!QFile::exists(path + QStringLiteral(".new")));
}

QTEST_GUILESS_MAIN(TestPIMManager)
#include "testpimmanager.moc"
