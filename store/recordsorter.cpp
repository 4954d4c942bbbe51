#include "store/recordsorter.h"

#include "store/pimmanager.h"
#include "store/pimrecord.h"

#include <algorithm>
#include <utility>

void RecordSorter::sort(QList<PIMRecord *> &records)
{
    const QList<Entry> sorted = sortedEntries(records);
    for (qsizetype i = 0; i < sorted.size(); ++i)
        records[i] = sorted.at(i).record;
}

std::vector<quint32> RecordSorter::order(const QList<PIMRecord *> &records)
{
    const QList<Entry> sorted = sortedEntries(records);
    std::vector<quint32> positions(records.size());
    for (qsizetype i = 0; i < sorted.size(); ++i)
        positions[i] = sorted.at(i).position;
    return positions;
}

QList<RecordSorter::Entry> RecordSorter::sortedEntries(const QList<PIMRecord *> &records)
{
    const qsizetype n = records.size();
    QList<Entry> entries;
    entries.reserve(n);
    for (qsizetype i = 0; i < n; ++i)
        entries.append(entry(records.at(i), quint32(i)));
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
    return from == entries.data() ? entries : buffer;
}

// Characters past the end count as 0, below every character, as a shorter text is below a
// longer one that begins the same: where two packings differ, the texts differ the same way.
RecordSorter::Entry RecordSorter::entry(PIMRecord *record, quint32 position)
{
    Entry e;
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
