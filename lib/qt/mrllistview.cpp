#include "lib/qt/mrllistview.h"

#include "lib/qt/mrllistviewitem.h"
#include "lib/qt/mrlrowdelegate.h"
#include "platform/config.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QSignalBlocker>

namespace
{
const char *const colorKeys[] = { "c1", "c2", "c3", "c4" };
const char *const defaultColors[] = { "#336699", "#e5e5e5", "#000000", "#ffffcc" };
} // namespace

MRLListView::MRLListView(QWidget *parent, const QString &name)
    : QTreeWidget(parent)
    , m_rowDelegate(new MRLRowDelegate(this))
{
    setObjectName(name);
    setItemDelegate(m_rowDelegate);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSortingEnabled(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setColumnCount(0);
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(true);
    header()->setSectionsMovable(false);
    for (const char *color : defaultColors)
        m_rowColors.append(QColor(QLatin1String(color)));

    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *current) {
        Q_EMIT currentListItemChanged(static_cast<MRLListViewItem *>(current));
    });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *item) {
        Q_EMIT listItemClicked(static_cast<MRLListViewItem *>(item));
    });
}

int MRLListView::addColumn(const QString &label, int width)
{
    return addColumn(QIcon(), label, width);
}

int MRLListView::addColumn(const QIcon &icon, const QString &label, int width)
{
    // Making a column is not a resize by the user: whoever listens for those must not hear it.
    const QSignalBlocker blocker(header());
    const int column = columnCount();
    setColumnCount(column + 1);
    QTreeWidgetItem *head = headerItem();
    head->setText(column, label);
    head->setIcon(column, icon);
    m_alignments.append(Qt::AlignLeft);
    header()->resizeSection(column, width >= 0 ? width : header()->sectionSizeHint(column));
    return column;
}

void MRLListView::setColumnAlignment(int column, Qt::Alignment alignment)
{
    if (column < 0 || column >= m_alignments.size())
        return;
    m_alignments[column] = alignment;
    headerItem()->setTextAlignment(column, alignment | Qt::AlignVCenter);
    viewport()->update();
}

Qt::Alignment MRLListView::columnAlignment(int column) const
{
    return m_alignments.value(column, Qt::AlignLeft);
}

void MRLListView::setColumnResizable(int column, bool resizable)
{
    header()->setSectionResizeMode(
        column, resizable ? QHeaderView::Interactive : QHeaderView::Fixed);
}

void MRLListView::setColumnFitted(int column)
{
    header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
}

void MRLListView::setRowIconHeight(int height)
{
    if (height == m_rowDelegate->iconHeight())
        return;
    m_rowDelegate->setIconHeight(height);
    doItemsLayout();
}

void MRLListView::removeAllColumns()
{
    const QSignalBlocker blocker(header());
    setColumnCount(0);
    m_alignments.clear();
}

MRLListViewItem *MRLListView::itemAtRow(int row) const
{
    return static_cast<MRLListViewItem *>(topLevelItem(row));
}

QList<MRLListViewItem *> MRLListView::items() const
{
    QList<MRLListViewItem *> list;
    const int count = itemCount();
    list.reserve(count);
    for (int row = 0; row < count; ++row)
        list.append(itemAtRow(row));
    return list;
}

MRLListViewItem *MRLListView::currentListItem() const
{
    return static_cast<MRLListViewItem *>(currentItem());
}

MRLListViewItem *MRLListView::listItemAt(const QPoint &viewportPos) const
{
    return static_cast<MRLListViewItem *>(itemAt(viewportPos));
}

void MRLListView::takeItem(MRLListViewItem *item)
{
    const int row = indexOfTopLevelItem(item);
    if (row >= 0)
        takeTopLevelItem(row);
}

void MRLListView::insertItem(MRLListViewItem *item)
{
    insertTopLevelItem(0, item);
}

void MRLListView::moveItem(MRLListViewItem *item, MRLListViewItem *after)
{
    takeItem(item);
    insertTopLevelItem(after ? indexOfTopLevelItem(after) + 1 : 0, item);
}

int MRLListView::sectionAt(int x) const
{
    return header()->logicalIndexAt(x);
}

void MRLListView::setColorMode(int mode)
{
    m_colorMode = mode;
    if (mode == AlternateColors)
        readRowColors();
    viewport()->update();
}

QString MRLListView::colorConfigName() const
{
    if (objectName().startsWith(QLatin1String("mrl")))
        return QStringLiteral("mrl");
    return qApp ? qApp->objectName() : QString();
}

void MRLListView::readRowColors()
{
    const QString file = colorConfigName();
    if (objectName().isEmpty() || file.isEmpty())
        return;
    Config config(file);
    config.setGroup(objectName());
    for (int i = 0; i < 4; ++i) {
        const QColor color(
            config.readEntry(QLatin1String(colorKeys[i]), QLatin1String(defaultColors[i])));
        m_rowColors[i] = color.isValid() ? color : QColor(QLatin1String(defaultColors[i]));
    }
}

void MRLListView::setRowColors(
    const QColor &oddText, const QColor &oddBase, const QColor &evenText, const QColor &evenBase)
{
    const QColor text = palette().color(QPalette::Text);
    const QColor base = palette().color(QPalette::Base);
    m_rowColors = { oddText.isValid() ? oddText : text, oddBase.isValid() ? oddBase : base,
        evenText.isValid() ? evenText : text, evenBase.isValid() ? evenBase : base };
    viewport()->update();

    const QString file = colorConfigName();
    if (objectName().isEmpty() || file.isEmpty())
        return;
    Config config(file);
    config.setGroup(objectName());
    for (int i = 0; i < 4; ++i)
        config.writeEntry(QLatin1String(colorKeys[i]), m_rowColors.at(i).name());
    config.write();
}

void MRLListView::clear()
{
    QTreeWidget::clear();
}

void MRLListView::drawRow(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QColor text;
    QColor base;
    if (m_colorMode == AlternateColors) {
        const bool oddLine = index.row() % 2 == 0;
        text = m_rowColors.at(oddLine ? 0 : 2);
        base = m_rowColors.at(oddLine ? 1 : 3);
    } else if (m_colorMode == ItemColors) {
        if (const auto *item = static_cast<const MRLListViewItem *>(itemFromIndex(index))) {
            text = item->textColor();
            base = item->backgroundColor();
        }
    }

    QStyleOptionViewItem rowOption(option);
    if (base.isValid()) {
        painter->fillRect(
            QRect(0, option.rect.y(), viewport()->width(), option.rect.height()), base);
        rowOption.palette.setColor(QPalette::Base, base);
        rowOption.palette.setColor(QPalette::AlternateBase, base);
    }
    if (text.isValid())
        rowOption.palette.setColor(QPalette::Text, text);
    QTreeWidget::drawRow(painter, rowOption, index);
}
