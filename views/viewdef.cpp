#include "views/viewdef.h"

#include "store/binaryformat.h"

#include <QDataStream>

void ViewDef::remapFields(const QList<int> &newIndexOfOld)
{
    QList<int> moved;
    for (int column : std::as_const(columns)) {
        const int to = newIndexOfOld.value(column, -1);
        if (to != -1)
            moved.append(to);
    }
    columns = moved;
    sort = newIndexOfOld.value(sort, -1);
}

void ViewDef::write(QDataStream &stream) const
{
    stream << title << qint32(columns.size());
    for (int column : columns)
        stream << qint32(column);
    stream << qint32(sort) << qint32(ascending ? 1 : 0) << filter;
}

bool ViewDef::read(QDataStream &stream)
{
    columns.clear();
    qint32 count = 0;
    stream >> title >> count;
    if (!BinaryFormat::ok(stream) || !BinaryFormat::countFits(stream, count, 4))
        return false;
    // On a device that cannot tell its size the count is unchecked: stop at the end.
    for (qint32 i = 0; i < count && BinaryFormat::ok(stream); ++i) {
        qint32 column = 0;
        stream >> column;
        if (BinaryFormat::ok(stream))
            columns.append(column);
    }
    qint32 storedSort = -1;
    qint32 storedAscending = 1;
    stream >> storedSort >> storedAscending >> filter;
    sort = storedSort;
    ascending = storedAscending != 0;
    return BinaryFormat::ok(stream);
}
