#include "card/datarecord.h"

#include "card/datamanager.h"
#include "card/fielddef.h"
#include "reminders/reminder.h"
#include "store/bigendianwriter.h"
#include "store/binaryformat.h"

#include <QDataStream>
#include <QIODevice>

#include <vector>

struct DataRecord::Extras {
    QString memo;
    QString image;
    std::unique_ptr<Reminder> reminder;
};

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
{
    if (!other.m_extras)
        return;
    extras().memo = other.m_extras->memo;
    m_extras->image = other.m_extras->image;
    if (other.m_extras->reminder)
        m_extras->reminder = std::make_unique<Reminder>(*other.m_extras->reminder);
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

DataRecord::Extras &DataRecord::extras()
{
    if (!m_extras)
        m_extras = std::make_unique<Extras>();
    return *m_extras;
}

QString DataRecord::memo() const
{
    return m_extras ? m_extras->memo : QString();
}

void DataRecord::setMemo(const QString &memo)
{
    if (m_extras || !memo.isNull())
        extras().memo = memo;
}

bool DataRecord::hasImage() const
{
    return m_extras && !m_extras->image.isEmpty();
}

QString DataRecord::image() const
{
    return m_extras ? m_extras->image : QString();
}

void DataRecord::setImage(const QString &reference)
{
    if (m_extras || !reference.isNull())
        extras().image = reference;
    if (manager())
        manager()->haveChange();
}

const Reminder *DataRecord::reminder() const
{
    return m_extras ? m_extras->reminder.get() : nullptr;
}

Reminder *DataRecord::reminder()
{
    return m_extras ? m_extras->reminder.get() : nullptr;
}

void DataRecord::setReminder(Reminder *reminder)
{
    if (m_extras || reminder)
        extras().reminder.reset(reminder);
}

QList<FieldDef> DataRecord::fieldList() const
{
    const auto *owner = qobject_cast<const DataManager *>(manager());
    return owner ? owner->fieldList() : QList<FieldDef>();
}

void DataRecord::encode(BigEndianWriter &out) const
{
    PIMRecord::encode(out);
    m_values.write(out, fieldList());
    out.putString(memo());
    out.putString(image());
    const Reminder *held = reminder();
    out.putInt32(held ? 1 : 0);
    if (held) {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        BinaryFormat::prepare(stream);
        held->write(stream);
        out.putRaw(bytes.constData(), bytes.size());
    }
}

void DataRecord::read(QDataStream &stream)
{
    PIMRecord::read(stream);
    m_values = PackedSlots::read(stream, fieldList());
    qint32 hasReminder = 0;
    QString memo;
    QString image;
    BinaryFormat::readString(stream, memo);
    BinaryFormat::readString(stream, image);
    stream >> hasReminder;
    m_extras.reset();
    if (!memo.isNull() || !image.isNull()) {
        extras().memo = memo;
        m_extras->image = image;
    }
    if (hasReminder == 1 && BinaryFormat::ok(stream))
        readReminder(stream);
}

void DataRecord::readReminder(QDataStream &stream)
{
    auto reminder = std::make_unique<Reminder>();
    reminder->read(stream);
    if (BinaryFormat::ok(stream))
        extras().reminder = std::move(reminder);
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
