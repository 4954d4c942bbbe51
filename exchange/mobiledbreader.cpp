#include "exchange/mobiledbreader.h"

#include <climits>
#include <cstring>

namespace
{
const char fixedBytes[] = "\xFF\xFF\xFF\x01\xFF\x00\x00";
constexpr int fixedSize = 7;
constexpr char listEnd = '\xFF';
} // namespace

bool MobileDBReader::read(QIODevice *device)
{
    m_titles.clear();
    m_types.clear();
    m_widths.clear();
    m_rows.clear();
    if (!PalmDatabase::read(device))
        return false;
    if (!isType("Mdb1", "Mdb1"))
        return fail(tr("The file is not a MobileDB database."));
    for (int i = 0; i < records().size(); ++i) {
        const int category = records().at(i).category();
        if (category == DataCategory || category == MoreDataCategory)
            m_rows.append(i);
    }
    if (!readLabels() || !readTypes() || !readWidths()) {
        m_rows.clear();
        return false;
    }
    return true;
}

QByteArrayList MobileDBReader::row(int index) const
{
    QByteArrayList values;
    QByteArray record;
    if (index < 0 || index >= m_rows.size() || !readRecord(m_rows.at(index), &record)
        || !walk(record, fieldCount(), &values))
        return {};
    return values;
}

bool MobileDBReader::walk(
    const QByteArray &record, int limit, QByteArrayList *values, QList<int> *numbers)
{
    if (record.size() < fixedSize || std::memcmp(record.constData(), fixedBytes, fixedSize) != 0)
        return false;
    qsizetype pos = fixedSize;
    while (pos < record.size() && record.at(pos) != listEnd && values->size() < limit) {
        const int number = quint8(record.at(pos++));
        qsizetype end = record.indexOf('\0', pos);
        if (end < 0)
            end = record.size();
        values->append(record.mid(pos, end - pos));
        if (numbers)
            numbers->append(number);
        pos = end + 1;
    }
    return true;
}

int MobileDBReader::firstOfCategory(int category) const
{
    for (int i = 0; i < records().size(); ++i) {
        if (records().at(i).category() == category)
            return i;
    }
    return -1;
}

// The label record fixes the field count: the entries count in the order they stand,
// whatever their field-number bytes say.
bool MobileDBReader::readLabels()
{
    QByteArray record;
    const int index = firstOfCategory(LabelsCategory);
    if (index < 0)
        return fail(tr("The database has no field labels."));
    if (!readRecord(index, &record) || !walk(record, INT_MAX, &m_titles))
        return fail(tr("The record of field labels is damaged."));
    return true;
}

// A database without a type record keeps every field at the default type.
bool MobileDBReader::readTypes()
{
    QByteArray record;
    const int index = firstOfCategory(TypesCategory);
    if (index >= 0 && (!readRecord(index, &record) || !walk(record, fieldCount(), &m_types)))
        return fail(tr("The record of field types is damaged."));
    return true;
}

// Unlike labels and types, a width goes to the field its number byte names.
bool MobileDBReader::readWidths()
{
    m_widths = QList<int>(fieldCount(), 0);
    QByteArray record;
    QByteArrayList values;
    QList<int> numbers;
    const int index = firstOfCategory(WidthsCategory);
    if (index < 0)
        return true;
    if (!readRecord(index, &record) || !walk(record, fieldCount(), &values, &numbers))
        return fail(tr("The record of field widths is damaged."));
    for (int i = 0; i < values.size(); ++i) {
        if (numbers.at(i) < fieldCount())
            m_widths[numbers.at(i)] = values.at(i).toInt();
    }
    return true;
}
