#ifndef RECORDSORTER_H
#define RECORDSORTER_H

#include <QList>

class PIMRecord;

// Sorts a view by PIMRecord::lessThan. That comparison is no strict weak order (it never
// says "equal", and with several keys two records can each be less than the other), which
// std::sort may answer with reads past the ends. A bottom-up merge sort only ever compares
// within its runs, so it stays in bounds, ends after O(n log n) comparisons whatever the
// answers, and always returns a permutation of its input.
class RecordSorter
{
public:
    static void sort(QList<PIMRecord *> &records);

private:
    static void mergeRuns(
        PIMRecord *const *from, PIMRecord **to, qsizetype begin, qsizetype middle, qsizetype end);
};

#endif
