#include "exchange/jfilereader.h"

#include <iterator>

namespace
{
constexpr int nameSlot = 21;
constexpr int typesAt = 1050;
constexpr int countAt = 1150;
constexpr int widthsAt = 1154;
constexpr int optionsAt = 1302;
constexpr int valuesAt = 1502;
constexpr int keyLength = 5;

// The keys of the extension list in the order they are tested; the number is the key's.
const char *const keys[] = { "deflt", "popup", "flllt", "soort", "calv1", "calv2", "pooos" };
enum Key { NoKey = 0, Default = 1, Popup = 2, Calc1 = 5, Calc2 = 6 };

qint32 number(const QByteArray &block, int at, int size)
{
    qint32 value = 0;
    for (int i = 0; i < size; ++i)
        value = (value << 8) | quint8(block.at(at + i));
    return size == 2 ? qint16(value) : value;
}

int keyOf(const QByteArray &entry)
{
    for (int k = 0; k < int(std::size(keys)); ++k) {
        if (entry.startsWith(keys[k]))
            return k + 1;
    }
    return NoKey;
}
} // namespace

bool JFileReader::read(QIODevice *device)
{
    m_fields.clear();
    if (!PalmDatabase::read(device))
        return false;
    if (!isType("JfD5", "JFi5"))
        return fail(tr("The file is not a JFile 5.x database."));
    if (!readInfoBlock())
        return false;
    readExtensionList();
    return true;
}

QByteArrayList JFileReader::row(int index) const
{
    if (index < 0 || index >= rowCount())
        return {};
    const Record &record = records().at(index);
    // The first part, two bytes a field, is not needed: the strings end with their NULs.
    const qint64 skipped = 2 * qint64(fieldCount());
    QByteArray bytes;
    if (record.size <= skipped || !readAt(record.offset + skipped, record.size - skipped, &bytes))
        return {};
    QByteArrayList values;
    qsizetype pos = 0;
    while (pos < bytes.size() && values.size() < fieldCount()) {
        qsizetype end = bytes.indexOf('\0', pos);
        if (end < 0)
            end = bytes.size();
        values.append(bytes.mid(pos, end - pos));
        pos = end + 1;
    }
    return values;
}

bool JFileReader::readInfoBlock()
{
    QByteArray block;
    if (!readAt(header().appInfoOffset, infoBlockSize, &block))
        return fail(tr("The application info block runs past the end of the file."));
    const int count = number(block, countAt, 2);
    if (count < 0 || count > maxFields)
        return fail(tr("The database declares %1 fields.").arg(count));
    for (int i = 0; i < count; ++i) {
        Field field;
        const QByteArray slot = block.mid(i * nameSlot, nameSlot);
        field.name = slot.left(slot.indexOf('\0') < 0 ? nameSlot : slot.indexOf('\0'));
        field.type = number(block, typesAt + 2 * i, 2) & 0xFF;
        field.width = number(block, widthsAt + 2 * i, 2);
        field.fieldOption = number(block, optionsAt + 4 * i, 4);
        field.fieldValue = number(block, valuesAt + 4 * i, 4);
        m_fields.append(field);
    }
    return true;
}

// NUL-ended entries up to an empty one or the end of the file. A key entry names its field
// by its sixth character; the entries behind it are its values, which take effect when
// the next key or the end is reached. Values before the first key are dropped.
void JFileReader::readExtensionList()
{
    QByteArray rest;
    const qint64 start = qint64(header().appInfoOffset) + infoBlockSize;
    if (!readAt(start, fileSize() - start, &rest))
        return;
    int key = NoKey;
    int field = -1;
    QByteArrayList values;
    qsizetype pos = 0;
    while (pos < rest.size() && rest.at(pos) != '\0') {
        qsizetype end = rest.indexOf('\0', pos);
        if (end < 0)
            end = rest.size();
        const QByteArray entry = rest.mid(pos, end - pos);
        pos = end + 1;
        const int next = keyOf(entry);
        if (next == NoKey) {
            values.append(entry);
            continue;
        }
        applyKey(key, field, values);
        values.clear();
        key = next;
        field = keyedField(entry);
    }
    applyKey(key, field, values);
}

// 'a' to 'z' are fields 0 to 25; a character below 'a' counts on from 'A' as field 26.
int JFileReader::keyedField(const QByteArray &entry) const
{
    if (entry.size() <= keyLength)
        return -1;
    const int c = quint8(entry.at(keyLength));
    const int field = c >= 'a' ? c - 'a' : c - 39;
    return field >= 0 && field < fieldCount() ? field : -1;
}

void JFileReader::applyKey(int key, int field, const QByteArrayList &values)
{
    if (field < 0 || values.isEmpty())
        return;
    Field &target = m_fields[field];
    switch (key) {
    case Default:
        target.defaultValue = values.first();
        break;
    case Popup:
        for (const QByteArray &value : values)
            target.extra += '\n' + value;
        break;
    case Calc1:
    case Calc2:
        target.extra = values.first();
        break;
    default:
        break;
    }
}
