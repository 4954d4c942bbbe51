#include "card/packedslots.h"

#include "card/fielddef.h"
#include "store/bigendianwriter.h"
#include "store/binaryformat.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <cstring>
#include <type_traits>
#include <vector>

static_assert(std::is_trivially_copyable_v<QDate> && sizeof(QDate) <= 8);
static_assert(std::is_trivially_copyable_v<QTime> && sizeof(QTime) <= 8);
static_assert(std::is_trivially_copyable_v<LocalStamp> && sizeof(LocalStamp) <= 8);

PackedSlots::PackedSlots(int count)
{
    if (count > 0) {
        std::vector<Slot> unset(static_cast<std::size_t>(count));
        *this = assemble(count, unset.data());
    }
}

PackedSlots::PackedSlots(const PackedSlots &other)
{
    *this = other;
}

PackedSlots &PackedSlots::operator=(const PackedSlots &other)
{
    if (this == &other)
        return *this;
    if (!other.m_block) {
        m_block.reset();
        return *this;
    }
    const std::size_t bytes = other.blockBytes();
    auto block = std::make_unique_for_overwrite<unsigned char[]>(bytes);
    std::memcpy(block.get(), other.m_block.get(), bytes);
    m_block = std::move(block);
    return *this;
}

int PackedSlots::count() const
{
    if (!m_block)
        return 0;
    Header header;
    std::memcpy(&header, m_block.get(), sizeof header);
    return int(header.count);
}

std::size_t PackedSlots::valuesOffset(std::size_t count)
{
    static_assert(sizeof(Header) % valueBytes == 0);
    return sizeof(Header) + (count + valueBytes - 1) / valueBytes * valueBytes;
}

std::size_t PackedSlots::textsOffset(std::size_t count)
{
    return valuesOffset(count) + count * valueBytes;
}

std::size_t PackedSlots::blockBytes() const
{
    Header header;
    std::memcpy(&header, m_block.get(), sizeof header);
    return textsOffset(header.count) + std::size_t(header.textUnits) * sizeof(char16_t);
}

const unsigned char *PackedSlots::valueBits(int i) const
{
    return m_block.get() + valuesOffset(std::size_t(count())) + std::size_t(i) * valueBytes;
}

const char16_t *PackedSlots::texts() const
{
    return reinterpret_cast<const char16_t *>(m_block.get() + textsOffset(std::size_t(count())));
}

PackedSlots::Kind PackedSlots::kind(int i) const
{
    return i >= 0 && i < count() ? Kind(m_block[sizeof(Header) + std::size_t(i)]) : Unset;
}

void PackedSlots::putValue(
    unsigned char *block, std::size_t count, int i, Kind kind, const unsigned char *bits)
{
    block[sizeof(Header) + std::size_t(i)] = kind;
    std::memcpy(block + valuesOffset(count) + std::size_t(i) * valueBytes, bits, valueBytes);
}

// A text's value is the offset of its characters in the text area and their count (nullText
// for a null string).
PackedSlots::Slot PackedSlots::slot(int i) const
{
    Slot value;
    value.kind = kind(i);
    if (value.kind == Unset)
        return value;
    std::memcpy(value.bits, valueBits(i), sizeof value.bits);
    if (value.kind == Text) {
        quint32 offset = 0;
        std::memcpy(&offset, value.bits, sizeof offset);
        std::memcpy(&value.length, value.bits + 4, sizeof value.length);
        value.text = texts() + offset;
    }
    return value;
}

void PackedSlots::setSlot(int i, const Slot &value)
{
    const int n = count();
    if (i < 0 || i >= n)
        return;
    // A value without text over one without text changes only its own kind and value.
    if (value.kind != Text && kind(i) != Text) {
        putValue(m_block.get(), std::size_t(n), i, value.kind, value.bits);
        return;
    }
    if (value.kind == Text && heldUnits(i) == 0) {
        appendText(i, value);
        return;
    }
    std::vector<Slot> values(static_cast<std::size_t>(n));
    for (int j = 0; j < n; ++j)
        values[std::size_t(j)] = j == i ? value : slot(j);
    *this = assemble(n, values.data());
}

quint32 PackedSlots::heldUnits(int i) const
{
    const Slot held = slot(i);
    return held.kind == Text && held.length != nullText ? held.length : 0;
}

