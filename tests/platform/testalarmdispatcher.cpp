#include "helperprocess.h"
#include "platform/alarmdispatcher.h"
#include "platform/alarmserver.h"
#include "platform/alarmtable.h"
#include "platform/qcopchannel.h"
#include "support/testhome.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

class TestAlarmDispatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deliveredWhenDue();
    void missedAlarmDeliveredAtStart();
    void alarmOfAnotherProcessPickedUp();
};

namespace
{
const QByteArray channelName = QByteArrayLiteral("test/alarms");

struct Delivered {
    QDateTime when;
    int data = 0;
};

Delivered decode(const QByteArray &bytes)
{
    Delivered d;
    QDataStream in(bytes);
    in >> d.when >> d.data;
    return d;
}

int storedCount()
{
    AlarmTable table;
    return int(table.alarms().size());
}
} // namespace

void TestAlarmDispatcher::deliveredWhenDue()
{
    TestHome home;
    const QDateTime when = QDateTime::currentDateTime().addMSecs(1000);
    QVERIFY(AlarmServer::addAlarm(when, channelName, "alarm(QDateTime,int)x", 7));
    QCopChannel channel(channelName);
    QSignalSpy spy(&channel, &QCopChannel::received);
    AlarmDispatcher dispatcher;
    dispatcher.start();

    QVERIFY(spy.wait(5000));
    QVERIFY(QDateTime::currentDateTime() >= when);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("alarm(QDateTime,int)x"));
    const Delivered d = decode(spy.at(0).at(1).toByteArray());
    QCOMPARE(d.when, when);
    QCOMPARE(d.data, 7);
    QCOMPARE(storedCount(), 0);
}

void TestAlarmDispatcher::missedAlarmDeliveredAtStart()
{
    TestHome home;
    const QDateTime now = QDateTime::currentDateTime();
    QVERIFY(AlarmServer::addAlarm(now.addSecs(-3600), channelName, "older()", 0));
    QVERIFY(AlarmServer::addAlarm(now.addSecs(-60), channelName, "newer()", 0));
    QVERIFY(AlarmServer::addAlarm(now.addSecs(3600), channelName, "future()", 0));
    // Damaged lines among them cost only themselves.
    QFile file(AlarmTable::defaultFileName());
    QVERIFY(file.open(QIODevice::Append));
    file.write("not an alarm\n2030-13-45T99:00:00Z\ttest/alarms\tbad()\t0\n\t\t\t\n");
    file.close();
    QCopChannel channel(channelName);
    QSignalSpy spy(&channel, &QCopChannel::received);
    AlarmDispatcher dispatcher;
    QCoreApplication::processEvents();
    QCOMPARE(spy.count(), 0); // nothing before it is started
    dispatcher.start();
    QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 2, 3000);
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("older()"));
    QCOMPARE(spy.at(1).at(0).toByteArray(), QByteArrayLiteral("newer()"));
    QCOMPARE(storedCount(), 1);
}

void TestAlarmDispatcher::alarmOfAnotherProcessPickedUp()
{
    TestHome home;
    QCopChannel channel(channelName);
    QSignalSpy spy(&channel, &QCopChannel::received);
    AlarmDispatcher dispatcher;
    dispatcher.start();
    QTest::qWait(100);
    QCOMPARE(HelperProcess::run(home.path(),
                 { QStringLiteral("alarm"), QStringLiteral("500"), QString::fromLatin1(channelName),
                     QStringLiteral("cli()"), QStringLiteral("3") }),
        0);
    // Well within the capped wait: the change of the file is what schedules it.
    QVERIFY(spy.count() == 1 || spy.wait(5000));
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("cli()"));
    QCOMPARE(decode(spy.at(0).at(1).toByteArray()).data, 3);
}

QTEST_GUILESS_MAIN(TestAlarmDispatcher)
#include "testalarmdispatcher.moc"
