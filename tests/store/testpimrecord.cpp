#include "storefixtures.h"
#include "support/testhome.h"

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
    void oddTextBlocks();
    void binaryExactBytes();
    void lessThanWalksKeys_data();
    void lessThanWalksKeys();
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

// Line feeds and bars of a value are the escape's own table; here the name=value split.
void TestPIMRecord::propertyLines_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("readBack");
    QTest::newRow("empty value") << "" << QByteArray("PROP=name=\n") << "";
    QTest::newRow("equals survive") << "=a==b=" << QByteArray("PROP=name==a==b=\n") << "=a==b=";
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
    QVERIFY(!copy.property(QStringLiteral("name")).isNull());
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

void TestPIMRecord::oddTextBlocks()
{
    KeyedRecord keyed(nullptr);
    QVERIFY(readText(keyed, "BARE\n\nX=1\nEND\n"));
    QCOMPARE(keyed.unknownKeys, (QStringList { "BARE", "", "X" }));

    // The base drops keys it does not know, keeps its uid over a bad one, and adds the
    // properties read to those it has.
    PIMRecord record(nullptr);
    const QString own = record.uidString();
    record.setProperty(QStringLiteral("kept"), QStringLiteral("1"));
    record.setProperty(QStringLiteral("a"), QStringLiteral("old"));
    QVERIFY(readText(record, "X=1\nUID=not-a-uuid\nUID\nPROP=a=new\nPROP\nEND\n"));
    QCOMPARE(record.uidString(), own);
    QCOMPARE(record.property(QStringLiteral("a")), QStringLiteral("new"));
    QCOMPARE(record.properties().size(), 2);
    QVERIFY(!textOf(record).contains("X="));

    // A block without its END is reported.
    QVERIFY(!readText(record, "UID=6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b\nPROP=a=b\n"));
    QVERIFY(!readText(record, ""));
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
    QCOMPARE(binaryOf(PIMRecord(record)), expected);

    PIMRecord copy(nullptr);
    QDataStream stream(expected);
    BinaryFormat::prepare(stream);
    copy.read(stream);
    QVERIFY(BinaryFormat::ok(stream) && stream.atEnd());
    QCOMPARE(binaryOf(copy), expected);
    QVERIFY(copy.property(QStringLiteral("b")).isNull());
}

void TestPIMRecord::lessThanWalksKeys_data()
{
    QTest::addColumn<QStringList>("mine");
    QTest::addColumn<QStringList>("theirs");
    QTest::addColumn<bool>("lessAscending");
    QTest::addColumn<bool>("equal");
    const QStringList a { "a" }, b { "b" }, ab { "a", "b" }, ba { "b", "a" };
    QTest::newRow("lower first key") << a << b << true << false;
    QTest::newRow("higher first key") << b << a << false << false;
    QTest::newRow("equal keys") << ab << ab << false << true;
    QTest::newRow("greater first, lower second") << ba << ab << true << false;
    QTest::newRow("lower first, greater second") << ab << ba << true << false;
    QTest::newRow("no keys") << QStringList() << QStringList() << false << true;
    QTest::newRow("keys against none") << a << QStringList() << false << false;
    QTest::newRow("none against keys") << QStringList() << a << false << true;
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

QTEST_GUILESS_MAIN(TestPIMRecord)
#include "testpimrecord.moc"
