#include "platform/alarmserver.h"
#include "platform/alarmtable.h"
#include "support/testhome.h"

#include <QFile>
#include <QLockFile>
#include <QTest>

class TestAlarmServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deleteWithWildcards_data();
    void deleteWithWildcards();
    void keptAcrossObjects_data();
    void keptAcrossObjects();
    void invalidAlarmRefused_data();
    void invalidAlarmRefused();
    void damagedFileAbsorbed();
    void lockedTableIsNotOverwritten();
};

namespace
{
const QByteArray channelA = QByteArrayLiteral("QPE/Application/norvika");
const QByteArray channelB = QByteArrayLiteral("QPE/Application/other");
const QDateTime at9(QDate(2030, 5, 1), QTime(9, 0));
const QDateTime at10(QDate(2030, 5, 1), QTime(10, 0));

// Four alarms that differ in one part each, so a pattern shows which parts it matched.
void addFour()
{
    QVERIFY(AlarmServer::addAlarm(at9, channelA, "alarm(QDateTime,int)one", 0));
    QVERIFY(AlarmServer::addAlarm(at10, channelA, "alarm(QDateTime,int)one", 0));
    QVERIFY(AlarmServer::addAlarm(at9, channelB, "alarm(QDateTime,int)one", 0));
    QVERIFY(AlarmServer::addAlarm(at9, channelA, "alarm(QDateTime,int)two", 5));
}

int storedCount()
{
    AlarmTable table;
    return int(table.alarms().size());
}
} // namespace

void TestAlarmServer::deleteWithWildcards_data()
{
    QTest::addColumn<QDateTime>("when");
    QTest::addColumn<QByteArray>("channel");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<int>("data");
    QTest::addColumn<int>("left");
    const QByteArray one = "alarm(QDateTime,int)one";
    QTest::newRow("exact") << at9 << channelA << one << 0 << 3;
    QTest::newRow("no such alarm") << at9 << channelA << one << 1 << 4;
    QTest::newRow("any moment") << QDateTime() << channelA << one << 0 << 2;
    QTest::newRow("any channel") << at9 << QByteArray() << one << 0 << 2;
    QTest::newRow("any data") << at9 << channelA << QByteArray("alarm(QDateTime,int)two") << -1
                              << 3;
    QTest::newRow("everything") << QDateTime() << QByteArray() << QByteArray() << -1 << 0;
    QTest::newRow("empty channel is not a wildcard") << at9 << QByteArray("") << one << 0 << 4;
}

void TestAlarmServer::deleteWithWildcards()
{
    QFETCH(QDateTime, when);
    QFETCH(QByteArray, channel);
    QFETCH(QByteArray, message);
    QFETCH(int, data);
    QFETCH(int, left);
    TestHome home;
    addFour();
    QVERIFY(AlarmServer::deleteAlarm(when, channel, message, data));
    QCOMPARE(storedCount(), left);
}

void TestAlarmServer::keptAcrossObjects_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("tabs, line feeds, percent") << QByteArray("a\tb\nc%20d\r");
    QTest::newRow("bytes beyond ASCII") << QByteArray("\xc3\x86r\xc3\xb8\xff");
}

void TestAlarmServer::keptAcrossObjects()
{
    QFETCH(QByteArray, message);
    TestHome home;
    const QDateTime when = QDateTime(QDate(2031, 1, 2), QTime(3, 4, 5, 678));
    QVERIFY(AlarmServer::addAlarm(when, channelA, message, 42));
    AlarmTable table;
    QCOMPARE(table.alarms(), QList<AlarmTable::Alarm>({ { when, channelA, message, 42 } }));
    QCOMPARE(table.droppedLines(), 0);
    // The same alarm again is kept once.
    QVERIFY(AlarmServer::addAlarm(when, channelA, message, 42));
    QCOMPARE(storedCount(), 1);
}

void TestAlarmServer::invalidAlarmRefused_data()
{
    QTest::addColumn<QDateTime>("when");
    QTest::addColumn<QByteArray>("channel");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no moment") << QDateTime() << channelA << QByteArray("m()");
    QTest::newRow("no channel") << at9 << QByteArray() << QByteArray("m()");
    QTest::newRow("message too long")
        << at9 << channelA << QByteArray(AlarmTable::maxNameLength + 1, 'm');
}

void TestAlarmServer::invalidAlarmRefused()
{
    QFETCH(QDateTime, when);
    QFETCH(QByteArray, channel);
    QFETCH(QByteArray, message);
    TestHome home;
    QVERIFY(!AlarmServer::addAlarm(when, channel, message, 0));
    QCOMPARE(storedCount(), 0);
}

void TestAlarmServer::damagedFileAbsorbed()
{
    TestHome home;
    const QByteArray good
        = at9.toUTC().toString(Qt::ISODateWithMs).toLatin1() + "\tch\tgood()\t3\n";
    {
        QFile file(AlarmTable::defaultFileName());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not an alarm\n");
        file.write("2030-13-45T99:00:00Z\tch\tbad()\t0\n"); // no such moment
        file.write(good);
        file.write("2030-05-01T09:00:00Z\tch\tbad()\tseven\n"); // data not a number
        file.write("2030-05-01T09:00:00Z\t\tbad()\t0\n"); // no channel
        file.write(QByteArray("\0\xff\xfe\x01\t\t\t", 7) + "\n");
        file.write(QByteArray(100000, 'x')); // a line cut short
    }
    {
        AlarmTable table;
        QCOMPARE(table.alarms().size(), 1);
        QCOMPARE(table.alarms().first().message, QByteArrayLiteral("good()"));
        QCOMPARE(table.droppedLines(), 6);
    }

    // The next write keeps what could be read and nothing else.
    QVERIFY(AlarmServer::addAlarm(at10, channelA, "new()", 0));
    AlarmTable rewritten;
    QCOMPARE(rewritten.alarms().size(), 2);
    QCOMPARE(rewritten.droppedLines(), 0);
}

void TestAlarmServer::lockedTableIsNotOverwritten()
{
    TestHome home;
    QVERIFY(AlarmServer::addAlarm(at9, channelA, "m()", 0));
    QLockFile other(AlarmTable::defaultFileName() + QStringLiteral(".lock"));
    QVERIFY(other.tryLock(0));
    QVERIFY(!AlarmServer::deleteAlarm(QDateTime(), QByteArray(), QByteArray(), -1));
    other.unlock();
    QCOMPARE(storedCount(), 1);
}

QTEST_GUILESS_MAIN(TestAlarmServer)
#include "testalarmserver.moc"
