#include "app/dbflows.h"

#include "app/dbeditor.h"
#include "app/mrldialog.h"
#include "app/passworddialog.h"
#include "platform/config.h"
#include "platform/platformpaths.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "store/mrlpim.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace
{
const QString optionsGroup = QStringLiteral("Options");
const QString openCardPathKey = QStringLiteral("opencardpath");
} // namespace

QString DBFlows::caption()
{
    return MRLPIM::applicationName();
}

void DBFlows::reportListSave(const DBManager *manager)
{
    if (manager->isChanged())
        MRLDialog::critical(caption(), manager->errorString());
}

DBRecord *DBFlows::newCard(DBManager *manager, QWidget *parent)
{
    auto *record = new DBRecord(manager);
    DBEditor editor(manager, parent);
    if (editor.prepare(record) != QDialog::Accepted) {
        delete record;
        return nullptr;
    }
    editor.apply(record);
    // The documents folder is the program's own default: on a first start it may not exist.
    const QString folder = QFileInfo(record->path()).absolutePath();
    if (folder == QDir(PlatformPaths::documentsDir()).absolutePath())
        QDir().mkpath(folder);
    if (!manager->createCard(record)) {
        MRLDialog::critical(
            caption(), tr("Cannot create Card.\nDestination location not available."));
        return nullptr;
    }
    reportListSave(manager);
    return record;
}

bool DBFlows::editCard(DBManager *manager, DBRecord *record, QWidget *parent)
{
    if (!PasswordDialog::verifyPassword(record, parent))
        return false;
    auto *old = new DBRecord(*record);
    DBEditor editor(manager, parent);
    if (editor.prepare(record) != QDialog::Accepted) {
        delete old;
        return false;
    }
    editor.apply(record);
    const QString asked = record->path();
    // The manager moves the file, or puts the old path back when it can't.
    record->save(old);
    if (!manager->isAvailable(record) || record->path() != asked)
        MRLDialog::critical(
            caption(), tr("Cannot update Card.\nDestination location not available!"));
    manager->save();
    reportListSave(manager);
    return true;
}

bool DBFlows::deleteCard(DBManager *manager, DBRecord *record, QWidget *parent)
{
    if (!PasswordDialog::verifyPassword(record, parent))
        return false;
    if (!MRLDialog::question(
            tr("Are you sure you want to delete\nCard [%1] ?").arg(record->title())))
        return false;
    manager->removeCard(record, true);
    reportListSave(manager);
    return true;
}

bool DBFlows::removeFromList(DBManager *manager, DBRecord *record, QWidget *)
{
    if (!MRLDialog::question(
            tr("Are you sure you want to remove\nCard [%1] from List?").arg(record->title())))
        return false;
    manager->removeCard(record, false);
    reportListSave(manager);
    return true;
}

DBRecord *DBFlows::duplicateCard(DBManager *manager, DBRecord *record, QWidget *)
{
    DBRecord *copy = manager->duplicateCard(record);
    if (!copy) {
        MRLDialog::critical(caption(), tr("Duplicate failed!"));
        return nullptr;
    }
    reportListSave(manager);
    MRLDialog::information(caption(), tr("Duplicate done!"));
    return copy;
}

QString DBFlows::openCardPath()
{
    Config config(MRLPIM::applicationName());
    config.setGroup(optionsGroup);
    return config.readEntry(openCardPathKey, QDir::homePath());
}

DBRecord *DBFlows::openCards(DBManager *manager, QWidget *parent)
{
    QFileDialog dialog(parent, tr("Open Card"), openCardPath());
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters(
        { tr("Card") + QStringLiteral(" (*.card)"), tr("All Files") + QStringLiteral(" (*)") });
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    const QStringList files = dialog.selectedFiles();
    if (files.isEmpty())
        return nullptr;
    Config config(MRLPIM::applicationName());
    config.setGroup(optionsGroup);
    config.writeEntry(openCardPathKey, QFileInfo(files.first()).absolutePath());
    return addCards(manager, files);
}

DBRecord *DBFlows::addCards(DBManager *manager, const QStringList &files)
{
    DBRecord *last = nullptr;
    for (const QString &file : files) {
        if (manager->findByPath(file)) {
            MRLDialog::critical(caption(),
                tr("Card [%1]\nalready in list!").arg(QFileInfo(file).completeBaseName()));
            continue;
        }
        last = manager->addCard(file);
    }
    reportListSave(manager);
    return last;
}
