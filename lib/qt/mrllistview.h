#ifndef MRLLISTVIEW_H
#define MRLLISTVIEW_H

#include <QColor>
#include <QIcon>
#include <QList>
#include <QTreeWidget>

class MRLListViewItem;
class MRLRowDelegate;

// The program's list with a header: a flat list of rows in columns that may carry header
// icons and right alignment. Rows are placed explicitly (at the top or behind a row) and
// never sorted by the list itself. Rows can be painted in the user's two alternating
// colour pairs, kept in the settings group named after the list.
class MRLListView : public QTreeWidget
{
    Q_OBJECT

public:
    enum ColorMode { PlainColors = 0, AlternateColors = 1, ItemColors = 2 };

    explicit MRLListView(QWidget *parent = nullptr, const QString &name = QString());

    // Columns. A width below 0 takes the width the header needs for the title.
    int addColumn(const QString &label, int width = -1);
    int addColumn(const QIcon &icon, const QString &label, int width = -1);
    void setColumnAlignment(int column, Qt::Alignment alignment);
    Qt::Alignment columnAlignment(int column) const;
    void setColumnResizable(int column, bool resizable);
    // Exactly as wide as the header and the cells need, and not resizable by the user.
    void setColumnFitted(int column);
    void removeAllColumns();

    // Rows, in display order.
    int itemCount() const { return topLevelItemCount(); }
    MRLListViewItem *itemAtRow(int row) const;
    MRLListViewItem *firstItem() const { return itemAtRow(0); }
    MRLListViewItem *lastItem() const { return itemAtRow(itemCount() - 1); }
    QList<MRLListViewItem *> items() const;
    MRLListViewItem *currentListItem() const;
    // The row under a point of the viewport, or null.
    MRLListViewItem *listItemAt(const QPoint &viewportPos) const;
    // Takes the row out of the list without deleting it.
    void takeItem(MRLListViewItem *item);
    // Puts a row that was taken out back in, at the top.
    void insertItem(MRLListViewItem *item);
    // Moves a row behind after, or to the top when after is null.
    void moveItem(MRLListViewItem *item, MRLListViewItem *after);
    // The header section under an x position of the viewport, or -1.
    int sectionAt(int x) const;

    // Every row is as high as a line of text beside an icon this high, whichever columns
    // the list shows; a list that shows icons gives the tallest of them.
    void setRowIconHeight(int height);

    // Row colours. Changing the mode to AlternateColors reads the colours anew.
    void setColorMode(int mode);
    int colorMode() const { return m_colorMode; }
    // Text of odd lines, background of odd lines, text of even lines, background of even
    // lines; the first row is line 1. Null colours stand for the palette's Text and Base.
    // Written to the settings at once.
    void setRowColors(const QColor &oddText, const QColor &oddBase, const QColor &evenText,
        const QColor &evenBase);
    QColor rowColor(int index) const { return m_rowColors.value(index); }
    // The settings file that holds this list's colours: the shared "mrl" file for the
    // widget library's own lists, otherwise the application's file.
    QString colorConfigName() const;

public Q_SLOTS:
    // Removes every row.
    virtual void clear();

Q_SIGNALS:
    void currentListItemChanged(MRLListViewItem *item);
    void listItemClicked(MRLListViewItem *item);

protected:
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;

private:
    void readRowColors();

    QList<Qt::Alignment> m_alignments;
    QList<QColor> m_rowColors;
    MRLRowDelegate *m_rowDelegate;
    int m_colorMode = PlainColors;
};

#endif
