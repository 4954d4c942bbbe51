#ifndef SQLITEPEER_H
#define SQLITEPEER_H

#include "stopwatch.h"

#include <QDate>
#include <QString>

class DataManager;
struct sqlite3;

// The peer a user would otherwise pick: the same rows in an sqlite3 database file, read,
// ordered and searched the way the card operations do it.
class SqlitePeer
{
public:
    SqlitePeer(const QString &databasePath, int runs);

    bool import(const DataManager &card);
    double readAllRows() const;
    double orderBy(const QString &column) const;
    double likeOverTextColumns(const QString &needle) const;
    // name LIKE 'prefix%' AND count >= atLeast AND day >= from.
    double threeConditions(const QString &prefix, int atLeast, const QDate &from) const;
    QString errorString() const { return m_error; }

private:
    double timeQuery(const QString &sql, bool materialize) const;
    bool exec(sqlite3 *db, const char *sql);

    QString m_path;
    Stopwatch m_stopwatch;
    QString m_error;
};

#endif
