#include "views/columnsetup.h"

#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "lib/qt/mldialogbuttons.h"
#include "lib/qt/mltoolbutton.h"
#include "lib/qt/mlyesnodialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
// The rows of both lists keep their field index here.
constexpr int fieldColumn = 1;

QString typeIcon(int type)
{
    switch (type) {
    case FieldDef::Integer:
    case FieldDef::Double:
    case FieldDef::Count:
    case FieldDef::Increment:
        return QStringLiteral("math");
    case FieldDef::Date:
    case FieldDef::DateTime:
        return QStringLiteral("date");
    case FieldDef::Time:
        return QStringLiteral("clock");
    case FieldDef::Reminder:
        return QStringLiteral("reminder");
    case FieldDef::Bool:
        return QStringLiteral("on");
    case FieldDef::Image:
        return QStringLiteral("image");
    default:
        return QStringLiteral("document");
    }
}
} // namespace

ColumnSetup::ColumnSetup(DataManager *manager, int index, QWidget *parent, const char *name)
    : QDialog(parent)
    , manager(manager)
    , index(index)
{
    setObjectName(QString::fromLatin1(name ? name : "ColumnSetup"));
    setWindowTitle(tr("Customize View"));
    buildWidgets();

    const QList<FieldDef> &fields = manager->fieldList();
    for (int i = 0; i < fields.size(); ++i)
        addColumnRow(allcolumns, i);
    allcolumns->setCurrentItem(allcolumns->topLevelItem(0));
    const QList<ViewDef> views = manager->views();
    if (index >= 0 && index < views.size()) {
        const ViewDef &view = views.at(index);
        vname->setText(view.title);
        for (int field : view.columns) {
            if (field >= 0 && field < fields.size())
                addColumnRow(list, field);
        }
        fillChoosers(view.sort, view.ascending, view.filter);
    } else {
        vname->setText(tr("Filter"));
        for (int i = 0; i < fields.size(); ++i)
            addColumnRow(list, i);
        const int current = manager->currentFilter();
        const QList<FilterDef> filters = manager->filters();
        const QString uuid = current >= 0 && current < filters.size()
            ? filters.at(current).uuidString()
            : QString();
        fillChoosers(manager->sortColumn(), manager->sortOrder(), uuid);
    }
    currentChanged();
    startView = shownView();
}

void ColumnSetup::buildWidgets()
{
    vname = new QLineEdit(this);
    vname->setObjectName(QStringLiteral("vname"));
    sort = new QComboBox(this);
    sort->setObjectName(QStringLiteral("sort"));
    order = new QComboBox(this);
    order->setObjectName(QStringLiteral("order"));
    filter = new QComboBox(this);
    filter->setObjectName(QStringLiteral("filter"));
    for (QTreeWidget **tree : { &allcolumns, &list }) {
        *tree = new QTreeWidget(this);
        (*tree)->setColumnCount(2);
        (*tree)->hideColumn(fieldColumn);
        (*tree)->setHeaderHidden(true);
        (*tree)->setRootIsDecorated(false);
        // The one visible column takes the whole width.
        (*tree)->header()->setStretchLastSection(true);
    }
    allcolumns->setObjectName(QStringLiteral("allcolumns"));
    list->setObjectName(QStringLiteral("list"));
    btnGet = MLToolButton::create(this, "btnGet", QStringLiteral("forward"));
    btnRemove = MLToolButton::create(this, "btnRemove", QStringLiteral("remove"));
    btnUp = MLToolButton::create(this, "btnUp", QStringLiteral("up"));
    btnDown = MLToolButton::create(this, "btnDown", QStringLiteral("down"));

    auto *form = new QFormLayout;
    form->addRow(tr("View Name:"), vname);
    auto *sortRow = new QHBoxLayout;
    sortRow->addWidget(sort, 1);
    sortRow->addWidget(order);
    form->addRow(tr("Sort by:"), sortRow);
    form->addRow(tr("Filter:"), filter);
    auto *moves = new QVBoxLayout;
    moves->addStretch();
    for (QPushButton *button : { btnGet, btnRemove, btnUp, btnDown })
        moves->addWidget(button);
    moves->addStretch();
    auto *columns = new QHBoxLayout;
    columns->addWidget(allcolumns, 1);
    columns->addLayout(moves);
    columns->addWidget(list, 1);
    QDialogButtonBox *buttons = MLDialogButtons::okCancel(this);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(columns, 1);
    layout->addWidget(buttons);

    connect(btnGet, &QPushButton::clicked, this, &ColumnSetup::doGet);
    connect(btnRemove, &QPushButton::clicked, this, &ColumnSetup::doRemove);
    connect(btnUp, &QPushButton::clicked, this, &ColumnSetup::doUp);
    connect(btnDown, &QPushButton::clicked, this, &ColumnSetup::doDown);
    connect(list, &QTreeWidget::currentItemChanged, this, &ColumnSetup::currentChanged);
}

