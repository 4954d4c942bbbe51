#include "exchange/csvimporter.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "exchange/csvrowreader.h"
#include "exchange/textlinereader.h"

#include <QCoreApplication>

CsvImporter::CsvImporter(
    const CsvFormat &format, const QList<CsvColumn> &columns, int startRow, bool titles)
    : m_format(format)
    , m_columns(columns)
    , m_startRow(qMax(1, startRow))
    , m_titles(titles)
{
}

QString CsvImporter::description(const QString &fileName)
{
    return QCoreApplication::translate("CsvImporter", "Text/CSV file imported Card [%1]")
        .arg(fileName);
}

QList<FieldDef> CsvImporter::fieldsFor(const QList<CsvColumn> &columns)
{
    QList<FieldDef> fields;
    for (const CsvColumn &column : columns) {
        if (column.skip)
            continue;
        FieldDef field;
        field.title = column.title;
        field.type = column.type;
        fields.append(field);
    }
    return fields;
}

void CsvImporter::addRecord(DataManager *card, const QStringList &row) const
{
    DataRecord *record = card->newRecord();
    int field = 0;
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        if (m_columns.at(i).skip)
            continue;
        if (i < row.size())
            m_converters.at(i).store(record, field, row.at(i));
        ++field;
    }
    card->insertLoaded(record);
}

CsvImporter::Outcome CsvImporter::run(TextLineReader &lines, DataManager *card)
{
    m_count = 0;
    m_converters.clear();
    for (const CsvColumn &column : m_columns)
        m_converters.append(CsvValueConverter(column));
    card->setFields(fieldsFor(m_columns), true);
    lines.rewind();
    CsvRowReader reader(lines, m_format);
    reader.setLineHook(m_hook);
    if (!reader.skipLines(m_startRow - 1 + (m_titles ? 1 : 0)))
        return Finished;
    QStringList row;
    for (;;) {
        switch (reader.next(&row)) {
        case CsvRowReader::Row:
            addRecord(card, row);
            ++m_count;
            continue;
        case CsvRowReader::Stopped:
            return Stopped;
        case CsvRowReader::Overflow:
            m_error = reader.errorString();
            return Failed;
        case CsvRowReader::End:
        case CsvRowReader::ParseError:
            m_unfinishedLine = reader.unfinishedLine();
            return Finished;
        }
    }
}
