#ifndef CARDBENCH_H
#define CARDBENCH_H

#include "stopwatch.h"

#include <QDate>
#include <QString>

// Our side of the benchmark: the operations a user waits for on a card, each timed as
// the program runs it.
class CardBench
{
public:
    CardBench(const QString &path, const QString &scratchFolder, int runs);

    double load() const;
    double save() const;
    double headerOnlyLoad() const;
    double sortBy(int column) const;
    double acceptAllTextContains(const QString &needle) const;
    // The find of the find dialog on a card sorted by its String field: the filter, the
    // rebuilt list and its sort.
    double find(const QString &needle) const;
    // "starts with" on field 0, "is at least" on field 1, "on or after" on field 3.
    double threeConditions(const QString &prefix, int atLeast, const QDate &from) const;
    int lastMatches() const { return m_matches; }
    double recalculateAllWithPrevious() const;
    // Heap memory a loaded card takes, in bytes.
    qint64 loadedMemory() const;

private:
    QString m_path;
    QString m_scratch;
    Stopwatch m_stopwatch;
    mutable int m_matches = 0;
};

#endif
