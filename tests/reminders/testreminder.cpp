#include "reminders/reminder.h"
#include "store/binaryformat.h"

#include <QDataStream>
#include <QTest>
#include <QTextStream>

class TestReminder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void forms_data();
    void forms();
    void textReading_data();
    void textReading();
};

static Reminder sample()
{
    Reminder reminder;
    reminder.dateTime = QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9));
    reminder.sound = true;
    reminder.led = false;
    reminder.type = 4;
    return reminder;
}

// Both forms of a card hold the reminder byte for byte as here, and read it back whole.
void TestReminder::forms_data()
{
    QTest::addColumn<bool>("binary");
    QTest::addColumn<QByteArray>("bytes");
    // Julian day 2453072, 65109000 ms, sound 1, led 0, type 4.
    QTest::newRow("binary") << true
                            << QByteArray::fromHex("00256e50" "03e17c08" "00000001" "00000000"
                                                   "00000004");
    QTest::newRow("text") << false
                          << QByteArray("DATETIME=7 3 2004 18 5 9\nSOUND=1\nLED=0\nTYPE=4\n"
                                        "REMINDER_END\n");
}

void TestReminder::forms()
{
    QFETCH(bool, binary);
    QByteArray bytes;
    Reminder read;
    if (binary) {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        BinaryFormat::prepare(out);
        sample().write(out);
        QDataStream in(bytes);
        BinaryFormat::prepare(in);
        read.read(in);
        QVERIFY(in.atEnd());
    } else {
        QTextStream out(&bytes);
        sample().write(out);
        out.flush();
        QTextStream in(&bytes);
        QVERIFY(read.read(in));
    }
    QTEST(bytes, "bytes");
    QCOMPARE(read, sample());
}

void TestReminder::textReading_data()
{
    QTest::addColumn<QString>("block");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("sound");
    QTest::addColumn<bool>("led");
    QTest::addColumn<int>("type");
    QTest::newRow("any order, any non-zero flag") << "TYPE=6\nLED=7\nSOUND=-1\nREMINDER_END\n"
                                                  << true << true << true << 6;
    QTest::newRow("unknown keys and short lines skipped")
        << "COLOUR=red\nSOUND=\nLED\nTYPE=2\nREMINDER_END\nTYPE=3\n"
        << true << false << false << 2;
    QTest::newRow("unclosed block") << "SOUND=1\nTYPE=5\n" << false << true << false << 5;
}

void TestReminder::textReading()
{
    QFETCH(QString, block);
    QTextStream in(&block);
    Reminder read;
    QTEST(read.read(in), "closed");
    QTEST(read.sound, "sound");
    QTEST(read.led, "led");
    QTEST(read.type, "type");
    QVERIFY(!read.dateTime.isValid());
}

QTEST_GUILESS_MAIN(TestReminder)
#include "testreminder.moc"
