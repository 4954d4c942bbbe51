#include "reminders/categorylistviewitem.h"

#include "reminders/categorylistview.h"
#include "reminders/categoryrecord.h"

CategoryListViewItem::CategoryListViewItem(CategoryListView *list, PIMRecord *record)
    : RecordItem(list, record)
    , m_view(list)
{
}

CategoryListViewItem::CategoryListViewItem(
    CategoryListView *list, PIMRecord *record, RecordItem *after)
    : RecordItem(list, record, after)
    , m_view(list)
{
}

void CategoryListViewItem::update()
{
    const auto *category = static_cast<const CategoryRecord *>(record());
    const QList<int> &fields = m_view->fieldColumns();
    for (int column = 0; column < fields.size(); ++column) {
        const CategoryListView::Cell cell = m_view->cell(category, fields.at(column));
        setText(column, cell.text);
        setPixmap(column, cell.pixmap);
    }
}

QColor CategoryListViewItem::textColor() const
{
    return static_cast<const CategoryRecord *>(record())->textColor();
}

QColor CategoryListViewItem::backgroundColor() const
{
    return static_cast<const CategoryRecord *>(record())->lineColor();
}
