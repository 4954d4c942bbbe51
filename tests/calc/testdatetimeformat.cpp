#include "calc/datetimeformat.h"

#include <QTest>

class TestDateTimeFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void format_data();
    void format();
};

void TestDateTimeFormat::format_data()
{
    QTest::addColumn<QDateTime>("value");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("expected");
    const auto row
        = [](const char *name, const QDateTime &value, const char *code, const QString &expected) {
              QTest::newRow(name) << value << QString::fromLatin1(code) << expected;
          };
    const QDate april3(2005, 4, 3);
    const QDateTime afternoon(april3, QTime(13, 5, 7));
    const auto at = [&](int h, int m) { return QDateTime(april3, QTime(h, m)); };
    row("day, month, year", afternoon, "DD/MM/YYYY", "03/04/2005");
    row("short runs", afternoon, "D.M.YY", "3.4.05");
    row("one Y is two digits", afternoon, "Y", "05");
    row("three Y is the year", afternoon, "YYY", "2005");
    row("long day run", afternoon, "DDD", "03");
    row("two-digit day unchanged", QDateTime(QDate(2005, 12, 25), QTime(0, 0)), "D/M", "25/12");
    row("adjacent runs", afternoon, "DDMMYY", "030405");
    row("time", afternoon, "hh:mm:ss", "13:05:07");
    row("time, short runs", QDateTime(april3, QTime(9, 5, 7)), "h:m:s", "9:5:7");
    row("month and minute", afternoon, "MM mm", "04 05");
    row("afternoon, 12 hours", at(13, 5), "hh:mm AM/PM", "01:05 PM");
    row("after midnight, 12 hours", at(0, 30), "hh:mm AM/PM", "12:30 AM");
    row("noon, 12 hours", at(12, 0), "h AM/PM", "12 PM");
    row("morning, short hour", at(9, 0), "hAM/PM", "9AM");
    row("marker alone keeps 24 hours", afternoon, "hh ^", "13 PM");
    row("marker run", afternoon, "^^", "PM");
    row("second AM/PM is letters", afternoon, "AM/PM AM/PM", "PM A4/P4");
    row("lower case d, y, H, S are text", afternoon, "dd yy HH SS", "dd yy HH SS");
    row("no acting letters", afternoon, "date: (none)!", "date: (none)!");
    row("empty code", afternoon, "", "");
    row("two-digit year of 2000", QDateTime(QDate(2000, 1, 2), QTime(0, 0)), "YY-M-D", "00-1-2");
    row("invalid date", QDateTime(QDate(), QTime(10, 0)), "DD/MM/YYYY", QString());
    row("null", QDateTime(), "DD/MM/YYYY", QString());
}

void TestDateTimeFormat::format()
{
    QFETCH(QDateTime, value);
    QFETCH(QString, code);
    QFETCH(QString, expected);
    const QString formatted = formatDateTime(value, code);
    QCOMPARE(formatted, expected);
    if (expected.isNull()) // an invalid value
        QVERIFY(formatted.isNull());
}

QTEST_GUILESS_MAIN(TestDateTimeFormat)
#include "testdatetimeformat.moc"
