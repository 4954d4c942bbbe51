#include "card/datamanager.h"
#include "card/datarecord.h"
#include "reminders/reminder.h"
#include "store/binaryformat.h"
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
};

static FieldDef makeField(int type, const QString &title = QString())
{
    FieldDef field;
    field.type = type;
    field.title = title.isEmpty() ? FieldDef::typeName(type) : title;
    field.label = field.title;
    return field;
}

static std::unique_ptr<DataManager> managerWith(const QList<int> &types, const TestHome &home)
{
    auto manager = std::make_unique<DataManager>(home.file(QStringLiteral("record.card")));
    QList<FieldDef> fields;
    for (int type : types)
        fields.append(makeField(type));
    manager->setFields(fields, true);
    return manager;
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
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    BinaryFormat::prepare(out);
    record.write(out);

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
    QCOMPARE(bytes.toHex(), expected);
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
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        BinaryFormat::prepare(out);
        record.write(out);
    }
    bytes.truncate(keep < 0 ? bytes.size() + keep : keep);
    QDataStream in(bytes);
    BinaryFormat::prepare(in);
    DataRecord read(manager.get());
    read.read(in);
    QVERIFY(!BinaryFormat::ok(in));
    QVERIFY(!read.hasReminder());
}

QTEST_GUILESS_MAIN(TestDataRecord)
#include "testdatarecord.moc"
