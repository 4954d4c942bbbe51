#include "reminders/alarmnotification.h"

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

// The desktop notification of an alarm against a stand-in notification service on a bus
// of the test's own, and without any bus (NORVIKA_NO_BUS set), where it must stay silent.
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
    void showReplaceClose_data();
    void showReplaceClose();
    void withoutBus();

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

void TestAlarmNotification::showReplaceClose_data()
{
    QTest::addColumn<QStringList>("bodies");
    QTest::addColumn<bool>("closeAtOnce");
    QTest::addColumn<QList<uint>>("replaced");
    QTest::newRow("one alarm") << QStringList { "a1\nCard" } << false << QList<uint> { 0 };
    QTest::newRow("second replaces the first")
        << QStringList { "a1\nCard", "a2\nCard" } << false << QList<uint> { 0, 1 };
    QTest::newRow("closed before the service answered")
        << QStringList { "a1\nCard" } << true << QList<uint> { 0 };
}

void TestAlarmNotification::showReplaceClose()
{
    if (noBus())
        QSKIP("no bus in this run");
    QFETCH(QStringList, bodies);
    QFETCH(bool, closeAtOnce);
    QFETCH(QList<uint>, replaced);
    server.reset();
    AlarmNotification notification;
    for (const QString &body : bodies) {
        notification.show(body);
        if (closeAtOnce)
            break;
        QTRY_COMPARE(server.bodies.last(), QStringLiteral("Card Alarm|") + body);
        QTRY_COMPARE(notification.id(), 41u);
    }
    notification.close();
    QTRY_COMPARE(server.closed, QList<uint> { 41 });
    // Replacing names the id the service gave the first one.
    QList<uint> expected;
    for (uint r : replaced)
        expected << (r ? 41 : 0);
    QCOMPARE(server.replaced, expected);
    QCOMPARE(server.bodies.size(), replaced.size() + 1);
    QCOMPARE(server.hints.value(QStringLiteral("urgency")).toInt(), 2);
    QCOMPARE(server.timeout, 0);
    QVERIFY(!notification.isShown());
}

void TestAlarmNotification::withoutBus()
{
    if (!noBus())
        QSKIP("a bus runs in this run");
    QElapsedTimer clock;
    clock.start();
    AlarmNotification notification;
    notification.show(QStringLiteral("a1"));
    notification.close();
    QVERIFY(!notification.isShown());
    QVERIFY(clock.elapsed() < 1000);
}

QTEST_MAIN(TestAlarmNotification)
#include "testalarmnotification.moc"
