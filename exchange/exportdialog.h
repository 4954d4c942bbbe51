#ifndef EXPORTDIALOG_H
#define EXPORTDIALOG_H

#include "exchange/csvexporter.h"
#include "exchange/exportdialogbase.h"

// The options of a CSV export, and the question for the file. The options are kept in
// "ExportOptions" when the dialog goes, after Cancel too. The three formats are read from
// one set of keys and written to another, so each export starts at the first format.
class ExportDialog : public ExportDialogBase
{
    Q_OBJECT

public:
    explicit ExportDialog(QWidget *parent = nullptr);
    ~ExportDialog() override;

    CsvExporter::Options options() const;
    // Asks for the file until one is chosen (".csv" added unless the name ends so) that is
    // new or may be replaced; a null string when the user gives none.
    QString exportFileName(const QString &baseName);
    // Writes the card with a progress dialog whose Cancel stops the export, leaving the
    // old file or none; false on a failure or a stop (the exporter tells which).
    static bool write(
        CsvExporter &exporter, const DataManager &card, const QString &path, QWidget *parent);

public Q_SLOTS:
    void delimiterChanged() override;

private:
    void readOptions();
    void writeOptions() const;
    QString multilineSeparator() const;
};

#endif
