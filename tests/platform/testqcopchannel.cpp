#include "platform/qcopchannel.h"
#include "support/testhome.h"

#include <QSignalSpy>
#include <QTest>

class TestQCopChannel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deliveredThroughTheEventLoop();
    void everyReceiverInOrder();
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

// Every receiver of the channel gets every message, in order, even if another receiver went
// before delivery; receivers of other channels hear nothing.
void TestQCopChannel::everyReceiverInOrder()
{
    TestHome home;
    QCopChannel first(channelName);
    QCopChannel second(channelName);
    QCopChannel other("test/other");
    QSignalSpy firstSpy(&first, &QCopChannel::received);
    QSignalSpy secondSpy(&second, &QCopChannel::received);
    QSignalSpy otherSpy(&other, &QCopChannel::received);
    auto *gone = new QCopChannel(channelName);
    for (int i = 0; i < 5; ++i)
        QCopChannel::send(channelName, "n()", QByteArray::number(i));
    delete gone;
    QTRY_COMPARE(firstSpy.count(), 5);
    QTRY_COMPARE(secondSpy.count(), 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(firstSpy.at(i).at(1).toByteArray(), QByteArray::number(i));
        QCOMPARE(secondSpy.at(i).at(1).toByteArray(), QByteArray::number(i));
    }
    QCOMPARE(otherSpy.count(), 0);
}

QTEST_GUILESS_MAIN(TestQCopChannel)
#include "testqcopchannel.moc"
