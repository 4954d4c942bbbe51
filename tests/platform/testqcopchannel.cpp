#include "platform/qcopchannel.h"
#include "support/testhome.h"

#include <QSignalSpy>
#include <QTest>

class TestQCopChannel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deliveredThroughTheEventLoop();
    void everyReceiverOfTheChannel();
    void otherChannelsHearNothing();
    void unknownChannel();
    void orderIsKept();
    void receiverGoneBeforeDelivery();
    void registration();
};

namespace
{
const QByteArray channelName = QByteArrayLiteral("test/channel");
}

void TestQCopChannel::deliveredThroughTheEventLoop()
{
    TestHome home;
    QCopChannel channel(channelName);
    QSignalSpy spy(&channel, &QCopChannel::received);
    QVERIFY(QCopChannel::send(channelName, "ping()", QByteArrayLiteral("payload")));
    QCOMPARE(spy.count(), 0); // never inside the sender's call
    QVERIFY(spy.wait(2000));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("ping()"));
    QCOMPARE(spy.at(0).at(1).toByteArray(), QByteArrayLiteral("payload"));
}

void TestQCopChannel::everyReceiverOfTheChannel()
{
    TestHome home;
    QCopChannel first(channelName);
    QCopChannel second(channelName);
    QSignalSpy firstSpy(&first, &QCopChannel::received);
    QSignalSpy secondSpy(&second, &QCopChannel::received);
    QCopChannel::send(channelName, "ping()");
    QTRY_COMPARE(firstSpy.count(), 1);
    QTRY_COMPARE(secondSpy.count(), 1);
}

void TestQCopChannel::otherChannelsHearNothing()
{
    TestHome home;
    QCopChannel target(channelName);
    QCopChannel other("test/other");
    QSignalSpy targetSpy(&target, &QCopChannel::received);
    QSignalSpy otherSpy(&other, &QCopChannel::received);
    QCopChannel::send(channelName, "ping()");
    QVERIFY(targetSpy.wait(2000));
    QCOMPARE(otherSpy.count(), 0);
}

void TestQCopChannel::unknownChannel()
{
    // With no receiver here and no running program to hand it to, the message is lost.
    TestHome home;
    QVERIFY(!QCopChannel::send("test/nobody", "ping()"));
    QVERIFY(!QCopChannel::isRegistered("test/nobody"));
}

void TestQCopChannel::orderIsKept()
{
    TestHome home;
    QCopChannel channel(channelName);
    QSignalSpy spy(&channel, &QCopChannel::received);
    for (int i = 0; i < 5; ++i)
        QCopChannel::send(channelName, "n()", QByteArray::number(i));
    QTRY_COMPARE(spy.count(), 5);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(spy.at(i).at(1).toByteArray(), QByteArray::number(i));
}

void TestQCopChannel::receiverGoneBeforeDelivery()
{
    TestHome home;
    QCopChannel survivor(channelName);
    QSignalSpy spy(&survivor, &QCopChannel::received);
    auto *gone = new QCopChannel(channelName);
    QCopChannel::send(channelName, "ping()");
    delete gone;
    QVERIFY(spy.wait(2000));
    QCOMPARE(spy.count(), 1);
}

void TestQCopChannel::registration()
{
    TestHome home;
    QVERIFY(!QCopChannel::isRegisteredLocally(channelName));
    {
        QCopChannel a(channelName);
        QCopChannel b(channelName);
        QVERIFY(QCopChannel::isRegistered(channelName));
        QCOMPARE(a.channel(), channelName);
    }
    QVERIFY(!QCopChannel::isRegisteredLocally(channelName));
}

QTEST_GUILESS_MAIN(TestQCopChannel)
#include "testqcopchannel.moc"
