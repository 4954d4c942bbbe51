#ifndef DATARECORD_H
#define DATARECORD_H

#include "card/packedslots.h"
#include "store/pimrecord.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QTime>

#include <memory>

class DataManager;
class FieldDef;
class Reminder;

// One record of a card: one value slot for each field of its manager, plus the members
// that stand for the single-instance fields Memo, Image and Reminder.
class DataRecord : public PIMRecord
{
public:
    // All slots unset, sized to the manager's field count (none without a manager).
    explicit DataRecord(DataManager *manager);
    DataRecord(DataManager *manager, BlankTag);
    // Same uid and time stamps; slots, memo, image and reminder are copied deeply.
    DataRecord(const DataRecord &other);
    DataRecord &operator=(const DataRecord &) = delete;
    ~DataRecord() override;

    int slotCount() const { return m_values.count(); }
    bool isSet(int i) const;
    void clearValue(int i);

    // Each getter reads the slot as its own kind; an unset slot, an index out of range or
    // a slot of another kind gives the null string, 0, an invalid date or time.
    QString stringValue(int i) const;
    int intValue(int i) const;
    double doubleValue(int i) const;
    QDate dateValue(int i) const;
    QTime timeValue(int i) const;
    QDateTime dateTimeValue(int i) const;

    // Each setter replaces the slot's content; an index out of range is ignored.
    void setStringValue(int i, const QString &text);
    void setIntValue(int i, int value);
    void setDoubleValue(int i, double value);
    void setDateValue(int i, const QDate &date);
    void setTimeValue(int i, const QTime &time);
    void setDateTimeValue(int i, const QDateTime &dateTime);

    QString memo() const;
    void setMemo(const QString &memo);

    bool hasImage() const;
    QString image() const;
    // Also marks the manager changed.
    void setImage(const QString &reference);

    bool hasReminder() const { return reminder() != nullptr; }
    const Reminder *reminder() const;
    Reminder *reminder();
    // Takes ownership; null removes the reminder.
    void setReminder(Reminder *reminder);

    // Asks the memory for the slots ahead of a pass over many records.
    void prefetchValues() const { m_values.prefetch(); }

    // The slots by the field types of the manager, then memo, image and the reminder.
    void encode(BigEndianWriter &out) const override;
    void read(QDataStream &stream) override;

    // Rebuilds the slots for a changed schema: map[i] is the new index of old field i, or
    // -1 if it went away. A slot moves only if its value survives the type change.
    void restructure(
        const QList<int> &map, const QList<FieldDef> &oldFields, const QList<FieldDef> &newFields);

private:
    QList<FieldDef> fieldList() const;
    void readReminder(QDataStream &stream);

    // Memo, image and reminder: most records have none of them, so they live apart and a
    // record without them pays one pointer.
    struct Extras;
    Extras &extras();

    // A date-time is kept as its local date and time, as the file holds it.
    PackedSlots m_values;
    std::unique_ptr<Extras> m_extras;
};

#endif
