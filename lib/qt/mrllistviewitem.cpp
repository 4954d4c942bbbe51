#include "lib/qt/mrllistviewitem.h"

#include "lib/qt/mrllistview.h"

MRLListViewItem::MRLListViewItem(MRLListView *list)
    : QTreeWidgetItem(Type)
{
    list->insertTopLevelItem(0, this);
}

MRLListViewItem::MRLListViewItem(MRLListView *list, MRLListViewItem *after)
    : QTreeWidgetItem(list, after, Type)
{
}

MRLListView *MRLListViewItem::listView() const
{
    return static_cast<MRLListView *>(treeWidget());
}

void MRLListViewItem::setPixmap(int column, const QPixmap &pixmap)
{
    setData(column, Qt::DecorationRole, pixmap.isNull() ? QVariant() : QVariant(pixmap));
}

QPixmap MRLListViewItem::pixmap(int column) const
{
    return data(column, Qt::DecorationRole).value<QPixmap>();
}

QVariant MRLListViewItem::data(int column, int role) const
{
    if (role == Qt::TextAlignmentRole) {
        if (const MRLListView *list = listView())
            return int(list->columnAlignment(column) | Qt::AlignVCenter);
    }
    return QTreeWidgetItem::data(column, role);
}
