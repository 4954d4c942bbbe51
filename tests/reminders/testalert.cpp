#include "reminders/alert.h"

#include "reminders/reminder.h"
#include "support/testhome.h"

#include <QElapsedTimer>
#include <QFile>
#include <QtTest>

// The alarm screen: what each start turns on, the cap on sounds when many alarms come at
// once, and the LED going off with the screen.
class TestAlert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void starts_data();
    void starts();
    void deviceOutput_data();
    void deviceOutput();
};

namespace
{
void writeFile(const QString &path, const QByteArray &bytes, QFile::Permissions mode = {})
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    if (mode)
        QVERIFY(file.setPermissions(mode));
}
} // namespace

void TestAlert::starts_data()
{
    QTest::addColumn<bool>("sound");
    QTest::addColumn<bool>("led");
    QTest::addColumn<int>("starts");
    QTest::addColumn<int>("plays");
    QTest::addColumn<QString>("ledCalls");
    QTest::newRow("one, sound and LED") << true << true << 1 << 1 << "on 4;off";
    QTest::newRow("second sounds again") << true << false << 2 << 2 << "";
    QTest::newRow("a thousand at once")
        << true << true << 1000 << 2
        << QStringList(1000, QStringLiteral("on 4")).join(u';') + ";off";
    QTest::newRow("neither still starts") << false << false << 2 << 0 << "";
}

void TestAlert::starts()
{
    QFETCH(bool, sound);
    QFETCH(bool, led);
    QFETCH(int, starts);
    TestHome home;
    int plays = 0;
    QStringList ledCalls;
    Reminder reminder;
    reminder.dateTime = QDateTime::currentDateTime();
    reminder.sound = sound;
    reminder.led = led;
    reminder.type = 4;
    {
        Alert alert(
            nullptr, [&plays] { ++plays; },
            [&ledCalls](bool on, int type) {
                ledCalls << (on ? QStringLiteral("on %1").arg(type) : QStringLiteral("off"));
            });
        for (int i = 0; i < starts; ++i)
            alert.start(&reminder);
        QTEST(plays, "plays");
        QCOMPARE(alert.repeatTimerCount(), plays);
    }
    QTEST(ledCalls.join(u';'), "ledCalls");
}

// The sound and LED as on a desktop with no sound device or buzzer: starting never waits,
// and the player, when there is one, plays one sound at a time.
void TestAlert::deviceOutput_data()
{
    QTest::addColumn<bool>("player");
    QTest::addColumn<int>("starts");
    QTest::addColumn<int>("played");
    QTest::newRow("no player") << false << 2 << 0;
    // Each start's two sounds, the second waiting for the first; the second start's
    // sounds find the queue full but for one.
    QTest::newRow("one start") << true << 1 << 2;
    QTest::newRow("two starts") << true << 2 << 3;
    QTest::newRow("many starts") << true << 50 << 3;
}

void TestAlert::deviceOutput()
{
    QFETCH(bool, player);
    QFETCH(int, starts);
    TestHome home;
    const QString log = home.file(QStringLiteral("played"));
    QDir().mkpath(home.file(QStringLiteral("bin")));
    QDir().mkpath(home.file(QStringLiteral("share/sounds")));
    qputenv("NORVIKA_SHARE", home.file(QStringLiteral("share")).toLocal8Bit());
    qputenv("PATH", home.file(QStringLiteral("bin")).toLocal8Bit());
    for (const char *name : { "alarm", "alarma300" })
        writeFile(home.file(QStringLiteral("share/sounds/%1.wav").arg(name)), "RIFF");
    if (player)
        writeFile(home.file(QStringLiteral("bin/paplay")),
            "#!/bin/sh\necho start >> " + log.toLocal8Bit() + "\n/bin/sleep 0.3\necho end >> "
                + log.toLocal8Bit() + "\n",
            QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Reminder reminder;
    reminder.sound = true;
    reminder.led = true;
    Alert alert;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < starts; ++i)
        alert.start(&reminder);
    QVERIFY2(clock.elapsed() < 500, qPrintable(QString::number(clock.elapsed())));
    QFETCH(int, played);
    const QByteArray lines = QByteArray("start\nend\n").repeated(played);
    QTRY_COMPARE_WITH_TIMEOUT(QFile::exists(log) ? QFile(log).size() : 0, lines.size(), 5000);
    QTest::qWait(400);
    QFile file(log);
    QCOMPARE(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(), lines);
}

QTEST_MAIN(TestAlert)
#include "testalert.moc"