// A text over a slot that holds no characters goes behind the other texts: the block grows by
// the new characters alone, and no other slot is read and written again. An import fills the
// empty texts of each new record this way, one after the other.
void PackedSlots::appendText(int i, const Slot &value)
{
    const quint32 units = value.length == nullText ? 0 : value.length;
    Header header;
    std::memcpy(&header, m_block.get(), sizeof header);
    const std::size_t oldBytes = blockBytes();
    auto block
        = std::make_unique_for_overwrite<unsigned char[]>(oldBytes + units * sizeof(char16_t));
    std::memcpy(block.get(), m_block.get(), oldBytes);
    if (units > 0)
        std::memcpy(block.get() + oldBytes, value.text, units * sizeof(char16_t));
    const quint32 offset = header.textUnits;
    header.textUnits += units;
    std::memcpy(block.get(), &header, sizeof header);
    unsigned char bits[valueBytes];
    std::memcpy(bits, &offset, sizeof offset);
    std::memcpy(bits + 4, &value.length, sizeof value.length);
    putValue(block.get(), header.count, i, Text, bits);
    m_block = std::move(block);
}

PackedSlots PackedSlots::assemble(int count, const Slot *values)
{
    PackedSlots packed;
    if (count <= 0)
        return packed;
    std::size_t units = 0;
    for (int i = 0; i < count; ++i) {
        if (values[i].kind == Text && values[i].length != nullText)
            units += values[i].length;
    }
    const Header header { quint32(count), quint32(units) };
    const std::size_t n = std::size_t(count);
    const std::size_t textStart = textsOffset(n);
    packed.m_block = std::make_unique<unsigned char[]>(textStart + units * sizeof(char16_t));
    unsigned char *block = packed.m_block.get();
    std::memcpy(block, &header, sizeof header);
    auto *text = reinterpret_cast<char16_t *>(block + textStart);
    quint32 offset = 0;
    for (int i = 0; i < count; ++i) {
        const Slot &in = values[i];
        if (in.kind != Text) {
            putValue(block, n, i, in.kind, in.bits);
            continue;
        }
        unsigned char bits[valueBytes];
        std::memcpy(bits, &offset, sizeof offset);
        std::memcpy(bits + 4, &in.length, sizeof in.length);
        putValue(block, n, i, Text, bits);
        if (in.length != nullText && in.length > 0) {
            std::memcpy(text + offset, in.text, in.length * sizeof(char16_t));
            offset += in.length;
        }
    }
    return packed;
}

template <typename T> T PackedSlots::valueOf(int i, Kind wanted) const
{
    if (kind(i) != wanted)
        return T();
    T value;
    std::memcpy(static_cast<void *>(&value), valueBits(i), sizeof value);
    return value;
}

QString PackedSlots::text(int i) const
{
    const Slot value = slot(i);
    if (value.kind != Text || value.length == nullText)
        return QString();
    if (value.length == 0)
        return QString(QLatin1StringView(""));
    return QString(reinterpret_cast<const QChar *>(value.text), qsizetype(value.length));
}

double PackedSlots::number(int i) const
{
    return valueOf<double>(i, Number);
}

QDate PackedSlots::day(int i) const
{
    return valueOf<QDate>(i, Day);
}

QTime PackedSlots::clock(int i) const
{
    return valueOf<QTime>(i, Clock);
}

LocalStamp PackedSlots::stamp(int i) const
{
    return valueOf<LocalStamp>(i, Stamp);
}

template <typename T> PackedSlots::Slot PackedSlots::podSlot(Kind kind, const T &value)
{
    Slot packed;
    packed.kind = kind;
    std::memcpy(packed.bits, static_cast<const void *>(&value), sizeof value);
    return packed;
}

PackedSlots::Slot PackedSlots::textSlot(const QString &text)
{
    Slot packed;
    packed.kind = Text;
    if (!text.isNull()) {
        packed.text = reinterpret_cast<const char16_t *>(text.constData());
        packed.length = quint32(text.size());
    }
    return packed;
}

PackedSlots::Slot PackedSlots::numberSlot(double value)
{
    return podSlot(Number, value);
}

PackedSlots::Slot PackedSlots::daySlot(const QDate &date)
{
    return podSlot(Day, date);
}

PackedSlots::Slot PackedSlots::clockSlot(const QTime &time)
{
    return podSlot(Clock, time);
}

PackedSlots::Slot PackedSlots::stampSlot(const LocalStamp &stamp)
{
    return podSlot(Stamp, stamp);
}

namespace
{
// Room reused from record to record while a card loads, so that reading a record allocates
// only its finished block.
struct Scratch {
    std::vector<PackedSlots::Slot> values;
    std::vector<quint32> offsets;
    std::vector<char16_t> text;
};

// Appends a text read as BinaryFormat::readString reads it, straight into the scratch room,
// and gives its length (nullText for a null string).
quint32 readText(QDataStream &stream, std::vector<char16_t> &room)
{
    const qint64 left = BinaryFormat::remaining(stream);
    if (left < 0) {
        QString text;
        BinaryFormat::readString(stream, text);
        if (text.isNull())
            return PackedSlots::nullText;
        room.insert(room.end(), text.utf16(), text.utf16() + text.size());
        return quint32(text.size());
    }
    quint32 bytes = 0;
    stream >> bytes;
    if (!BinaryFormat::ok(stream) || bytes == PackedSlots::nullText)
        return PackedSlots::nullText;
    if (bytes % 2 != 0) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return PackedSlots::nullText;
    }
    if (bytes > left - 4) {
        stream.setStatus(QDataStream::ReadPastEnd);
        return PackedSlots::nullText;
    }
    const std::size_t start = room.size();
    const std::size_t units = bytes / 2;
    room.resize(start + units);
    char16_t *out = room.data() + start;
    stream.readRawData(reinterpret_cast<char *>(out), int(bytes));
    if (stream.byteOrder() == QDataStream::BigEndian)
        qFromBigEndian<char16_t>(out, qsizetype(units), out);
    else
        qFromLittleEndian<char16_t>(out, qsizetype(units), out);
    return quint32(units);
}

