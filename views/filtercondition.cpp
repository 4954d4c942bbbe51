#include "views/filtercondition.h"

#include "card/datarecord.h"
#include "card/fielddef.h"
#include "store/binaryformat.h"

#include <QDataStream>
#include <QDebug>

bool FilterCondition::accept(const DataRecord &record, const QList<FieldDef> &fields) const
{
    if (field == AllTextFields)
        return acceptAllTextFields(record, fields);
    if (field < 0 || field >= fields.size()) {
        // A damaged card can name a field it does not have; it is then tested as an
        // empty text field rather than refused.
        qWarning("FilterCondition: field %d is not one of the card's %lld fields", field,
            static_cast<long long>(fields.size()));
        return textMatches(op, QString(), text);
    }
    return acceptField(record, fields.at(field).type);
}

bool FilterCondition::acceptField(const DataRecord &record, int type) const
{
    switch (type) {
    case FieldDef::String:
    case FieldDef::Text:
    case FieldDef::List:
        return textMatches(op, record.stringValue(field), text);
    case FieldDef::Memo:
        return textMatches(op, record.memo(), text);
    case FieldDef::MultiList:
        return acceptMultiList(record.stringValue(field));
    case FieldDef::Integer:
    case FieldDef::Count:
    case FieldDef::Increment:
        return compareNumber(record.intValue(field), number);
    case FieldDef::Double:
        return compareNumber(record.doubleValue(field), real);
    case FieldDef::Date:
        return compareMoment(record.dateValue(field), date);
    case FieldDef::Time:
        return compareMoment(record.timeValue(field), time);
    case FieldDef::DateTime: {
        const QDateTime value = record.dateTimeValue(field);
        return compareDateTime(value.date(), value.time());
    }
    case FieldDef::Reminder:
        return answerMatches(record.hasReminder());
    case FieldDef::Image:
        return answerMatches(record.hasImage());
    case FieldDef::Bool: {
        // Only a stored 1 counts as set.
        const bool same = (number == Yes) == (record.intValue(field) == 1);
        return op == Equals ? same : !same;
    }
    default:
        return false;
    }
}

// Holds if the test holds for at least one text field, so that "doesn't contain" asks
// whether some field lacks the text, not whether all do.
bool FilterCondition::acceptAllTextFields(
    const DataRecord &record, const QList<FieldDef> &fields) const
{
    bool any = false;
    for (int i = 0; i < fields.size(); ++i) {
        const int type = fields.at(i).type;
        if (!FieldDef::isSearchedAsText(type))
            continue;
        const QString value = type == FieldDef::Memo ? record.memo() : record.stringValue(i);
        any = textMatches(op, value, text) || any;
    }
    return any;
}

// Each chosen item is tested on its own; an empty value has no items, so even
// "is empty" fails on it.
bool FilterCondition::acceptMultiList(const QString &value) const
{
    const QStringList parts = value.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        if (textMatches(op, part, text))
            return true;
    }
    return false;
}

template <typename T> bool FilterCondition::compareNumber(T value, T operand) const
{
    switch (op) {
    case Equals:
        return value == operand;
    case NotEqualTo:
        return value != operand;
    case AtMost:
        return value <= operand;
    case AtLeast:
        return value >= operand;
    case MoreThan:
        return value > operand;
    case LessThan:
        return value < operand;
    default:
        return false;
    }
}

// An unset date or time is earlier than any set one, and equal to another unset one.
template <typename T> bool FilterCondition::compareMoment(const T &value, const T &operand) const
{
    switch (op) {
    case On:
        return value == operand;
    case OnOrAfter:
        return value >= operand;
    case OnOrBefore:
        return value <= operand;
    default:
        return false;
    }
}

// Compared on the calendar and the clock, date first, so that no time zone or daylight
// saving stands between the record's value and the condition's.
bool FilterCondition::compareDateTime(const QDate &valueDate, const QTime &valueTime) const
{
    if (valueDate != date)
        return compareMoment(valueDate, date);
    return compareMoment(valueTime, time);
}

bool FilterCondition::answerMatches(bool present) const
{
    return (number == Yes) == present;
}

bool FilterCondition::textMatches(int op, const QString &value, const QString &text)
{
    switch (op) {
    case Contains:
        return value.indexOf(text, 0, Qt::CaseInsensitive) != -1;
    case IsExactly:
        return value == text;
    case DoesNotContain:
        return value.indexOf(text, 0, Qt::CaseInsensitive) == -1;
    case IsEmpty:
        return value.isEmpty();
    case IsNotEmpty:
        return !value.isEmpty();
    case StartsWith: {
        // Compared as views: a null value would otherwise start with nothing at all.
        const QString lowerValue = value.toLower();
        const QString lowerText = text.toLower();
        return lowerValue.size() >= lowerText.size()
            && QStringView(lowerValue).first(lowerText.size()) == QStringView(lowerText);
    }
    case EndsWith: {
        // Only the first occurrence counts: "abab" does not end with "ab" here.
        const qsizetype at = value.indexOf(text, 0, Qt::CaseInsensitive);
        return at != -1 && at == value.size() - text.size();
    }
    default:
        return false;
    }
}

QStringList FilterCondition::operatorLabels(int fieldType)
{
    switch (fieldType) {
    case FieldDef::String:
    case FieldDef::Text:
    case FieldDef::Memo:
    case FieldDef::List:
    case FieldDef::MultiList:
        return { tr("contains"), tr("is (exactly)"), tr("doesn't contain"), tr("is empty"),
            tr("is not empty"), tr("starts with"), tr("ends with") };
    case FieldDef::Integer:
    case FieldDef::Double:
    case FieldDef::Count:
    case FieldDef::Increment:
        return { tr("equals"), tr("not equal to"), tr("is at most"), tr("is at least"),
            tr("is more than"), tr("is less than") };
    case FieldDef::Date:
    case FieldDef::Time:
    case FieldDef::DateTime:
        return { tr("on"), tr("on or after"), tr("on or before") };
    case FieldDef::Reminder:
        return { tr("have reminder") };
    case FieldDef::Bool:
        return { tr("equals"), tr("not equal to") };
    case FieldDef::Image:
        return { tr("have image") };
    default:
        return {};
    }
}

QStringList FilterCondition::operatorLabelsFor(int field, const QList<FieldDef> &fields)
{
    if (field == AllTextFields)
        return operatorLabels(FieldDef::String);
    if (field < 0 || field >= fields.size())
        return {};
    return operatorLabels(fields.at(field).type);
}

QString FilterCondition::operatorLabel(int fieldType, int op)
{
    return operatorLabels(fieldType).value(op);
}

QString FilterCondition::allTextFieldsTitle()
{
    return tr("All Text Fields");
}

void FilterCondition::write(QDataStream &stream) const
{
    stream << qint32(field) << qint32(op) << text << qint32(number) << real << date << time;
}

bool FilterCondition::read(QDataStream &stream)
{
    qint32 storedField = 0;
    qint32 storedOp = 0;
    qint32 storedNumber = 0;
    stream >> storedField >> storedOp >> text >> storedNumber >> real >> date >> time;
    field = storedField;
    op = storedOp;
    number = storedNumber;
    return BinaryFormat::ok(stream);
}
