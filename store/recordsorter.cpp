#include "store/recordsorter.h"

#include "store/pimmanager.h"
#include "store/pimrecord.h"

#include <algorithm>
#include <memory>
#include <utility>

std::vector<quint32> RecordSorter::order(const QList<PIMRecord *> &records)
{
    const auto sorted = sortedEntries(records);
    std::vector<quint32> positions(records.size());
    for (std::size_t i = 0; i < positions.size(); ++i)
        positions[i] = sorted[i].position;
    return positions;
}

// Both buffers are left as they come: every entry is written before it is read.
std::unique_ptr<RecordSorter::Entry[]> RecordSorter::sortedEntries(
    const QList<PIMRecord *> &records)
{
    const qsizetype n = records.size();
    auto entries = std::make_unique_for_overwrite<Entry[]>(std::size_t(n));
    for (qsizetype i = 0; i < n; ++i) {
        prefetchKeys(records, i);
        entries[i] = entry(records.at(i), quint32(i));
    }
    auto buffer = std::make_unique_for_overwrite<Entry[]>(std::size_t(n));
    Entry *from = entries.get();
    Entry *to = buffer.get();
    // Runs narrower than a block are merged one block at a time, while the block stays in the
    // processor's cache: these are the very merges that passes over everything would make, so
    // the order is the same, but a large sort goes through memory a few times instead of once
    // for every width.
    qsizetype width = 1;
    for (qsizetype first = 0; first < n; first += blockEntries) {
        const qsizetype last = qMin(first + blockEntries, n);
        Entry *blockFrom = from;
        Entry *blockTo = to;
        for (width = 1; width < blockEntries && width < n; width *= 2) {
            mergeLevel(blockFrom, blockTo, first, last, width);
            std::swap(blockFrom, blockTo);
        }
    }
    for (qsizetype level = 1; level < width; level *= 2)
        std::swap(from, to);
    for (; width < n; width *= 2) {
        mergeLevel(from, to, 0, n, width);
        std::swap(from, to);
    }
    return from == entries.get() ? std::move(entries) : std::move(buffer);
}

// Merges the neighbouring runs of width between first and last, from one buffer to the other.
void RecordSorter::mergeLevel(
    const Entry *from, Entry *to, qsizetype first, qsizetype last, qsizetype width)
{
    for (qsizetype begin = first; begin < last; begin += 2 * width)
        mergeRuns(from, to, begin, qMin(begin + width, last), qMin(begin + 2 * width, last));
}

// A record's first key lies three pointers away from the record: each step is asked for a few
// records ahead of the one read, by then the step before it has arrived.
void RecordSorter::prefetchKeys(const QList<PIMRecord *> &records, qsizetype i)
{
    const qsizetype n = records.size();
    if (i + 12 < n)
        __builtin_prefetch(records.at(i + 12));
    if (i + 8 < n)
        __builtin_prefetch(&records.at(i + 8)->sortKeys());
    if (i + 4 < n)
        __builtin_prefetch(records.at(i + 4)->sortKeys().constData());
    if (i + 2 < n && !records.at(i + 2)->sortKeys().isEmpty())
        __builtin_prefetch(records.at(i + 2)->sortKeys().constFirst().constData());
}

// Characters past the end count as 0, below every character, as a shorter text is below a
// longer one that begins the same: where two packings differ, the texts differ the same way.
RecordSorter::Entry RecordSorter::entry(PIMRecord *record, quint32 position)
{
    Entry e {};
    e.record = record;
    e.position = position;
    e.ascending = record->manager() ? record->manager()->sortOrder() : true;
    const QStringList &keys = record->sortKeys();
    e.keyCount = quint8(qMin<qsizetype>(keys.size(), 2));
    if (keys.isEmpty())
        return e;
    const QString &first = keys.first();
    e.length = quint8(qMin<qsizetype>(first.size(), packedChars + 1));
    for (int i = 0; i < packedChars && i < first.size(); ++i)
        e.packed[i / 4] |= quint64(first.at(i).unicode()) << (16 * (3 - i % 4));
    return e;
}

QStringView RecordSorter::firstKey(const Entry &e)
{
    const QStringList &keys = e.record->sortKeys();
    return keys.isEmpty() ? QStringView() : QStringView(keys.first());
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
        // Equal packings mean equal characters up to the shorter key or the packed length:
        // the rest of two longer keys decides, or else the shorter key is less.
        if (a.length > packedChars && b.length > packedChars)
            order = firstKey(a).sliced(packedChars).compare(firstKey(b).sliced(packedChars)) < 0
                ? -1
                : 1;
        else
            order = a.length < b.length ? -1 : 1;
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
