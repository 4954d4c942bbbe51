#include "views/viewlistdialog.h"

#include "card/datamanager.h"
#include "views/columnsetup.h"

ViewListDialog::ViewListDialog(DataManager *manager, QWidget *parent, const char *name)
    : NamedListDialog(manager, tr("View's Editor") + QStringLiteral(" ..."),
        QStringLiteral("view_detailed"), parent)
{
    setObjectName(QString::fromLatin1(name ? name : "ViewListDialog"));
    fillRows();
}

ViewListDialog::~ViewListDialog()
{
    doUpdate();
}

QStringList ViewListDialog::titles() const
{
    QStringList names;
    for (const ViewDef &view : manager->views())
        names << view.title;
    return names;
}

void ViewListDialog::reorder(const QList<int> &positions)
{
    const QList<ViewDef> views = manager->views();
    QList<ViewDef> ordered;
    for (int position : positions)
        ordered << views.at(position);
    manager->setViews(ordered);
}

void ViewListDialog::makeCurrent(int index)
{
    manager->setCurrentView(index);
}

bool ViewListDialog::edit(int index)
{
    ColumnSetup setup(manager, index, this);
    if (setup.exec() != QDialog::Accepted)
        return false;
    setup.apply();
    return true;
}

QString ViewListDialog::removeQuestion(const QString &title) const
{
    return tr("Are you sure you want to delete\nView [%1] ?").arg(title);
}
