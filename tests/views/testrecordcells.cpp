#include "support/testhome.h"

#include "calc/systemdatetimeformat.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "card/fielddef.h"
#include "reminders/reminder.h"
#include "views/recordcells.h"

#include <QTest>

#include <memory>

Q_DECLARE_METATYPE(RecordCells::Cell)

namespace
{
// How the value of a row goes into the record: a slot, or one of the single-instance members.
enum Target { Slot, Memo, Image, ReminderAt, Unset };

FieldDef field(int type, const QString &format = QString())
{
    FieldDef def;
    def.title = FieldDef::typeName(type);
    def.type = type;
    def.format = format;
    return def;
}

void put(DataRecord &record, Target target, const QVariant &value)
{
    switch (target) {
    case Memo:
        record.setMemo(value.toString());
        return;
    case Image:
        record.setImage(value.toString());
        return;
    case ReminderAt: {
        auto *reminder = new Reminder;
        reminder->dateTime = value.toDateTime();
        record.setReminder(reminder);
        return;
    }
    case Unset:
        return;
    case Slot:
        break;
    }
    switch (value.typeId()) {
    case QMetaType::QString:
        record.setStringValue(0, value.toString());
        break;
    case QMetaType::Double:
        record.setDoubleValue(0, value.toDouble());
        break;
    case QMetaType::QDate:
        record.setDateValue(0, value.toDate());
        break;
    case QMetaType::QTime:
        record.setTimeValue(0, value.toTime());
        break;
    case QMetaType::QDateTime:
        record.setDateTimeValue(0, value.toDateTime());
        break;
    default:
        QFAIL("unknown value kind");
    }
}

RecordCells::Cell text(const QString &text)
{
    return { text, RecordCells::NoIcon };
}

RecordCells::Cell icon(int icon)
{
    return { QString(), icon };
}
} // namespace

class TestRecordCells : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cell_data();
    void cell();
    void systemForms_data();
    void systemForms();
    void cellsFollowColumns();
    void iconNames();
    void headers_data();
    void headers();
};

