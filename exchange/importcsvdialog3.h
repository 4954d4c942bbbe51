#ifndef IMPORTCSVDIALOG3_H
#define IMPORTCSVDIALOG3_H

#include "exchange/csvcolumn.h"
#include "exchange/csvformat.h"
#include "exchange/importcsvdialogbase3.h"

#include <QList>

class DBManager;
class TextLineReader;

// The import itself: a new card beside the others, named after the text file, filled row
// by row with the bar moving. Cancel stops it, and the card keeps the rows read so far.
class ImportCSVDialog3 : public ImportCSVDialogBase3
{
    Q_OBJECT

public:
    struct Setup {
        CsvFormat format;
        QList<CsvColumn> columns;
        int startRow = 1;
        bool titles = false;
        QString fileName; // of the text file, for the card's name and description
    };

    ImportCSVDialog3(
        DBManager *manager, TextLineReader *lines, const Setup &setup, QWidget *parent);

    int count() const { return m_count; }
    QString cardPath() const { return m_cardPath; }

public Q_SLOTS:
    void cancel() override;

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void reject() override;

private:
    void runImport();
    QString folder() const;

    DBManager *m_manager;
    TextLineReader *m_lines;
    Setup m_setup;
    bool m_stop = false;
    bool m_running = false;
    int m_count = 0;
    QString m_cardPath;
};

#endif
