#ifndef FORMULAREFERENCES_H
#define FORMULAREFERENCES_H

#include <QList>
#include <QString>

// The field references "[F<n>]" and "[F<n>!]" (the field in the previous record) inside
// the stored text of a formula, as a schema change sees them.
class FormulaReferences
{
public:
    // The formula with each reference moved to map[n]. A reference to a field that went
    // away (or to no field at all) gives the null string: the formula is dropped.
    static QString renumber(const QString &formula, const QList<int> &map);

    // The fields the formula needs from the same record, in text order. A reference to the
    // previous record is no dependency; it only sets *usesPrevious.
    static QList<int> dependencies(const QString &formula, bool *usesPrevious);
};

#endif
