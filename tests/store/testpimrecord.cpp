#include "storefixtures.h"
#include "support/testhome.h"

#include <QBuffer>
#include <QSignalSpy>
#include <QTest>

class TestPIMRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void workedExampleByteForByte();
    void propertyLines_data();
    void propertyLines();
    void categoriesLine_data();
    void categoriesLine();
    void lineWithoutEqualsGoesToReadField();
    void baseDropsUnknownKeys();
    void invalidUidKeepsOwnUid();
    void readAccumulatesProperties();
    void truncatedBlockIsReported();
    void binaryExactBytes();
    void binaryRoundTrip();
    void binaryRefusesHugePropertyCount();
    void identityAndCopies();
    void propertyAccess();
    void lessThanWalksKeys_data();
    void lessThanWalksKeys();
    void categoryTitles();
    void passesToManager();
};

namespace
{
const char workedExample[] = "T=Books\n"
                             "I=12\n"
                             "D=Reading list|second line\n"
                             "P=/mnt/card/Books.card\n"
                             "UID=6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b\n"
                             "CREATED=7 3 2004 18 5 9\n"
                             "UPDATED=7 3 2004 18 40 0\n"
                             "PROP=colour=dark=blue\n"
                             "END\n";

QByteArray textOf(const PIMRecord &record)
{
    QByteArray bytes;
    QTextStream stream(&bytes, QIODevice::WriteOnly);
    stream.setEncoding(QStringConverter::Utf8);
    record.write(stream);
    stream.flush();
    return bytes;
}

bool readText(PIMRecord &record, const QByteArray &bytes)
{
    QTextStream stream(bytes);
    stream.setEncoding(QStringConverter::Utf8);
    return record.read(stream);
}

QByteArray binaryOf(const PIMRecord &record)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    BinaryFormat::prepare(stream);
    record.write(stream);
    return bytes;
}

void setFixedUid(PIMRecord &record)
{
    uuid_t uid;
    uuid_parse("6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b", uid);
    record.setUid(uid);
}
} // namespace

void TestPIMRecord::workedExampleByteForByte()
{
    KeyedRecord record(nullptr);
    QVERIFY(readText(record, workedExample));
    QCOMPARE(record.titleText, QStringLiteral("Books"));
    QCOMPARE(record.icon, QStringLiteral("12"));
    QCOMPARE(record.description, QStringLiteral("Reading list\nsecond line"));
    QCOMPARE(record.path, QStringLiteral("/mnt/card/Books.card"));
    QCOMPARE(record.uidString(), QStringLiteral("6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b"));
    QCOMPARE(record.created(), QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
    QCOMPARE(record.updated(), QDateTime(QDate(2004, 3, 7), QTime(18, 40, 0)));
    QCOMPARE(record.property(QStringLiteral("colour")), QStringLiteral("dark=blue"));
    QCOMPARE(textOf(record), QByteArray(workedExample));
}

void TestPIMRecord::propertyLines_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("readBack");
    QTest::newRow("empty value") << "" << QByteArray("PROP=name=\n") << "";
    QTest::newRow("trailing line feed") << "a\n" << QByteArray("PROP=name=a|\n") << "a\n";
    QTest::newRow("bar reads as line feed") << "a|b" << QByteArray("PROP=name=a|b\n") << "a\nb";
    QTest::newRow("equals survive") << "=a==b=" << QByteArray("PROP=name==a==b=\n") << "=a==b=";
    QTest::newRow("utf-8") << QStringLiteral("ключ") << QStringLiteral("PROP=name=ключ\n").toUtf8()
                           << QStringLiteral("ключ");
}

void TestPIMRecord::propertyLines()
{
    QFETCH(QString, value);
    QFETCH(QByteArray, line);
    QFETCH(QString, readBack);
    PIMRecord record(nullptr);
    record.setProperty(QStringLiteral("name"), value);
    const QByteArray text = textOf(record);
    QVERIFY2(text.contains("\n" + line + "END\n"), text.constData());
    PIMRecord copy(nullptr);
    QVERIFY(readText(copy, text));
    QVERIFY(copy.hasProperty(QStringLiteral("name")));
    QCOMPARE(copy.property(QStringLiteral("name")), readBack);
    QCOMPARE(copy.property(QStringLiteral("name")).isNull(), false);
}

