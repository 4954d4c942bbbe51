#include "cli/valuecodec.h"

#include "card/datarecord.h"
#include "card/fielddef.h"
#include "cli/jsonwriter.h"
#include "reminders/reminder.h"

#include <QJsonObject>

#include <limits>

namespace {
const QString dateForm = QStringLiteral("yyyy-MM-dd");
const QString timeForm = QStringLiteral("HH:mm:ss.zzz");
const QString stampForm = QStringLiteral("yyyy-MM-ddTHH:mm:ss");

bool slotIsNumber(int type)
{
    return FieldDef::family(type) == FieldDef::NumberFamily;
}
} // namespace

QString ValueCodec::dateText(const QDate &date)
{
    return date.isValid() ? date.toString(dateForm) : QStringLiteral("");
}

QString ValueCodec::timeText(const QTime &time)
{
    return time.isValid() ? time.toString(timeForm) : QStringLiteral("");
}

QString ValueCodec::dateTimeText(const QDateTime &dateTime)
{
    if (!dateTime.isValid())
        return QStringLiteral("");
    return dateText(dateTime.date()) + QLatin1Char('T') + timeText(dateTime.time());
}

QString ValueCodec::stampText(const QDateTime &stamp)
{
    return stamp.isValid() ? stamp.toString(stampForm) : QString();
}

void ValueCodec::writeStamp(JsonWriter &out, const QDateTime &stamp)
{
    out.stringOrNull(stampText(stamp));
}

void ValueCodec::writeSlot(JsonWriter &out, const DataRecord &record, int field, int type)
{
    if (!record.isSet(field)) {
        out.nullValue();
        return;
    }
    switch (FieldDef::family(type)) {
    case FieldDef::TextFamily:
        out.value(record.stringValue(field));
        break;
    case FieldDef::NumberFamily:
        out.value(record.doubleValue(field));
        break;
    case FieldDef::DateFamily:
        out.value(dateText(record.dateValue(field)));
        break;
    case FieldDef::TimeFamily:
        out.value(timeText(record.timeValue(field)));
        break;
    case FieldDef::DateTimeFamily:
        out.value(dateTimeText(record.dateTimeValue(field)));
        break;
    case FieldDef::NoSlot:
        out.nullValue();
        break;
    }
}

void ValueCodec::writeReminder(JsonWriter &out, const Reminder *reminder)
{
    if (!reminder) {
        out.nullValue();
        return;
    }
    out.beginObject();
    out.key(QStringLiteral("dateTime"));
    writeStamp(out, reminder->dateTime);
    out.key(QStringLiteral("sound"));
    out.value(reminder->sound);
    out.key(QStringLiteral("led"));
    out.value(reminder->led);
    out.key(QStringLiteral("type"));
    out.value(reminder->type);
    out.endObject();
}

bool ValueCodec::parseNumber(const QJsonValue &value, double *number)
{
    if (value.isDouble()) {
        *number = value.toDouble();
        return true;
    }
    const QString text = value.toString();
    if (text == QLatin1String("nan"))
        *number = std::numeric_limits<double>::quiet_NaN();
    else if (text == QLatin1String("inf"))
        *number = std::numeric_limits<double>::infinity();
    else if (text == QLatin1String("-inf"))
        *number = -std::numeric_limits<double>::infinity();
    else
        return false;
    return true;
}

bool ValueCodec::parseDate(const QString &text, QDate *date)
{
    *date = text.isEmpty() ? QDate() : QDate::fromString(text, dateForm);
    return text.isEmpty() || date->isValid();
}

bool ValueCodec::parseTime(const QString &text, QTime *time)
{
    if (text.isEmpty()) {
        *time = QTime();
        return true;
    }
    *time = QTime::fromString(text, timeForm);
    if (!time->isValid())
        *time = QTime::fromString(text, QStringLiteral("HH:mm:ss"));
    return time->isValid();
}

bool ValueCodec::parseDateTime(const QString &text, QDateTime *dateTime)
{
    if (text.isEmpty()) {
        *dateTime = QDateTime();
        return true;
    }
    const int t = int(text.indexOf(QLatin1Char('T')));
    QDate date;
    QTime time;
    if (t < 0 || !parseDate(text.left(t), &date) || !parseTime(text.mid(t + 1), &time)
        || !date.isValid() || !time.isValid())
        return false;
    *dateTime = QDateTime(date, time);
    return true;
}

bool ValueCodec::readSlot(const QJsonValue &value, DataRecord &record, int field, int type,
                          QString *error)
{
    if (value.isNull()) {
        record.clearValue(field);
        return true;
    }
    if (slotIsNumber(type)) {
        double number = 0;
        if (!parseNumber(value, &number)) {
            *error = QStringLiteral("field %1 takes a number").arg(field);
            return false;
        }
        record.setDoubleValue(field, number);
        return true;
    }
    if (!value.isString()) {
        *error = QStringLiteral("field %1 takes a string").arg(field);
        return false;
    }
    const QString text = value.toString();
    bool ok = true;
    switch (FieldDef::family(type)) {
    case FieldDef::TextFamily:
        record.setStringValue(field, text);
        break;
    case FieldDef::DateFamily: {
        QDate date;
        ok = parseDate(text, &date);
        record.setDateValue(field, date);
        break;
    }
    case FieldDef::TimeFamily: {
        QTime time;
        ok = parseTime(text, &time);
        record.setTimeValue(field, time);
        break;
    }
    case FieldDef::DateTimeFamily: {
        QDateTime dateTime;
        ok = parseDateTime(text, &dateTime);
        record.setDateTimeValue(field, dateTime);
        break;
    }
    default:
        ok = false;
    }
    if (!ok)
        *error = QStringLiteral("field %1: malformed value \"%2\"").arg(field).arg(text);
    return ok;
}

Reminder *ValueCodec::readReminder(const QJsonValue &value, QString *error)
{
    if (value.isNull())
        return nullptr;
    const QJsonObject object = value.toObject();
    QDateTime when;
    const QString whenText = object.value(QStringLiteral("dateTime")).toString();
    when = QDateTime::fromString(whenText, stampForm);
    if (!value.isObject() || !when.isValid()) {
        *error = QStringLiteral("a reminder needs a \"dateTime\" of the form YYYY-MM-DDThh:mm:ss");
        return nullptr;
    }
    auto *reminder = new Reminder;
    reminder->dateTime = when;
    reminder->sound = object.value(QStringLiteral("sound")).toBool(true);
    reminder->led = object.value(QStringLiteral("led")).toBool(true);
    reminder->type = object.value(QStringLiteral("type")).toInt(0);
    return reminder;
}
