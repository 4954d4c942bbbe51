#include "card/datarecord.h"
#include "card/fielddef.h"
#include "sequentialbuffer.h"
#include "store/binaryformat.h"
#include "views/filterdef.h"

#include <QBuffer>
#include <QRegularExpression>
#include <QTest>

class TestFilterDef : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allConditionsMustHold_data();
    void allConditionsMustHold();
    void storedBytes_data();
    void storedBytes();
    void impossibleConditionCount_data();
    void impossibleConditionCount();
    void remapFields_data();
    void remapFields();
};

Q_DECLARE_METATYPE(FilterDef)

namespace
{
const char *const fixedUuid = "00112233-4455-6677-8899-aabbccddeeff";

FilterDef withFixedUuid(const QString &title, const QList<FilterCondition> &conditions)
{
    FilterDef filter;
    uuid_t uuid;
    uuid_parse(fixedUuid, uuid);
    filter.setUuid(uuid);
    filter.title = title;
    filter.conditions = conditions;
    return filter;
}

FilterCondition condition(int field, int op, const QString &text = QString(), int number = 0)
{
    FilterCondition c;
    c.field = field;
    c.op = op;
    c.text = text;
    c.number = number;
    return c;
}

FilterCondition fullCondition()
{
    FilterCondition c = condition(2, 1, QStringLiteral("ab"), 3);
    c.real = 1.5;
    c.date = QDate(2004, 3, 7);
    c.time = QTime(18, 5, 9, 250);
    return c;
}

QByteArray bytesOf(const FilterDef &filter)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    BinaryFormat::prepare(stream);
    filter.write(stream);
    return bytes;
}

bool readBytes(const QByteArray &bytes, FilterDef &filter)
{
    QDataStream stream(bytes);
    BinaryFormat::prepare(stream);
    return filter.read(stream);
}

const QByteArray fixedUuidBytes = QByteArray::fromHex("00112233445566778899aabbccddeeff");
} // namespace

void TestFilterDef::allConditionsMustHold_data()
{
    QTest::addColumn<QList<FilterCondition>>("conditions");
    QTest::addColumn<bool>("expected");

    // The record: "Paris" in field 0, 5 in field 1.
    const FilterCondition paris = condition(0, FilterCondition::Contains, "par");
    const FilterCondition rome = condition(0, FilterCondition::Contains, "rome");
    const FilterCondition five = condition(1, FilterCondition::Equals, QString(), 5);
    const FilterCondition six = condition(1, FilterCondition::Equals, QString(), 6);
    QTest::newRow("no conditions") << QList<FilterCondition>() << true;
    QTest::newRow("all hold") << QList<FilterCondition> { paris, five } << true;
    QTest::newRow("one fails") << QList<FilterCondition> { rome } << false;
    QTest::newRow("second fails") << QList<FilterCondition> { paris, six } << false;
}

void TestFilterDef::allConditionsMustHold()
{
    QFETCH(QList<FilterCondition>, conditions);
    QFETCH(bool, expected);

    QList<FieldDef> fields(2);
    fields[1].type = FieldDef::Integer;
    DataRecord record(nullptr);
    record.restructure({}, {}, fields);
    record.setStringValue(0, QStringLiteral("Paris"));
    record.setIntValue(1, 5);
    QCOMPARE(withFixedUuid(QStringLiteral("f"), conditions).accept(record, fields), expected);
}

void TestFilterDef::storedBytes_data()
{
    QTest::addColumn<FilterDef>("filter");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("nameless, no conditions") << withFixedUuid(QString(),
        {}) << QByteArray::fromHex("ffffffff") + fixedUuidBytes + QByteArray::fromHex("00000000");
    QTest::newRow("one condition, every member set")
        << withFixedUuid(QStringLiteral("Due"), { fullCondition() })
        << QByteArray::fromHex("00000006004400750065") + fixedUuidBytes
            + QByteArray::fromHex("00000001"
                                  "00000002"
                                  "00000001"
                                  "0000000400610062"
                                  "00000003"
                                  "3ff8000000000000"
                                  "00256e50"
                                  "03e17d02");
    QTest::newRow("all text fields, members unset")
        << withFixedUuid(QStringLiteral(""), { condition(-1, 4) })
        << QByteArray::fromHex("00000000") + fixedUuidBytes
            + QByteArray::fromHex("00000001"
                                  "ffffffff"
                                  "00000004"
                                  "ffffffff"
                                  "00000000"
                                  "0000000000000000"
                                  "00000000"
                                  "00000000");
}

