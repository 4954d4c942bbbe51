#include "storefixtures.h"
#include "support/testhome.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <unistd.h>

class TestPIMManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textFileLayout();
    void textHeaderRoundTrip();
    void headerDropsEmptyTokens();
    void missingFileThenSaveWritesEmptyCard();
    void unchangedSaveTouchesNothing();
    void fileWithoutFolderIsBareBlocks();
    void totalLargerThanBlocks();
    void partialTextBlockDropped();
    void binaryRoundTrip();
    void headerOnlySaveCopiesRecordPart_data();
    void headerOnlySaveCopiesRecordPart();
    void headerOnlyOverDamagedHeader();
    void eleventhChangePostsOneSave();
    void failedAutomaticSaveCountsAgain();
    void viewInsertion_data();
    void viewInsertion();
    void sortSameColumnTwice();
    void sortingDisabled();
    void disablingSortingResetsOrder();
    void updateMovesAndFilters();
    void removeNotifiesFollower();
    void removeAllSavesEmpty();
    void findByUid();
    void headerSetters();
    void saveFailsOnUnwritableTarget_data();
    void saveFailsOnUnwritableTarget();
    void saveFailsOnFullDisk_data();
    void saveFailsOnFullDisk();
    void damagedBinaryLoadsWholeRecords_data();
    void damagedBinaryLoadsWholeRecords();
    void everyCutAndFlipLoads_data();
    void everyCutAndFlipLoads();
    void damagedCopiesNeverOverwrite();
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

// A file-size limit for the length of one scope; writes past it fail with EFBIG.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_old {};
    void (*m_oldHandler)(int);
};

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
    KeyedRecord *record = manager.addKeyed(QStringLiteral("k"));
    record->titleText = QStringLiteral("Books");
    record->setCreated(QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
    record->setUpdated(QDateTime(QDate(2004, 3, 7), QTime(18, 40, 0)));
    QVERIFY(manager.save());
    const QByteArray expected = "FOLDER\n"
                                "SYNCDATETIME=7 3 2004 18 5 9\n"
                                "SORT=-1\n"
                                "SORTORDER=1\n"
                                "PERPAGE=15\n"
                                "PROP=a=x|y\n"
                                "PROP=converted=2\n"
                                "LASTCURRENT=6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b\n"
                                "TOTAL=1\n"
                                "END\n"
                                "T=Books\nI=\nD=\nP=\n"
                                "UID="
        + record->uidString().toLatin1()
        + "\n"
          "CREATED=7 3 2004 18 5 9\n"
          "UPDATED=7 3 2004 18 40 0\n"
          "PROP=k0=k\n"
          "END\n";
    QCOMPARE(fileBytes(manager.fullPath()), expected);
    QVERIFY(!QFile::exists(manager.fullPath() + QStringLiteral(".new")));
}

void TestPIMManager::textHeaderRoundTrip()
{
    TestHome home;
    {
        KeyedManager manager(QStringLiteral("header"));
        manager.setSyncDateTime(QDateTime(QDate(2010, 1, 2), QTime(3, 4, 5)));
        manager.setSort(0, false);
        manager.setPerPage(30);
        manager.setLastCurrent(QStringLiteral("last"));
        manager.setProperty(QStringLiteral("p"), QStringLiteral("v=w"));
        manager.addKeyed(QStringLiteral("b"));
        manager.addKeyed(QStringLiteral("a"));
    }
    KeyedManager manager(QStringLiteral("header"));
    QSignalSpy updated(&manager, &PIMManager::updated);
    QVERIFY(manager.load());
    QCOMPARE(updated.size(), 1);
    QCOMPARE(manager.afterLoadCalls, 1);
    QCOMPARE(manager.syncDateTime(), QDateTime(QDate(2010, 1, 2), QTime(3, 4, 5)));
    QCOMPARE(manager.sortColumn(), 0);
    QCOMPARE(manager.sortOrder(), false);
    QCOMPARE(manager.perPage(), 30);
    QCOMPARE(manager.lastCurrent(), QStringLiteral("last"));
    QCOMPARE(manager.property(QStringLiteral("p")), QStringLiteral("v=w"));
    QCOMPARE(manager.total(), 2);
    QCOMPARE(manager.count(), 2);
    QCOMPARE(manager.viewKeys(), (QStringList { "b", "a" }));
    QVERIFY(!manager.loadedDamaged());
    QVERIFY(!manager.isChanged());
}

