#ifndef RECORDCELLS_H
#define RECORDCELLS_H

#include <QList>
#include <QString>
#include <QStringList>

class DataRecord;
class FieldDef;

// What the record list shows of a card's record: for each field type, the text of its
// cell (through the field's number or date format) or which of the list's icons stands
// there, and how its column is headed. The desktop list and the command-line program
// both draw their cells from here, so they always agree.
class RecordCells
{
public:
    // The list's icons by index; a cell that shows text has NoIcon.
    enum Icon {
        NoIcon = -1,
        EmptyIcon = 0,
        DocumentIcon = 1,
        ReminderIcon = 2,
        OnIcon = 3,
        OffIcon = 4,
        ImageIcon = 5
    };

    struct Cell {
        QString text;
        int icon = NoIcon;

        bool isIcon() const { return icon != NoIcon; }
        bool operator==(const Cell &other) const = default;
    };

    // The picture names of the icons, by index: "empty", "document", "reminder", "on",
    // "off", "image".
    static QStringList iconNames();
    static QString iconName(int icon);

    // The cell of field (whose definition is def) in record.
    static Cell cell(const DataRecord &record, int field, const FieldDef &def);
    // The cells of a row: one for each column, columns being field indexes. A column of a
    // field that fields does not hold shows an empty text.
    static QList<Cell> cells(
        const DataRecord &record, const QList<FieldDef> &fields, const QList<int> &columns);

    // The picture on the header of a column of that field type, or an empty name.
    static QString headerIcon(int type);
    // Numbers, dates and times line up on the right.
    static bool isRightAligned(int type);
};

#endif
