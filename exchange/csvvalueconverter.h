#ifndef CSVVALUECONVERTER_H
#define CSVVALUECONVERTER_H

#include "exchange/csvcolumn.h"
#include "exchange/datetimeparser.h"

#include <QString>

class DataRecord;

// Turns the text of one column into the value of its field. A value that fails to convert
// gives the type's empty value, without a message.
class CsvValueConverter
{
public:
    explicit CsvValueConverter(const CsvColumn &column);

    void store(DataRecord *record, int field, const QString &value) const;

    // Replaces from by to again from the start until no occurrence is left. An empty from
    // does nothing; when to holds from, one pass is made, so the loop always ends.
    static QString replaceAll(QString text, const QString &from, const QString &to);

private:
    void storeNumber(DataRecord *record, int field, const QString &value) const;
    void storeDateTime(DataRecord *record, int field, const QString &value) const;
    int boolValue(const QString &value) const;
    QString imagePath(const QString &value) const;

    CsvColumn m_column;
    DateTimeParser m_dates;
    bool m_hasYes = false; // the Bool pair has exactly two parts
    QString m_yes; // its first part
};

#endif
