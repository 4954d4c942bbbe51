#include "reminders/categoiesdialog.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "lib/qt/enterstringdialog.h"
#include "lib/qt/mldialogbuttons.h"
#include "reminders/categorylistview.h"
#include "reminders/categoryrecord.h"
#include "store/pimmanager.h"

#include <QDialogButtonBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

CategoiesDialog::CategoiesDialog(PIMManager *manager, QWidget *parent)
    : CategoiesDialog(manager, nullptr, parent)
{
}

CategoiesDialog::CategoiesDialog(PIMManager *manager, const QStringList &uids, QWidget *parent)
    : CategoiesDialog(manager, &uids, parent)
{
}

CategoiesDialog::CategoiesDialog(PIMManager *manager, const QStringList *uids, QWidget *parent)
    : QDialog(parent)
    , m_manager(manager)
    , m_list(new CategoryListView(this))
{
    using Field = CategoryListView::Field;
    setWindowTitle(uids ? tr("Categories") : tr("Categories Editor"));
    markSelected(uids ? *uids : QStringList());
    m_list->setColumns(uids ? QList<int> { Field::SelectedField, Field::TitleField,
                           Field::TextColorField, Field::LineColorField }
                            : QList<int> { Field::IconField, Field::TitleField,
                                Field::TextColorField, Field::LineColorField });
    connect(m_list, &CategoryListView::selectionCleared, this, &CategoiesDialog::selectionCleared);
    connect(m_list, &CategoryListView::selected, this, &CategoiesDialog::selected);
    // Space ticks the current row from the keyboard; Return is left to accept the dialog.
    if (uids)
        connect(m_list, qOverload<const QPoint &, PIMRecord *>(&CategoryListView::popup), m_list,
            [this](const QPoint &, PIMRecord *record) { m_list->toggle(record); });
    m_list->installEventFilter(this);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(buildButtons());
    selectionCleared();
    if (m_manager) {
        m_list->setManager(m_manager, true);
        m_list->init();
    }
    m_new->setEnabled(m_manager != nullptr);
    m_list->setFocus();
    resize(360, 320);
}

// Check marks are working state: every category starts from the given list, and the
// editor, which shows none, starts with none.
void CategoiesDialog::markSelected(const QStringList &uids)
{
    if (!m_manager)
        return;
    for (PIMRecord *record : m_manager->records())
        static_cast<CategoryRecord *>(record)->setSelected(uids.contains(record->uidString()));
}

QToolButton *CategoiesDialog::addButton(const QString &icon, const QString &tip, const char *name)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setIcon(loadIconSet(icon));
    button->setToolTip(tip);
    button->setAutoRaise(true);
    return button;
}

QWidget *CategoiesDialog::buildButtons()
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_new = addButton(QStringLiteral("filenew"), tr("New"), "btnNew");
    m_rename = addButton(QStringLiteral("rename"), tr("Rename"), "btnRename");
    m_remove = addButton(QStringLiteral("remove"), tr("Remove"), "btnRemove");
    connect(m_new, &QToolButton::clicked, this, &CategoiesDialog::newCategory);
    connect(m_rename, &QToolButton::clicked, this, &CategoiesDialog::renameCategory);
    connect(m_remove, &QToolButton::clicked, this, &CategoiesDialog::removeCategory);
    auto *line = new QFrame(row);
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    m_buttons = MLDialogButtons::okCancel(this);
    layout->addWidget(m_new);
    layout->addWidget(m_rename);
    layout->addWidget(line);
    layout->addWidget(m_remove);
    layout->addStretch(1);
    layout->addWidget(m_buttons);
    return row;
}

QStringList CategoiesDialog::selectedCategories() const
{
    QStringList uids;
    if (!m_manager)
        return uids;
    for (PIMRecord *record : m_manager->view()) {
        if (static_cast<CategoryRecord *>(record)->isSelected())
            uids.append(record->uidString());
    }
    return uids;
}

void CategoiesDialog::newCategory()
{
    QString title = tr("New Category");
    if (!m_manager || !EnterStringDialog::getText(tr("Category Name"), title, this)
        || title.isEmpty())
        return;
    auto *record = new CategoryRecord(m_manager);
    record->setTitle(title);
    record->setSelected(true);
    m_manager->add(record);
    m_manager->save();
}

void CategoiesDialog::renameCategory()
{
    auto *record = static_cast<CategoryRecord *>(m_list->currentTask());
    QString title;
    if (!record || !MRLDialog::rename(record->title(), title) || title.isEmpty())
        return;
    auto *old = new CategoryRecord(*record);
    record->setTitle(title);
    record->save(old);
    m_manager->save();
}

// The first category is the fallback of every record without one, so it stays.
void CategoiesDialog::removeCategory()
{
    PIMRecord *record = m_list->currentTask();
    if (!record || record->isFirst())
        return;
    if (!MRLDialog::question(
            tr("Are you sure you want to delete\nCategory [%1] ?").arg(record->title())))
        return;
    record->remove();
    m_manager->save();
}

void CategoiesDialog::selectionCleared()
{
    m_rename->setEnabled(false);
    m_remove->setEnabled(false);
}

void CategoiesDialog::selected(PIMRecord *record)
{
    m_rename->setEnabled(true);
    m_remove->setEnabled(!record->isFirst());
}

// The list takes Return for itself; in a dialog Return means Ok.
bool CategoiesDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            m_buttons->button(QDialogButtonBox::Ok)->click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}
