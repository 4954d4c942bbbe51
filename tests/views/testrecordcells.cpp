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
};

void TestRecordCells::cell_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("target");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<RecordCells::Cell>("expected");
    const auto row = [](const char *name, int type, const char *format, Target target,
                         const QVariant &value, const RecordCells::Cell &expected) {
        QTest::newRow(name) << type << QString::fromLatin1(format) << int(target) << value
                            << expected;
    };
    using F = FieldDef;
    using R = RecordCells;
    const QDateTime moment(QDate(2005, 4, 3), QTime(13, 5, 9));
    const QVariant none;
    row("string keeps lines", F::String, "", Slot, "a\nb", text("a\nb"));
    row("text first line", F::Text, "", Slot, "one\ntwo\nthree", text("one"));
    row("text empty first line", F::Text, "", Slot, "\nsecond", text(""));
    row("multilist joined", F::MultiList, "", Slot, "a\nb\nc", text("a;b;c"));
    row("integer plain", F::Integer, "", Slot, 42.0, text("42"));
    row("integer unset is zero", F::Integer, "", Unset, none, text("0"));
    row("double formatted", F::Double, "0.00", Slot, -2.0, text("-2.00"));
    row("increment padded", F::Increment, "000", Slot, 7.0, text("007"));
    row("date formatted", F::Date, "DD/MM/YYYY", Slot, moment.date(), text("03/04/2005"));
    row("date formatted at midnight", F::Date, "DD hh:mm", Slot, moment.date(), text("03 00:00"));
    row("date unset", F::Date, "DD/MM/YYYY", Unset, none, text(""));
    row("time formatted", F::Time, "hh:mm AM/PM", Slot, QTime(13, 5), text("01:05 PM"));
    row("time formatted as of today", F::Time, "YYYY hh", Slot, QTime(0, 30),
        text(QString::number(QDate::currentDate().year()) + " 00"));
    row("datetime formatted", F::DateTime, "YYYY-MM-DD h:m:s", Slot, moment,
        text("2005-04-03 13:5:9"));
    row("memo with text", F::Memo, "", Memo, "note", icon(R::DocumentIcon));
    row("memo empty", F::Memo, "", Unset, none, icon(R::EmptyIcon));
    row("reminder set", F::Reminder, "", ReminderAt, moment, icon(R::ReminderIcon));
    row("bool any non-zero", F::Bool, "", Slot, -3.0, icon(R::OnIcon));
    row("bool unset", F::Bool, "", Unset, none, icon(R::OffIcon));
    row("image set", F::Image, "", Image, "pictures/a.png", icon(R::ImageIcon));
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
    QCOMPARE(cells, expected);
}

QTEST_GUILESS_MAIN(TestRecordCells)
#include "testrecordcells.moc"
