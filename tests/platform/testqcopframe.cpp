#include "platform/qcopframe.h"

#include <QBuffer>
#include <QDataStream>
#include <QTest>
#include <QtEndian>

class TestQCopFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip();
    void invalid_data();
    void invalid();
};

namespace
{
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

void TestQCopFrame::roundTrip()
{
    QCopFrame sent;
    sent.kind = QCopFrame::Send;
    sent.channel = "QPE/Application/norvika";
    sent.message = "setDocument(QString)";
    sent.data = QByteArray("\0\0\0\x02x", 5);
    const QByteArray bytes = sent.encode();
    QCopFrame got;
    // Nothing is taken until the frame is whole.
    QCOMPARE(readFrom(bytes.left(bytes.size() - 1), got), QCopFrame::Incomplete);
    QCOMPARE(readFrom(bytes, got), QCopFrame::Complete);
    QCOMPARE(got.kind, sent.kind);
    QCOMPARE(got.channel, sent.channel);
    QCOMPARE(got.message, sent.message);
    QCOMPARE(got.data, sent.data);
    QCOMPARE(got.answer, false);
}

void TestQCopFrame::invalid_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("length beyond the bound") << QByteArray("\x00\x10\x00\x01", 4);
    QTest::newRow("zero length") << QByteArray(4, '\0');
    QTest::newRow("garbage body") << withLength(QByteArray("\x01\xff\xff\xff\x7fzzzz", 9));
    QTest::newRow("trailing bytes") << withLength(payload(QCopFrame::Send, "c", "m()") + "x");
    QTest::newRow("unknown kind") << withLength(payload(9, "c", "m()"));
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
