#include "views/filterlistdialog.h"

#include "card/datamanager.h"
#include "views/filtereditordialog.h"

FilterListDialog::FilterListDialog(DataManager *manager, QWidget *parent, const char *name)
    : NamedListDialog(
        manager, tr("Filters Editor") + QStringLiteral(" ..."), QStringLiteral("viewmag"), parent)
{
    setObjectName(QString::fromLatin1(name ? name : "FilterListDialog"));
    fillRows();
}

FilterListDialog::~FilterListDialog()
{
    doUpdate();
}

QStringList FilterListDialog::titles() const
{
    QStringList names;
    for (const FilterDef &filter : manager->filters())
        names << filter.title;
    return names;
}

void FilterListDialog::reorder(const QList<int> &positions)
{
    const QList<FilterDef> filters = manager->filters();
    QList<FilterDef> ordered;
    for (int position : positions)
        ordered << filters.at(position);
    manager->setFilters(ordered);
}

void FilterListDialog::makeCurrent(int index)
{
    manager->setCurrentFilter(index);
}

bool FilterListDialog::edit(int index)
{
    FilterEditorDialog editor(manager, index, this);
    if (editor.exec() != QDialog::Accepted)
        return false;
    editor.apply();
    return true;
}

QString FilterListDialog::removeQuestion(const QString &title) const
{
    return tr("Are you sure you want to delete\nFilter [%1] ?").arg(title);
}
