#ifndef REPORTVIEWDIALOG_H
#define REPORTVIEWDIALOG_H

#include <QDialog>

class DataRecord;
class MLSpinBox;
class MRLAction;
class PIMManager;
class QPagedPaintDevice;
class ReportScrollView;
class ReportView;

// "Report View": the current record as a page, with a bar to walk through the records of
// the list (the list follows), and the page on paper or in a PDF file. Read-only: every way
// out closes it.
class ReportViewDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ReportViewDialog(
        DataRecord *record, QWidget *parent = nullptr, const QString &name = {});

    DataRecord *record() const { return m_record; }
    ReportView *reportView() const;
    MRLAction *action(const QString &name) const;
    MLSpinBox *spinBox() const { return m_spin; }

    // Paints the page on device; false when it cannot be painted on.
    bool print(QPagedPaintDevice *device) const;
    // Writes the page as a PDF at path; a failure is shown in a message.
    bool exportPdf(const QString &path);

public Q_SLOTS:
    void doStart();
    void doBack();
    void doForward();
    void doEnd();
    void recordSelected(int n);
    void doPrint();
    void doExportPdf();

private:
    QWidget *createBar();
    MRLAction *addAction(const QString &name, const QString &icon, const QString &text);
    // The record's place in the visible list, or the list's size when it is not in it.
    int position() const;
    void showRecord(DataRecord *record);
    void refreshBar();

    DataRecord *m_record;
    PIMManager *m_manager;
    ReportScrollView *m_scroll;
    MLSpinBox *m_spin = nullptr;
};

#endif
