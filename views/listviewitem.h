#ifndef LISTVIEWITEM_H
#define LISTVIEWITEM_H

#include "views/recorditem.h"

class ListView;

// A row of the card's record list; its cells follow the types of the columns' fields.
class ListViewItem : public RecordItem
{
public:
    ListViewItem(ListView *list, PIMRecord *record);
    ListViewItem(ListView *list, PIMRecord *record, RecordItem *after);

    void update() override;

private:
    ListView *m_view;
};

#endif
