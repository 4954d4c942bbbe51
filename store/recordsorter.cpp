#include "store/recordsorter.h"

#include "store/pimrecord.h"

#include <utility>

void RecordSorter::sort(QList<PIMRecord *> &records)
{
    const qsizetype n = records.size();
    if (n < 2)
        return;
    QList<PIMRecord *> buffer(n);
    PIMRecord **from = records.data();
    PIMRecord **to = buffer.data();
    for (qsizetype width = 1; width < n; width *= 2) {
        for (qsizetype begin = 0; begin < n; begin += 2 * width) {
            const qsizetype middle = qMin(begin + width, n);
            const qsizetype end = qMin(begin + 2 * width, n);
            mergeRuns(from, to, begin, middle, end);
        }
        std::swap(from, to);
    }
    if (from != records.data())
        std::copy(from, from + n, records.data());
}

// Takes from the left run unless the right one's head is less, so equal-looking records
// keep their order where the comparison allows it.
void RecordSorter::mergeRuns(
    PIMRecord *const *from, PIMRecord **to, qsizetype begin, qsizetype middle, qsizetype end)
{
    qsizetype left = begin;
    qsizetype right = middle;
    qsizetype out = begin;
    while (left < middle && right < end) {
        if (from[right]->lessThan(*from[left]))
            to[out++] = from[right++];
        else
            to[out++] = from[left++];
    }
    while (left < middle)
        to[out++] = from[left++];
    while (right < end)
        to[out++] = from[right++];
}
