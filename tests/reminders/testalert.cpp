#include "reminders/alert.h"

#include "reminders/reminder.h"
#include "support/testhome.h"

#include <QLabel>
#include <QtTest>

// The alarm screen: what each start turns on, the cap on sounds when many alarms come at
// once, and the LED going off with the screen.
class TestAlert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void starts_data();
    void starts();
    void markup();
};

void TestAlert::starts_data()
{
    QTest::addColumn<bool>("sound");
    QTest::addColumn<bool>("led");
    QTest::addColumn<int>("starts");
    QTest::addColumn<int>("plays");
    QTest::addColumn<QString>("ledCalls");
    QTest::newRow("one, sound and LED") << true << true << 1 << 1 << "on 4;off";
    QTest::newRow("second sounds again") << true << false << 2 << 2 << "";
    QTest::newRow("third within a minute is silent") << true << false << 3 << 2 << "";
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
        QCOMPARE(alert.windowTitle(), QStringLiteral("Card Alarm"));
    }
    QTEST(ledCalls.join(u';'), "ledCalls");
}

void TestAlert::markup()
{
    TestHome home;
    Alert alert(
        nullptr, [] {}, [](bool, int) {});
    const auto labels = alert.findChildren<QLabel *>();
    const bool found = std::any_of(labels.cbegin(), labels.cend(), [](const QLabel *label) {
        return label->text().startsWith(QStringLiteral("<center><h1><font color=\"#000099\">Card "
                                                       "Alarm</font></h1></center><br><center>"))
            && label->text().endsWith(QStringLiteral("/<center>"));
    });
    QVERIFY(found);
}

QTEST_MAIN(TestAlert)
#include "testalert.moc"
