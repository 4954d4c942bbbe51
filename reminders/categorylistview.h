#ifndef CATEGORYLISTVIEW_H
#define CATEGORYLISTVIEW_H

#include "views/pimlistview.h"

#include <QColor>
#include <QPixmap>

class CategoryRecord;

// The list of categories: check mark, title, the category picture and the two colours.
// Each row is painted in its own category's colours. A tap on the check mark toggles it,
// a tap on a colour opens the colour panel there.
class CategoryListView : public PIMListView
{
    Q_OBJECT

public:
    // The list's fields, which are also the manager's sort columns.
    enum Field { SelectedField = 0, TitleField, IconField, TextColorField, LineColorField };
    enum { OnIcon = 1, OffIcon = 2, CategoryIcon = 3 };
    static constexpr int defaultTitleWidth = 113;

    explicit CategoryListView(QWidget *parent = nullptr);

    // What a row shows of a category for one field: a text or a picture.
    struct Cell {
        QString text;
        QPixmap pixmap;
    };
    Cell cell(const CategoryRecord *record, int field) const;
    // A black frame around a white one, filled with the colour.
    static QPixmap colorSquare(const QColor &color, int size);
    // 16 pixels on a screen of ordinary resolution, 32 on a high one.
    static int squareSize();

    // Each through a copy, as an editor saves.
    static void setSelected(CategoryRecord *record, bool selected);
    static void setColor(CategoryRecord *record, int field, const QColor &color);

public Q_SLOTS:
    void sectionClicked(int section) override;
    void toggle(PIMRecord *record);

protected:
    void addField(int field, Config *config) override;
    void columnResized(int section, int newWidth) override;
    RecordItem *createItem(PIMRecord *record) override;
    RecordItem *createItem(PIMRecord *record, RecordItem *after) override;

private:
    void cellTapped(const QPoint &point, PIMRecord *record, int field);
    void chooseColor(const QPoint &point, CategoryRecord *record, int field);
};

#endif
