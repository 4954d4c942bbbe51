#include "views/namedlistdialog.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "lib/qt/mltoolbutton.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
// The rows keep the position their entry has in the card's list.
constexpr int indexColumn = 1;
} // namespace

NamedListDialog::NamedListDialog(
    DataManager *manager, const QString &caption, const QString &rowIcon, QWidget *parent)
    : QDialog(parent)
    , manager(manager)
    , rowIcon(rowIcon)
{
    setWindowTitle(caption);
    buildWidgets();
}

void NamedListDialog::buildWidgets()
{
    list = new QTreeWidget(this);
    list->setObjectName(QStringLiteral("list"));
    list->setColumnCount(2);
    list->setHeaderHidden(true);
    list->setRootIsDecorated(false);
    list->hideColumn(indexColumn);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        list->setColumnWidth(0, std::max(screen->size().width(), screen->size().height()));
    btnNew = MLToolButton::create(this, "btnNew", QStringLiteral("filenew"));
    btnEdit = MLToolButton::create(this, "btnEdit", QStringLiteral("edit"));
    btnRemove = MLToolButton::create(this, "btnRemove", QStringLiteral("remove"));
    btnSort = MLToolButton::create(this, "btnSort", QStringLiteral("sort-name"));
    btnUp = MLToolButton::create(this, "btnUp", QStringLiteral("up"));
    btnDown = MLToolButton::create(this, "btnDown", QStringLiteral("down"));
    btnSelect = MLToolButton::create(this, "btnSelect", QStringLiteral("button_ok"));
    btnSelect->setText(tr("Select"));
    btnSelect->setDefault(true);
    btnClose = MLToolButton::create(this, "btnClose", QStringLiteral("button_cancel"));
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

    connect(btnNew, &QPushButton::clicked, this, &NamedListDialog::doNew);
    connect(btnEdit, &QPushButton::clicked, this, &NamedListDialog::doEdit);
    connect(btnRemove, &QPushButton::clicked, this, &NamedListDialog::doRemove);
    connect(btnSort, &QPushButton::clicked, this, &NamedListDialog::sort);
    connect(btnUp, &QPushButton::clicked, this, &NamedListDialog::doUp);
    connect(btnDown, &QPushButton::clicked, this, &NamedListDialog::doDown);
    connect(btnSelect, &QPushButton::clicked, this, &NamedListDialog::doSelect);
    connect(btnClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(list, &QTreeWidget::currentItemChanged, this, &NamedListDialog::currentChanged);
}

void NamedListDialog::fillRows()
{
    list->clear();
    const QStringList names = titles();
    const QIcon icon = loadIconSet(rowIcon);
    for (int i = 0; i < names.size(); ++i) {
        auto *row = new QTreeWidgetItem(list, { names.at(i), QString::number(i) });
        row->setIcon(0, icon);
    }
    currentChanged();
}

int NamedListDialog::currentRow() const
{
    return list->indexOfTopLevelItem(list->currentItem());
}

void NamedListDialog::currentChanged()
{
    const int row = currentRow();
    for (QPushButton *button : { btnEdit, btnRemove, btnSelect })
        button->setEnabled(row >= 0);
    btnUp->setEnabled(row > 0);
    btnDown->setEnabled(row >= 0 && row + 1 < list->topLevelItemCount());
}

// Writes the rows back: the card's list in row order, and the current entry.
void NamedListDialog::doUpdate()
{
    const int count = int(titles().size());
    QList<int> positions;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        const int index = list->topLevelItem(row)->text(indexColumn).toInt();
        if (index >= 0 && index < count)
            positions << index;
    }
    const int current = currentRow();
    reorder(positions);
    if (selectedFlag)
        makeCurrent(current);
    else if (changed)
        makeCurrent(-1);
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        list->topLevelItem(row)->setText(indexColumn, QString::number(row));
    changed = false;
}

void NamedListDialog::doNew()
{
    doUpdate();
    if (!edit(-1))
        return;
    fillRows();
    list->setCurrentItem(list->topLevelItem(list->topLevelItemCount() - 1));
}

void NamedListDialog::doEdit()
{
    QTreeWidgetItem *row = list->currentItem();
    if (!row)
        return;
    const int index = row->text(indexColumn).toInt();
    if (!edit(index))
        return;
    const QStringList names = titles();
    if (index >= 0 && index < names.size())
        row->setText(0, names.at(index));
}

void NamedListDialog::doRemove()
{
    const int row = currentRow();
    if (row < 0)
        return;
    const QString title = list->topLevelItem(row)->text(0);
    if (!MRLDialog::question(removeQuestion(title), tr("Delete") + QStringLiteral(" ...")))
        return;
    delete list->takeTopLevelItem(row);
    changed = true;
    currentChanged();
}

void NamedListDialog::moveCurrent(int by)
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

void NamedListDialog::doUp()
{
    moveCurrent(-1);
}

void NamedListDialog::doDown()
{
    moveCurrent(1);
}

// Orders the rows by title; the card's order follows at doUpdate, the current entry stays.
void NamedListDialog::sort()
{
    list->sortItems(0, Qt::AscendingOrder);
    list->setSortingEnabled(false);
    if (list->topLevelItemCount() > 0)
        list->setCurrentItem(list->topLevelItem(0));
}

void NamedListDialog::doSelect()
{
    selectedFlag = true;
    accept();
}