void TestPIMRecord::categoriesLine_data()
{
    QTest::addColumn<QStringList>("categories");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QStringList>("readBack");
    QTest::newRow("none: no line") << QStringList() << QByteArray() << QStringList();
    QTest::newRow("one") << QStringList { "a" } << QByteArray("CATS=a\n") << QStringList { "a" };
    QTest::newRow("two") << QStringList { "a", "b" } << QByteArray("CATS=a|b\n")
                         << QStringList { "a", "b" };
    QTest::newRow("empty entries dropped")
        << QStringList { "", "a", "" } << QByteArray("CATS=|a|\n") << QStringList { "a" };
    QTest::newRow("only an empty entry")
        << QStringList { "" } << QByteArray("CATS=\n") << QStringList();
}

void TestPIMRecord::categoriesLine()
{
    QFETCH(QStringList, categories);
    QFETCH(QByteArray, line);
    QFETCH(QStringList, readBack);
    PIMRecord record(nullptr);
    record.setCategories(categories);
    const QByteArray text = textOf(record);
    QCOMPARE(text.contains("CATS="), !line.isEmpty());
    if (!line.isEmpty())
        QVERIFY(text.endsWith(line + "END\n"));
    PIMRecord copy(nullptr);
    copy.setCategories({ QStringLiteral("stale") });
    QVERIFY(readText(copy, text));
    QCOMPARE(copy.categories(), line.isEmpty() ? QStringList { "stale" } : readBack);
}

void TestPIMRecord::lineWithoutEqualsGoesToReadField()
{
    KeyedRecord record(nullptr);
    QVERIFY(readText(record, "BARE\n\nX=1\nEND\n"));
    QCOMPARE(record.unknownKeys, (QStringList { "BARE", "", "X" }));
}

void TestPIMRecord::baseDropsUnknownKeys()
{
    PIMRecord record(nullptr);
    QVERIFY(readText(record, "X=1\nPROP=a=b\nEND\n"));
    QCOMPARE(record.properties().size(), 1);
    QVERIFY(!textOf(record).contains("X="));
}

void TestPIMRecord::invalidUidKeepsOwnUid()
{
    PIMRecord record(nullptr);
    const QString own = record.uidString();
    QVERIFY(readText(record, "UID=not-a-uuid\nUID\nEND\n"));
    QCOMPARE(record.uidString(), own);
}

void TestPIMRecord::readAccumulatesProperties()
{
    PIMRecord record(nullptr);
    record.setProperty(QStringLiteral("kept"), QStringLiteral("1"));
    record.setProperty(QStringLiteral("a"), QStringLiteral("old"));
    QVERIFY(readText(record, "PROP=a=new\nPROP\nEND\n"));
    QCOMPARE(record.property(QStringLiteral("kept")), QStringLiteral("1"));
    QCOMPARE(record.property(QStringLiteral("a")), QStringLiteral("new"));
    QCOMPARE(record.properties().size(), 2);
}

void TestPIMRecord::truncatedBlockIsReported()
{
    PIMRecord record(nullptr);
    QVERIFY(!readText(record, "UID=6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b\nPROP=a=b\n"));
    PIMRecord empty(nullptr);
    QVERIFY(!readText(empty, ""));
}

