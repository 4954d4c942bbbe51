#ifndef CSVEXPORTER_H
#define CSVEXPORTER_H

#include "exchange/csvformat.h"

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

    // Called once a record; returning false stops the export.
    void setRecordHook(std::function<bool()> hook) { m_hook = std::move(hook); }
    bool write(const DataManager &card, const QString &path);
    bool wasStopped() const { return m_stopped; }
    QString errorString() const { return m_error; }

    // The value quoted and followed by the delimiter.
    QString quoted(const QString &value) const;
    QString headerLine(const DataManager &card) const;
    QString recordLine(const DataManager &card, const DataRecord &record) const;

private:
    QString value(const DataManager &card, const DataRecord &record, int field) const;
    QString stamp(const QDateTime &moment) const;
    QString date(const QDate &day) const;
    QString time(const QTime &moment) const;
    QString endLine(QString line) const;

    Options m_options;
    bool m_literalQualifier = true;
    QRegularExpression m_pattern; // the qualifier, for a qualifier with special characters
    QString m_doubledPattern; // its replacement
    std::function<bool()> m_hook;
    bool m_stopped = false;
    QString m_error;
};

#endif