void TestPIMManager::headerDropsEmptyTokens()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("tokens"));
    writeBytes(manager.fullPath(), "FOLDER\nLASTCURRENT=a==b=\nPROP=k=x==y=\n\nBOGUS=1\nEND\n");
    QVERIFY(manager.load());
    QCOMPARE(manager.lastCurrent(), QStringLiteral("a=b"));
    QCOMPARE(manager.property(QStringLiteral("k")), QStringLiteral("x=y"));
    QCOMPARE(manager.count(), 0);
}

void TestPIMManager::missingFileThenSaveWritesEmptyCard()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("missing"));
    manager.setPerPage(40);
    QSignalSpy updated(&manager, &PIMManager::updated);
    QVERIFY(!manager.load());
    QVERIFY(!manager.errorString().isEmpty());
    QCOMPARE(updated.size(), 0);
    QCOMPARE(manager.count(), 0);
    QCOMPARE(manager.perPage(), 15);
    QCOMPARE(manager.sortColumn(), -1);
    QVERIFY(manager.forceSave());
    QCOMPARE(fileBytes(manager.fullPath()),
        QByteArray("FOLDER\nSORT=-1\nSORTORDER=1\nPERPAGE=15\nTOTAL=0\nEND\n"));
}

void TestPIMManager::unchangedSaveTouchesNothing()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("untouched"));
    QVERIFY(manager.save());
    QVERIFY(!QFile::exists(manager.fullPath()));
    QVERIFY(!QFile::exists(manager.fullPath() + QStringLiteral(".new")));
}

void TestPIMManager::fileWithoutFolderIsBareBlocks()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("bare"));
    writeBytes(manager.fullPath(), "T=one\nEND\nT=two\nPROP=k0=z\nEND\n");
    QVERIFY(manager.load());
    QCOMPARE(manager.count(), 2);
    QCOMPARE(manager.sortColumn(), -1);
    QCOMPARE(static_cast<KeyedRecord *>(manager.first())->titleText, QStringLiteral("one"));
    QCOMPARE(manager.last()->property(QStringLiteral("k0")), QStringLiteral("z"));
}

void TestPIMManager::totalLargerThanBlocks()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("total"));
    writeBytes(manager.fullPath(), "FOLDER\nTOTAL=2000000000\nEND\nT=one\nEND\nT=two\nEND\n");
    QVERIFY(manager.load());
    QCOMPARE(manager.count(), 2);
    QCOMPARE(manager.view().size(), 2);
    QVERIFY(manager.records().last() != nullptr);
}

void TestPIMManager::partialTextBlockDropped()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("partial"));
    writeBytes(manager.fullPath(), "FOLDER\nTOTAL=-1\nEND\nT=one\nEND\nT=two\nPROP=a=b\n");
    QVERIFY(manager.load());
    QCOMPARE(manager.count(), 1);
    QVERIFY(manager.loadedDamaged());
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

// With the header unreadable, where the records begin is unknown: nothing is carried over,
// and the original is kept aside.
void TestPIMManager::headerOnlyOverDamagedHeader()
{
    TestHome home;
    QString path;
    QByteArray bytes = makeCard(QStringLiteral("badheader"), PIMManager::BinaryFormat, &path);
    bytes.replace(29, 4, QByteArray::fromHex("7ffffff0"));
    writeBytes(path, bytes);
    KeyedManager header(QStringLiteral("badheader"), PIMManager::BinaryFormat, true);
    QVERIFY(header.load());
    QVERIFY(header.loadedDamaged());
    QVERIFY(header.forceSave());
    QCOMPARE(fileBytes(path + QStringLiteral(".damaged")), bytes);
    const QByteArray saved = fileBytes(path);
    QVERIFY(saved.size() < 100);
    QVERIFY(!saved.contains(bytes.mid(60)));
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

    for (int i = 0; i < 10; ++i)
        manager.countChange();
    QCoreApplication::sendPostedEvents(&manager);
    QCOMPARE(counter.count, 1);
    QVERIFY(manager.isChanged());
    manager.countChange();
    QCoreApplication::sendPostedEvents(&manager);
    QCOMPARE(counter.count, 2);
    QVERIFY(!manager.isChanged());
}

