#include "views/recorditem.h"

#include "store/pimrecord.h"
#include "views/pimlistview.h"

RecordItem::RecordItem(PIMListView *list, PIMRecord *record)
    : MRLListViewItem(list)
    , m_list(list)
    , m_record(record)
    , m_uid(record->uidString())
{
}

RecordItem::RecordItem(PIMListView *list, PIMRecord *record, RecordItem *after)
    : MRLListViewItem(list, after)
    , m_list(list)
    , m_record(record)
    , m_uid(record->uidString())
{
}
