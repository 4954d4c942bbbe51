#include "calc/datetimeformat.h"

#include <QTest>

class TestDateTimeFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void format_data();
    void format();
    void invalidGivesNullString_data();
    void invalidGivesNullString();
};

void TestDateTimeFormat::format_data()
{
    const QDate april3(2005, 4, 3);
    const QDateTime afternoon(april3, QTime(13, 5, 7));
    QTest::addColumn<QDateTime>("value");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("expected");

    QTest::newRow("day, month, year") << afternoon << "DD/MM/YYYY"
                                      << "03/04/2005";
    QTest::newRow("short runs") << afternoon << "D.M.YY"
                                << "3.4.05";
    QTest::newRow("one Y is two digits") << afternoon << "Y"
                                         << "05";
    QTest::newRow("three Y is the year") << afternoon << "YYY"
                                         << "2005";
    QTest::newRow("long day run") << afternoon << "DDD"
                                  << "03";
    QTest::newRow("two-digit day unchanged") << QDateTime(QDate(2005, 12, 25), QTime(0, 0)) << "D/M"
                                             << "25/12";
    QTest::newRow("adjacent runs") << afternoon << "DDMMYY"
                                   << "030405";
    QTest::newRow("time") << afternoon << "hh:mm:ss"
                          << "13:05:07";
    QTest::newRow("time, short runs") << QDateTime(april3, QTime(9, 5, 7)) << "h:m:s"
                                      << "9:5:7";
    QTest::newRow("month and minute") << afternoon << "MM mm"
                                      << "04 05";
    QTest::newRow("afternoon, 12 hours") << QDateTime(april3, QTime(13, 5)) << "hh:mm AM/PM"
                                         << "01:05 PM";
    QTest::newRow("after midnight, 12 hours") << QDateTime(april3, QTime(0, 30)) << "hh:mm AM/PM"
                                              << "12:30 AM";
    QTest::newRow("noon, 12 hours") << QDateTime(april3, QTime(12, 0)) << "h AM/PM"
                                    << "12 PM";
    QTest::newRow("morning, short hour") << QDateTime(april3, QTime(9, 0)) << "hAM/PM"
                                         << "9AM";
    QTest::newRow("marker alone keeps 24 hours") << afternoon << "hh ^"
                                                 << "13 PM";
    QTest::newRow("marker run") << afternoon << "^^"
                                << "PM";
    QTest::newRow("second AM/PM is letters") << afternoon << "AM/PM AM/PM"
                                             << "PM A4/P4";
    QTest::newRow("lower case d, y, H, S are text") << afternoon << "dd yy HH SS"
                                                    << "dd yy HH SS";
    QTest::newRow("no acting letters") << afternoon << "date: (none)!"
                                       << "date: (none)!";
    QTest::newRow("empty code") << afternoon << ""
                                << "";
    QTest::newRow("two-digit year of 2000") << QDateTime(QDate(2000, 1, 2), QTime(0, 0)) << "YY-M-D"
                                            << "00-1-2";
}

void TestDateTimeFormat::format()
{
    QFETCH(QDateTime, value);
    QFETCH(QString, code);
    QFETCH(QString, expected);
    QCOMPARE(formatDateTime(value, code), expected);
}

void TestDateTimeFormat::invalidGivesNullString_data()
{
    QTest::addColumn<QDateTime>("value");
    QTest::newRow("invalid date") << QDateTime(QDate(), QTime(10, 0));
    QTest::newRow("null") << QDateTime();
}

void TestDateTimeFormat::invalidGivesNullString()
{
    QFETCH(QDateTime, value);
    QVERIFY(formatDateTime(value, QStringLiteral("DD/MM/YYYY")).isNull());
}

QTEST_GUILESS_MAIN(TestDateTimeFormat)
#include "testdatetimeformat.moc"