void TestRecordCells::cell_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("target");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<RecordCells::Cell>("expected");

    const QDateTime moment(QDate(2005, 4, 3), QTime(13, 5, 9));
    QTest::newRow("string") << int(FieldDef::String) << "" << int(Slot) << QVariant("Ann")
                            << text("Ann");
    QTest::newRow("string keeps lines")
        << int(FieldDef::String) << "" << int(Slot) << QVariant("a\nb") << text("a\nb");
    QTest::newRow("list") << int(FieldDef::List) << "" << int(Slot) << QVariant("red")
                          << text("red");
    QTest::newRow("string unset") << int(FieldDef::String) << "" << int(Unset) << QVariant()
                                  << text("");
    QTest::newRow("text first line")
        << int(FieldDef::Text) << "" << int(Slot) << QVariant("one\ntwo\nthree") << text("one");
    QTest::newRow("text empty first line")
        << int(FieldDef::Text) << "" << int(Slot) << QVariant("\nsecond") << text("");
    QTest::newRow("multilist joined")
        << int(FieldDef::MultiList) << "" << int(Slot) << QVariant("a\nb\nc") << text("a;b;c");
    QTest::newRow("multilist single")
        << int(FieldDef::MultiList) << "" << int(Slot) << QVariant("a") << text("a");
    QTest::newRow("integer plain")
        << int(FieldDef::Integer) << "" << int(Slot) << QVariant(42.0) << text("42");
    QTest::newRow("integer unset is zero")
        << int(FieldDef::Integer) << "" << int(Unset) << QVariant() << text("0");
    QTest::newRow("double plain") << int(FieldDef::Double) << "" << int(Slot)
                                  << QVariant(3.14159265) << text("3.14159");
    QTest::newRow("double formatted")
        << int(FieldDef::Double) << "0.00" << int(Slot) << QVariant(-2.0) << text("-2.00");
    QTest::newRow("double grouped") << int(FieldDef::Double) << "#,###.00" << int(Slot)
                                    << QVariant(1234567.5) << text("1,234,567.50");
    QTest::newRow("count") << int(FieldDef::Count) << "" << int(Slot) << QVariant(7.0) << text("7");
    QTest::newRow("increment padded")
        << int(FieldDef::Increment) << "000" << int(Slot) << QVariant(7.0) << text("007");
    QTest::newRow("date formatted") << int(FieldDef::Date) << "DD/MM/YYYY" << int(Slot)
                                    << QVariant(moment.date()) << text("03/04/2005");
    QTest::newRow("date short") << int(FieldDef::Date) << "D.M.YY" << int(Slot)
                                << QVariant(moment.date()) << text("3.4.05");
    QTest::newRow("date formatted at midnight") << int(FieldDef::Date) << "DD hh:mm" << int(Slot)
                                                << QVariant(moment.date()) << text("03 00:00");
    QTest::newRow("date unset") << int(FieldDef::Date) << "DD/MM/YYYY" << int(Unset) << QVariant()
                                << text("");
    QTest::newRow("time formatted") << int(FieldDef::Time) << "hh:mm AM/PM" << int(Slot)
                                    << QVariant(QTime(13, 5)) << text("01:05 PM");
    QTest::newRow("time formatted as of today")
        << int(FieldDef::Time) << "YYYY hh" << int(Slot) << QVariant(QTime(0, 30))
        << text(QString::number(QDate::currentDate().year()) + " 00");
    QTest::newRow("time unset") << int(FieldDef::Time) << "hh:mm" << int(Unset) << QVariant()
                                << text("");
    QTest::newRow("datetime formatted")
        << int(FieldDef::DateTime) << "YYYY-MM-DD h:m:s" << int(Slot) << QVariant(moment)
        << text("2005-04-03 13:5:9");
    QTest::newRow("memo with text") << int(FieldDef::Memo) << "" << int(Memo) << QVariant("note")
                                    << icon(RecordCells::DocumentIcon);
    QTest::newRow("memo empty") << int(FieldDef::Memo) << "" << int(Unset) << QVariant()
                                << icon(RecordCells::EmptyIcon);
    QTest::newRow("reminder set") << int(FieldDef::Reminder) << "" << int(ReminderAt)
                                  << QVariant(moment) << icon(RecordCells::ReminderIcon);
    QTest::newRow("reminder none") << int(FieldDef::Reminder) << "" << int(Unset) << QVariant()
                                   << icon(RecordCells::EmptyIcon);
    QTest::newRow("bool true") << int(FieldDef::Bool) << "" << int(Slot) << QVariant(1.0)
                               << icon(RecordCells::OnIcon);
    QTest::newRow("bool any non-zero")
        << int(FieldDef::Bool) << "" << int(Slot) << QVariant(-3.0) << icon(RecordCells::OnIcon);
    QTest::newRow("bool false") << int(FieldDef::Bool) << "" << int(Slot) << QVariant(0.0)
                                << icon(RecordCells::OffIcon);
    QTest::newRow("bool unset") << int(FieldDef::Bool) << "" << int(Unset) << QVariant()
                                << icon(RecordCells::OffIcon);
    QTest::newRow("image set") << int(FieldDef::Image) << "" << int(Image)
                               << QVariant("pictures/a.png") << icon(RecordCells::ImageIcon);
    QTest::newRow("image none") << int(FieldDef::Image) << "" << int(Unset) << QVariant()
                                << icon(RecordCells::EmptyIcon);
}

void TestRecordCells::cell()
{
    QFETCH(int, type);
    QFETCH(QString, format);
    QFETCH(int, target);
    QFETCH(QVariant, value);
    QFETCH(RecordCells::Cell, expected);
    TestHome home;
    DataManager card(home.file(QStringLiteral("cells.card")));
    card.setFields({ field(type, format) }, true);
    DataRecord record(&card);
    put(record, Target(target), value);

    const RecordCells::Cell cell = RecordCells::cell(record, 0, card.field(0));
    QCOMPARE(cell.text, expected.text);
    QCOMPARE(cell.icon, expected.icon);
    QCOMPARE(cell.isIcon(), expected.icon != RecordCells::NoIcon);
}

