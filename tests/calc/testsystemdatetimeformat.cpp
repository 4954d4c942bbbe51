#include "calc/systemdatetimeformat.h"
#include "platform/config.h"
#include "platform/datetimesettings.h"
#include "support/testhome.h"

#include <QTest>

class TestSystemDateTimeFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void date_data();
    void date();
    void time_data();
    void time();

private:
    static void writeSettings(bool ampm, const QString &separator, int shortOrder);

    TestHome *m_home = nullptr;
};

void TestSystemDateTimeFormat::init()
{
    m_home = new TestHome;
    DateTimeSettings::instance()->invalidate();
}

void TestSystemDateTimeFormat::cleanup()
{
    delete m_home;
    m_home = nullptr;
    DateTimeSettings::instance()->invalidate();
}

void TestSystemDateTimeFormat::writeSettings(bool ampm, const QString &separator, int shortOrder)
{
    {
        Config cfg(QStringLiteral("qpe"));
        cfg.setGroup(QStringLiteral("Time"));
        cfg.writeEntry(QStringLiteral("AMPM"), ampm);
        cfg.setGroup(QStringLiteral("Date"));
        cfg.writeEntry(QStringLiteral("Separator"), separator);
        cfg.writeEntry(QStringLiteral("ShortOrder"), shortOrder);
    }
    DateTimeSettings::instance()->update();
}

void TestSystemDateTimeFormat::date_data()
{
    QTest::addColumn<QString>("separator");
    QTest::addColumn<int>("shortOrder");
    QTest::addColumn<QDate>("value");
    QTest::addColumn<QString>("expected");
    const QDate april3(2005, 4, 3);
    QTest::newRow("day month year") << "/" << 0421 << april3 << "03/04/2005";
    QTest::newRow("month day year") << "/" << 0412 << april3 << "04/03/2005";
    QTest::newRow("year month day") << "-" << 0124 << april3 << "2005-04-03";
    QTest::newRow("dots") << "." << 0421 << QDate(1999, 12, 31) << "31.12.1999";
    QTest::newRow("first character of the separator") << ". " << 0421 << april3 << "03.04.2005";
    QTest::newRow("early year padded") << "/" << 0124 << QDate(812, 1, 5) << "0812/01/05";
    QTest::newRow("part named twice falls back") << "/" << 0411 << april3 << "03/04/2005";
    QTest::newRow("unknown part falls back") << "/" << 0721 << april3 << "03/04/2005";
    QTest::newRow("fourth part falls back") << "/" << 01421 << april3 << "03/04/2005";
    QTest::newRow("negative falls back") << "/" << -1 << april3 << "03/04/2005";
}

void TestSystemDateTimeFormat::date()
{
    QFETCH(QString, separator);
    QFETCH(int, shortOrder);
    QFETCH(QDate, value);
    QFETCH(QString, expected);
    writeSettings(false, separator, shortOrder);
    QCOMPARE(formatDate(value), expected);
}

void TestSystemDateTimeFormat::time_data()
{
    QTest::addColumn<bool>("ampm");
    QTest::addColumn<QTime>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("24 hours, afternoon") << false << QTime(13, 5, 59) << "13:05";
    QTest::newRow("24 hours, midnight") << false << QTime(0, 0) << "00:00";
    QTest::newRow("12 hours, midnight") << true << QTime(0, 30) << "12:30 AM";
    QTest::newRow("12 hours, morning") << true << QTime(9, 7) << "09:07 AM";
    QTest::newRow("12 hours, noon") << true << QTime(12, 0) << "12:00 PM";
    QTest::newRow("12 hours, evening") << true << QTime(23, 59) << "11:59 PM";
}

void TestSystemDateTimeFormat::time()
{
    QFETCH(bool, ampm);
    QFETCH(QTime, value);
    QFETCH(QString, expected);
    writeSettings(ampm, QStringLiteral("/"), 0421);
    QCOMPARE(formatTime(value), expected);
}

QTEST_GUILESS_MAIN(TestSystemDateTimeFormat)
#include "testsystemdatetimeformat.moc"
