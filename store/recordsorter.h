#ifndef RECORDSORTER_H
#define RECORDSORTER_H

#include <QList>
#include <QStringView>
#include <QtGlobal>

#include <memory>
#include <vector>

class PIMRecord;

// Sorts a view by PIMRecord::lessThan. That comparison is no strict weak order (it never
// says "equal", and with several keys two records can each be less than the other), which
// std::sort may answer with reads past the ends. A bottom-up merge sort only ever compares
// within its runs, so it stays in bounds, ends after O(n log n) comparisons whatever the
// answers, and always returns a permutation of its input.
class RecordSorter
{
public:
    // The sorted order as positions in records, which stays as it is.
    static std::vector<quint32> order(const QList<PIMRecord *> &records);

private:
    // A record with the first characters of its first key packed beside it: most
    // comparisons are decided here, without reaching into the record's keys in memory.
    static constexpr int packedWords = 6;
    static constexpr int packedChars = 4 * packedWords;
    // Entries merged together while they stay in the processor's cache (a power of two).
    static constexpr qsizetype blockEntries = 4096;
    struct Entry {
        // The first 24 characters of the first key, four to a word, the first in the high bits.
        // Past them, the record's own key decides.
        quint64 packed[packedWords];
        PIMRecord *record;
        quint32 position;
        bool ascending;
        quint8 keyCount;   // 2 for two or more
        quint8 length;     // of the first key, packedChars + 1 for any longer
    };

    static std::unique_ptr<Entry[]> sortedEntries(const QList<PIMRecord *> &records);
    static void prefetchKeys(const QList<PIMRecord *> &records, qsizetype i);
    static Entry entry(PIMRecord *record, quint32 position);
    static QStringView firstKey(const Entry &e);
    static bool lessThan(const Entry &a, const Entry &b);
    static void mergeLevel(
        const Entry *from, Entry *to, qsizetype first, qsizetype last, qsizetype width);
    static void mergeRuns(
        const Entry *from, Entry *to, qsizetype begin, qsizetype middle, qsizetype end);
};

#endif
