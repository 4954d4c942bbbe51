#include "platform/stopsignals.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

class TestStopSignals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachSignalReachesTheLoop_data();
    void eachSignalReachesTheLoop();
};

void TestStopSignals::eachSignalReachesTheLoop_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

// The handler only writes; the request comes later, from the event loop, once per signal.
void TestStopSignals::eachSignalReachesTheLoop()
{
    QFETCH(int, number);
    StopSignals stopSignals;
    QSignalSpy requests(&stopSignals, &StopSignals::stopRequested);
    QCOMPARE(::raise(number), 0);
    QCOMPARE(requests.count(), 0);
    QTRY_COMPARE(requests.count(), 1);
    QCOMPARE(::raise(number), 0);
    QTRY_COMPARE(requests.count(), 2);
}

QTEST_GUILESS_MAIN(TestStopSignals)
#include "teststopsignals.moc"
