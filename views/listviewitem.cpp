#include "views/listviewitem.h"

#include "card/datarecord.h"
#include "views/listview.h"
#include "views/recordcells.h"

ListViewItem::ListViewItem(ListView *list, PIMRecord *record)
    : RecordItem(list, record)
    , m_view(list)
{
}

ListViewItem::ListViewItem(ListView *list, PIMRecord *record, RecordItem *after)
    : RecordItem(list, record, after)
    , m_view(list)
{
}

void ListViewItem::update()
{
    const auto *data = static_cast<const DataRecord *>(record());
    const QList<RecordCells::Cell> cells
        = RecordCells::cells(*data, m_view->fields(), m_view->fieldColumns());
    for (int column = 0; column < cells.size(); ++column) {
        const RecordCells::Cell &cell = cells.at(column);
        setText(column, cell.text);
        setPixmap(column, cell.isIcon() ? m_view->icon(cell.icon) : QPixmap());
    }
}
