#include "views/dblistviewitem.h"

#include "store/dbrecord.h"
#include "views/dblistview.h"

DBListViewItem::DBListViewItem(DBListView *list, PIMRecord *record)
    : RecordItem(list, record)
    , m_view(list)
{
}

DBListViewItem::DBListViewItem(DBListView *list, PIMRecord *record, RecordItem *after)
    : RecordItem(list, record, after)
    , m_view(list)
{
}

void DBListViewItem::update()
{
    const auto *card = static_cast<const DBRecord *>(record());
    const QList<int> &fields = m_view->fieldColumns();
    for (int column = 0; column < fields.size(); ++column) {
        const DBListView::Cell cell = m_view->cell(card, fields.at(column));
        setText(column, cell.text);
        setPixmap(column, cell.pixmap);
    }
}
