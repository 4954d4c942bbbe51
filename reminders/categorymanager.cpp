#include "reminders/categorymanager.h"

#include "platform/platformpaths.h"
#include "reminders/categoryrecord.h"
#include "store/dbmanager.h"
#include "store/mrlpim.h"

#include <QFileInfo>

CategoryManager::CategoryManager()
    : PIMManager(MRLPIM::applicationName(), storeName())
{
    // The copy removes a target whose size does not match, so a short default seeds nothing.
    if (!QFileInfo::exists(fullPath()))
        DBManager::copyFile(defaultPath(), fullPath(), false);
}

CategoryManager::~CategoryManager()
{
    save();
}

QString CategoryManager::defaultPath()
{
    return PlatformPaths::shareDir() + QStringLiteral("/etc/") + MRLPIM::applicationName()
        + QLatin1Char('/') + qEnvironmentVariable("LANG").toLower() + QLatin1Char('_')
        + storeName();
}

PIMRecord *CategoryManager::createRecord()
{
    return new CategoryRecord(this);
}

CategoryRecord *CategoryManager::find(const QString &title) const
{
    for (PIMRecord *record : records()) {
        if (record->title() == title)
            return static_cast<CategoryRecord *>(record);
    }
    return nullptr;
}

void CategoryManager::prepareSort()
{
    for (PIMRecord *record : view())
        makeSortKeys(record);
}

void CategoryManager::makeSortKeys(PIMRecord *record)
{
    record->setSortKeys(QStringList { record->title() });
}

bool CategoryManager::sortKeysChanged(PIMRecord *old, PIMRecord *record)
{
    return old && old->title() != record->title();
}
