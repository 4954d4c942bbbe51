#include "card/datarecord.h"

#include "card/datamanager.h"
#include "card/fielddef.h"
#include "reminders/reminder.h"
#include "store/binaryformat.h"

#include <QDataStream>

DataRecord::DataRecord(DataManager *manager)
    : PIMRecord(manager)
{
    if (manager)
        m_values.resize(manager->fieldCount());
}

DataRecord::DataRecord(DataManager *manager, BlankTag)
    : PIMRecord(manager, Blank)
{
}

DataRecord::DataRecord(const DataRecord &other)
    : PIMRecord(other)
    , m_values(other.m_values)
    , m_memo(other.m_memo)
    , m_image(other.m_image)
{
    if (other.m_reminder)
        m_reminder = std::make_unique<Reminder>(*other.m_reminder);
}

DataRecord::~DataRecord() = default;

bool DataRecord::isSet(int i) const
{
    return i >= 0 && i < slotCount() && !std::holds_alternative<std::monostate>(m_values.at(i));
}

void DataRecord::clearValue(int i)
{
    setSlot(i, std::monostate());
}

template <typename T> T DataRecord::slot(int i) const
{
    if (i < 0 || i >= slotCount())
        return T();
    const T *value = std::get_if<T>(&m_values.at(i));
    return value ? *value : T();
}

void DataRecord::setSlot(int i, Value value)
{
    if (i >= 0 && i < slotCount())
        m_values[i] = std::move(value);
}

QString DataRecord::stringValue(int i) const
{
    return slot<QString>(i);
}

int DataRecord::intValue(int i) const
{
    return FieldDef::truncated(slot<double>(i));
}

double DataRecord::doubleValue(int i) const
{
    return slot<double>(i);
}

QDate DataRecord::dateValue(int i) const
{
    return slot<QDate>(i);
}

QTime DataRecord::timeValue(int i) const
{
    return slot<QTime>(i);
}

QDateTime DataRecord::dateTimeValue(int i) const
{
    if (i >= 0 && i < slotCount()) {
        if (const auto *stamp = std::get_if<LocalStamp>(&m_values.at(i)))
            return stamp->toDateTime();
    }
    return slot<QDateTime>(i);
}

void DataRecord::setStringValue(int i, const QString &text)
{
    setSlot(i, text);
}

void DataRecord::setIntValue(int i, int value)
{
    setSlot(i, double(value));
}

void DataRecord::setDoubleValue(int i, double value)
{
    setSlot(i, value);
}

void DataRecord::setDateValue(int i, const QDate &date)
{
    setSlot(i, date);
}

void DataRecord::setTimeValue(int i, const QTime &time)
{
    setSlot(i, time);
}

void DataRecord::setDateTimeValue(int i, const QDateTime &dateTime)
{
    setSlot(i, dateTime);
}

void DataRecord::setImage(const QString &reference)
{
    m_image = reference;
    if (manager())
        manager()->haveChange();
}

void DataRecord::setReminder(Reminder *reminder)
{
    m_reminder.reset(reminder);
}

QList<FieldDef> DataRecord::fieldList() const
{
    const auto *owner = qobject_cast<const DataManager *>(manager());
    return owner ? owner->fieldList() : QList<FieldDef>();
}

void DataRecord::write(QDataStream &stream) const
{
    PIMRecord::write(stream);
    const QList<FieldDef> fields = fieldList();
    for (int i = 0; i < fields.size(); ++i)
        writeSlot(stream, i, fields.at(i).type);
    stream << m_memo << m_image << qint32(m_reminder ? 1 : 0);
    if (m_reminder)
        m_reminder->write(stream);
}

void DataRecord::writeSlot(QDataStream &stream, int i, int type) const
{
    switch (FieldDef::family(type)) {
    case FieldDef::TextFamily:
        stream << stringValue(i);
        break;
    case FieldDef::NumberFamily:
        // Integer types are stored cut to whole numbers; a fraction from a formula is lost.
        if (type == FieldDef::Double)
            stream << doubleValue(i);
        else
            stream << qint32(intValue(i));
        break;
    case FieldDef::DateFamily:
        stream << dateValue(i);
        break;
    case FieldDef::TimeFamily:
        stream << timeValue(i);
        break;
    case FieldDef::DateTimeFamily:
        stream << dateTimeValue(i);
        break;
    case FieldDef::NoSlot:
        break;
    }
}

void DataRecord::read(QDataStream &stream)
{
    PIMRecord::read(stream);
    const QList<FieldDef> fields = fieldList();
    // Made at its size in one allocation; each value is read straight into its slot.
    m_values = QList<Value>(fields.size());
    Value *values = m_values.data();
    for (int i = 0; i < fields.size() && BinaryFormat::ok(stream); ++i)
        readSlot(stream, values[i], fields.at(i).type);
    qint32 hasReminder = 0;
    BinaryFormat::readString(stream, m_memo);
    BinaryFormat::readString(stream, m_image);
    stream >> hasReminder;
    m_reminder.reset();
    if (hasReminder == 1 && BinaryFormat::ok(stream))
        readReminder(stream);
}

void DataRecord::readSlot(QDataStream &stream, Value &slot, int type)
{
    switch (FieldDef::family(type)) {
    case FieldDef::TextFamily:
        BinaryFormat::readString(stream, slot.emplace<QString>());
        break;
    case FieldDef::NumberFamily:
        if (type == FieldDef::Double) {
            stream >> slot.emplace<double>();
        } else {
            qint32 value = 0;
            stream >> value;
            slot = double(value);
        }
        break;
    case FieldDef::DateFamily:
        stream >> slot.emplace<QDate>();
        break;
    case FieldDef::TimeFamily:
        stream >> slot.emplace<QTime>();
        break;
    case FieldDef::DateTimeFamily:
        stream >> slot.emplace<LocalStamp>();
        break;
    case FieldDef::NoSlot:
        break;
    }
}

void DataRecord::readReminder(QDataStream &stream)
{
    auto reminder = std::make_unique<Reminder>();
    reminder->read(stream);
    if (BinaryFormat::ok(stream))
        m_reminder = std::move(reminder);
}

void DataRecord::restructure(
    const QList<int> &map, const QList<FieldDef> &oldFields, const QList<FieldDef> &newFields)
{
    QList<Value> values(newFields.size());
    const int common = int(qMin(map.size(), qMin(oldFields.size(), m_values.size())));
    for (int i = 0; i < common; ++i) {
        const int j = map.at(i);
        if (j < 0 || j >= values.size())
            continue;
        if (FieldDef::keepsValue(oldFields.at(i).type, newFields.at(j).type))
            values[j] = std::move(m_values[i]);
    }
    m_values = std::move(values);
}
