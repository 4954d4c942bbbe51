#ifndef VALUECODEC_H
#define VALUECODEC_H

#include <QDate>
#include <QDateTime>
#include <QJsonValue>
#include <QString>
#include <QTime>

class DataRecord;
class JsonWriter;
class Reminder;

// The JSON forms of a card's values on the command line, both ways: text types as
// strings, number types as numbers ("nan", "inf", "-inf" for the others), dates as
// "YYYY-MM-DD", times as "hh:mm:ss.zzz", date-times as "YYYY-MM-DDThh:mm:ss.zzz"
// ("" when invalid), time stamps as "YYYY-MM-DDThh:mm:ss" or null.
class ValueCodec
{
public:
    static void writeSlot(JsonWriter &out, const DataRecord &record, int field, int type);
    // Sets the slot from a JSON value of the field's form; null unsets it.
    static bool readSlot(const QJsonValue &value, DataRecord &record, int field, int type,
                         QString *error);

    static void writeStamp(JsonWriter &out, const QDateTime &stamp);
    static void writeReminder(JsonWriter &out, const Reminder *reminder);
    // Null for a JSON null; *error set and null for a malformed object.
    static Reminder *readReminder(const QJsonValue &value, QString *error);

    static QString dateText(const QDate &date);
    static QString timeText(const QTime &time);
    static QString dateTimeText(const QDateTime &dateTime);
    static QString stampText(const QDateTime &stamp);

    static bool parseNumber(const QJsonValue &value, double *number);
    static bool parseDate(const QString &text, QDate *date);
    static bool parseTime(const QString &text, QTime *time);
    static bool parseDateTime(const QString &text, QDateTime *dateTime);
};

#endif
