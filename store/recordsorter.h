#ifndef RECORDSORTER_H
#define RECORDSORTER_H

#include <QList>
#include <QStringView>
#include <QtGlobal>

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
    // A record with the first characters of its first key packed beside it: most
    // comparisons are decided here, without reaching into the record's keys in memory.
    static constexpr int packedWords = 4;
    static constexpr int packedChars = 4 * packedWords;
    struct Entry {
        // The first 16 characters of the first key, four to a word, the first in the high bits.
        quint64 packed[packedWords] = {};
        // The whole first key, held by the record's key list for as long as the sort runs.
        QStringView firstKey;
        PIMRecord *record = nullptr;
        bool ascending = true;
        int keyCount = 0;   // 2 for two or more
    };

    static Entry entry(PIMRecord *record);
    static bool lessThan(const Entry &a, const Entry &b);
    static void mergeRuns(
        const Entry *from, Entry *to, qsizetype begin, qsizetype middle, qsizetype end);
};

#endif
