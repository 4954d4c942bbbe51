#ifndef RECORDITEM_H
#define RECORDITEM_H

#include "lib/qt/mrllistviewitem.h"

#include <QString>

class PIMListView;
class PIMRecord;

// A row of a PIMListView for one record. It keeps the record's UID text apart from the
// record, so that the row can still name its record after the manager reloaded it.
class RecordItem : public MRLListViewItem
{
public:
    // At the top of the list.
    RecordItem(PIMListView *list, PIMRecord *record);
    // Behind after, or at the top when after is null.
    RecordItem(PIMListView *list, PIMRecord *record, RecordItem *after);

    PIMListView *list() const { return m_list; }
    PIMRecord *record() const { return m_record; }
    QString uid() const { return m_uid; }

    // Fills the row's cells from the record; each list's own rows know how.
    virtual void update() { }

private:
    PIMListView *m_list;
    PIMRecord *m_record;
    QString m_uid;
};

#endif
