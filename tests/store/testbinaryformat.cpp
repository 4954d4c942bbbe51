#include "store/bigendianwriter.h"
#include "store/binaryformat.h"
#include "store/localstamp.h"

#include <QBuffer>
#include <QDateTime>
#include <QScopeGuard>
#include <QTest>

#include <ctime>
#include <functional>
#include <limits>

// The card file's encoding depends on Qt keeping its old stream forms; these pin them down.
class TestBinaryFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void streamEncodings_data();
    void streamEncodings();
    void readsOldForms();
    void countFits_data();
    void countFits();
    void readStringList();
    void readString_data();
    void readString();
    void stampSameAsDateTime_data();
    void stampSameAsDateTime();
    void writerSameAsStream_data();
    void writerSameAsStream();
};

namespace
{
template <typename T> QByteArray encoded(const T &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    BinaryFormat::prepare(stream);
    stream << value;
    return bytes;
}

QByteArray written(const std::function<void(BigEndianWriter &)> &put)
{
    BigEndianWriter out;
    put(out);
    return QByteArray(out.data(), out.size());
}
} // namespace

void TestBinaryFormat::streamEncodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("null string") << encoded(QString()) << QByteArray::fromHex("ffffffff");
    QTest::newRow("empty string") << encoded(QString(QLatin1String("")))
                                  << QByteArray::fromHex("00000000");
    QTest::newRow("string utf-16 big-endian")
        << encoded(QStringLiteral("Aé€")) << QByteArray::fromHex("00000006004100e920ac");
    QTest::newRow("date as julian day")
        << encoded(QDate(2004, 3, 7)) << QByteArray::fromHex("00256e50");
    QTest::newRow("null date") << encoded(QDate()) << QByteArray::fromHex("00000000");
    QTest::newRow("time as milliseconds")
        << encoded(QTime(18, 5, 9, 250)) << QByteArray::fromHex("03e17d02");
    QTest::newRow("null time") << encoded(QTime()) << QByteArray::fromHex("00000000");
    QTest::newRow("date-time is date then time")
        << encoded(QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)))
        << QByteArray::fromHex("00256e5003e17c08");
    QTest::newRow("null date-time") << encoded(QDateTime()) << QByteArray(8, '\0');
    QTest::newRow("string list") << encoded(QStringList { "x", QString() })
                                 << QByteArray::fromHex("00000002000000020078ffffffff");
    QTest::newRow("int big-endian") << encoded(qint32(-2)) << QByteArray::fromHex("fffffffe");
    QTest::newRow("signed char") << encoded(qint8(1)) << QByteArray::fromHex("01");
    QTest::newRow("double ieee") << encoded(1.5) << QByteArray::fromHex("3ff8000000000000");
}

void TestBinaryFormat::streamEncodings()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, expected);
    QCOMPARE(bytes.toHex(), expected.toHex());
}

