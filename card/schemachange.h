#ifndef SCHEMACHANGE_H
#define SCHEMACHANGE_H

#include "card/fielddef.h"

#include <QList>

class DataManager;

// The one way a card's fields change after the card has records: the field editor's
// closing step and the command line both come through here, so that both leave the same
// card behind.
class SchemaChange
{
public:
    // Hands fields (an edited copy of card.fields()) to the card, where records, views,
    // filters and formulas follow and every record is recalculated, then saves the card.
    // False when the save failed; the card's errorString() tells why.
    static bool apply(DataManager &card, const QList<FieldDef> &fields);
};

#endif
