#include "store/bigendianwriter.h"
#include "store/binaryformat.h"
#include "store/localstamp.h"

#include <QDataStream>
#include <QTest>

#include <functional>
#include <limits>

// Records are saved through the writer; everything else of a card, and the files of the old
// program, through the stream. Each value must come out as the same bytes both ways.
class TestBigEndianWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameBytesAsTheStream_data();
    void sameBytesAsTheStream();
};

namespace
{
template <typename T> QByteArray streamed(const T &value)
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

void TestBigEndianWriter::sameBytesAsTheStream_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QByteArray>("streamed");
    QTest::newRow("int8") << written([](auto &w) { w.putInt8(-3); }) << streamed(qint8(-3));
    QTest::newRow("int32") << written([](auto &w) { w.putInt32(-123456); }) << streamed(qint32(-123456));
    for (const double value : { 0.0, -2.5, 1e300, std::numeric_limits<double>::quiet_NaN() })
        QTest::addRow("double %g", value) << written([=](auto &w) { w.putDouble(value); })
                                          << streamed(value);
    const QString unicode = QStringLiteral("Zürich 青 𝄞, seven+");
    for (int length = 0; length <= 9; ++length) {
        // Lengths around the four units swapped at a time.
        const QString text = unicode.left(length);
        QTest::addRow("string of %d units", length)
            << written([&](auto &w) { w.putString(text); }) << streamed(text);
    }
    QTest::newRow("null string") << written([](auto &w) { w.putString(QString()); })
                                 << streamed(QString());
    QTest::newRow("empty string") << written([](auto &w) { w.putString(QLatin1String("")); })
                                  << streamed(QString(QLatin1String("")));
    const QStringList list { QStringLiteral("a"), QString(), QStringLiteral("bc") };
    QTest::newRow("string list") << written([&](auto &w) { w.putStringList(list); })
                                 << streamed(list);
    for (const QDate date : { QDate(), QDate(1980, 1, 1), QDate(2031, 3, 4) })
        QTest::addRow("date %s", qPrintable(date.toString(Qt::ISODate)))
            << written([=](auto &w) { w.putDate(date); }) << streamed(date);
    for (const QTime time : { QTime(), QTime(0, 0), QTime(23, 59, 59, 999) })
        QTest::addRow("time %s", qPrintable(time.toString(Qt::ISODateWithMs)))
            << written([=](auto &w) { w.putTime(time); }) << streamed(time);
    for (const QDateTime when : { QDateTime(), QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6, 7)) }) {
        const LocalStamp stamp(when);
        QTest::addRow("stamp %s", qPrintable(when.toString(Qt::ISODateWithMs)))
            << written([=](auto &w) { stamp.encode(w); }) << streamed(stamp);
    }
}

void TestBigEndianWriter::sameBytesAsTheStream()
{
    QFETCH(QByteArray, written);
    QFETCH(QByteArray, streamed);
    QCOMPARE(written.toHex(), streamed.toHex());
}

QTEST_GUILESS_MAIN(TestBigEndianWriter)
#include "testbigendianwriter.moc"
