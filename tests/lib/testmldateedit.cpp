#include "lib/qt/mldateedit.h"

#include "platform/config.h"
#include "platform/datetimesettings.h"
#include "support/testhome.h"

#include <QtTest>

// The date editor: what goes in comes out, an empty date included, and it writes dates the
// way the user's settings say.
class TestMLDateEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void emptyShowsBlank();
    void steppingFromEmptyStartsToday();
    void followsAChangeOfSettings();
    void displayFollowsSettings_data();
    void displayFollowsSettings();
};

void TestMLDateEdit::roundTrip_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QDate>("expected");

    QTest::newRow("leap day") << QDate(2024, 2, 29) << QDate(2024, 2, 29);
    QTest::newRow("day after the placeholder") << QDate(1752, 9, 15) << QDate(1752, 9, 15);
    QTest::newRow("invalid") << QDate() << QDate();
    QTest::newRow("before the editor's range") << QDate(1600, 1, 1) << QDate();
}

void TestMLDateEdit::roundTrip()
{
    QFETCH(QDate, date);
    QFETCH(QDate, expected);
    TestHome home;
    MLDateEdit edit;
    edit.setDate(QDate(2000, 1, 1));
    edit.setDate(date);
    QCOMPARE(edit.date(), expected);
    QCOMPARE(edit.isEmpty(), !expected.isValid());
}

void TestMLDateEdit::emptyShowsBlank()
{
    TestHome home;
    MLDateEdit edit;
    QVERIFY(edit.isEmpty());
    QVERIFY(edit.text().trimmed().isEmpty());
    edit.setDate(QDate(2010, 5, 6));
    QVERIFY(!edit.text().trimmed().isEmpty());
}

void TestMLDateEdit::steppingFromEmptyStartsToday()
{
    TestHome home;
    MLDateEdit edit;
    edit.stepBy(1);
    QCOMPARE(edit.date(), QDate::currentDate());
}

void TestMLDateEdit::followsAChangeOfSettings()
{
    TestHome home;
    DateTimeSettings::instance()->invalidate();
    MLDateEdit edit;
    edit.setDate(QDate(2004, 3, 7));
    {
        Config qpe(QStringLiteral("qpe"));
        qpe.setGroup(QStringLiteral("Date"));
        qpe.writeEntry(QStringLiteral("ShortOrder"), 0124);
        qpe.writeEntry(QStringLiteral("Separator"), QStringLiteral("-"));
    }
    QVERIFY(DateTimeSettings::instance()->update());
    QCOMPARE(edit.text(), QStringLiteral("2004-03-07"));
    QCOMPARE(edit.date(), QDate(2004, 3, 7));
    DateTimeSettings::instance()->invalidate();
}

void TestMLDateEdit::displayFollowsSettings_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("shown");

    QTest::newRow("month day year") << 0412 << "/"
                                    << "MM/dd/yyyy"
                                    << "03/07/2004";
    QTest::newRow("year month day") << 0124 << "-"
                                    << "yyyy-MM-dd"
                                    << "2004-03-07";
}

void TestMLDateEdit::displayFollowsSettings()
{
    QFETCH(int, order);
    QFETCH(QString, separator);
    QFETCH(QString, format);
    QFETCH(QString, shown);

    TestHome home;
    {
        Config qpe(QStringLiteral("qpe"));
        qpe.setGroup(QStringLiteral("Date"));
        qpe.writeEntry(QStringLiteral("ShortOrder"), order);
        qpe.writeEntry(QStringLiteral("Separator"), separator);
    }
    DateTimeSettings::instance()->invalidate();
    MLDateEdit edit;
    QCOMPARE(MLDateEdit::systemDisplayFormat(), format);
    edit.setDate(QDate(2004, 3, 7));
    QCOMPARE(edit.text(), shown);
    DateTimeSettings::instance()->invalidate();
}

QTEST_MAIN(TestMLDateEdit)
#include "testmldateedit.moc"
