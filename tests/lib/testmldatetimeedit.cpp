#include "lib/qt/mldatetimeedit.h"

#include "lib/qt/mldateedit.h"
#include "lib/qt/mltimeedit.h"
#include "support/testhome.h"

#include <QtTest>

// The date and time editor: moments go in and come out, an invalid one included.
class TestMLDateTimeEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void emptyDateMakesTheMomentInvalid();
};

void TestMLDateTimeEdit::roundTrip_data()
{
    QTest::addColumn<QDateTime>("moment");

    QTest::newRow("ordinary") << QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9));
    QTest::newRow("invalid") << QDateTime();
}

void TestMLDateTimeEdit::roundTrip()
{
    QFETCH(QDateTime, moment);
    TestHome home;
    MLDateTimeEdit edit;
    edit.setDateTime(QDateTime(QDate(2020, 1, 1), QTime(1, 2, 3)));
    edit.setDateTime(moment);
    QCOMPARE(edit.dateTime(), moment);
}

void TestMLDateTimeEdit::emptyDateMakesTheMomentInvalid()
{
    TestHome home;
    MLDateTimeEdit edit;
    edit.setDateTime(QDateTime(QDate(2004, 3, 7), QTime(18, 5)));
    edit.dateEdit()->setDate(QDate());
    QVERIFY(!edit.dateTime().isValid());
    edit.dateEdit()->setDate(QDate(2005, 1, 2));
    QCOMPARE(edit.dateTime(), QDateTime(QDate(2005, 1, 2), QTime(18, 5)));
}

QTEST_MAIN(TestMLDateTimeEdit)
#include "testmldatetimeedit.moc"