template <typename T>
PackedSlots::Slot readPod(QDataStream &stream, PackedSlots::Slot (*make)(const T &))
{
    T value {};
    stream >> value;
    return make(value);
}

PackedSlots::Slot readNumber(QDataStream &stream, int type)
{
    if (type == FieldDef::Double) {
        double value = 0;
        stream >> value;
        return PackedSlots::numberSlot(value);
    }
    qint32 value = 0;
    stream >> value;
    return PackedSlots::numberSlot(double(value));
}
} // namespace

PackedSlots PackedSlots::read(QDataStream &stream, const QList<FieldDef> &fields)
{
    thread_local Scratch scratch;
    const std::size_t n = std::size_t(fields.size());
    scratch.values.assign(n, Slot());
    scratch.offsets.assign(n, 0);
    scratch.text.clear();
    for (std::size_t i = 0; i < n && BinaryFormat::ok(stream); ++i) {
        const int type = fields.at(qsizetype(i)).type;
        Slot &slot = scratch.values[i];
        switch (FieldDef::family(type)) {
        case FieldDef::TextFamily:
            slot.kind = Text;
            scratch.offsets[i] = quint32(scratch.text.size());
            slot.length = readText(stream, scratch.text);
            break;
        case FieldDef::NumberFamily:
            slot = readNumber(stream, type);
            break;
        case FieldDef::DateFamily:
            slot = readPod<QDate>(stream, &daySlot);
            break;
        case FieldDef::TimeFamily:
            slot = readPod<QTime>(stream, &clockSlot);
            break;
        case FieldDef::DateTimeFamily:
            slot = readPod<LocalStamp>(stream, &stampSlot);
            break;
        case FieldDef::NoSlot:
            break;
        }
    }
    // The text room may have moved while it grew: the texts are pointed at only now.
    for (std::size_t i = 0; i < n; ++i) {
        if (scratch.values[i].kind == Text && scratch.values[i].length != nullText)
            scratch.values[i].text = scratch.text.data() + scratch.offsets[i];
    }
    return assemble(int(n), scratch.values.data());
}

void PackedSlots::write(BigEndianWriter &out, const QList<FieldDef> &fields) const
{
    const std::size_t n = std::size_t(count());
    const unsigned char *kinds = n > 0 ? m_block.get() + sizeof(Header) : nullptr;
    const unsigned char *values = n > 0 ? m_block.get() + valuesOffset(n) : nullptr;
    const char16_t *text = n > 0 ? texts() : nullptr;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        const std::size_t at = std::size_t(i);
        const Kind held = at < n ? Kind(kinds[at]) : Unset;
        const unsigned char *bits = at < n ? values + at * valueBytes : nullptr;
        const auto heldValue = [&](Kind wanted, auto zero) {
            if (held == wanted)
                std::memcpy(static_cast<void *>(&zero), bits, sizeof zero);
            return zero;
        };
        const int type = fields.at(i).type;
        switch (FieldDef::family(type)) {
        case FieldDef::TextFamily: {
            quint32 offset = 0;
            quint32 length = nullText;
            if (held == Text) {
                std::memcpy(&offset, bits, sizeof offset);
                std::memcpy(&length, bits + 4, sizeof length);
            }
            if (length == nullText)
                out.putNullString();
            else
                out.putUtf16(text + offset, length);
            break;
        }
        case FieldDef::NumberFamily:
            // Integer types are stored cut to whole numbers; a fraction from a formula is lost.
            if (type == FieldDef::Double)
                out.putDouble(heldValue(Number, 0.0));
            else
                out.putInt32(FieldDef::truncated(heldValue(Number, 0.0)));
            break;
        case FieldDef::DateFamily:
            out.putDate(heldValue(Day, QDate()));
            break;
        case FieldDef::TimeFamily:
            out.putTime(heldValue(Clock, QTime()));
            break;
        case FieldDef::DateTimeFamily:
            heldValue(Stamp, LocalStamp()).encode(out);
            break;
        case FieldDef::NoSlot:
            break;
        }
    }
}
