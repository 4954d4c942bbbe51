#ifndef CSVIMPORTER_H
#define CSVIMPORTER_H

#include "exchange/csvcolumn.h"
#include "exchange/csvformat.h"
#include "exchange/csvvalueconverter.h"

#include <QList>
#include <QRandomGenerator>
#include <QString>

#include <functional>
#include <memory>

class DataManager;
class DataRecord;
class TextLineReader;

// The import pass: reads the rows of a delimited text file into a card whose fields are the
// columns not skipped. Records join the card without counting towards the automatic save,
// so the growing card is written once, by whoever finishes it; a stopped pass leaves a
// card whole with the rows so far.
class CsvImporter
{
public:
    enum Outcome { Finished, Stopped, Failed };

    CsvImporter(
        const CsvFormat &format, const QList<CsvColumn> &columns, int startRow, bool titles);
    ~CsvImporter();

    // Called once a line; returning false stops the pass.
    void setLineHook(std::function<bool()> hook) { m_hook = std::move(hook); }
    // Gives the card its fields and fills it. Failed only when a bound of the input was
    // passed; a line the parser refuses ends the pass as the end of the text does.
    Outcome run(TextLineReader &lines, DataManager *card);

    int count() const { return m_count; }
    // The line on which a quoted value opened that the text never closed, or 0.
    int unfinishedLine() const { return m_unfinishedLine; }
    QString errorString() const { return m_error; }

    // The description of a card imported from the named file.
    static QString description(const QString &fileName);
    // The fields a card gets for these columns.
    static QList<FieldDef> fieldsFor(const QList<CsvColumn> &columns);

private:
    void addRecord(DataManager *card, const QStringList &row) const;
    void giveUid(DataRecord *record) const;

    CsvFormat m_format;
    QList<CsvColumn> m_columns;
    int m_startRow;
    bool m_titles;
    QList<CsvValueConverter> m_converters; // one per column
    std::unique_ptr<DataRecord> m_defaults; // the record every row starts from
    mutable QRandomGenerator m_random; // the source of the records' uids
    std::function<bool()> m_hook;
    int m_count = 0;
    int m_unfinishedLine = 0;
    QString m_error;
};

#endif