// uid | created | updated (null) | 2 properties, in key order, one with a null value |
// categories
void TestPIMRecord::binaryExactBytes()
{
    PIMRecord record(nullptr);
    setFixedUid(record);
    record.setCreated(QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
    record.setUpdated(QDateTime());
    record.setProperty(QStringLiteral("b"), QString());
    record.setProperty(QStringLiteral("a"), QStringLiteral("x"));
    record.setCategories({ QStringLiteral("c") });
    const QByteArray expected = QByteArray::fromHex("6f1c2a348d0e4b7a9e213c5d7f901a2b"
                                                    "00256e50"
                                                    "03e17c08"
                                                    "00000000"
                                                    "00000000"
                                                    "00000002"
                                                    "00000002"
                                                    "0061"
                                                    "00000002"
                                                    "0078"
                                                    "00000002"
                                                    "0062"
                                                    "ffffffff"
                                                    "00000001"
                                                    "00000002"
                                                    "0063");
    QCOMPARE(binaryOf(record).toHex(), expected.toHex());

    PIMRecord copy(nullptr);
    QDataStream stream(expected);
    BinaryFormat::prepare(stream);
    copy.read(stream);
    QVERIFY(BinaryFormat::ok(stream));
    QVERIFY(stream.atEnd());
    QCOMPARE(copy.uidString(), record.uidString());
    QCOMPARE(copy.created(), record.created());
    QVERIFY(!copy.updated().isValid());
    QCOMPARE(copy.properties(), record.properties());
    QVERIFY(copy.property(QStringLiteral("b")).isNull());
    QCOMPARE(copy.categories(), record.categories());
}

void TestPIMRecord::binaryRoundTrip()
{
    PIMRecord record(nullptr);
    record.setProperty(QStringLiteral("memo"), QStringLiteral("a|b\nc=d"));
    record.setProperty(QStringLiteral("empty"), QStringLiteral(""));
    record.setCategories({ QStringLiteral("one"), QStringLiteral("two") });
    PIMRecord copy(nullptr);
    QByteArray bytes = binaryOf(record);
    QDataStream stream(bytes);
    BinaryFormat::prepare(stream);
    copy.read(stream);
    QVERIFY(BinaryFormat::ok(stream));
    QCOMPARE(copy.property(QStringLiteral("memo")), QStringLiteral("a|b\nc=d"));
    QCOMPARE(copy.property(QStringLiteral("empty")).isNull(), false);
    QCOMPARE(copy.categories(), record.categories());
    QCOMPARE(copy.created().toMSecsSinceEpoch(), record.created().toMSecsSinceEpoch());
}

void TestPIMRecord::binaryRefusesHugePropertyCount()
{
    PIMRecord record(nullptr);
    QByteArray bytes = binaryOf(record);
    bytes.replace(32, 4, QByteArray::fromHex("7fffffff"));
    QDataStream stream(bytes);
    BinaryFormat::prepare(stream);
    PIMRecord copy(nullptr);
    copy.read(stream);
    QVERIFY(!BinaryFormat::ok(stream));
    QVERIFY(copy.properties().isEmpty());
}

void TestPIMRecord::identityAndCopies()
{
    PIMRecord record(nullptr);
    QCOMPARE(record.uidString().size(), 36);
    QVERIFY(record.created().isValid());
    QVERIFY(record.created() <= record.updated());
    record.setProperty(QStringLiteral("p"), QStringLiteral("v"));
    record.setCategories({ QStringLiteral("c") });
    record.setSortKeys({ QStringLiteral("k") });
    PIMRecord copy(record);
    QCOMPARE(copy.uidString(), record.uidString());
    QCOMPARE(copy.created(), record.created());
    QCOMPARE(copy.properties(), record.properties());
    QCOMPARE(copy.categories(), record.categories());
    QCOMPARE(copy.sortKeys(), record.sortKeys());
    copy.newUid();
    QVERIFY(copy.uidString() != record.uidString());
    QVERIFY(PIMRecord(nullptr).uidString() != record.uidString());
}

void TestPIMRecord::propertyAccess()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("props"));
    auto *record = new KeyedRecord(&manager);
    manager.insertLoaded(record);
    QVERIFY(manager.save());
    QVERIFY(record->property(QStringLiteral("unknown")).isNull());
    QVERIFY(!record->hasProperty(QStringLiteral("unknown")));
    QVERIFY(record->properties().isEmpty());
    QVERIFY(!manager.isChanged());
    record->removeProperty(QStringLiteral("unknown"));
    QVERIFY(manager.isChanged());
    QVERIFY(manager.save());
    record->setProperty(QStringLiteral("k"), QStringLiteral("v"));
    QVERIFY(manager.isChanged());
    QVERIFY(manager.save());
    // Property changes mark the manager changed but do not count towards the automatic save.
    for (int i = 0; i < 20; ++i)
        record->setProperty(QStringLiteral("k"), QString::number(i));
    QCoreApplication::processEvents();
    QVERIFY(manager.isChanged());
}

