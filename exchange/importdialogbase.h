#ifndef IMPORTDIALOGBASE_H
#define IMPORTDIALOGBASE_H

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QListWidget;
class QPushButton;

// The form of the import dialog: the source kind, the codec, the JFile date format and
// calculated-field choice, the list of files found, and Reload, Browse and Import. Close
// is the one way out.
class ImportDialogBase : public QDialog
{
    Q_OBJECT

public:
    explicit ImportDialogBase(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void sourceSelected(int index) = 0;
    virtual void fileSelected(int row) = 0;
    // Browses for a file. It takes the place of QDialog's window-modal showing, which this
    // dialog never uses.
    void open() override = 0;
    virtual void reload() = 0;
    virtual void import() = 0;

protected:
    QLabel *sourceLabel;
    QComboBox *sources;
    QLabel *unicodeLabel;
    QComboBox *unicode;
    QLabel *dateFormatLabel;
    QComboBox *dateFormat;
    QLabel *calcFieldsLabel;
    QComboBox *calcFields;
    QLabel *filesLabel;
    QListWidget *files;
    QPushButton *btnReload;
    QPushButton *btnOpen;
    QPushButton *btnImport;
    QDialogButtonBox *buttonBox;
};

#endif