void TestFilterDef::storedBytes()
{
    QFETCH(FilterDef, filter);
    QFETCH(QByteArray, expected);
    QCOMPARE(bytesOf(filter).toHex(), expected.toHex());

    FilterDef read;
    QVERIFY(readBytes(expected, read));
    QCOMPARE(read, filter);
    QCOMPARE(read.title.isNull(), filter.title.isNull());
}

// The count is checked against the bytes left; a device that cannot tell how many are left
// reads what there is and stops at the end.
void TestFilterDef::impossibleConditionCount_data()
{
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<bool>("sequential");
    QTest::addColumn<int>("conditions");
    QTest::newRow("huge") << QByteArray::fromHex("7fffffff") << false << 0;
    QTest::newRow("negative") << QByteArray::fromHex("ffffffff") << false << 0;
    QTest::newRow("one more than there is") << QByteArray::fromHex("00000002") << false << 0;
    QTest::newRow("huge on an unsized device") << QByteArray::fromHex("7fffffff") << true << 1;
}

void TestFilterDef::impossibleConditionCount()
{
    QFETCH(QByteArray, count);
    QFETCH(bool, sequential);
    QFETCH(int, conditions);
    const QByteArray oneCondition = bytesOf(withFixedUuid(QString(), { fullCondition() }));
    const QByteArray head = QByteArray::fromHex("ffffffff") + fixedUuidBytes;
    QByteArray bytes = head + count + oneCondition.mid(head.size() + 4);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    SequentialBuffer unsized(bytes);
    QDataStream stream(sequential ? static_cast<QIODevice *>(&unsized) : &buffer);
    BinaryFormat::prepare(stream);
    FilterDef read;
    QVERIFY(!read.read(stream));
    if (!sequential)
        QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
    QCOMPARE(read.conditions.size(), conditions);
}

void TestFilterDef::remapFields_data()
{
    QTest::addColumn<QList<int>>("newIndexOfOld");
    QTest::addColumn<QList<int>>("fields");
    QTest::addColumn<bool>("kept");
    QTest::addColumn<QList<int>>("expected");

    QTest::newRow("unchanged") << QList<int> { 0, 1, 2 } << QList<int> { 0, 2 } << true
                               << QList<int> { 0, 2 };
    QTest::newRow("moved") << QList<int> { 2, 0, 1 } << QList<int> { 0, 2, 0 } << true
                           << QList<int> { 2, 1, 2 };
    QTest::newRow("all text fields stay")
        << QList<int> { 1, 0 } << QList<int> { -1, 0 } << true << QList<int> { -1, 1 };
    QTest::newRow("a field went away")
        << QList<int> { 0, -1, 1 } << QList<int> { 2, 1 } << false << QList<int> { 2, 1 };
    QTest::newRow("a field past the old schema")
        << QList<int> { 0, 1 } << QList<int> { 0, 5 } << false << QList<int> { 0, 5 };
    QTest::newRow("no conditions") << QList<int> { -1 } << QList<int>() << true << QList<int>();
}

void TestFilterDef::remapFields()
{
    QFETCH(QList<int>, newIndexOfOld);
    QFETCH(QList<int>, fields);
    QFETCH(bool, kept);
    QFETCH(QList<int>, expected);

    QList<FilterCondition> conditions;
    for (int field : fields)
        conditions.append(condition(field, 0, "x"));
    FilterDef filter = withFixedUuid(QStringLiteral("f"), conditions);
    QCOMPARE(filter.remapFields(newIndexOfOld), kept);
    QList<int> after;
    for (const FilterCondition &c : filter.conditions)
        after.append(c.field);
    QCOMPARE(after, expected);
    QCOMPARE(filter.uuidString(), QString::fromLatin1(fixedUuid));
}

QTEST_GUILESS_MAIN(TestFilterDef)
#include "testfilterdef.moc"
