#include "lib/qt/iconviewdialog.h"

#include "lib/qt/mldialogbuttons.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

IconViewDialog::IconViewDialog(const QString &caption, QWidget *parent)
    : QDialog(parent)
    , view(new QListWidget(this))
{
    setWindowTitle(caption);
    view->setObjectName(QStringLiteral("view"));
    view->setViewMode(QListView::IconMode);
    view->setResizeMode(QListView::Adjust);
    view->setMovement(QListView::Static);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setUniformItemSizes(true);

    QDialogButtonBox *buttons = MLDialogButtons::okCancel(this);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(view);
    layout->addWidget(buttons);
    connect(view, &QListWidget::itemActivated, this, &QDialog::accept);
}

void IconViewDialog::addIcon(const QString &name, const QPixmap &pixmap)
{
    auto *item = new QListWidgetItem(QIcon(pixmap), QString(), view);
    item->setData(Qt::UserRole, name);
    item->setToolTip(name);
    view->setIconSize(view->iconSize().expandedTo(pixmap.size()));
}

int IconViewDialog::count() const
{
    return view->count();
}

QStringList IconViewDialog::names() const
{
    QStringList result;
    for (int i = 0; i < view->count(); ++i)
        result << view->item(i)->data(Qt::UserRole).toString();
    return result;
}

void IconViewDialog::setCurrentName(const QString &name)
{
    for (int i = 0; i < view->count(); ++i) {
        if (view->item(i)->data(Qt::UserRole).toString() == name) {
            view->setCurrentRow(i);
            return;
        }
    }
}

QString IconViewDialog::currentName() const
{
    const QList<QListWidgetItem *> selected = view->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->data(Qt::UserRole).toString();
}
