#include "store/recordsorter.h"

#include "store/pimmanager.h"
#include "store/pimrecord.h"

#include <algorithm>
#include <utility>

void RecordSorter::sort(QList<PIMRecord *> &records)
{
    const qsizetype n = records.size();
    if (n < 2)
        return;
    QList<Entry> entries;
    entries.reserve(n);
    for (PIMRecord *record : std::as_const(records))
        entries.append(entry(record));
    QList<Entry> buffer(n);
    Entry *from = entries.data();
    Entry *to = buffer.data();
    for (qsizetype width = 1; width < n; width *= 2) {
        for (qsizetype begin = 0; begin < n; begin += 2 * width) {
            const qsizetype middle = qMin(begin + width, n);
            const qsizetype end = qMin(begin + 2 * width, n);
            mergeRuns(from, to, begin, middle, end);
        }
        std::swap(from, to);
    }
    for (qsizetype i = 0; i < n; ++i)
        records[i] = from[i].record;
}

// Characters past the end count as 0, below every character, as a shorter text is below a
// longer one that begins the same: where two packings differ, the texts differ the same way.
RecordSorter::Entry RecordSorter::entry(PIMRecord *record)
{
    Entry e;
    e.record = record;
    e.ascending = record->manager() ? record->manager()->sortOrder() : true;
    const QStringList &keys = record->sortKeys();
    e.keyCount = int(qMin<qsizetype>(keys.size(), 2));
    if (keys.isEmpty())
        return e;
    const QString &first = keys.first();
    e.firstKey = first;
    for (int i = 0; i < packedChars && i < first.size(); ++i)
        e.packed[i / 4] |= quint64(first.at(i).unicode()) << (16 * (3 - i % 4));
    return e;
}

// The answer of a.record->lessThan(*b.record), found from the packed characters or the
// first key when they settle it.
bool RecordSorter::lessThan(const Entry &a, const Entry &b)
{
    if (a.keyCount == 0)
        return !a.ascending;   // nothing of a is less
    int order = 0;
    for (int w = 0; w < packedWords && order == 0; ++w)
        order = a.packed[w] < b.packed[w] ? -1 : (a.packed[w] > b.packed[w] ? 1 : 0);
    if (order == 0 && a.keyCount == 1) {
        // Equal packings mean equal characters up to the shorter key or the packed length.
        const qsizetype same
            = std::min<qsizetype>(packedChars, std::min(a.firstKey.size(), b.firstKey.size()));
        order = a.firstKey.sliced(same).compare(b.firstKey.sliced(same)) < 0 ? -1 : 1;
    }
    if (order < 0)
        return a.ascending;   // the first key is less
    if (a.keyCount == 1)
        return !a.ascending;
    return a.record->lessThan(*b.record);
}

// Takes from the left run unless the right one's head is less, so equal-looking records
// keep their order where the comparison allows it.
void RecordSorter::mergeRuns(
    const Entry *from, Entry *to, qsizetype begin, qsizetype middle, qsizetype end)
{
    qsizetype left = begin;
    qsizetype right = middle;
    qsizetype out = begin;
    while (left < middle && right < end) {
        if (lessThan(from[right], from[left]))
            to[out++] = from[right++];
        else
            to[out++] = from[left++];
    }
    while (left < middle)
        to[out++] = from[left++];
    while (right < end)
        to[out++] = from[right++];
}
