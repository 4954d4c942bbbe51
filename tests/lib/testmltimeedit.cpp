#include "lib/qt/mltimeedit.h"

#include "platform/config.h"
#include "platform/datetimesettings.h"
#include "support/testhome.h"

#include <QtTest>

// The time editor: values come back whole, seconds included, on either clock.
class TestMLTimeEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();

private:
    static void setClock(bool ampm);
};

void TestMLTimeEdit::setClock(bool ampm)
{
    Config qpe(QStringLiteral("qpe"));
    qpe.setGroup(QStringLiteral("Time"));
    qpe.writeEntry(QStringLiteral("AMPM"), ampm);
    qpe.write();
    DateTimeSettings::instance()->invalidate();
}

void TestMLTimeEdit::roundTrip_data()
{
    QTest::addColumn<bool>("ampm");
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QString>("shown");

    QTest::newRow("24 hours") << false << QTime(21, 30) << "21:30";
    QTest::newRow("12 hours") << true << QTime(21, 30) << "09:30 PM";
    QTest::newRow("afternoon with seconds") << false << QTime(13, 5, 42) << "";
    QTest::newRow("noon on the 12 hour clock") << true << QTime(12, 0) << "";
    QTest::newRow("evening on the 12 hour clock") << true << QTime(21, 30, 15) << "";
}

// The time comes back whole, seconds included, and shows on the clock of the settings.
void TestMLTimeEdit::roundTrip()
{
    QFETCH(bool, ampm);
    QFETCH(QTime, time);
    QFETCH(QString, shown);
    TestHome home;
    setClock(ampm);
    MLTimeEdit edit;
    edit.setTime(time);
    QCOMPARE(edit.time(), time);
    if (!shown.isEmpty())
        QCOMPARE(edit.text(), shown);
    DateTimeSettings::instance()->invalidate();
}

QTEST_MAIN(TestMLTimeEdit)
#include "testmltimeedit.moc"
