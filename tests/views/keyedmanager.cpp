#include "keyedmanager.h"

#include "store/pimrecord.h"

KeyedManager::KeyedManager(const QString &home)
    // A file in a folder that does not exist: every save fails at once and writes nothing.
    : PIMManager(QString(), home + QStringLiteral("/missing/keyed.txt"))
{
}

QString KeyedManager::key(int n)
{
    return QStringLiteral("%1").arg(n, 6, 10, QLatin1Char('0'));
}

void KeyedManager::fill(int n)
{
    for (int i = 0; i < n; ++i)
        insertLoaded(makeRecord(key(i)));
    setSort(0, true);
    rebuildView();
}

PIMRecord *KeyedManager::makeRecord(const QString &key) const
{
    auto *record = new PIMRecord(nullptr);
    record->setProperty(QStringLiteral("key"), key);
    return record;
}

PIMRecord *KeyedManager::addKeyed(const QString &key)
{
    PIMRecord *record = makeRecord(key);
    add(record);
    return record;
}

void KeyedManager::prepareSort()
{
    for (PIMRecord *record : view())
        makeSortKeys(record);
}

void KeyedManager::makeSortKeys(PIMRecord *record)
{
    record->setSortKeys({ record->property(QStringLiteral("key")) });
}

bool KeyedManager::sortKeysChanged(PIMRecord *old, PIMRecord *record)
{
    return old->property(QStringLiteral("key")) != record->property(QStringLiteral("key"));
}