void TestBinaryFormat::readsOldForms()
{
    QByteArray bytes = QByteArray::fromHex("ffffffff"
                                           "00000000"
                                           "00000000"
                                           "00256e5003e17c08"
                                           "00256e5000000000");
    QDataStream stream(bytes);
    BinaryFormat::prepare(stream);
    QString text(QStringLiteral("x"));
    QDate date(2000, 1, 1);
    QTime time(1, 1);
    QDateTime when;
    QDateTime midnight;
    stream >> text >> date >> time >> when >> midnight;
    QVERIFY(BinaryFormat::ok(stream));
    QVERIFY(text.isNull());
    QVERIFY(date.isNull());
    // The old forms cannot tell midnight from no time; Qt reads 0 as no time.
    QVERIFY(time.isNull());
    QCOMPARE(when, QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
    // In a date-time it is midnight.
    QCOMPARE(midnight, QDateTime(QDate(2004, 3, 7), QTime(0, 0)));
}

void TestBinaryFormat::countFits_data()
{
    QTest::addColumn<qint64>("count");
    QTest::addColumn<qint64>("each");
    QTest::addColumn<bool>("fits");
    QTest::newRow("exactly fits") << qint64(4) << qint64(4) << true;
    QTest::newRow("one too many") << qint64(5) << qint64(4) << false;
    QTest::newRow("zero") << qint64(0) << qint64(40) << true;
    QTest::newRow("negative") << qint64(-1) << qint64(1) << false;
    QTest::newRow("huge") << qint64(0x7fffffff) << qint64(8) << false;
}

void TestBinaryFormat::countFits()
{
    QFETCH(qint64, count);
    QFETCH(qint64, each);
    QFETCH(bool, fits);
    QByteArray bytes(16, 'x');
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QDataStream stream(&buffer);
    buffer.seek(0);
    QCOMPARE(BinaryFormat::countFits(stream, count, each), fits);
    QCOMPARE(BinaryFormat::ok(stream), fits);
}

void TestBinaryFormat::readStringList()
{
    for (const bool whole : { true, false }) {
        const QByteArray bytes
            = QByteArray::fromHex(whole ? "00000002000000020078ffffffff" : "7fffffff000000020078");
        QDataStream stream(bytes);
        BinaryFormat::prepare(stream);
        QStringList list;
        QCOMPARE(BinaryFormat::readStringList(stream, list), whole);
        QCOMPARE(list, (whole ? QStringList { "x", QString() } : QStringList()));
    }
}

// The lean string reader must leave the string and the stream as the stream's operator does.
void TestBinaryFormat::readString_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("null") << QByteArray::fromHex("ffffffff0000");
    QTest::newRow("empty") << QByteArray::fromHex("000000000041");
    QTest::newRow("text") << encoded(QStringLiteral("Aé€")) + "tail";
    QTest::newRow("beyond 16 bits") << encoded(QStringLiteral("𝄞 clef"));
    QTest::newRow("odd byte count") << QByteArray::fromHex("000000030041ff");
    QTest::newRow("cut off") << QByteArray::fromHex("000000080041");
    QTest::newRow("huge count") << QByteArray::fromHex("7ffffffe0041");
    QTest::newRow("no length") << QByteArray::fromHex("0000");
}

void TestBinaryFormat::readString()
{
    QFETCH(QByteArray, bytes);
    QDataStream expectedStream(bytes);
    BinaryFormat::prepare(expectedStream);
    QString expected(QStringLiteral("old"));
    expectedStream >> expected;
    QDataStream stream(bytes);
    BinaryFormat::prepare(stream);
    QString text(QStringLiteral("old"));
    QCOMPARE(BinaryFormat::readString(stream, text), BinaryFormat::ok(expectedStream));
    QCOMPARE(text, expected);
    QCOMPARE(text.isNull(), expected.isNull());
    QCOMPARE(stream.status(), expectedStream.status());
    if (BinaryFormat::ok(stream))
        QCOMPARE(stream.device()->pos(), expectedStream.device()->pos());
}

// A stamp must read and write a date-time's bytes exactly as the stream's QDateTime does.
void TestBinaryFormat::stampSameAsDateTime_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("zone");
    QTest::newRow("null date and time") << QByteArray::fromHex("00000000ffffffff") << QByteArray();
    QTest::newRow("day and time") << QByteArray::fromHex("00253d8c03ef1480") << QByteArray();
    QTest::newRow("midnight") << QByteArray::fromHex("00253d8c00000000") << QByteArray();
    QTest::newRow("day without time") << QByteArray::fromHex("00253d8cffffffff") << QByteArray();
    QTest::newRow("time without day") << QByteArray::fromHex("0000000003ef1480") << QByteArray();
    QTest::newRow("time past the day") << QByteArray::fromHex("00253d8c05265c00") << QByteArray();
    QTest::newRow("day past 32 bits signed")
        << QByteArray::fromHex("9000000000000001") << QByteArray();
    // 2021-03-28 02:30 does not exist in Berlin; 2021-10-31 02:30 exists twice.
    QTest::newRow("in a zone's gap")
        << QByteArray::fromHex("002586a600895440") << QByteArray("Europe/Berlin");
    QTest::newRow("in a zone's overlap")
        << QByteArray::fromHex("0025877f00895440") << QByteArray("Europe/Berlin");
}

