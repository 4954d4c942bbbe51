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
    void unsetSlots();
    void settersReplaceSlots();
    void indexOutOfRangeIsHarmless();
    void copyIsDeep();
    void imageMarksManagerChanged();
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

static QList<int> everyType()
{
    QList<int> types;
    for (int type = 0; type < FieldDef::TypeCount; ++type)
        types.append(type);
    return types;
}

void TestDataRecord::unsetSlots()
{
    TestHome home;
    auto manager = managerWith(everyType(), home);
    DataRecord record(manager.get());
    QCOMPARE(record.slotCount(), FieldDef::TypeCount);
    for (int i = 0; i < record.slotCount(); ++i) {
        QVERIFY(!record.isSet(i));
        QVERIFY(record.stringValue(i).isNull());
        QCOMPARE(record.intValue(i), 0);
        QCOMPARE(record.doubleValue(i), 0.0);
        QVERIFY(!record.dateValue(i).isValid());
        QVERIFY(!record.timeValue(i).isValid());
        QVERIFY(!record.dateTimeValue(i).isValid());
    }
    QVERIFY(record.memo().isEmpty());
    QVERIFY(!record.hasImage());
    QVERIFY(!record.hasReminder());
}

void TestDataRecord::settersReplaceSlots()
{
    TestHome home;
    auto manager = managerWith(everyType(), home);
    DataRecord record(manager.get());
    record.setStringValue(FieldDef::String, QStringLiteral("first"));
    record.setStringValue(FieldDef::String, QStringLiteral("second"));
    record.setDoubleValue(FieldDef::Integer, -7.9);
    record.setIntValue(FieldDef::Count, 12);
    record.setDateValue(FieldDef::Date, QDate(2001, 2, 3));
    record.setTimeValue(FieldDef::Time, QTime(4, 5, 6));
    record.setDateTimeValue(FieldDef::DateTime, QDateTime(QDate(2001, 2, 3), QTime(4, 5)));
    QCOMPARE(record.stringValue(FieldDef::String), QStringLiteral("second"));
    QCOMPARE(record.doubleValue(FieldDef::Integer), -7.9);
    QCOMPARE(record.intValue(FieldDef::Integer), -7);
    QCOMPARE(record.doubleValue(FieldDef::Count), 12.0);
    QCOMPARE(record.dateValue(FieldDef::Date), QDate(2001, 2, 3));
    QCOMPARE(record.timeValue(FieldDef::Time), QTime(4, 5, 6));
    QCOMPARE(record.dateTimeValue(FieldDef::DateTime), QDateTime(QDate(2001, 2, 3), QTime(4, 5)));
    // A getter of another kind reads nothing from a slot.
    QCOMPARE(record.doubleValue(FieldDef::String), 0.0);
    QVERIFY(record.stringValue(FieldDef::Integer).isNull());
    record.clearValue(FieldDef::String);
    QVERIFY(!record.isSet(FieldDef::String));
}

void TestDataRecord::indexOutOfRangeIsHarmless()
{
    TestHome home;
    auto manager = managerWith({ FieldDef::String }, home);
    DataRecord record(manager.get());
    record.setStringValue(1, QStringLiteral("x"));
    record.setDoubleValue(-1, 3);
    QCOMPARE(record.slotCount(), 1);
    QVERIFY(record.stringValue(1).isNull());
    QCOMPARE(record.doubleValue(-1), 0.0);
}

void TestDataRecord::copyIsDeep()
{
    TestHome home;
    auto manager = managerWith({ FieldDef::String, FieldDef::Double }, home);
    DataRecord record(manager.get());
    record.setStringValue(0, QStringLiteral("kept"));
    record.setDoubleValue(1, 2.5);
    record.setMemo(QStringLiteral("memo"));
    record.setImage(QStringLiteral("pic.png"));
    auto *reminder = new Reminder;
    reminder->dateTime = QDateTime(QDate(2030, 1, 1), QTime(9, 0));
    record.setReminder(reminder);

    DataRecord copy(record);
    record.setStringValue(0, QStringLiteral("changed"));
    record.setDoubleValue(1, 0);
    record.reminder()->type = 5;
    record.setMemo(QString());

    QCOMPARE(copy.uidString(), record.uidString());
    QCOMPARE(copy.created(), record.created());
    QCOMPARE(copy.stringValue(0), QStringLiteral("kept"));
    QCOMPARE(copy.doubleValue(1), 2.5);
    QCOMPARE(copy.memo(), QStringLiteral("memo"));
    QCOMPARE(copy.image(), QStringLiteral("pic.png"));
    QVERIFY(copy.reminder() != record.reminder());
    QCOMPARE(copy.reminder()->type, 0);
    QCOMPARE(copy.reminder()->dateTime, reminder->dateTime);
}

void TestDataRecord::imageMarksManagerChanged()
{
    TestHome home;
    auto manager = managerWith({ FieldDef::Image }, home);
    QVERIFY(manager->save());
    QVERIFY(!manager->isChanged());
    DataRecord record(manager.get());
    record.setImage(QStringLiteral("a.png"));
    QVERIFY(manager->isChanged());
    QVERIFY(record.hasImage());
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
