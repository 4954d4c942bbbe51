#ifndef FIELDTYPECOMBO_H
#define FIELDTYPECOMBO_H

class QComboBox;

// The type chooser of the field editor and of the import dialogs.
class FieldTypeCombo
{
public:
    // Replaces the combo's items by the fifteen type names; an item's index is its code.
    static void fill(QComboBox *combo);
};

#endif