void TestPIMManager::failedAutomaticSaveCountsAgain()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("retry"));
    QVERIFY(QDir().mkpath(manager.fullPath() + QStringLiteral(".new")));
    SaveEventCounter counter;
    manager.installEventFilter(&counter);
    for (int i = 0; i < 11; ++i)
        manager.countChange();
    QCoreApplication::sendPostedEvents(&manager);
    QCOMPARE(counter.count, 1);
    QVERIFY(manager.isChanged());
    QVERIFY(QDir().rmdir(manager.fullPath() + QStringLiteral(".new")));
    for (int i = 0; i < 11; ++i)
        manager.countChange();
    QCoreApplication::sendPostedEvents(&manager);
    QCOMPARE(counter.count, 2);
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
    QTest::newRow("sorted ascending, added in order")
        << 0 << true << QStringList { "a", "b", "c" } << QStringList { "a", "b", "c" };
    QTest::newRow("sorted descending, added in order")
        << 0 << false << QStringList { "a", "b", "c" } << QStringList { "c", "b", "a" };
    QTest::newRow("sorted ascending, added in reverse")
        << 0 << true << QStringList { "c", "b", "a" } << QStringList { "a", "b", "c" };
    QTest::newRow("sorted descending, added in reverse")
        << 0 << false << QStringList { "c", "b", "a" } << QStringList { "c", "b", "a" };
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
    // Rebuilding from scratch agrees with insertion, up to the order of equal keys.
    manager.rebuildView(true);
    QCOMPARE(manager.viewKeys(), view);
    // A hidden record stays out of the view.
    manager.addKeyed(QStringLiteral("zz"))->setProperty(QStringLiteral("hidden"), "1");
    manager.rebuildView(true);
    QCOMPARE(manager.viewKeys(), view);
    QCOMPARE(manager.count(), added.size() + 1);
}

void TestPIMManager::sortSameColumnTwice()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("twice"));
    for (const char *key : { "b", "c", "a" })
        manager.addKeyed(QString::fromLatin1(key));
    QVERIFY(manager.save());
    QSignalSpy updated(&manager, &PIMManager::updated);
    manager.sort(0);
    QCOMPARE(manager.viewKeys(), (QStringList { "a", "b", "c" }));
    QVERIFY(manager.isChanged());
    manager.sort(0);
    QCOMPARE(manager.sortOrder(), false);
    QCOMPARE(manager.viewKeys(), (QStringList { "c", "b", "a" }));
    manager.sort(0);
    QCOMPARE(manager.sortOrder(), true);
    QCOMPARE(manager.viewKeys(), (QStringList { "a", "b", "c" }));
    QCOMPARE(updated.size(), 3);
}

void TestPIMManager::sortingDisabled()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("disabled"));
    for (const char *key : { "b", "c", "a" })
        manager.addKeyed(QString::fromLatin1(key));
    manager.setSortingEnabled(false);
    QVERIFY(manager.save());
    QSignalSpy updated(&manager, &PIMManager::updated);
    manager.sort(0);
    manager.setSort(0, false);
    manager.setSortOrder(false);
    QCOMPARE(manager.sortColumn(), -1);
    QCOMPARE(manager.sortOrder(), true);
    QCOMPARE(manager.viewKeys(), (QStringList { "b", "c", "a" }));
    QCOMPARE(updated.size(), 0);
    QVERIFY(!manager.isChanged());
}

void TestPIMManager::disablingSortingResetsOrder()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("reset"));
    for (const char *key : { "b", "c", "a" })
        manager.addKeyed(QString::fromLatin1(key));
    manager.setSort(0, false);
    QCOMPARE(manager.viewKeys(), (QStringList { "c", "b", "a" }));
    QVERIFY(manager.save());
    QSignalSpy updated(&manager, &PIMManager::updated);
    manager.setSortingEnabled(false);
    QCOMPARE(manager.sortColumn(), -1);
    QCOMPARE(manager.sortOrder(), true);
    QCOMPARE(manager.viewKeys(), (QStringList { "b", "c", "a" }));
    QCOMPARE(updated.size(), 1);
    QVERIFY(manager.isChanged());
    manager.setSortingEnabled(false);
    QCOMPARE(updated.size(), 1);
}

void TestPIMManager::updateMovesAndFilters()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("update"));
    manager.setSort(0, true);
    KeyedRecord *a = manager.addKeyed(QStringLiteral("a"));
    manager.addKeyed(QStringLiteral("b"));
    manager.addKeyed(QStringLiteral("c"));
    QSignalSpy taskUpdated(&manager, &PIMManager::taskUpdated);

    auto *old = new KeyedRecord(*a);
    a->setProperty(QStringLiteral("k0"), QStringLiteral("z"));
    const QDateTime before = QDateTime::currentDateTime();
    a->save(old);
    QVERIFY(a->updated() >= before);
    QCOMPARE(manager.viewKeys(), (QStringList { "b", "c", "z" }));
    QCOMPARE(taskUpdated.size(), 1);

    old = new KeyedRecord(*a);
    a->setProperty(QStringLiteral("hidden"), QStringLiteral("1"));
    manager.update(old, a);
    QCOMPARE(manager.viewKeys(), (QStringList { "b", "c" }));

    old = new KeyedRecord(*a);
    a->removeProperty(QStringLiteral("hidden"));
    a->setProperty(QStringLiteral("k0"), QStringLiteral("bb"));
    manager.update(old, a);
    QCOMPARE(manager.viewKeys(), (QStringList { "b", "bb", "c" }));
    QCOMPARE(manager.count(), 3);
}

