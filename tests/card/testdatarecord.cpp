#include "card/datamanager.h"
#include "card/datarecord.h"
#include "reminders/reminder.h"
#include "store/binaryformat.h"
#include "support/testcard.h"
#include "support/testhome.h"

#include <QDataStream>
#include <QTest>

#include <memory>

class TestDataRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void binaryLayout();
    void truncatedRecordStopsReading_data();
    void truncatedRecordStopsReading();
    void textsSurviveChanges_data();
    void textsSurviveChanges();
    void kindsStayApart_data();
    void kindsStayApart();
};

static std::unique_ptr<DataManager> managerWith(const QList<int> &types, const TestHome &home)
{
    QList<FieldDef> fields;
    for (int type : types)
        fields.append(testField(type, FieldDef::typeName(type)));
    return testCard(home.file(QStringLiteral("record.card")), fields);
}

static QByteArray written(const DataRecord &record)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    BinaryFormat::prepare(out);
    record.write(out);
    return bytes;
}

static const uuid_t fixedUid = { 0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xaa,
    0xbb, 0xcc, 0xdd, 0xee, 0xff };

static void fillLayoutRecord(DataRecord &record)
{
    record.setUid(fixedUid);
    const QDateTime stamp(QDate(2004, 3, 7), QTime(18, 5, 9));
    record.setCreated(stamp);
    record.setUpdated(stamp);
    record.setStringValue(0, QStringLiteral("é"));
    record.setDoubleValue(1, 2.7);
    record.setDoubleValue(2, 0.5);
    record.setDateValue(3, QDate(2004, 3, 7));
    record.setDoubleValue(9, 1);
    record.setMemo(QStringLiteral("m"));
    auto *reminder = new Reminder;
    reminder->dateTime = stamp;
    reminder->led = true;
    reminder->type = 2;
    record.setReminder(reminder);
}

static const QList<int> layoutTypes
    = { FieldDef::String, FieldDef::Integer, FieldDef::Double, FieldDef::Date, FieldDef::Time,
          FieldDef::DateTime, FieldDef::Memo, FieldDef::Reminder, FieldDef::Image, FieldDef::Bool };

void TestDataRecord::binaryLayout()
{
    TestHome home;
    auto manager = managerWith(layoutTypes, home);
    DataRecord record(manager.get());
    fillLayoutRecord(record);

    const QByteArray stamp = "00256e50"
                             "03e17c08"; // Julian day 2453072, 65109000 ms
    const QByteArray expected = "00112233445566778899aabbccddeeff" + stamp + stamp
        + "00000000" // no properties
        + "00000000" // no categories
        + "0000000200e9" // String "é"
        + "00000002" // Integer 2.7 cut to 2
        + "3fe0000000000000" // Double 0.5
        + "00256e50" // Date
        + "00000000" // Time, unset
        + "0000000000000000" // DateTime, unset
        + "00000001" // Bool
        + "00000002006d" // memo "m"
        + "ffffffff" // image: null string
        + "00000001" + stamp
        + "00000000"
          "00000001"
          "00000002"; // reminder
    QCOMPARE(written(record).toHex(), expected);
}

void TestDataRecord::truncatedRecordStopsReading_data()
{
    // Bytes kept from the start, or with a negative number, bytes cut from the end.
    QTest::addColumn<int>("keep");
    QTest::newRow("inside the uid") << 10;
    QTest::newRow("inside the first slot") << 16 + 16 + 8 + 3;
    QTest::newRow("inside the reminder") << -4;
}

void TestDataRecord::truncatedRecordStopsReading()
{
    QFETCH(int, keep);
    TestHome home;
    auto manager = managerWith(layoutTypes, home);
    DataRecord record(manager.get());
    fillLayoutRecord(record);
    QByteArray bytes = written(record);
    bytes.truncate(keep < 0 ? bytes.size() + keep : keep);
    QDataStream in(bytes);
    BinaryFormat::prepare(in);
    DataRecord read(manager.get());
    read.read(in);
    QVERIFY(!BinaryFormat::ok(in));
    QVERIFY(!read.hasReminder());
}

