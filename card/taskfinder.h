#ifndef TASKFINDER_H
#define TASKFINDER_H

#include <QString>
#include <QStringList>

class DataManager;
class DataRecord;

// Finds the record a reminder names by its UID text among the cards: the open card first,
// then every other card in the given order, each loaded in full into a manager of its own.
// Cards are not asked for their passwords.
class TaskFinder
{
public:
    // The record found, or null. A record of another card keeps the manager it was found
    // in alive: the caller owns that manager (the record's manager()) and gives it back
    // when done; managers that found nothing are deleted here.
    static DataRecord *find(DataManager *open, const QStringList &cardPaths, const QString &uid);

private:
    static bool isOpenCard(const DataManager *open, const QString &path);
};

#endif
