#include "support/testhome.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "card/fielddef.h"
#include "views/recordcells.h"

#include <QTest>

#include <memory>

Q_DECLARE_METATYPE(RecordCells::Cell)

namespace
{
FieldDef field(int type, const QString &format = QString())
{
    FieldDef def;
    def.title = FieldDef::typeName(type);
    def.type = type;
    def.format = format;
    return def;
}

// Puts value into slot 0 by its kind; an invalid value leaves the slot unset.
void put(DataRecord &record, const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        break;
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
    void cellsFollowColumns();
};

void TestRecordCells::cell_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<RecordCells::Cell>("expected");
    const auto row = [](const char *name, int type, const char *format, const QVariant &value,
                         const RecordCells::Cell &expected) {
        QTest::newRow(name) << type << QString::fromLatin1(format) << value << expected;
    };
    using F = FieldDef;
    const QDateTime moment(QDate(2005, 4, 3), QTime(13, 5, 9));
    row("string keeps lines", F::String, "", "a\nb", text("a\nb"));
    row("text empty first line", F::Text, "", "\nsecond", text(""));
    row("multilist joined", F::MultiList, "", "a\nb\nc", text("a;b;c"));
    row("double formatted", F::Double, "0.00", -2.0, text("-2.00"));
    row("date formatted", F::Date, "DD/MM/YYYY", moment.date(), text("03/04/2005"));
    row("date formatted at midnight", F::Date, "DD hh:mm", moment.date(), text("03 00:00"));
    row("date unset", F::Date, "DD/MM/YYYY", QVariant(), text(""));
    row("time formatted", F::Time, "hh:mm AM/PM", QTime(13, 5), text("01:05 PM"));
    row("time formatted as of today", F::Time, "YYYY hh", QTime(0, 30),
        text(QString::number(QDate::currentDate().year()) + " 00"));
    row("datetime formatted", F::DateTime, "YYYY-MM-DD h:m:s", moment, text("2005-04-03 13:5:9"));
    row("bool any non-zero", F::Bool, "", -3.0, icon(RecordCells::OnIcon));
}

void TestRecordCells::cell()
{
    QFETCH(int, type);
    QFETCH(QString, format);
    QFETCH(QVariant, value);
    QFETCH(RecordCells::Cell, expected);
    TestHome home;
    DataManager card(home.file(QStringLiteral("cells.card")));
    card.setFields({ field(type, format) }, true);
    DataRecord record(&card);
    put(record, value);

    const RecordCells::Cell cell = RecordCells::cell(record, 0, card.field(0));
    QCOMPARE(cell.text, expected.text);
    QCOMPARE(cell.icon, expected.icon);
    QCOMPARE(cell.isIcon(), expected.icon != RecordCells::NoIcon);
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
