#include "lib/qt/mldateedit.h"

#include "platform/config.h"
#include "platform/datetimesettings.h"
#include "support/testhome.h"

#include <QtTest>

#include <memory>

// The date editor: what goes in comes out, an empty date included, and it writes dates the
// way the user's settings say.
class TestMLDateEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void steppingFromEmptyStartsToday();
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
    QCOMPARE(edit.text().trimmed().isEmpty(), !expected.isValid());
}

void TestMLDateEdit::steppingFromEmptyStartsToday()
{
    TestHome home;
    MLDateEdit edit;
    QVERIFY(edit.isEmpty());
    QVERIFY(edit.text().trimmed().isEmpty());
    edit.stepBy(1);
    QCOMPARE(edit.date(), QDate::currentDate());
}

void TestMLDateEdit::displayFollowsSettings_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<bool>("whileShown"); // the settings change after the editor is made
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("shown");

    QTest::newRow("month day year") << 0412 << "/" << false << "MM/dd/yyyy"
                                    << "03/07/2004";
    QTest::newRow("year month day, changed while shown") << 0124 << "-" << true << "yyyy-MM-dd"
                                                         << "2004-03-07";
}

void TestMLDateEdit::displayFollowsSettings()
{
    QFETCH(int, order);
    QFETCH(QString, separator);
    QFETCH(bool, whileShown);

    TestHome home;
    DateTimeSettings::instance()->invalidate();
    std::unique_ptr<MLDateEdit> edit;
    if (whileShown) {
        edit = std::make_unique<MLDateEdit>();
        edit->setDate(QDate(2004, 3, 7));
    }
    {
        Config qpe(QStringLiteral("qpe"));
        qpe.setGroup(QStringLiteral("Date"));
        qpe.writeEntry(QStringLiteral("ShortOrder"), order);
        qpe.writeEntry(QStringLiteral("Separator"), separator);
    }
    if (whileShown) {
        QVERIFY(DateTimeSettings::instance()->update());
    } else {
        DateTimeSettings::instance()->invalidate();
        edit = std::make_unique<MLDateEdit>();
        edit->setDate(QDate(2004, 3, 7));
    }
    QTEST(MLDateEdit::systemDisplayFormat(), "format");
    QTEST(edit->text(), "shown");
    QCOMPARE(edit->date(), QDate(2004, 3, 7));
    DateTimeSettings::instance()->invalidate();
}

QTEST_MAIN(TestMLDateEdit)
#include "testmldateedit.moc"
