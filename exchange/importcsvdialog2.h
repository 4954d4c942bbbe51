#ifndef IMPORTCSVDIALOG2_H
#define IMPORTCSVDIALOG2_H

#include "exchange/csvcolumn.h"
#include "exchange/csvformat.h"
#include "exchange/importcsvdialogbase2.h"

#include <QList>

class DBManager;
class QComboBox;
class TextLineReader;

// The text import wizard, step 2: one column per value of the widest row, each with its
// title, type and what the type needs to read its text. Finish runs the import.
class ImportCSVDialog2 : public ImportCSVDialogBase2
{
    Q_OBJECT

public:
    // The result of exec() when the user goes back to step 1.
    enum { Back = 2 };
    // The preview holds this many rows; the columns are counted over the whole file.
    static constexpr int previewRows = 1000;

    ImportCSVDialog2(DBManager *manager, TextLineReader *lines, const CsvFormat &format,
        int startRow, bool titles, const QString &fileName, QWidget *parent);

    const QList<CsvColumn> &columns() const { return m_columns; }
    int count() const { return m_count; }
    QString cardPath() const { return m_cardPath; }

public Q_SLOTS:
    void back() override;
    void finishSetup() override;
    void skipChanged() override;
    void titleChanged(const QString &text) override;
    void columnSelected(int column) override;
    void typeChanged(int type) override;

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void readRows();
    void addPreviewRow(const QStringList &row);
    void updateHeader(int column);
    void updateTypeEntries();
    void storeColumn();
    void showColumnFormat(const CsvColumn &column);
    void fillFromOptions(int type);
    static Page pageFor(int type);

    DBManager *m_manager;
    TextLineReader *m_lines;
    CsvFormat m_format;
    int m_startRow;
    bool m_titles;
    QString m_fileName;
    QList<CsvColumn> m_columns;
    int m_current = -1;
    bool m_stop = false;
    bool m_read = false;
    int m_count = 0;
    QString m_cardPath;
};

#endif
