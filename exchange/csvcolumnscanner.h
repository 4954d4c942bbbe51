#ifndef CSVCOLUMNSCANNER_H
#define CSVCOLUMNSCANNER_H

#include "exchange/csvcolumn.h"

#include <QList>
#include <QStringList>

// Counts the columns of a file row by row, before anything is imported. With titles the
// first row names the columns; the stamp columns an export writes come back skipped.
class CsvColumnScanner
{
public:
    explicit CsvColumnScanner(bool titles)
        : m_titles(titles)
    {
    }

    // Takes a complete row; false for the title row, which is no data.
    bool addRow(const QStringList &row);
    const QList<CsvColumn> &columns() const { return m_columns; }

private:
    void addColumns(qsizetype count);

    bool m_titles;
    bool m_first = true;
    QList<CsvColumn> m_columns;
};

#endif
