#include "exchange/csvcolumnscanner.h"

#include <QCoreApplication>

void CsvColumnScanner::addColumns(qsizetype count)
{
    while (m_columns.size() < count) {
        CsvColumn column;
        column.title
            = QCoreApplication::translate("CsvColumnScanner", "Field %1").arg(m_columns.size() + 1);
        m_columns.append(column);
    }
}

bool CsvColumnScanner::addRow(const QStringList &row)
{
    const bool titleRow = m_first && m_titles;
    m_first = false;
    if (!titleRow) {
        addColumns(row.size());
        return true;
    }
    const QString created = QCoreApplication::translate("CsvExporter", "Created Date");
    const QString updated = QCoreApplication::translate("CsvExporter", "Updated Date");
    for (const QString &title : row) {
        CsvColumn column;
        column.title = title;
        if (title == created || title == updated) {
            column.type = FieldDef::DateTime;
            column.skip = true;
        }
        m_columns.append(column);
    }
    return false;
}
