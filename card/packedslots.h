#ifndef PACKEDSLOTS_H
#define PACKEDSLOTS_H

#include "store/localstamp.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QTime>

#include <memory>

class BigEndianWriter;
class FieldDef;
class QDataStream;

// The value slots of one record in a single allocation: a small header, one byte of kind per
// slot, eight bytes of value per slot, then the UTF-16 of all its texts. A text is made into a
// QString only when asked for. Changing a slot builds the block anew, unless the slot held
// no characters: then the new ones go behind the rest. Loading a record reads its slots into
// scratch room and copies them into one block of the exact size.
class PackedSlots
{
public:
    enum Kind : quint8 { Unset, Text, Number, Day, Clock, Stamp };

    // One slot's content as a plain value; a text points at characters that someone else keeps.
    struct Slot {
        Kind kind = Unset;
        alignas(8) unsigned char bits[8] = {};
        const char16_t *text = nullptr;
        quint32 length = nullText;
    };
    static constexpr quint32 nullText = 0xffffffffu;

    PackedSlots() = default;
    explicit PackedSlots(int count);
    PackedSlots(const PackedSlots &other);
    PackedSlots &operator=(const PackedSlots &other);
    PackedSlots(PackedSlots &&) noexcept = default;
    PackedSlots &operator=(PackedSlots &&) noexcept = default;

    int count() const;
    // Asks the memory for the block ahead of a pass that reads many records' slots.
    void prefetch() const { __builtin_prefetch(m_block.get()); }
    // Unset for an index out of range.
    Kind kind(int i) const;
    Slot slot(int i) const;
    // An index out of range is ignored.
    void setSlot(int i, const Slot &value);

    // Each reads the slot as its own kind, or gives the null or zero value.
    QString text(int i) const;
    double number(int i) const;
    QDate day(int i) const;
    QTime clock(int i) const;
    LocalStamp stamp(int i) const;

    static Slot textSlot(const QString &text);
    static Slot numberSlot(double value);
    static Slot daySlot(const QDate &date);
    static Slot clockSlot(const QTime &time);
    static Slot stampSlot(const LocalStamp &stamp);

    // Builds the block of count slots taken from values.
    static PackedSlots assemble(int count, const Slot *values);

    // Reads the slots of the given field types from a card stream, stopping at the first failure
    // with the failed slot set empty and the rest unset, as the stream's own reading would.
    static PackedSlots read(QDataStream &stream, const QList<FieldDef> &fields);
    // The counterpart of read(): puts the slots as the card stream holds them for the given
    // field types, each slot of another kind as its type's null or zero value.
    void write(BigEndianWriter &out, const QList<FieldDef> &fields) const;

private:
    struct Header {
        quint32 count;
        quint32 textUnits;
    };
    // The kinds come right after the header, padded to a multiple of eight bytes so that the
    // values behind them stay eight-aligned; keeping kinds and values apart spares the padding
    // a kind beside each value would need.
    static constexpr std::size_t valueBytes = 8;
    static std::size_t valuesOffset(std::size_t count);
    static std::size_t textsOffset(std::size_t count);
    static void putValue(
        unsigned char *block, std::size_t count, int i, Kind kind, const unsigned char *bits);

    const unsigned char *valueBits(int i) const;
    quint32 heldUnits(int i) const;
    void appendText(int i, const Slot &value);
    const char16_t *texts() const;
    std::size_t blockBytes() const;
    template <typename T> T valueOf(int i, Kind wanted) const;
    template <typename T> static Slot podSlot(Kind kind, const T &value);

    std::unique_ptr<unsigned char[]> m_block;
};

#endif
