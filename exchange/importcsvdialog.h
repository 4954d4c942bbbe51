#ifndef IMPORTCSVDIALOG_H
#define IMPORTCSVDIALOG_H

#include "exchange/csvformat.h"
#include "exchange/importcsvdialogbase.h"

class DBManager;
class QTextCodec;
class TextLineReader;

// The text import wizard, step 1: how the file is delimited and where its rows start,
// over a preview of its raw lines. Next runs step 2, which runs the import. The choices
// are kept in "ImportCSVOptions" when the dialog goes, whatever the outcome.
class ImportCSVDialog : public ImportCSVDialogBase
{
    Q_OBJECT

public:
    ImportCSVDialog(
        DBManager *manager, TextLineReader *lines, const QString &fileName, QWidget *parent);
    ~ImportCSVDialog() override;

    // The whole import of the text file at path through codec (null: the local 8-bit
    // one). False when nothing was imported; "Cannot open file:" when it won't open.
    static bool importFile(DBManager *manager, const QString &path, QTextCodec *codec,
        QWidget *parent, int *count, QString *cardPath);

    bool imported() const { return m_imported; }
    int count() const { return m_count; }
    QString cardPath() const { return m_cardPath; }

    CsvFormat format() const;

public Q_SLOTS:
    void delimiterChanged() override;
    void setStartRow() override;
    void next() override;
    void stopProcess() { m_stop = true; }

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void readOptions();
    void writeOptions() const;
    void fillRows();

    DBManager *m_manager;
    TextLineReader *m_lines;
    QString m_fileName;
    bool m_stop = false;
    bool m_imported = false;
    int m_count = 0;
    QString m_cardPath;
};

#endif
