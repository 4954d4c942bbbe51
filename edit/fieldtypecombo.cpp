#include "edit/fieldtypecombo.h"

#include "card/fielddef.h"

#include <QComboBox>

void FieldTypeCombo::fill(QComboBox *combo)
{
    combo->clear();
    combo->addItems(FieldDef::typeNames());
}
