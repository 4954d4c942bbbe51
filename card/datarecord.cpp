#include "card/datarecord.h"

#include "card/datamanager.h"
#include "card/fielddef.h"
#include "reminders/reminder.h"
#include "store/binaryformat.h"

#include <QDataStream>

#include <vector>

DataRecord::DataRecord(DataManager *manager)
    : PIMRecord(manager)
{
    if (manager)
        m_values = PackedSlots(manager->fieldCount());
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
    return m_values.kind(i) != PackedSlots::Unset;
}

void DataRecord::clearValue(int i)
{
    m_values.setSlot(i, PackedSlots::Slot());
}

QString DataRecord::stringValue(int i) const
{
    return m_values.text(i);
}

int DataRecord::intValue(int i) const
{
    return FieldDef::truncated(m_values.number(i));
}

double DataRecord::doubleValue(int i) const
{
    return m_values.number(i);
}

QDate DataRecord::dateValue(int i) const
{
    return m_values.day(i);
}

QTime DataRecord::timeValue(int i) const
{
    return m_values.clock(i);
}

QDateTime DataRecord::dateTimeValue(int i) const
{
    return m_values.kind(i) == PackedSlots::Stamp ? m_values.stamp(i).toDateTime() : QDateTime();
}

void DataRecord::setStringValue(int i, const QString &text)
{
    m_values.setSlot(i, PackedSlots::textSlot(text));
}

void DataRecord::setIntValue(int i, int value)
{
    m_values.setSlot(i, PackedSlots::numberSlot(double(value)));
}

void DataRecord::setDoubleValue(int i, double value)
{
    m_values.setSlot(i, PackedSlots::numberSlot(value));
}

void DataRecord::setDateValue(int i, const QDate &date)
{
    m_values.setSlot(i, PackedSlots::daySlot(date));
}

void DataRecord::setTimeValue(int i, const QTime &time)
{
    m_values.setSlot(i, PackedSlots::clockSlot(time));
}

void DataRecord::setDateTimeValue(int i, const QDateTime &dateTime)
{
    m_values.setSlot(i, PackedSlots::stampSlot(LocalStamp(dateTime)));
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
        stream << m_values.stamp(i);
        break;
    case FieldDef::NoSlot:
        break;
    }
}

void DataRecord::read(QDataStream &stream)
{
    PIMRecord::read(stream);
    m_values = PackedSlots::read(stream, fieldList());
    qint32 hasReminder = 0;
    BinaryFormat::readString(stream, m_memo);
    BinaryFormat::readString(stream, m_image);
    stream >> hasReminder;
    m_reminder.reset();
    if (hasReminder == 1 && BinaryFormat::ok(stream))
        readReminder(stream);
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
    std::vector<PackedSlots::Slot> values(std::size_t(newFields.size()));
    const int common = int(qMin(map.size(), qMin(oldFields.size(), qsizetype(slotCount()))));
    for (int i = 0; i < common; ++i) {
        const int j = map.at(i);
        if (j < 0 || j >= newFields.size())
            continue;
        if (FieldDef::keepsValue(oldFields.at(i).type, newFields.at(j).type))
            values[std::size_t(j)] = m_values.slot(i);
    }
    m_values = PackedSlots::assemble(int(newFields.size()), values.data());
}
