#ifndef VIEWDEF_H
#define VIEWDEF_H

#include <QList>
#include <QString>

class QDataStream;

// A saved way of looking at a card: the columns of the list, the sort and the filter.
class ViewDef
{
public:
    QString title;
    // Field indexes in column order; a field may appear more than once.
    QList<int> columns;
    // The sort field, or -1 for the store order.
    int sort = -1;
    bool ascending = true;
    // The UUID text of a filter, or the null string for all records. A filter of that
    // identity need not exist any more.
    QString filter;

    bool operator==(const ViewDef &other) const = default;

    // Follows a schema change: newIndexOfOld[i] is the new index of old field i, or -1 if
    // it went away. Columns of fields that went away are left out; a sort field that went
    // away leaves the view unsorted. A view never goes away with its fields.
    void remapFields(const QList<int> &newIndexOfOld);

    void write(QDataStream &stream) const;
    // False if the stream ended or was damaged, or holds more columns than bytes.
    bool read(QDataStream &stream);
    // Title length, column count, sort, order and filter length.
    static constexpr qint64 minStoredSize = 4 + 4 + 4 + 4 + 4;
};

#endif
