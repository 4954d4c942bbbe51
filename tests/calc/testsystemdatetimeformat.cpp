#include "calc/systemdatetimeformat.h"
#include "platform/config.h"
#include "platform/datetimesettings.h"
#include "support/testhome.h"

#include <QTest>

#include <optional>

class TestSystemDateTimeFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void form_data();
    void form();

private:
    std::optional<TestHome> m_home;
};

void TestSystemDateTimeFormat::init()
{
    m_home.emplace();
    DateTimeSettings::instance()->invalidate();
}

void TestSystemDateTimeFormat::cleanup()
{
    m_home.reset();
    DateTimeSettings::instance()->invalidate();
}

// A date value is shown by formatDate, a time by formatTime.
void TestSystemDateTimeFormat::form_data()
{
    QTest::addColumn<bool>("ampm");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<int>("shortOrder");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");
    const auto date = [](const char *name, const char *separator, int order, const QDate &value,
                          const char *expected) {
        QTest::newRow(name) << false << QString(separator) << order << QVariant(value)
                            << QString(expected);
    };
    const auto time = [](const char *name, bool ampm, const QTime &value, const char *expected) {
        QTest::newRow(name) << ampm << QStringLiteral("/") << 0421 << QVariant(value)
                            << QString(expected);
    };
    const QDate april3(2005, 4, 3);
    date("day month year", "/", 0421, april3, "03/04/2005");
    date("month day year", "/", 0412, april3, "04/03/2005");
    date("year month day", "-", 0124, april3, "2005-04-03");
    date("dots", ".", 0421, QDate(1999, 12, 31), "31.12.1999");
    date("first character of the separator", ". ", 0421, april3, "03.04.2005");
    date("early year padded", "/", 0124, QDate(812, 1, 5), "0812/01/05");
    date("part named twice falls back", "/", 0411, april3, "03/04/2005");
    date("unknown part falls back", "/", 0721, april3, "03/04/2005");
    date("fourth part falls back", "/", 01421, april3, "03/04/2005");
    date("negative falls back", "/", -1, april3, "03/04/2005");
    time("24 hours, afternoon", false, QTime(13, 5, 59), "13:05");
    time("24 hours, midnight", false, QTime(0, 0), "00:00");
    time("12 hours, midnight", true, QTime(0, 30), "12:30 AM");
    time("12 hours, morning", true, QTime(9, 7), "09:07 AM");
    time("12 hours, noon", true, QTime(12, 0), "12:00 PM");
    time("12 hours, evening", true, QTime(23, 59), "11:59 PM");
}

void TestSystemDateTimeFormat::form()
{
    QFETCH(bool, ampm);
    QFETCH(QString, separator);
    QFETCH(int, shortOrder);
    QFETCH(QVariant, value);
    {
        Config cfg(QStringLiteral("qpe"));
        cfg.setGroup(QStringLiteral("Time"));
        cfg.writeEntry(QStringLiteral("AMPM"), ampm);
        cfg.setGroup(QStringLiteral("Date"));
        cfg.writeEntry(QStringLiteral("Separator"), separator);
        cfg.writeEntry(QStringLiteral("ShortOrder"), shortOrder);
    }
    DateTimeSettings::instance()->update();
    QTEST(value.typeId() == QMetaType::QDate ? formatDate(value.toDate())
                                             : formatTime(value.toTime()),
        "expected");
}

QTEST_GUILESS_MAIN(TestSystemDateTimeFormat)
#include "testsystemdatetimeformat.moc"
