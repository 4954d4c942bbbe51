#ifndef CSVCOLUMN_H
#define CSVCOLUMN_H

#include "card/fielddef.h"

#include <QString>

// The setting of one column of a delimited text file: the field it becomes, or none.
// format holds by type the thousands separator (Integer, Count, Double), the format code
// (Date, Time, DateTime), the line separator (Text, Memo), the "Yes/No" pair (Bool), the
// base directory (Image) or the item separator (MultiList).
struct CsvColumn {
    QString title;
    int type = FieldDef::String;
    bool skip = false;
    QString format;
    QString decimal = QStringLiteral(".");
};

#endif
