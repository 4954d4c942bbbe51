#include "lib/qt/mrlrowdelegate.h"

#include <QApplication>
#include <QStyle>

QSize MRLRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize natural = QStyledItemDelegate::sizeHint(option, index);
    // The height of a cell with one line of text and an icon of the tallest kind, whatever
    // this cell holds.
    QStyleOptionViewItem probe(option);
    initStyleOption(&probe, index);
    probe.text = QStringLiteral("Xg");
    probe.features |= QStyleOptionViewItem::HasDisplay;
    if (m_iconHeight > 0) {
        probe.features |= QStyleOptionViewItem::HasDecoration;
        probe.decorationSize = QSize(m_iconHeight, m_iconHeight);
        probe.icon = QIcon();
    } else {
        probe.features &= ~QStyleOptionViewItem::HasDecoration;
    }
    const QWidget *widget = option.widget;
    const QStyle *style = widget ? widget->style() : QApplication::style();
    const int height
        = style->sizeFromContents(QStyle::CT_ItemViewItem, &probe, QSize(), widget).height();
    return QSize(natural.width(), height);
}
