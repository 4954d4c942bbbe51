#ifndef MRLROWDELEGATE_H
#define MRLROWDELEGATE_H

#include <QStyledItemDelegate>

// Draws cells as the style does, but makes every row as high as a line of text beside the
// tallest icon the list can show. A list with rows of one height takes that height from
// its first row, so without this the rows would shrink whenever the columns shown hold no
// icon in the first row.
class MRLRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setIconHeight(int height) { m_iconHeight = height; }
    int iconHeight() const { return m_iconHeight; }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    int m_iconHeight = 0;
};

#endif
