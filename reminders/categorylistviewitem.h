#ifndef CATEGORYLISTVIEWITEM_H
#define CATEGORYLISTVIEWITEM_H

#include "views/recorditem.h"

class CategoryListView;

// A row of the category list, painted in the category's own text and line colours.
class CategoryListViewItem : public RecordItem
{
public:
    CategoryListViewItem(CategoryListView *list, PIMRecord *record);
    CategoryListViewItem(CategoryListView *list, PIMRecord *record, RecordItem *after);

    void update() override;
    QColor textColor() const override;
    QColor backgroundColor() const override;

private:
    CategoryListView *m_view;
};

#endif
