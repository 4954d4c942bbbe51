#ifndef OPTIONSDIALOG_H
#define OPTIONSDIALOG_H

#include "views/reportsettings.h"

#include <QColor>
#include <QDialog>

class ColorsWidget;
class MLTabWidget;
class ReportViewOptions;

// "Options": the row colours of the record list and the report view's colours and
// alignments. Every change is stored at once and shows in the pages' samples; Ok keeps the
// changes, Cancel puts back what was stored when the dialog opened.
class OptionsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit OptionsDialog(QWidget *parent = nullptr);

    MLTabWidget *tabs() const { return m_tabs; }
    ColorsWidget *colorsPage() const { return m_colors; }
    ReportViewOptions *reportPage() const { return m_report; }

public Q_SLOTS:
    void reject() override;

private:
    void pageChanged(int index);

    MLTabWidget *m_tabs;
    ColorsWidget *m_colors;
    ReportViewOptions *m_report;
    QColor m_rowColors[4];
    ReportSettings m_reportSettings;
};

#endif
