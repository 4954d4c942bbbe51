#include "reminders/categorylistview.h"

#include "app/mrlapplication.h"
#include "app/resourceicons.h"
#include "lib/qt/mlcolorpanel.h"
#include "platform/config.h"
#include "reminders/categorylistviewitem.h"
#include "reminders/categoryrecord.h"
#include "store/pimmanager.h"

#include <QApplication>
#include <QPainter>

CategoryListView::CategoryListView(QWidget *parent)
    : PIMListView(parent, QStringLiteral("categorylistview"))
{
    addIcon(QStringLiteral("on"));
    addIcon(QStringLiteral("off"));
    addIcon(QStringLiteral("category"));
    setColorMode(ItemColors);
    connect(this, qOverload<PIMRecord *>(&PIMListView::activate), this, &CategoryListView::toggle);
    connect(this, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::activate), this,
        &CategoryListView::cellTapped);
}

void CategoryListView::addField(int field, Config *config)
{
    static const char *const icons[]
        = { "onoff", "editcopy", "category", "color_text", "color_line" };
    if (field < 0 || field >= int(std::size(icons)))
        return;
    const QIcon icon = loadIconSet(QString::fromLatin1(icons[field]));
    if (field != TitleField) {
        setColumnFitted(addColumn(icon, QString()));
        return;
    }
    const int width = config
        ? config->readNumEntry(QStringLiteral("title_width"), defaultTitleWidth)
        : int(defaultTitleWidth);
    addColumn(icon, tr("Title"), width);
}

void CategoryListView::columnResized(int section, int newWidth)
{
    // A section that goes away with its column reports a width of 0: nothing to keep.
    if (section < 0 || section >= fieldColumns().size() || fieldColumns().at(section) != TitleField
        || newWidth <= 0 || qApp->objectName().isEmpty())
        return;
    Config config(qApp->objectName());
    config.setGroup(objectName() + QStringLiteral("_columns"));
    config.writeEntry(QStringLiteral("title_width"), newWidth);
}

CategoryListView::Cell CategoryListView::cell(const CategoryRecord *record, int field) const
{
    switch (field) {
    case SelectedField:
        return { QString(), icon(record->isSelected() ? OnIcon : OffIcon) };
    case TitleField:
        return { record->title(), QPixmap() };
    case IconField:
        return { QString(), icon(CategoryIcon) };
    case TextColorField:
        return { QString(), colorSquare(record->textColor(), squareSize()) };
    case LineColorField:
        return { QString(), colorSquare(record->lineColor(), squareSize()) };
    default:
        return {};
    }
}

QPixmap CategoryListView::colorSquare(const QColor &color, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::black);
    QPainter painter(&pixmap);
    painter.fillRect(1, 1, size - 2, size - 2, Qt::white);
    painter.fillRect(2, 2, size - 4, size - 4, color);
    return pixmap;
}

int CategoryListView::squareSize()
{
    return MRLApplication::isHighResolution() ? 32 : 16;
}

void CategoryListView::setSelected(CategoryRecord *record, bool selected)
{
    auto *old = new CategoryRecord(*record);
    record->setSelected(selected);
    record->save(old);
}

void CategoryListView::setColor(CategoryRecord *record, int field, const QColor &color)
{
    auto *old = new CategoryRecord(*record);
    if (field == TextColorField)
        record->setTextColor(color.isValid() ? color : CategoryRecord::defaultTextColor());
    else
        record->setLineColor(color.isValid() ? color : CategoryRecord::defaultLineColor());
    record->save(old);
}

void CategoryListView::toggle(PIMRecord *record)
{
    auto *category = static_cast<CategoryRecord *>(record);
    setSelected(category, !category->isSelected());
}

// The check mark's header ticks every row unless all are ticked, which clears them.
void CategoryListView::sectionClicked(int section)
{
    if (section < 0 || section >= fieldColumns().size()
        || fieldColumns().at(section) != SelectedField) {
        PIMListView::sectionClicked(section);
        return;
    }
    QList<CategoryRecord *> rows;
    bool allOn = true;
    for (MRLListViewItem *item : items()) {
        auto *record = static_cast<CategoryRecord *>(static_cast<RecordItem *>(item)->record());
        rows.append(record);
        allOn = allOn && record->isSelected();
    }
    for (CategoryRecord *record : rows)
        setSelected(record, !allOn);
}

void CategoryListView::cellTapped(const QPoint &point, PIMRecord *record, int field)
{
    auto *category = static_cast<CategoryRecord *>(record);
    if (field == SelectedField)
        toggle(category);
    else if (field == TextColorField || field == LineColorField)
        chooseColor(point, category, field);
}

// The record is looked up again by its UID when a colour comes: the store may have
// changed while the panel was open.
void CategoryListView::chooseColor(const QPoint &point, CategoryRecord *record, int field)
{
    const bool text = field == TextColorField;
    auto *panel
        = new MLColorPanel(text ? MLColorPanel::OptionalColors : MLColorPanel::BackgroundColors,
            text ? record->textColor() : record->lineColor(), this);
    const QString uid = record->uidString();
    connect(panel, &MLColorPanel::activated, this, [this, uid, field](const QColor &color) {
        if (PIMRecord *found = manager() ? manager()->findByUid(uid) : nullptr)
            setColor(static_cast<CategoryRecord *>(found), field, color);
    });
    panel->move(point);
    panel->show();
}

RecordItem *CategoryListView::createItem(PIMRecord *record)
{
    return new CategoryListViewItem(this, record);
}

RecordItem *CategoryListView::createItem(PIMRecord *record, RecordItem *after)
{
    return new CategoryListViewItem(this, record, after);
}
