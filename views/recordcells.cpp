#include "views/recordcells.h"

#include "calc/datetimeformat.h"
#include "calc/numberformat.h"
#include "calc/systemdatetimeformat.h"
#include "card/datarecord.h"
#include "card/fielddef.h"

namespace
{
RecordCells::Cell text(const QString &text)
{
    return { text, RecordCells::NoIcon };
}

RecordCells::Cell icon(bool shown, int icon)
{
    return { QString(), shown ? icon : RecordCells::EmptyIcon };
}

QString dateText(const QDate &date, const QString &format)
{
    if (!date.isValid())
        return QString();
    return format.isEmpty() ? formatDate(date)
                            : formatDateTime(QDateTime(date, QTime(0, 0)), format);
}

QString timeText(const QTime &time, const QString &format)
{
    // A time alone has no date; a format is applied as of today. The toolkit would take a
    // missing time for midnight.
    if (!time.isValid())
        return QString();
    return format.isEmpty() ? formatTime(time)
                            : formatDateTime(QDateTime(QDate::currentDate(), time), format);
}

QString dateTimeText(const QDateTime &dateTime, const QString &format)
{
    return format.isEmpty() ? formatDateTimeDefault(dateTime) : formatDateTime(dateTime, format);
}
} // namespace

QStringList RecordCells::iconNames()
{
    return { QStringLiteral("empty"), QStringLiteral("document"), QStringLiteral("reminder"),
        QStringLiteral("on"), QStringLiteral("off"), QStringLiteral("image") };
}

QString RecordCells::iconName(int icon)
{
    return iconNames().value(icon);
}

RecordCells::Cell RecordCells::cell(const DataRecord &record, int field, const FieldDef &def)
{
    switch (def.type) {
    case FieldDef::String:
    case FieldDef::List:
        return text(record.stringValue(field));
    case FieldDef::Text:
        return text(record.stringValue(field).split(QLatin1Char('\n')).first());
    case FieldDef::Integer:
    case FieldDef::Double:
    case FieldDef::Count:
    case FieldDef::Increment:
        return text(formatNumber(record.doubleValue(field), def.format));
    case FieldDef::Date:
        return text(dateText(record.dateValue(field), def.format));
    case FieldDef::Time:
        return text(timeText(record.timeValue(field), def.format));
    case FieldDef::DateTime:
        return text(dateTimeText(record.dateTimeValue(field), def.format));
    case FieldDef::Memo:
        return icon(!record.memo().isEmpty(), DocumentIcon);
    case FieldDef::Reminder:
        return icon(record.hasReminder(), ReminderIcon);
    case FieldDef::Bool:
        return { QString(), record.doubleValue(field) == 0 ? OffIcon : OnIcon };
    case FieldDef::Image:
        return icon(record.hasImage(), ImageIcon);
    case FieldDef::MultiList:
        return text(record.stringValue(field).split(QLatin1Char('\n')).join(QLatin1Char(';')));
    default:
        return text(QString());
    }
}

QList<RecordCells::Cell> RecordCells::cells(
    const DataRecord &record, const QList<FieldDef> &fields, const QList<int> &columns)
{
    QList<Cell> row;
    row.reserve(columns.size());
    for (int field : columns) {
        if (field < 0 || field >= fields.size())
            row.append(text(QString()));
        else
            row.append(cell(record, field, fields.at(field)));
    }
    return row;
}

QString RecordCells::headerIcon(int type)
{
    switch (type) {
    case FieldDef::Date:
    case FieldDef::DateTime:
        return QStringLiteral("date");
    case FieldDef::Time:
        return QStringLiteral("clock");
    case FieldDef::Memo:
        return QStringLiteral("document");
    case FieldDef::Reminder:
        return QStringLiteral("reminder");
    case FieldDef::Bool:
        return QStringLiteral("onoff");
    case FieldDef::Image:
        return QStringLiteral("image");
    default:
        return QString();
    }
}

bool RecordCells::isRightAligned(int type)
{
    switch (type) {
    case FieldDef::Integer:
    case FieldDef::Double:
    case FieldDef::Count:
    case FieldDef::Increment:
    case FieldDef::Date:
    case FieldDef::Time:
    case FieldDef::DateTime:
        return true;
    default:
        return false;
    }
}
