#include "card/schemachange.h"

#include "card/datamanager.h"

bool SchemaChange::apply(DataManager &card, const QList<FieldDef> &fields)
{
    // setFields restructures and recalculates every record.
    card.setFields(fields);
    return card.save();
}
