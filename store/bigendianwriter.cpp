#include "store/bigendianwriter.h"

#include <QSysInfo>

namespace
{
constexpr quint32 nullStringMark = 0xffffffffu;
} // namespace

void BigEndianWriter::putString(const QString &text)
{
    if (text.isNull())
        putNullString();
    else
        putUtf16(reinterpret_cast<const char16_t *>(text.constData()), quint32(text.size()));
}

void BigEndianWriter::putNullString()
{
    putUInt32(nullStringMark);
}

void BigEndianWriter::putUtf16(const char16_t *units, quint32 length)
{
    putUInt32(length * 2);
    // Four units at a time, each one's two bytes swapped inside a 64-bit word: the library's
    // array swap is a call that goes unit by unit.
    char *to = grow(qsizetype(length) * 2);
    const char *from = reinterpret_cast<const char *>(units);
    if constexpr (QSysInfo::ByteOrder == QSysInfo::BigEndian) {
        std::memcpy(to, from, size_t(length) * 2);
        return;
    }
    quint32 i = 0;
    for (; i + 4 <= length; i += 4) {
        quint64 word;
        std::memcpy(&word, from + 2 * i, 8);
        word = ((word & 0x00ff00ff00ff00ffULL) << 8) | ((word >> 8) & 0x00ff00ff00ff00ffULL);
        std::memcpy(to + 2 * i, &word, 8);
    }
    for (; i < length; ++i)
        qToBigEndian(quint16(units[i]), to + 2 * i);
}

void BigEndianWriter::putStringList(const QStringList &list)
{
    putUInt32(quint32(list.size()));
    for (const QString &text : list)
        putString(text);
}
