#include "pdbwriter.h"

namespace
{
void put(QByteArray *bytes, int at, quint32 value, int size)
{
    for (int i = 0; i < size; ++i)
        (*bytes)[at + i] = char(value >> (8 * (size - 1 - i)));
}
} // namespace

PdbWriter::PdbWriter(const QByteArray &name, const QByteArray &type, const QByteArray &creator)
    : m_name(name)
    , m_type(type)
    , m_creator(creator)
{
}

void PdbWriter::addRecord(const QByteArray &data, quint8 attributes)
{
    m_records.append({ data, attributes });
}

QByteArray PdbWriter::bytes() const
{
    const int listEnd = 78 + 8 * int(m_records.size()) + 2;
    QByteArray out(listEnd, '\0');
    out.replace(0, qMin(32, int(m_name.size())), m_name.left(32));
    put(&out, 52, m_appInfo.isEmpty() ? 0 : listEnd, 4);
    out.replace(60, 4, m_type.leftJustified(4, '\0', true));
    out.replace(64, 4, m_creator.leftJustified(4, '\0', true));
    put(&out, 76, quint32(m_records.size()), 2);
    out += m_appInfo;
    for (int i = 0; i < m_records.size(); ++i) {
        put(&out, 78 + 8 * i, quint32(out.size()), 4);
        out[78 + 8 * i + 4] = char(m_records.at(i).second);
        put(&out, 78 + 8 * i + 5, quint32(0x1000 + i), 3);
        out += m_records.at(i).first;
    }
    return out;
}

QByteArray PdbWriter::mobileRecord(const QList<QPair<int, QByteArray>> &entries)
{
    QByteArray out = QByteArray::fromHex("FFFFFF01FF0000");
    for (const auto &entry : entries)
        out += char(entry.first) + entry.second + '\0';
    return out + '\xFF';
}

QByteArray PdbWriter::mobileRecord(const QByteArrayList &values)
{
    QList<QPair<int, QByteArray>> entries;
    for (int i = 0; i < values.size(); ++i)
        entries.append({ i, values.at(i) });
    return mobileRecord(entries);
}

QByteArray PdbWriter::jfileInfo(
    const QList<JField> &fields, const QByteArrayList &extensions, int numFields)
{
    QByteArray block(1702, '\0');
    for (int i = 0; i < fields.size(); ++i) {
        const JField &field = fields.at(i);
        block.replace(21 * i, int(field.name.size()), field.name.left(20));
        put(&block, 1050 + 2 * i, quint32(field.type), 2);
        put(&block, 1154 + 2 * i, quint32(field.width), 2);
        put(&block, 1302 + 4 * i, quint32(field.option), 4);
        put(&block, 1502 + 4 * i, quint32(field.value), 4);
    }
    put(&block, 1150, quint32(numFields), 2);
    for (const QByteArray &entry : extensions)
        block += entry + '\0';
    return block + '\0';
}

QByteArray PdbWriter::jfileInfo(const QList<JField> &fields, const QByteArrayList &extensions)
{
    return jfileInfo(fields, extensions, int(fields.size()));
}

QByteArray PdbWriter::jfileRecord(const QByteArrayList &values)
{
    QByteArray out(2 * values.size(), '\0');
    for (const QByteArray &value : values)
        out += value + '\0';
    return out;
}