void TestPIMRecord::lessThanWalksKeys_data()
{
    QTest::addColumn<QStringList>("mine");
    QTest::addColumn<QStringList>("theirs");
    QTest::addColumn<bool>("lessAscending");
    QTest::addColumn<bool>("equal");
    QTest::newRow("lower first key") << QStringList { "a" } << QStringList { "b" } << true << false;
    QTest::newRow("higher first key")
        << QStringList { "b" } << QStringList { "a" } << false << false;
    QTest::newRow("equal keys") << QStringList { "a", "b" } << QStringList { "a", "b" } << false
                                << true;
    QTest::newRow("greater first, lower second")
        << QStringList { "b", "a" } << QStringList { "a", "b" } << true << false;
    QTest::newRow("lower first, greater second")
        << QStringList { "a", "b" } << QStringList { "b", "a" } << true << false;
    QTest::newRow("no keys") << QStringList() << QStringList() << false << true;
}

// A greater key decides nothing, so records crossing on two keys are each less than the
// other.
void TestPIMRecord::lessThanWalksKeys()
{
    QFETCH(QStringList, mine);
    QFETCH(QStringList, theirs);
    QFETCH(bool, lessAscending);
    QFETCH(bool, equal);
    TestHome home;
    KeyedManager manager(QStringLiteral("order"));
    PIMRecord a(&manager);
    PIMRecord b(&manager);
    a.setSortKeys(mine);
    b.setSortKeys(theirs);
    QCOMPARE(a.lessThan(b), lessAscending);
    QCOMPARE(a.sortKeysEqual(b), equal);
    manager.setSortOrder(false);
    QCOMPARE(a.lessThan(b), !lessAscending);
}

void TestPIMRecord::categoryTitles()
{
    TestHome home;
    KeyedManager categories(QStringLiteral("cats"));
    KeyedManager cards(QStringLiteral("cards"));
    PIMRecord record(&cards);
    QVERIFY(record.categoryTitle(true).isNull());
    QVERIFY(!record.firstCategory());

    cards.setRelatedManager(&categories);
    QVERIFY(record.categoryTitle(true).isNull());
    auto *work = new KeyedRecord(&categories);
    work->titleText = QStringLiteral("Work");
    auto *home2 = new KeyedRecord(&categories);
    home2->titleText = QStringLiteral("Home");
    categories.insertLoaded(work);
    categories.insertLoaded(home2);

    // Nothing found: the first category stands in.
    record.setCategories({ QStringLiteral("6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b") });
    QCOMPARE(record.categoryTitle(true), QStringLiteral("Work"));
    QVERIFY(record.categoryTitles().isEmpty());
    QCOMPARE(record.firstCategory(), work);

    record.setCategories({ QStringLiteral("bogus"), home2->uidString(), work->uidString() });
    QCOMPARE(record.categoryTitle(false), QStringLiteral("Home"));
    QCOMPARE(record.categoryTitle(true), QStringLiteral("Home [...]"));
    QCOMPARE(record.categoryTitles(), (QStringList { "Home", "Work" }));
    QCOMPARE(record.firstCategory(), home2);

    record.setCategories({ work->uidString() });
    QCOMPARE(record.categoryTitle(true), QStringLiteral("Work"));
}

void TestPIMRecord::passesToManager()
{
    TestHome home;
    KeyedManager manager(QStringLiteral("pass"));
    QSignalSpy added(&manager, &PIMManager::newTask);
    QSignalSpy updatedSpy(&manager, &PIMManager::taskUpdated);
    QSignalSpy selected(&manager, &PIMManager::taskSelected);
    QSignalSpy removed(&manager, &PIMManager::taskRemoved);

    auto *record = new KeyedRecord(&manager);
    QVERIFY(record->isFirst());
    record->save(nullptr);
    QCOMPARE(added.size(), 1);
    QCOMPARE(manager.count(), 1);
    QVERIFY(record->isFirst());

    record->save(new KeyedRecord(*record));
    QCOMPARE(updatedSpy.size(), 1);
    QCOMPARE(manager.count(), 1);

    KeyedRecord outsider(&manager);
    QVERIFY(!outsider.isFirst());
    record->select();
    outsider.select();
    QCOMPARE(selected.size(), 2);
    QCOMPARE(selected.at(0).at(0).value<PIMRecord *>(), record);
    QCOMPARE(selected.at(1).at(0).value<PIMRecord *>(), nullptr);

    record->remove();
    QCOMPARE(removed.size(), 1);
    QCOMPARE(manager.count(), 0);
}

QTEST_GUILESS_MAIN(TestPIMRecord)
#include "testpimrecord.moc"
