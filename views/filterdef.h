#ifndef FILTERDEF_H
#define FILTERDEF_H

#include "views/filtercondition.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <uuid/uuid.h>

class DataRecord;
class FieldDef;
class QDataStream;

// A named list of conditions that a record must all pass. Views name their filter by the
// text of its UUID, so the identity outlives renames and moves in the list.
class FilterDef
{
    Q_DECLARE_TR_FUNCTIONS(FilterDef)

public:
    // Generates a fresh UUID; copies and assignments keep the one they copy.
    FilterDef();

    QString title;
    QList<FilterCondition> conditions;

    const unsigned char *uuid() const { return m_uuid; }
    void setUuid(const uuid_t uuid);
    // The form a view stores as its filter.
    QString uuidString() const;

    bool operator==(const FilterDef &other) const;
    bool operator!=(const FilterDef &other) const { return !(*this == other); }

    // True if the record passes every condition; a filter without conditions passes all.
    // A pass over many records makes one FilterMatcher instead.
    bool accept(const DataRecord &record, const QList<FieldDef> &fields) const;

    // Follows a schema change: newIndexOfOld[i] is the new index of old field i, or -1 if
    // it went away. Returns false, and changes nothing, when a condition tests a field
    // that went away: the filter no longer means what it did, and the card drops it.
    // Conditions on "All Text Fields" stay as they are.
    bool remapFields(const QList<int> &newIndexOfOld);

    void write(QDataStream &stream) const;
    // False if the stream ended or was damaged, or holds more conditions than bytes.
    bool read(QDataStream &stream);
    // Title length, the UUID and the condition count.
    static constexpr qint64 minStoredSize = 4 + 16 + 4;

private:
    uuid_t m_uuid;
};

#endif
