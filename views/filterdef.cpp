#include "views/filterdef.h"

#include "store/binaryformat.h"
#include "views/filtermatcher.h"

#include <QDataStream>

FilterDef::FilterDef()
{
    uuid_generate(m_uuid);
}

void FilterDef::setUuid(const uuid_t uuid)
{
    uuid_copy(m_uuid, uuid);
}

QString FilterDef::uuidString() const
{
    char text[37];
    uuid_unparse(m_uuid, text);
    return QString::fromLatin1(text);
}

bool FilterDef::operator==(const FilterDef &other) const
{
    return uuid_compare(m_uuid, other.m_uuid) == 0 && title == other.title
        && conditions == other.conditions;
}

bool FilterDef::accept(const DataRecord &record, const QList<FieldDef> &fields) const
{
    return FilterMatcher(conditions, fields).accept(record);
}

bool FilterDef::remapFields(const QList<int> &newIndexOfOld)
{
    QList<FilterCondition> moved = conditions;
    for (FilterCondition &condition : moved) {
        if (condition.field == FilterCondition::AllTextFields)
            continue;
        condition.field = newIndexOfOld.value(condition.field, -1);
        if (condition.field == -1)
            return false;
    }
    conditions = moved;
    return true;
}

void FilterDef::write(QDataStream &stream) const
{
    stream << title;
    stream.writeRawData(reinterpret_cast<const char *>(m_uuid), sizeof(uuid_t));
    stream << qint32(conditions.size());
    for (const FilterCondition &condition : conditions)
        condition.write(stream);
}

bool FilterDef::read(QDataStream &stream)
{
    conditions.clear();
    stream >> title;
    uuid_t stored;
    if (stream.readRawData(reinterpret_cast<char *>(stored), sizeof(uuid_t)) != sizeof(uuid_t))
        stream.setStatus(QDataStream::ReadPastEnd);
    qint32 count = 0;
    stream >> count;
    if (!BinaryFormat::ok(stream)
        || !BinaryFormat::countFits(stream, count, FilterCondition::minStoredSize))
        return false;
    uuid_copy(m_uuid, stored);
    for (qint32 i = 0; i < count; ++i) {
        FilterCondition condition;
        if (!condition.read(stream))
            return false;
        conditions.append(condition);
    }
    return true;
}