void TestBinaryFormat::stampSameAsDateTime()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, zone);
    const bool zoneWasSet = qEnvironmentVariableIsSet("TZ");
    const QByteArray oldZone = qgetenv("TZ");
    if (!zone.isEmpty()) {
        qputenv("TZ", zone);
        tzset();
    }
    const auto restoreZone = qScopeGuard([&] {
        if (zoneWasSet)
            qputenv("TZ", oldZone);
        else
            qunsetenv("TZ");
        tzset();
    });
    QDataStream in(bytes);
    BinaryFormat::prepare(in);
    QDateTime dateTime;
    LocalStamp stamp;
    in >> dateTime;
    in.device()->seek(0);
    in >> stamp;
    QCOMPARE(stamp.toDateTime(), dateTime);
    QCOMPARE(stamp.toDateTime().date(), dateTime.date());
    QCOMPARE(stamp.toDateTime().time(), dateTime.time());
    QCOMPARE(written([&](auto &w) { stamp.encode(w); }).toHex(), encoded(dateTime).toHex());
    const LocalStamp again(dateTime);
    QCOMPARE(written([&](auto &w) { again.encode(w); }).toHex(), encoded(dateTime).toHex());
}

// Records are saved through the writer; everything else of a card, and the files of the old
// program, through the stream. Each value must come out as the same bytes both ways.
void TestBinaryFormat::writerSameAsStream_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QByteArray>("streamed");
    QTest::newRow("int32") << written([](auto &w) { w.putInt32(-123456); }) << encoded(qint32(-123456));
    for (const double value : { 0.0, -2.5, 1e300, std::numeric_limits<double>::quiet_NaN() })
        QTest::addRow("double %g", value) << written([=](auto &w) { w.putDouble(value); })
                                          << encoded(value);
    const QString unicode = QStringLiteral("Zürich 青 𝄞, seven+");
    for (int length = 0; length <= 9; ++length) {
        // Lengths around the four units swapped at a time.
        const QString text = unicode.left(length);
        QTest::addRow("string of %d units", length)
            << written([&](auto &w) { w.putString(text); }) << encoded(text);
    }
    QTest::newRow("null string") << written([](auto &w) { w.putString(QString()); })
                                 << encoded(QString());
    QTest::newRow("empty string") << written([](auto &w) { w.putString(QLatin1String("")); })
                                  << encoded(QString(QLatin1String("")));
    const QStringList list { QStringLiteral("a"), QString(), QStringLiteral("bc") };
    QTest::newRow("string list") << written([&](auto &w) { w.putStringList(list); })
                                 << encoded(list);
    for (const QDate date : { QDate(), QDate(1980, 1, 1), QDate(2031, 3, 4) })
        QTest::addRow("date %s", qPrintable(date.toString(Qt::ISODate)))
            << written([=](auto &w) { w.putDate(date); }) << encoded(date);
    for (const QTime time : { QTime(), QTime(0, 0), QTime(23, 59, 59, 999) })
        QTest::addRow("time %s", qPrintable(time.toString(Qt::ISODateWithMs)))
            << written([=](auto &w) { w.putTime(time); }) << encoded(time);
}

void TestBinaryFormat::writerSameAsStream()
{
    QFETCH(QByteArray, written);
    QFETCH(QByteArray, streamed);
    QCOMPARE(written.toHex(), streamed.toHex());
}

QTEST_GUILESS_MAIN(TestBinaryFormat)
#include "testbinaryformat.moc"
