#include "card/taskfinder.h"

#include "card/datamanager.h"
#include "card/datarecord.h"

#include <QFileInfo>

#include <memory>

DataRecord *TaskFinder::find(DataManager *open, const QStringList &cardPaths, const QString &uid)
{
    if (open) {
        if (PIMRecord *record = open->findByUid(uid))
            return static_cast<DataRecord *>(record);
    }
    for (const QString &path : cardPaths) {
        if (isOpenCard(open, path))
            continue;
        auto manager = std::make_unique<DataManager>(path);
        manager->load();
        if (PIMRecord *record = manager->findByUid(uid)) {
            manager.release();
            return static_cast<DataRecord *>(record);
        }
    }
    return nullptr;
}

bool TaskFinder::isOpenCard(const DataManager *open, const QString &path)
{
    return open
        && QFileInfo(open->fullPath()).absoluteFilePath() == QFileInfo(path).absoluteFilePath();
}
