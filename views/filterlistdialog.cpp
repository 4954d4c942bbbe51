#include "views/filterlistdialog.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "views/filtereditordialog.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
// The rows keep the position their filter has in the card's list.
constexpr int indexColumn = 1;
} // namespace

FilterListDialog::FilterListDialog(DataManager *manager, QWidget *parent, const char *name)
    : QDialog(parent)
    , manager(manager)
{
    setObjectName(QString::fromLatin1(name ? name : "FilterListDialog"));
    setWindowTitle(tr("Filters Editor") + QStringLiteral(" ..."));
    buildWidgets();
    fillRows();
}

FilterListDialog::~FilterListDialog()
{
    doUpdate();
}

QPushButton *FilterListDialog::addButton(const char *name, const QString &icon, const QString &tip)
{
    auto *button = new QPushButton(loadIconSet(icon), QString(), this);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

void FilterListDialog::buildWidgets()
{
    list = new QTreeWidget(this);
    list->setObjectName(QStringLiteral("list"));
    list->setColumnCount(2);
    list->setHeaderHidden(true);
    list->setRootIsDecorated(false);
    list->hideColumn(indexColumn);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        list->setColumnWidth(0, std::max(screen->size().width(), screen->size().height()));
    btnNew = addButton("btnNew", QStringLiteral("filenew"), tr("New Filter"));
    btnEdit = addButton("btnEdit", QStringLiteral("edit"), tr("Edit Filter"));
    btnRemove = addButton("btnRemove", QStringLiteral("remove"), tr("Remove Filter"));
    btnSort = addButton("btnSort", QStringLiteral("sort-name"), tr("Sort"));
    btnUp = addButton("btnUp", QStringLiteral("up"), tr("Up"));
    btnDown = addButton("btnDown", QStringLiteral("down"), tr("Down"));
    btnSelect = addButton("btnSelect", QStringLiteral("button_ok"), QString());
    btnSelect->setText(tr("Select"));
    btnSelect->setDefault(true);
    btnClose = addButton("btnClose", QStringLiteral("button_cancel"), QString());
    btnClose->setText(tr("Close"));

    auto *tools = new QHBoxLayout;
    for (QPushButton *button : { btnNew, btnEdit, btnRemove, btnSort, btnUp, btnDown })
        tools->addWidget(button);
    tools->addStretch();
    auto *exits = new QHBoxLayout;
    exits->addStretch();
    exits->addWidget(btnSelect);
    exits->addWidget(btnClose);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(tools);
    layout->addWidget(list, 1);
    layout->addLayout(exits);

    connect(btnNew, &QPushButton::clicked, this, &FilterListDialog::doNew);
    connect(btnEdit, &QPushButton::clicked, this, &FilterListDialog::doEdit);
    connect(btnRemove, &QPushButton::clicked, this, &FilterListDialog::doRemove);
    connect(btnSort, &QPushButton::clicked, this, &FilterListDialog::sort);
    connect(btnUp, &QPushButton::clicked, this, &FilterListDialog::doUp);
    connect(btnDown, &QPushButton::clicked, this, &FilterListDialog::doDown);
    connect(btnSelect, &QPushButton::clicked, this, &FilterListDialog::doSelect);
    connect(btnClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(list, &QTreeWidget::currentItemChanged, this, &FilterListDialog::currentChanged);
}

void FilterListDialog::fillRows()
{
    list->clear();
    const QList<FilterDef> filters = manager->filters();
    const QIcon icon = loadIconSet(QStringLiteral("viewmag"));
    for (int i = 0; i < filters.size(); ++i) {
        auto *row = new QTreeWidgetItem(list, { filters.at(i).title, QString::number(i) });
        row->setIcon(0, icon);
    }
    currentChanged();
}

int FilterListDialog::currentRow() const
{
    return list->indexOfTopLevelItem(list->currentItem());
}

void FilterListDialog::currentChanged()
{
    const int row = currentRow();
    for (QPushButton *button : { btnEdit, btnRemove, btnSelect })
        button->setEnabled(row >= 0);
    btnUp->setEnabled(row > 0);
    btnDown->setEnabled(row >= 0 && row + 1 < list->topLevelItemCount());
}

// Writes the rows back: the card's list in row order, and the current filter.
void FilterListDialog::doUpdate()
{
    const QList<FilterDef> filters = manager->filters();
    QList<FilterDef> ordered;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        const int index = list->topLevelItem(row)->text(indexColumn).toInt();
        if (index >= 0 && index < filters.size())
            ordered << filters.at(index);
    }
    const int current = currentRow();
    manager->setFilters(ordered);
    if (selectedFlag)
        manager->setCurrentFilter(current);
    else if (changed)
        manager->setCurrentFilter(-1);
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        list->topLevelItem(row)->setText(indexColumn, QString::number(row));
    changed = false;
}

void FilterListDialog::doNew()
{
    doUpdate();
    FilterEditorDialog editor(manager, FilterEditorDialog::NewFilter, this);
    if (editor.exec() != QDialog::Accepted)
        return;
    editor.apply();
    fillRows();
    list->setCurrentItem(list->topLevelItem(list->topLevelItemCount() - 1));
}

void FilterListDialog::doEdit()
{
    QTreeWidgetItem *row = list->currentItem();
    if (!row)
        return;
    const int index = row->text(indexColumn).toInt();
    FilterEditorDialog editor(manager, index, this);
    if (editor.exec() != QDialog::Accepted)
        return;
    editor.apply();
    if (index >= 0 && index < manager->filters().size())
        row->setText(0, manager->filters().at(index).title);
}

void FilterListDialog::doRemove()
{
    const int row = currentRow();
    if (row < 0)
        return;
    const QString title = list->topLevelItem(row)->text(0);
    if (!MRLDialog::question(tr("Are you sure you want to delete\nFilter [%1] ?").arg(title),
            tr("Delete") + QStringLiteral(" ...")))
        return;
    delete list->takeTopLevelItem(row);
    changed = true;
    currentChanged();
}

void FilterListDialog::moveCurrent(int by)
{
    const int row = currentRow();
    const int to = row + by;
    if (row < 0 || to < 0 || to >= list->topLevelItemCount())
        return;
    QTreeWidgetItem *item = list->takeTopLevelItem(row);
    list->insertTopLevelItem(to, item);
    list->setCurrentItem(item);
    changed = true;
}

void FilterListDialog::doUp()
{
    moveCurrent(-1);
}

void FilterListDialog::doDown()
{
    moveCurrent(1);
}

// Orders the rows by title; the card's order follows at doUpdate, the current filter stays.
void FilterListDialog::sort()
{
    list->sortItems(0, Qt::AscendingOrder);
    list->setSortingEnabled(false);
    if (list->topLevelItemCount() > 0)
        list->setCurrentItem(list->topLevelItem(0));
}

void FilterListDialog::doSelect()
{
    selectedFlag = true;
    accept();
}
