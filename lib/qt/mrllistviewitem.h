#ifndef MRLLISTVIEWITEM_H
#define MRLLISTVIEWITEM_H

#include <QColor>
#include <QPixmap>
#include <QTreeWidgetItem>

class MRLListView;

// One row of an MRLListView. Rows are made at the top of the list or behind a given row,
// so that a list can be filled in any order; cells take text or a pixmap.
class MRLListViewItem : public QTreeWidgetItem
{
public:
    enum { Type = QTreeWidgetItem::UserType + 1 };

    // At the top of the list.
    explicit MRLListViewItem(MRLListView *list);
    // Behind after, or at the top when after is null.
    MRLListViewItem(MRLListView *list, MRLListViewItem *after);

    MRLListView *listView() const;

    void setPixmap(int column, const QPixmap &pixmap);
    QPixmap pixmap(int column) const;

    // The row's own colours, used when the list is in ItemColors mode; an invalid colour
    // leaves the list's palette in charge.
    virtual QColor textColor() const { return QColor(); }
    virtual QColor backgroundColor() const { return QColor(); }

    // Cells follow the alignment of their column.
    QVariant data(int column, int role) const override;
};

#endif
