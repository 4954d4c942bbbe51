#include "helperprocess.h"
#include "platform/qcopbridge.h"
#include "platform/qcopchannel.h"
#include "platform/qcopframe.h"
#include "support/testhome.h"

#include <QDataStream>
#include <QFile>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTest>
#include <QtEndian>

class TestQCopBridge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anotherProcessSendsAndAsks();
    void malformedFrameDropsThePeer_data();
    void malformedFrameDropsThePeer();
    void silentPeerIsDropped();
    void leftoverSocketIsTakenOver();
};

namespace
{
const QByteArray channelName = QByteArrayLiteral("test/remote");

QCopFrame sendFrame(const QByteArray &channel, const QByteArray &message)
{
    QCopFrame frame;
    frame.channel = channel;
    frame.message = message;
    return frame;
}
} // namespace

// Another process hands its message to the running program, and hears whether a channel
// has a receiver there.
void TestQCopBridge::anotherProcessSendsAndAsks()
{
    TestHome home;
    QCopBridge bridge;
    QVERIFY(bridge.listen());
    QCopChannel channel(channelName);
    QSignalSpy spy(&channel, &QCopChannel::received);
    const QString name = QString::fromLatin1(channelName);
    QCOMPARE(HelperProcess::run(home.path(), { "send", name, "open(QString)", "x.card" }), 0);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("open(QString)"));
    QDataStream in(spy.at(0).at(1).toByteArray());
    QString text;
    in >> text;
    QCOMPARE(text, QStringLiteral("x.card"));
    QCOMPARE(HelperProcess::run(home.path(), { "send", "test/nobody", "m()", QString() }), 1);
    QCOMPARE(HelperProcess::run(home.path(), { "registered", name }), 0);
    QCOMPARE(HelperProcess::run(home.path(), { "registered", "test/nobody" }), 1);
}

void TestQCopBridge::malformedFrameDropsThePeer_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("oversized length") << QByteArray("\x7f\xff\xff\xff", 4);
    QTest::newRow("garbage body") << QByteArray("\0\0\0\x06\x01\xff\xff\xff\xffz", 10);
    QCopFrame reply = QCopFrame::reply(true);
    QTest::newRow("a reply sent to the server") << reply.encode();
    QTest::newRow("good frame then garbage")
        << sendFrame(channelName, "ping()").encode() + QByteArray("\xff\xff\xff\xff", 4);
}

void TestQCopBridge::malformedFrameDropsThePeer()
{
    QFETCH(QByteArray, bytes);
    TestHome home;
    QCopBridge bridge;
    QVERIFY(bridge.listen());
    QCopChannel channel(channelName);
    QSignalSpy received(&channel, &QCopChannel::received);

    QLocalSocket hostile;
    QSignalSpy dropped(&hostile, &QLocalSocket::disconnected);
    hostile.connectToServer(QCopBridge::serverName());
    QVERIFY(hostile.waitForConnected(2000));
    hostile.write(bytes);
    QVERIFY(dropped.wait(QCopBridge::idleTimeoutMs - 500));

    // The bridge goes on serving the next peer.
    QLocalSocket peer;
    peer.connectToServer(QCopBridge::serverName());
    QVERIFY(peer.waitForConnected(2000));
    peer.write(sendFrame(channelName, "after()").encode());
    QTRY_VERIFY(!received.isEmpty() && received.last().at(0).toByteArray() == "after()");
}

void TestQCopBridge::silentPeerIsDropped()
{
    TestHome home;
    QCopBridge bridge;
    QVERIFY(bridge.listen());
    QLocalSocket peer;
    QSignalSpy dropped(&peer, &QLocalSocket::disconnected);
    peer.connectToServer(QCopBridge::serverName());
    QVERIFY(peer.waitForConnected(2000));
    peer.write(QByteArray("\0\0\0\x40", 4)); // promises 64 bytes and stops
    QVERIFY(dropped.wait(QCopBridge::idleTimeoutMs + 2000));
}

void TestQCopBridge::leftoverSocketIsTakenOver()
{
    TestHome home;
    {
        QFile leftover(QCopBridge::serverName());
        QVERIFY(leftover.open(QIODevice::WriteOnly));
    }
    QCopBridge bridge;
    QVERIFY(bridge.listen());
    QVERIFY(QCopBridge::isRunning());
}

QTEST_GUILESS_MAIN(TestQCopBridge)
#include "testqcopbridge.moc"