void ColumnSetup::fillChoosers(int sortColumn, bool ascending, const QString &filterUuid)
{
    const QList<FieldDef> &fields = manager->fieldList();
    sort->addItem(tr("Unsorted"));
    for (const FieldDef &field : fields)
        sort->addItem(loadIconSet(typeIcon(field.type)), field.title);
    sort->setCurrentIndex(sortColumn >= 0 && sortColumn < fields.size() ? sortColumn + 1 : 0);
    order->addItems({ tr("Ascending"), tr("Descending") });
    order->setCurrentIndex(ascending ? 0 : 1);

    const QIcon viewmag = loadIconSet(QStringLiteral("viewmag"));
    filter->addItem(viewmag, tr("All Records"));
    if (index >= filterChoiceViews)
        return;
    const QList<FilterDef> filters = manager->filters();
    for (int i = 0; i < filters.size(); ++i) {
        filter->addItem(viewmag, filters.at(i).title);
        if (!filterUuid.isNull() && filters.at(i).uuidString() == filterUuid
            && filter->currentIndex() == 0)
            filter->setCurrentIndex(i + 1);
    }
}

void ColumnSetup::addColumnRow(QTreeWidget *to, int field)
{
    const FieldDef &def = manager->fieldList().at(field);
    auto *row = new QTreeWidgetItem(to, { def.title, QString::number(field) });
    row->setIcon(0, loadIconSet(typeIcon(def.type)));
}

void ColumnSetup::doGet()
{
    QTreeWidgetItem *current = allcolumns->currentItem();
    if (!current)
        return;
    addColumnRow(list, current->text(fieldColumn).toInt());
    const int row = allcolumns->indexOfTopLevelItem(current);
    if (row + 1 < allcolumns->topLevelItemCount())
        allcolumns->setCurrentItem(allcolumns->topLevelItem(row + 1));
    currentChanged();
}

void ColumnSetup::doRemove()
{
    delete list->currentItem();
    currentChanged();
}

void ColumnSetup::moveCurrent(int by)
{
    const int row = list->indexOfTopLevelItem(list->currentItem());
    const int to = row + by;
    if (row < 0 || to < 0 || to >= list->topLevelItemCount())
        return;
    QTreeWidgetItem *item = list->takeTopLevelItem(row);
    list->insertTopLevelItem(to, item);
    list->setCurrentItem(item);
}

void ColumnSetup::doUp()
{
    moveCurrent(-1);
}

void ColumnSetup::doDown()
{
    moveCurrent(1);
}

void ColumnSetup::currentChanged()
{
    const int row = list->indexOfTopLevelItem(list->currentItem());
    btnRemove->setEnabled(row >= 0);
    btnUp->setEnabled(row > 0);
    btnDown->setEnabled(row >= 0 && row + 1 < list->topLevelItemCount());
}

ViewDef ColumnSetup::shownView() const
{
    ViewDef view;
    view.title = vname->text();
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        view.columns << list->topLevelItem(row)->text(fieldColumn).toInt();
    view.sort = sort->currentIndex() - 1;
    view.ascending = order->currentIndex() == 0;
    const QList<FilterDef> filters = manager->filters();
    const int chosen = filter->currentIndex() - 1;
    if (chosen >= 0 && chosen < filters.size())
        view.filter = filters.at(chosen).uuidString();
    return view;
}

// Leaving with Escape or the window's button drops what was typed or picked; a view left
// as it was shown goes without a question.
void ColumnSetup::reject()
{
    if (shownView() != startView
        && !MLYesNoDialog::ask(windowTitle(), tr("Discard the changes to this view?")))
        return;
    QDialog::reject();
}

void ColumnSetup::apply()
{
    const ViewDef view = shownView();
    QList<ViewDef> views = manager->views();
    if (index >= 0 && index < views.size())
        views[index] = view;
    else
        views << view;
    manager->setViews(views);
}
