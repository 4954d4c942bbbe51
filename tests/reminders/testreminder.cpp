#include "reminders/reminder.h"
#include "store/binaryformat.h"

#include <QDataStream>
#include <QTest>
#include <QTextStream>

class TestReminder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void binaryBytes();
    void binaryRoundTrip();
    void textForm();
    void textReading_data();
    void textReading();
    void unclosedTextBlock();
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

void TestReminder::binaryBytes()
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    BinaryFormat::prepare(out);
    sample().write(out);
    // Julian day 2453072, 65109000 ms, sound 1, led 0, type 4.
    QCOMPARE(bytes.toHex(),
        QByteArray("00256e50"
                   "03e17c08"
                   "00000001"
                   "00000000"
                   "00000004"));
}

void TestReminder::binaryRoundTrip()
{
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        BinaryFormat::prepare(out);
        sample().write(out);
    }
    QDataStream in(bytes);
    BinaryFormat::prepare(in);
    Reminder read;
    read.read(in);
    QCOMPARE(read, sample());
    QVERIFY(in.atEnd());
}

void TestReminder::textForm()
{
    QString text;
    QTextStream out(&text);
    sample().write(out);
    out.flush();
    QCOMPARE(text,
        QStringLiteral("DATETIME=7 3 2004 18 5 9\nSOUND=1\nLED=0\nTYPE=4\n"
                       "REMINDER_END\n"));
    QTextStream in(&text);
    Reminder read;
    QVERIFY(read.read(in));
    QCOMPARE(read, sample());
}

void TestReminder::textReading_data()
{
    QTest::addColumn<QString>("block");
    QTest::addColumn<bool>("sound");
    QTest::addColumn<bool>("led");
    QTest::addColumn<int>("type");
    QTest::newRow("any order, any non-zero flag") << "TYPE=6\nLED=7\nSOUND=-1\nREMINDER_END\n"
                                                  << true << true << 6;
    QTest::newRow("unknown keys and short lines skipped")
        << "COLOUR=red\nSOUND=\nLED\nTYPE=2\nREMINDER_END\nTYPE=3\n"
        << false << false << 2;
}

void TestReminder::textReading()
{
    QFETCH(QString, block);
    QFETCH(bool, sound);
    QFETCH(bool, led);
    QFETCH(int, type);
    QTextStream in(&block);
    Reminder read;
    QVERIFY(read.read(in));
    QCOMPARE(read.sound, sound);
    QCOMPARE(read.led, led);
    QCOMPARE(read.type, type);
    QVERIFY(!read.dateTime.isValid());
}

void TestReminder::unclosedTextBlock()
{
    QString block = QStringLiteral("SOUND=1\nTYPE=5\n");
    QTextStream in(&block);
    Reminder read;
    QVERIFY(!read.read(in));
    QCOMPARE(read.type, 5);
}

QTEST_GUILESS_MAIN(TestReminder)
#include "testreminder.moc"
