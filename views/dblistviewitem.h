#ifndef DBLISTVIEWITEM_H
#define DBLISTVIEWITEM_H

#include "views/recorditem.h"

class DBListView;

// A row of a card list; its cells follow the fields of the card list's columns.
class DBListViewItem : public RecordItem
{
public:
    DBListViewItem(DBListView *list, PIMRecord *record);
    DBListViewItem(DBListView *list, PIMRecord *record, RecordItem *after);

    void update() override;

private:
    DBListView *m_view;
};

#endif
