#ifndef CSVEXPORTER_H
#define CSVEXPORTER_H

#include "exchange/csvformat.h"
#include "exchange/datetimewriter.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QString>

#include <functional>

class DataManager;
class DataRecord;
class QTextCodec;

// Writes every record of a card as delimited text: a header of the field titles and the two
// stamps, then one line per record in the order of the card's record list. Filter and view
// play no part, and calculated fields go out as stored. The file is written beside its
// target and renamed at the end, so a failure or a stop leaves the old file, or none.
class CsvExporter
{
public:
    struct Options {
        CsvFormat format;
        QString dateFormat;
        QString timeFormat;
        QString dateTimeFormat;
        QString multilineSeparator = QStringLiteral("\n");
        QTextCodec *codec = nullptr; // null writes UTF-8
    };

    explicit CsvExporter(const Options &options);

    // Called every few records with the number written so far; returning false stops
    // the export.
    void setProgressHook(std::function<bool(int)> hook) { m_hook = std::move(hook); }
    bool write(const DataManager &card, const QString &path);
    bool wasStopped() const { return m_stopped; }
    QString errorString() const { return m_error; }

    // The value quoted and followed by the delimiter.
    QString quoted(const QString &value) const;

private:
    void appendQuoted(QString &out, const QString &value) const;
    void appendHeader(QString &out, const DataManager &card) const;
    void appendRecord(QString &out, const DataManager &card, const DataRecord &record) const;
    void appendValue(QString &out, const DataRecord &record, int field, int type) const;
    void appendStamp(QString &out, const QDateTime &moment) const;
    void endLine(QString &out) const;

    Options m_options;
    DateTimeWriter m_dates;
    DateTimeWriter m_times;
    DateTimeWriter m_stamps;
    QDate m_today; // the date part of a time written with a code that shows one
    mutable QString m_scratch; // the text of the value being written
    bool m_literalQualifier = true;
    QRegularExpression m_pattern; // the qualifier, for a qualifier with special characters
    QString m_doubledPattern; // its replacement
    std::function<bool(int)> m_hook;
    bool m_stopped = false;
    QString m_error;
};

#endif
