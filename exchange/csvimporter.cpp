#include "exchange/csvimporter.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "exchange/csvrowreader.h"
#include "exchange/textlinereader.h"

#include <QCoreApplication>

#include <uuid/uuid.h>

#include <cstring>

CsvImporter::CsvImporter(
    const CsvFormat &format, const QList<CsvColumn> &columns, int startRow, bool titles)
    : m_format(format)
    , m_columns(columns)
    , m_startRow(qMax(1, startRow))
    , m_titles(titles)
{
}

CsvImporter::~CsvImporter() = default;

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
    auto *record = new DataRecord(*m_defaults);
    giveUid(record);
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

// A random uid of the standard's version 4. The system source costs a call to the kernel
// for each uid; a generator seeded from it once gives the same spread at a fraction of it.
void CsvImporter::giveUid(DataRecord *record) const
{
    quint32 words[4];
    m_random.fillRange(words);
    uuid_t uid;
    std::memcpy(uid, words, sizeof(uid));
    uid[6] = (uid[6] & 0x0F) | 0x40;
    uid[8] = (uid[8] & 0x3F) | 0x80;
    record->setUid(uid);
}

CsvImporter::Outcome CsvImporter::run(TextLineReader &lines, DataManager *card)
{
    m_count = 0;
    m_converters.clear();
    for (const CsvColumn &column : m_columns)
        m_converters.append(CsvValueConverter(column));
    card->setFields(fieldsFor(m_columns), true);
    // The defaults are worked out once for the pass: each record starts as a copy, which
    // spares reading the clock several times a record. The import types have no counter
    // that would have to move from record to record.
    m_defaults.reset(card->newRecord());
    m_random = QRandomGenerator::securelySeeded();
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
