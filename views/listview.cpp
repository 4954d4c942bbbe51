#include "views/listview.h"

#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "views/listviewitem.h"
#include "views/recordcells.h"

#include <QHeaderView>
#include <QStyle>

namespace
{
// The widest a fitted column grows, in average characters of the list's font.
constexpr int maxFitCharacters = 40;
} // namespace

ListView::ListView(QWidget *parent, const QString &name)
    : PIMListView(parent, name)
{
    const QStringList names = RecordCells::iconNames();
    // Entry 0, "empty", every list has already.
    for (qsizetype i = 1; i < names.size(); ++i)
        addIcon(names.at(i));
    setColorMode(AlternateColors);
}

void ListView::bind(DataManager *manager, const QList<FieldDef> &fields, const QList<int> &columns)
{
    setManager(manager, true);
    setFields(fields);
    setColumns(columns);
    init();
    fitUnsetColumns();
}

void ListView::newTask(PIMRecord *record)
{
    PIMListView::newTask(record);
    fitUnsetColumns();
}

void ListView::updateTask(PIMRecord *record)
{
    PIMListView::updateTask(record);
    fitUnsetColumns();
}

void ListView::fitUnsetColumns()
{
    const QSignalBlocker blocker(header());
    const int most = fontMetrics().averageCharWidth() * maxFitCharacters;
    const int margin = 2 * style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 4;
    for (int column = 0; column < columnCount(); ++column) {
        const int field = fieldAt(column);
        if (field < 0 || m_fields.value(field).width >= 0)
            continue;
        const int content = qMin(sizeHintForColumn(column) + margin, most);
        header()->resizeSection(column, qMax(header()->sectionSizeHint(column), content));
    }
}

DataManager *ListView::dataManager() const
{
    return static_cast<DataManager *>(manager());
}

void ListView::addField(int field, Config *)
{
    const FieldDef def = m_fields.value(field);
    const QString iconName = RecordCells::headerIcon(def.type);
    const int column
        = addColumn(iconName.isEmpty() ? QIcon() : loadIconSet(iconName), def.title, def.width);
    if (RecordCells::isRightAligned(def.type))
        setColumnAlignment(column, Qt::AlignRight);
}

void ListView::columnResized(int section, int newWidth)
{
    const int field = fieldAt(section);
    if (field < 0 || field >= m_fields.size())
        return;
    m_fields[field].width = newWidth;
    if (DataManager *card = dataManager())
        card->setFieldWidth(field, newWidth);
}

RecordItem *ListView::createItem(PIMRecord *record)
{
    return new ListViewItem(this, record);
}

RecordItem *ListView::createItem(PIMRecord *record, RecordItem *after)
{
    return new ListViewItem(this, record, after);
}