void TestPIMManager::removeNotifiesFollower()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("remove"));
    KeyedRecord *a = manager.addKeyed(QStringLiteral("a"));
    KeyedRecord *b = manager.addKeyed(QStringLiteral("b"));
    KeyedRecord *c = manager.addKeyed(QStringLiteral("c"));
    QSignalSpy removed(&manager, &PIMManager::taskRemoved);
    QSignalSpy changed(&manager, &PIMManager::changed);
    manager.remove(a);
    QCOMPARE(manager.updatedWithoutOld, (QList<PIMRecord *> { b }));
    manager.remove(c);
    QCOMPARE(manager.updatedWithoutOld.size(), 1);
    QCOMPARE(removed.size(), 2);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(manager.viewKeys(), QStringList { "b" });
}

void TestPIMManager::removeAllSavesEmpty()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("removeall"));
    manager.addKeyed(QStringLiteral("a"));
    QSignalSpy updated(&manager, &PIMManager::updated);
    QVERIFY(manager.removeAll());
    QCOMPARE(updated.size(), 1);
    QVERIFY(!manager.isChanged());
    KeyedManager check(QStringLiteral("removeall"));
    QVERIFY(check.load());
    QCOMPARE(check.count(), 0);
}

void TestPIMManager::findByUid()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("find"));
    KeyedRecord *a = manager.addKeyed(QStringLiteral("a"));
    KeyedRecord *b = manager.addKeyed(QStringLiteral("b"));
    QCOMPARE(manager.findByUid(b->uidString()), b);
    QCOMPARE(manager.findByUid(a->uid()), a);
    QCOMPARE(manager.findByUid(QString()), nullptr);
    QCOMPARE(manager.findByUid(QStringLiteral("nonsense")), nullptr);
    QVERIFY(manager.contains(a));
    KeyedRecord outside(*a);
    QVERIFY(!manager.contains(&outside));
}

void TestPIMManager::headerSetters()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("setters"));
    QVERIFY(manager.forceSave());
    manager.setPerPage(15);
    manager.setLastCurrent(QString());
    QVERIFY(!manager.isChanged());
    manager.setPerPage(20);
    QVERIFY(manager.isChanged());
    QVERIFY(manager.save());
    manager.setSyncDateTime(manager.syncDateTime());
    QVERIFY(manager.isChanged());
    QVERIFY(manager.save());
    manager.removeProperty(QStringLiteral("none"));
    QVERIFY(manager.isChanged());

    PIMManager templates(QStringLiteral("app"), QStringLiteral("t"), true);
    QCOMPARE(templates.folder(), QStringLiteral("apptemplates"));
    QVERIFY(templates.fullPath().endsWith(QStringLiteral("/apptemplates/t")));
    PIMManager absolute(QStringLiteral("app"), home.file(QStringLiteral("abs.card")));
    QCOMPARE(absolute.fullPath(), home.file(QStringLiteral("abs.card")));
}

void TestPIMManager::saveFailsOnUnwritableTarget_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("new file blocked by a folder") << "newIsFolder";
    QTest::newRow("parent is a regular file") << "parentIsFile";
    QTest::newRow("read-only folder") << "readOnlyFolder";
}

