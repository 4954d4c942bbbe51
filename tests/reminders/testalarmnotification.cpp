#include "alertwindow.h"
#include "reminders/alarmnotification.h"

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

// The desktop notification of an alarm, raised by the reminder list with the main window
// away, against a stand-in notification service on a bus of the test's own; and without
// any bus (NORVIKA_NO_BUS set), where the alarm must go on as usual.
class StandInServer : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList bodies;
    QList<uint> replaced;
    QList<uint> closed;
    QVariantMap hints;
    int timeout = -1;
    uint lastId = 40;

    void reset()
    {
        bodies = QStringList { QString() };
        replaced.clear();
        closed.clear();
        lastId = 40;
    }

public Q_SLOTS:
    uint Notify(const QString &, uint replacesId, const QString &, const QString &summary,
        const QString &body, const QStringList &, const QVariantMap &hintMap, int expire)
    {
        bodies << summary + QLatin1Char('|') + body;
        replaced << replacesId;
        hints = hintMap;
        timeout = expire;
        return replacesId ? replacesId : ++lastId;
    }
    void CloseNotification(uint id) { closed << id; }
};

class TestAlarmNotification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void fromAlarms_data();
    void fromAlarms();
    void beforeTheAnswer_data();
    void beforeTheAnswer();

private:
    bool noBus() const { return qEnvironmentVariableIsSet("NORVIKA_NO_BUS"); }
    QProcess daemon;
    StandInServer server;
};

void TestAlarmNotification::initTestCase()
{
    if (noBus()) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        return;
    }
    daemon.start(QStringLiteral("dbus-daemon"),
        { QStringLiteral("--session"), QStringLiteral("--nofork"),
            QStringLiteral("--print-address") });
    QVERIFY2(daemon.waitForReadyRead(5000), "dbus-daemon did not start");
    const QByteArray address = daemon.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QDBusConnection bus
        = QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("server"));
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &server,
        QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.Notifications")));
}

void TestAlarmNotification::cleanupTestCase()
{
    daemon.kill();
    daemon.waitForFinished();
}

void TestAlarmNotification::fromAlarms_data()
{
    QTest::addColumn<bool>("whileListing");
    QTest::addColumn<QStringList>("bodies");
    QTest::addColumn<QList<uint>>("replaced");
    QTest::addColumn<QList<uint>>("closed");
    // The row as the list shows it, and the card's title.
    QTest::newRow("one alarm") << false << QStringList { "a1\na" } << QList<uint> { 0 }
                               << QList<uint> { 41 };
    QTest::newRow("second start replaces")
        << false << QStringList { "a1\na", "a2\na" } << QList<uint> { 0, 41 } << QList<uint> { 41 };
    QTest::newRow("second while listing") << true << QStringList { "a1\na", "a2\na" }
                                          << QList<uint> { 0, 0 } << QList<uint> { 41, 42 };
}

// With the main window away, each alarm is told; the alert's Ok takes its notification
// down, and the list's Dismiss All one that came while it was up.
void TestAlarmNotification::fromAlarms()
{
    QFETCH(bool, whileListing);
    QFETCH(QStringList, bodies);
    server.reset();
    Window w;
    QElapsedTimer clock;
    auto told = [&](int count) {
        if (!noBus())
            QTRY_COMPARE(int(server.bodies.size()), 1 + count);
    };
    bool alerted = false;
    Answers answers(
        w.dialog,
        [&](Alert *alert) {
            alerted = true;
            // However the bus fares, the alarm screen comes as fast as ever.
            QVERIFY(clock.elapsed() < 1000);
            if (!whileListing && bodies.size() > 1)
                w.deliver(w.message(1));
            told(whileListing ? 1 : int(bodies.size()));
            pressButton(alert, QStringLiteral("Ok"));
        },
        [&](AlertDialog *list) {
            if (whileListing && list->list()->itemCount() == 1) {
                w.deliver(w.message(1));
                told(int(bodies.size()));
            }
            pressButton(list, QStringLiteral("Dismiss All"));
        });
    clock.start();
    w.deliver(w.message(0));
    QVERIFY(alerted);
    QVERIFY(!w.dialog.isVisible());
    if (noBus())
        return;
    QFETCH(QList<uint>, closed);
    QTRY_COMPARE(server.closed, closed);
    for (int i = 0; i < bodies.size(); ++i)
        QCOMPARE(server.bodies.at(i + 1), QStringLiteral("Card Alarm|") + bodies.at(i));
    QTEST(server.replaced, "replaced");
    QCOMPARE(server.hints.value(QStringLiteral("urgency")).toInt(), 2);
    QCOMPARE(server.timeout, 0);
}

void TestAlarmNotification::beforeTheAnswer_data()
{
    QTest::addColumn<int>("shows");
    QTest::addColumn<bool>("closeAtOnce");
    QTest::addColumn<int>("calls");
    QTest::newRow("closed before the service answered") << 1 << true << 1;
    // Only the newest body follows the first, replacing it.
    QTest::newRow("a pile of alarms") << 100 << false << 2;
}

void TestAlarmNotification::beforeTheAnswer()
{
    QFETCH(int, shows);
    QFETCH(bool, closeAtOnce);
    QFETCH(int, calls);
    server.reset();
    QElapsedTimer clock;
    clock.start();
    {
        AlarmNotification notification;
        for (int i = 0; i < shows; ++i)
            notification.show(QStringLiteral("b%1").arg(i));
        if (closeAtOnce)
            notification.close();
        QVERIFY(clock.elapsed() < 1000);
        if (noBus())
            return;
        // The last answer reaches the notification before it goes.
        QTRY_COMPARE(int(server.bodies.size()) - 1, calls);
        QTest::qWait(100);
    }
    QTRY_COMPARE(server.closed, QList<uint> { 41 });
    QCOMPARE(server.bodies.last(), QStringLiteral("Card Alarm|b%1").arg(shows - 1));
}

QTEST_MAIN(TestAlarmNotification)
#include "testalarmnotification.moc"
