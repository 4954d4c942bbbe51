#include "app/dbdialog.h"

#include "app/dbflows.h"
#include "app/resourceicons.h"
#include "exchange/importdialog.h"
#include "pclink/transfercommands.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "views/dblistview.h"

#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>

DBDialog::DBDialog(DBManager *manager, const QString &currentPath, QWidget *parent)
    : DBDialogBase(parent)
    , manager(manager)
{
    setWindowTitle(tr("Select Card"));
    manager->refreshAll();
    manager->rebuildView();

    memo->setReadOnly(true);
    const int lines = memo->fontMetrics().lineSpacing() * 4;
    const int margins = 2 * int(memo->document()->documentMargin());
    memo->setFixedHeight(lines + margins + 2 * memo->frameWidth());

    setupButtons();
    setupList(currentPath);
    setupKeys();
    setWindowState(windowState() | Qt::WindowMaximized);
}

void DBDialog::setupButtons()
{
    btnRemove->setIcon(loadIconSet(QStringLiteral("remove")));
    btnNew->setIcon(loadIconSet(QStringLiteral("filenew")));
    btnEdit->setIcon(loadIconSet(QStringLiteral("edit")));
    btnOpen->setIcon(loadIconSet(QStringLiteral("fileopen")));
    btnSelect->setIcon(loadIconSet(QStringLiteral("button_ok")));
    btnSelect->setText(tr("Open"));
    btnOk->setIcon(loadIconSet(QStringLiteral("button_cancel")));
    btnOk->setText(tr("Close"));
    btnDup->setIcon(loadIconSet(QStringLiteral("editcopy")));

    auto *removeMenu = new QMenu(btnRemove);
    removeMenu->setObjectName(QStringLiteral("removeMenu"));
    removeMenu->addAction(
        loadIconSet(QStringLiteral("delete")), tr("Remove from List"), this, &DBDialog::doRemove);
    removeMenu->addSeparator();
    deleteAction = removeMenu->addAction(
        loadIconSet(QStringLiteral("remove")), tr("Delete Card"), this, &DBDialog::doDelete);
    btnRemove->setMenu(removeMenu);

    const QString more = QStringLiteral(" ...");
    auto *openMenu = new QMenu(btnOpen);
    openMenu->setObjectName(QStringLiteral("openMenu"));
    openMenu->addAction(
        loadIconSet(QStringLiteral("fileopen")), tr("Open Card") + more, this, &DBDialog::doOpen);
    openMenu->addSeparator();
    openMenu->addAction(
        loadIconSet(QStringLiteral("import")), tr("Import Card") + more, this, &DBDialog::doImport);
    openMenu->addSeparator();
    openMenu->addAction(
        loadIconSet(QStringLiteral("pclink")), tr("PC Link") + more, this, &DBDialog::doPCLink);
    btnOpen->setMenu(openMenu);
}

void DBDialog::setupList(const QString &currentPath)
{
    list->setObjectName(QStringLiteral("db"));
    list->setColumns({ 0, 1, 2, 3, 4 });
    list->setManager(manager, true);
    connect(list, &PIMListView::selected, this, &DBDialog::selected);
    connect(list, &PIMListView::selectionCleared, this, &DBDialog::selectionCleared);
    connect(list, qOverload<PIMRecord *>(&PIMListView::activate), this, [this] {
        if (btnSelect->isEnabled())
            doSelect();
    });
    selectionCleared();
    list->init();
    DBRecord *record = manager->findByPath(currentPath);
    if (!record)
        record = firstAvailable();
    if (record)
        makeCurrent(record);
    else
        list->setFocus();
}

// Return on a row reaches the list's activate(); a double click and Delete are added here.
void DBDialog::setupKeys()
{
    connect(list, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (btnSelect->isEnabled())
            doSelect();
    });
    auto *remove = new QShortcut(QKeySequence::Delete, list, nullptr, nullptr, Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &DBDialog::doRemove);
}

DBRecord *DBDialog::firstAvailable() const
{
    for (PIMRecord *entry : manager->view()) {
        auto *record = static_cast<DBRecord *>(entry);
        if (manager->isAvailable(record))
            return record;
    }
    return nullptr;
}

DBRecord *DBDialog::current() const
{
    return static_cast<DBRecord *>(list->currentTask());
}

// The list takes the focus as well, so that Return opens what was just made current.
void DBDialog::makeCurrent(DBRecord *record)
{
    list->showRecord(record);
    list->setFocus();
    if (current() == record)
        selected(record);
}

QString DBDialog::selectedPath() const
{
    const DBRecord *record = current();
    if (!record || !manager->isAvailable(record))
        return QString();
    return record->path();
}

void DBDialog::selectMode(const QString &path)
{
    btnEdit->hide();
    btnDup->hide();
    btnRemove->hide();
    btnSelect->setText(tr("Select"));
    setWindowTitle(tr("Select Card"));
    DBRecord *record = manager->findByPath(path);
    if (!record)
        return;
    manager->setAvailable(record, false);
    list->updateTask(record);
    if (current() == record)
        selected(record);
}

void DBDialog::selected(PIMRecord *entry)
{
    const auto *record = static_cast<const DBRecord *>(entry);
    const bool available = manager->isAvailable(record);
    btnEdit->setEnabled(available);
    btnDup->setEnabled(available);
    btnSelect->setEnabled(available);
    deleteAction->setEnabled(available);
    btnRemove->setEnabled(true);
    const QSignalBlocker blocker(memo);
    memo->setPlainText(record->description());
}

void DBDialog::selectionCleared()
{
    btnRemove->setEnabled(false);
    btnEdit->setEnabled(false);
    btnDup->setEnabled(false);
    btnSelect->setEnabled(false);
    const QSignalBlocker blocker(memo);
    memo->clear();
}

void DBDialog::doNew()
{
    if (DBRecord *record = DBFlows::newCard(manager, this))
        makeCurrent(record);
}

void DBDialog::doEdit()
{
    DBRecord *record = current();
    if (record && DBFlows::editCard(manager, record, this))
        makeCurrent(record);
}

// The chooser runs with no card open, so nothing needs closing around a transfer.
void DBDialog::doGet()
{
    TransferCommands::get(manager, this);
}

void DBDialog::doSend()
{
    TransferCommands::send(manager, QString(), this);
}

void DBDialog::doPCLink()
{
    TransferCommands::serve(manager, this);
}

void DBDialog::doOpen()
{
    if (DBRecord *record = DBFlows::openCards(manager, this))
        makeCurrent(record);
}

void DBDialog::doImport()
{
    ImportDialog dialog(manager, QString(), this);
    dialog.exec();
    if (DBRecord *record = manager->findByPath(dialog.importedPath()))
        makeCurrent(record);
}

void DBDialog::doDelete()
{
    if (DBRecord *record = current())
        DBFlows::deleteCard(manager, record, this);
}

void DBDialog::doRemove()
{
    if (DBRecord *record = current())
        DBFlows::removeFromList(manager, record, this);
}

void DBDialog::doSelect()
{
    accept();
}

void DBDialog::doDuplicate()
{
    DBRecord *record = current();
    if (!record)
        return;
    if (DBRecord *copy = DBFlows::duplicateCard(manager, record, this))
        makeCurrent(copy);
}