// Text changes, each "slot=text" or "slot" alone for a null string, applied in order to a record
// of four text slots; a slot that is never written stays unset.
void TestDataRecord::textsSurviveChanges_data()
{
    QTest::addColumn<QStringList>("changes");
    QTest::newRow("one text") << QStringList { "1=abc" };
    QTest::newRow("empty and null differ") << QStringList { "0=", "2" };
    QTest::newRow("earlier text grows")
        << QStringList { "2=tail", "3=end", "0=a", "0=much longer" };
    QTest::newRow("later text shrinks") << QStringList { "0=head", "3=long text", "3=x", "1=é€" };
    QTest::newRow("text emptied") << QStringList { "0=one", "1=two", "0=", "1" };
    QTest::newRow("empty ones filled, then one rewritten")
        << QStringList { "0=", "1=", "1=bc", "0=a", "2", "2=def", "1=x", "3=end" };
}

void TestDataRecord::textsSurviveChanges()
{
    QFETCH(QStringList, changes);
    TestHome home;
    auto manager = managerWith(QList<int>(4, FieldDef::String), home);
    DataRecord record(manager.get());
    QList<QString> expected(4);
    QList<bool> set(4, false);
    for (const QString &change : changes) {
        const int i = change.left(1).toInt();
        const QString text = change.size() > 1 ? change.mid(2) : QString();
        record.setStringValue(i, text);
        expected[i] = text;
        set[i] = true;
    }
    const QByteArray bytes = written(record);
    QDataStream in(bytes);
    BinaryFormat::prepare(in);
    DataRecord read(manager.get(), DataRecord::Blank);
    read.read(in);
    QVERIFY(BinaryFormat::ok(in));
    const DataRecord copy(record);
    const QList<const DataRecord *> records { &record, &copy, &read };
    for (int i = 0; i < 4; ++i) {
        for (const DataRecord *r : records) {
            QCOMPARE(r->stringValue(i), expected.at(i));
            QCOMPARE(r->stringValue(i).isNull(), expected.at(i).isNull());
        }
        QCOMPARE(record.isSet(i), set.at(i));
        QCOMPARE(read.isSet(i), true);
    }
}

// A slot gives its value only to the getter of its own kind.
void TestDataRecord::kindsStayApart_data()
{
    QTest::addColumn<int>("kind");
    const char *names[] = { "text", "number", "date", "time", "date-time" };
    for (int kind = 0; kind < 5; ++kind)
        QTest::newRow(names[kind]) << kind;
}

void TestDataRecord::kindsStayApart()
{
    QFETCH(int, kind);
    TestHome home;
    // The neighbour's kind lies past the first eight, its value past their padding.
    auto manager = managerWith(QList<int>(9, FieldDef::String), home);
    DataRecord record(manager.get());
    const QDate date(2020, 2, 29);
    const QTime time(23, 59, 58, 7);
    record.setStringValue(8, QStringLiteral("neighbour"));
    switch (kind) {
    case 0:
        record.setStringValue(0, QStringLiteral("t"));
        break;
    case 1:
        record.setDoubleValue(0, -2.75);
        break;
    case 2:
        record.setDateValue(0, date);
        break;
    case 3:
        record.setTimeValue(0, time);
        break;
    default:
        record.setDateTimeValue(0, QDateTime(date, time));
        break;
    }
    QVERIFY(record.isSet(0));
    QCOMPARE(record.stringValue(0), kind == 0 ? QStringLiteral("t") : QString());
    QCOMPARE(record.doubleValue(0), kind == 1 ? -2.75 : 0.0);
    QCOMPARE(record.intValue(0), kind == 1 ? -2 : 0);
    QCOMPARE(record.dateValue(0), kind == 2 ? date : QDate());
    QCOMPARE(record.timeValue(0), kind == 3 ? time : QTime());
    QCOMPARE(record.dateTimeValue(0), kind == 4 ? QDateTime(date, time) : QDateTime());
    QCOMPARE(record.stringValue(8), QStringLiteral("neighbour"));
    record.clearValue(0);
    QVERIFY(!record.isSet(0));
    QCOMPARE(record.stringValue(8), QStringLiteral("neighbour"));
}

QTEST_GUILESS_MAIN(TestDataRecord)
#include "testdatarecord.moc"
