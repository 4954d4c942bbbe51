#ifndef FORMULATRANSLATION_H
#define FORMULATRANSLATION_H

#include "card/fielddef.h"

#include <QList>
#include <QString>

class DataRecord;

// A formula as the user reads and writes it, with field titles in brackets, and as a card
// stores it, with field numbers ("[F3]", "[F3!]" for the previous record).
class FormulaTranslation
{
public:
    // Bounds the passes of stored(): titles such as "F1" and "F0" can turn into each other
    // for ever.
    static constexpr int maxPasses = 1000;

    // Every stored reference shown as "[title]" ("!" kept). A number past the list stays as
    // it is written.
    static QString display(const QString &formula, const QList<FieldDef> &fields);
    // The text with line feeds dropped and the titles of Integer and Double fields turned
    // into numbers, one first occurrence per field and pass, until a pass changes nothing.
    // Of fields sharing a title, the first takes every reference.
    // Count and Increment titles stay as they are, although the editor offers them.
    static QString stored(const QString &text, const QList<FieldDef> &fields);
    // The value of the written text on record, previous being the record before it; the
    // same evaluation that recalculation and the command line use.
    static double evaluate(const QString &text, const QList<FieldDef> &fields,
        const DataRecord *record, const DataRecord *previous, bool *ok);

private:
    static bool translateOnce(QString &text, const QList<FieldDef> &fields);
};

#endif
