#include "store/binaryformat.h"
#include "store/localstamp.h"

#include <QTest>

// A stamp must read and write the bytes of a date-time exactly as the stream's QDateTime
// does, or cards would change when saved.
class TestLocalStamp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameAsDateTime_data();
    void sameAsDateTime();
};

void TestLocalStamp::sameAsDateTime_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("null date and time") << QByteArray::fromHex("00000000ffffffff");
    QTest::newRow("day and time") << QByteArray::fromHex("00253d8c03ef1480");
    QTest::newRow("midnight") << QByteArray::fromHex("00253d8c00000000");
    QTest::newRow("day without time") << QByteArray::fromHex("00253d8cffffffff");
    QTest::newRow("time without day") << QByteArray::fromHex("0000000003ef1480");
    QTest::newRow("time past the day") << QByteArray::fromHex("00253d8c05265c00");
    QTest::newRow("day past 32 bits signed") << QByteArray::fromHex("9000000000000001");
}

void TestLocalStamp::sameAsDateTime()
{
    QFETCH(QByteArray, bytes);
    QDataStream dateTimeIn(bytes);
    BinaryFormat::prepare(dateTimeIn);
    QDateTime dateTime;
    dateTimeIn >> dateTime;
    QDataStream stampIn(bytes);
    BinaryFormat::prepare(stampIn);
    LocalStamp stamp;
    stampIn >> stamp;
    QCOMPARE(stamp.toDateTime(), dateTime);
    QCOMPARE(stamp.toDateTime().date(), dateTime.date());
    QCOMPARE(stamp.toDateTime().time(), dateTime.time());

    QByteArray fromDateTime;
    QDataStream dateTimeOut(&fromDateTime, QIODevice::WriteOnly);
    BinaryFormat::prepare(dateTimeOut);
    dateTimeOut << dateTime;
    QByteArray fromStamp;
    QDataStream stampOut(&fromStamp, QIODevice::WriteOnly);
    BinaryFormat::prepare(stampOut);
    stampOut << stamp << LocalStamp(dateTime);
    QCOMPARE(fromStamp.toHex(), (fromDateTime + fromDateTime).toHex());
}

QTEST_GUILESS_MAIN(TestLocalStamp)
#include "testlocalstamp.moc"
