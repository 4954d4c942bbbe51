#ifndef IMPORTCSVDIALOGBASE_H
#define IMPORTCSVDIALOGBASE_H

#include <QDialog>

class ImportPreviewPages;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QStackedWidget;
class QTreeWidget;

// The form of the first step of the text import: delimiter, qualifier, start row, the
// first-row flag and the raw lines of the file, with a progress page while they load.
class ImportCSVDialogBase : public QDialog
{
    Q_OBJECT

public:
    explicit ImportCSVDialogBase(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void delimiterChanged() = 0;
    virtual void setStartRow() = 0;
    virtual void next() = 0;

protected:
    QComboBox *delimiter;
    QCheckBox *other;
    QLineEdit *otherDelimiter;
    QComboBox *qualifier;
    QSpinBox *startRow;
    QCheckBox *fl1;
    QTreeWidget *list;
    QLabel *status;
    QProgressBar *pr;
    ImportPreviewPages *pages; // the rows, or the progress while they load
    QPushButton *btnNext;
    QPushButton *btnCancel;
};

#endif