void TestPIMManager::saveFailsOnUnwritableTarget()
{
    QFETCH(QString, how);
    TestHome home;
    const QString dir = home.file(QStringLiteral("cards"));
    QVERIFY(QDir().mkpath(dir));
    QString path = dir + QStringLiteral("/a.card");
    QByteArray old;
    if (how == QLatin1String("parentIsFile")) {
        writeBytes(dir + QStringLiteral("/plain"), "x");
        path = dir + QStringLiteral("/plain/a.card");
    } else {
        old = makeCard(path, PIMManager::TextFormat);
        QVERIFY(!old.isEmpty());
    }
    if (how == QLatin1String("newIsFolder"))
        QVERIFY(QDir().mkpath(path + QStringLiteral(".new")));
    if (how == QLatin1String("readOnlyFolder")) {
        if (geteuid() == 0)
            QSKIP("Folder permissions do not bind the superuser");
        QVERIFY(QFile::setPermissions(dir, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    }

    KeyedManager manager(path);
    manager.load();
    manager.addKeyed(QStringLiteral("more"));
    const bool saved = manager.save();
    const QString error = manager.errorString();
    const bool changed = manager.isChanged();
    QFile::setPermissions(
        dir, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QVERIFY(!saved);
    QVERIFY(changed);
    QVERIFY(!error.isEmpty());
    QCOMPARE(fileBytes(path), old);
    if (how == QLatin1String("newIsFolder"))
        QVERIFY(QDir().rmdir(path + QStringLiteral(".new")));
    QVERIFY(manager.save() || how == QLatin1String("parentIsFile"));
}

void TestPIMManager::saveFailsOnFullDisk_data()
{
    headerOnlySaveCopiesRecordPart_data();
}

// The disk is "full" through a file-size limit of the process.
void TestPIMManager::saveFailsOnFullDisk()
{
    QFETCH(int, format);
    TestHome home;
    QString path;
    const QByteArray old = makeCard(QStringLiteral("full"), format, &path);
    KeyedManager manager(QStringLiteral("full"), format);
    QVERIFY(manager.load());
    for (int i = 0; i < 50; ++i)
        manager.addKeyed(filler(200));
    bool saved = true;
    QString error;
    {
        FileSizeLimit limit(4096);
        saved = manager.save();
        error = manager.errorString();
    }
    QVERIFY(!saved);
    QVERIFY(manager.isChanged());
    QVERIFY2(error.contains(QString::fromLocal8Bit(std::strerror(EFBIG))), qPrintable(error));
    QCOMPARE(fileBytes(path), old);
    QVERIFY(!QFile::exists(path + QStringLiteral(".new")));
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

void TestPIMManager::everyCutAndFlipLoads_data()
{
    headerOnlySaveCopiesRecordPart_data();
}

// Whatever the damage, loading ends without reading outside the file, and says so when
// records were lost.
void TestPIMManager::everyCutAndFlipLoads()
{
    QFETCH(int, format);
    TestHome home;
    QString path;
    const QByteArray whole = makeCard(QStringLiteral("cuts"), format, &path);
    KeyedManager manager(QStringLiteral("cuts"), format);
    for (qsizetype cut = 0; cut < whole.size(); ++cut) {
        writeBytes(path, whole.left(cut));
        QVERIFY(manager.load());
        QVERIFY(manager.count() <= 3);
        // An empty text file is a valid empty store.
        if (manager.count() < 3 && (cut > 0 || format == PIMManager::BinaryFormat))
            QVERIFY2(manager.loadedDamaged(), qPrintable(QString::number(cut)));
    }
    QRandomGenerator random(1);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes = whole;
        for (int flips = 0; flips < 3; ++flips)
            bytes[random.bounded(int(bytes.size()))] = char(random.bounded(256));
        writeBytes(path, bytes);
        QVERIFY(manager.load());
        // A broken "FOLDER" line turns the header into one more record block.
        QVERIFY(manager.count() <= 4);
    }
}

void TestPIMManager::damagedCopiesNeverOverwrite()
{
    TestHome home;
    QString path;
    QByteArray bytes = makeCard(QStringLiteral("copies"), PIMManager::BinaryFormat, &path);
    bytes.chop(5);
    writeBytes(path, bytes);
    writeBytes(path + QStringLiteral(".damaged"), "older");
    writeBytes(path + QStringLiteral(".damaged.2"), "older still");

    KeyedManager manager(QStringLiteral("copies"), PIMManager::BinaryFormat);
    QVERIFY(manager.load());
    QVERIFY(manager.loadedDamaged());
    manager.addKeyed(QStringLiteral("x"));
    QVERIFY(manager.save());
    manager.addKeyed(QStringLiteral("y"));
    QVERIFY(manager.save());
    QCOMPARE(fileBytes(path + QStringLiteral(".damaged")), QByteArray("older"));
    QCOMPARE(fileBytes(path + QStringLiteral(".damaged.2")), QByteArray("older still"));
    QCOMPARE(fileBytes(path + QStringLiteral(".damaged.3")), bytes);
    // One copy for the damaged load, not one for every save.
    QVERIFY(!QFile::exists(path + QStringLiteral(".damaged.4")));
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

    // Beside an existing file a ".new" is the remains of an unfinished save and is ignored.
    writeBytes(path + QStringLiteral(".new"), "FOLDER\nTOTAL=0\nEND\n");
    QVERIFY(manager.load());
    QCOMPARE(manager.count(), 3);
}

QTEST_GUILESS_MAIN(TestPIMManager)
#include "testpimmanager.moc"
