#include "platform/qcopframe.h"

#include <QBuffer>
#include <QDataStream>
#include <QTest>
#include <QtEndian>

class TestQCopFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void incompleteUntilWhole();
    void framesBackToBack();
    void invalid_data();
    void invalid();
};

namespace
{
QCopFrame makeFrame(QCopFrame::Kind kind, const QByteArray &channel, const QByteArray &message,
    const QByteArray &data, bool answer = false)
{
    QCopFrame frame;
    frame.kind = kind;
    frame.channel = channel;
    frame.message = message;
    frame.data = data;
    frame.answer = answer;
    return frame;
}

QByteArray withLength(const QByteArray &payload)
{
    QByteArray head(4, '\0');
    qToBigEndian(quint32(payload.size()), head.data());
    return head + payload;
}

QByteArray payload(quint8 kind, const QByteArray &channel, const QByteArray &message)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    out << kind << channel << message << QByteArray() << false;
    return bytes;
}

QCopFrame::ReadResult readFrom(const QByteArray &bytes, QCopFrame &frame)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return QCopFrame::read(&buffer, frame);
}
} // namespace

void TestQCopFrame::roundTrip_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("channel");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("answer");
    QTest::newRow("send") << int(QCopFrame::Send) << QByteArray("QPE/Application/norvika")
                          << QByteArray("setDocument(QString)") << QByteArray("\0\0\0\x02x", 5)
                          << false;
    QTest::newRow("send without data") << int(QCopFrame::Send) << QByteArray("a")
                                       << QByteArray("raise()") << QByteArray() << false;
    QTest::newRow("query") << int(QCopFrame::Query) << QByteArray("QPE/System") << QByteArray()
                           << QByteArray() << false;
    QTest::newRow("reply yes") << int(QCopFrame::Reply) << QByteArray() << QByteArray()
                               << QByteArray() << true;
    QTest::newRow("reply no") << int(QCopFrame::Reply) << QByteArray() << QByteArray()
                              << QByteArray() << false;
}

void TestQCopFrame::roundTrip()
{
    QFETCH(int, kind);
    QFETCH(QByteArray, channel);
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, data);
    QFETCH(bool, answer);
    const QCopFrame sent = makeFrame(QCopFrame::Kind(kind), channel, message, data, answer);
    QCopFrame got;
    QCOMPARE(readFrom(sent.encode(), got), QCopFrame::Complete);
    QCOMPARE(int(got.kind), kind);
    QCOMPARE(got.channel, channel);
    QCOMPARE(got.message, message);
    QCOMPARE(got.data, data);
    QCOMPARE(got.answer, answer);
}

void TestQCopFrame::incompleteUntilWhole()
{
    const QByteArray bytes = makeFrame(QCopFrame::Send, "c", "m()", "data").encode();
    for (qsizetype n = 0; n < bytes.size(); ++n) {
        QBuffer buffer;
        buffer.setData(bytes.left(n));
        buffer.open(QIODevice::ReadOnly);
        QCopFrame frame;
        QCOMPARE(QCopFrame::read(&buffer, frame), QCopFrame::Incomplete);
        QCOMPARE(buffer.pos(), 0); // nothing taken until the frame is whole
    }
}

void TestQCopFrame::framesBackToBack()
{
    QBuffer buffer;
    buffer.setData(makeFrame(QCopFrame::Send, "c", "one()", {}).encode()
        + makeFrame(QCopFrame::Send, "c", "two()", {}).encode());
    buffer.open(QIODevice::ReadOnly);
    QCopFrame frame;
    QCOMPARE(QCopFrame::read(&buffer, frame), QCopFrame::Complete);
    QCOMPARE(frame.message, QByteArrayLiteral("one()"));
    QCOMPARE(QCopFrame::read(&buffer, frame), QCopFrame::Complete);
    QCOMPARE(frame.message, QByteArrayLiteral("two()"));
    QCOMPARE(QCopFrame::read(&buffer, frame), QCopFrame::Incomplete);
}

void TestQCopFrame::invalid_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("length beyond the bound") << QByteArray("\xff\xff\xff\xff", 4);
    QTest::newRow("length just beyond the bound") << QByteArray("\x00\x10\x00\x01", 4);
    QTest::newRow("zero length") << QByteArray(4, '\0');
    QTest::newRow("garbage body") << withLength(QByteArray("\x01\xff\xff\xff\x7fzzzz", 9));
    QTest::newRow("trailing bytes") << withLength(payload(QCopFrame::Send, "c", "m()") + "x");
    QTest::newRow("unknown kind") << withLength(payload(9, "c", "m()"));
    QTest::newRow("send without channel") << withLength(payload(QCopFrame::Send, "", "m()"));
    QTest::newRow("send without message") << withLength(payload(QCopFrame::Send, "c", ""));
    QTest::newRow("reply with a channel") << withLength(payload(QCopFrame::Reply, "c", ""));
    QTest::newRow("channel name too long") << withLength(
        payload(QCopFrame::Send, QByteArray(QCopFrame::maxNameLength + 1, 'c'), "m()"));
}

void TestQCopFrame::invalid()
{
    QFETCH(QByteArray, bytes);
    QCopFrame frame;
    QCOMPARE(readFrom(bytes, frame), QCopFrame::Invalid);
}

QTEST_GUILESS_MAIN(TestQCopFrame)
#include "testqcopframe.moc"