void TestRecordCells::systemForms_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    const QDateTime moment(QDate(2005, 4, 3), QTime(13, 5, 9));
    QTest::newRow("date") << int(FieldDef::Date) << QVariant(moment.date())
                          << formatDate(moment.date());
    QTest::newRow("time") << int(FieldDef::Time) << QVariant(moment.time())
                          << formatTime(moment.time());
    QTest::newRow("datetime") << int(FieldDef::DateTime) << QVariant(moment)
                              << formatDateTimeDefault(moment);
}

// A field without a format follows the user's date and clock settings.
void TestRecordCells::systemForms()
{
    QFETCH(int, type);
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    TestHome home;
    DataManager card(home.file(QStringLiteral("cells.card")));
    card.setFields({ field(type) }, true);
    DataRecord record(&card);
    put(record, Slot, value);

    QVERIFY(!expected.isEmpty());
    QCOMPARE(RecordCells::cell(record, 0, card.field(0)).text, expected);
}

void TestRecordCells::cellsFollowColumns()
{
    TestHome home;
    DataManager card(home.file(QStringLiteral("cells.card")));
    card.setFields(
        { field(FieldDef::String), field(FieldDef::Integer, "000"), field(FieldDef::Bool) }, true);
    DataRecord record(&card);
    record.setStringValue(0, QStringLiteral("Bo"));
    record.setDoubleValue(1, 5);
    record.setDoubleValue(2, 1);

    const QList<RecordCells::Cell> cells
        = RecordCells::cells(record, card.fields(), { 2, 0, 1, 0, 9, -1 });
    const QList<RecordCells::Cell> expected { icon(RecordCells::OnIcon), text("Bo"), text("005"),
        text("Bo"), text(""), text("") };
    QCOMPARE(cells.size(), expected.size());
    for (qsizetype i = 0; i < cells.size(); ++i) {
        QCOMPARE(cells.at(i).text, expected.at(i).text);
        QCOMPARE(cells.at(i).icon, expected.at(i).icon);
    }
}

void TestRecordCells::iconNames()
{
    const QStringList names = RecordCells::iconNames();
    QCOMPARE(names, (QStringList { "empty", "document", "reminder", "on", "off", "image" }));
    QCOMPARE(RecordCells::iconName(RecordCells::OffIcon), QStringLiteral("off"));
    QCOMPARE(RecordCells::iconName(RecordCells::NoIcon), QString());
}

void TestRecordCells::headers_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<bool>("right");

    QTest::newRow("String") << int(FieldDef::String) << "" << false;
    QTest::newRow("Integer") << int(FieldDef::Integer) << "" << true;
    QTest::newRow("Double") << int(FieldDef::Double) << "" << true;
    QTest::newRow("Date") << int(FieldDef::Date) << "date" << true;
    QTest::newRow("Time") << int(FieldDef::Time) << "clock" << true;
    QTest::newRow("DateTime") << int(FieldDef::DateTime) << "date" << true;
    QTest::newRow("Text") << int(FieldDef::Text) << "" << false;
    QTest::newRow("Memo") << int(FieldDef::Memo) << "document" << false;
    QTest::newRow("Reminder") << int(FieldDef::Reminder) << "reminder" << false;
    QTest::newRow("List") << int(FieldDef::List) << "" << false;
    QTest::newRow("Bool") << int(FieldDef::Bool) << "onoff" << false;
    QTest::newRow("Count") << int(FieldDef::Count) << "" << true;
    QTest::newRow("Image") << int(FieldDef::Image) << "image" << false;
    QTest::newRow("MultiList") << int(FieldDef::MultiList) << "" << false;
    QTest::newRow("Increment") << int(FieldDef::Increment) << "" << true;
    QTest::newRow("unknown type") << 99 << "" << false;
}

void TestRecordCells::headers()
{
    QFETCH(int, type);
    QFETCH(QString, icon);
    QFETCH(bool, right);
    QCOMPARE(RecordCells::headerIcon(type), icon);
    QCOMPARE(RecordCells::isRightAligned(type), right);
}

QTEST_GUILESS_MAIN(TestRecordCells)
#include "testrecordcells.moc"
