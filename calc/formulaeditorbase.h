#ifndef FORMULAEDITORBASE_H
#define FORMULAEDITORBASE_H

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

// The form of the formula editor: the formula edit, a preview of its value under it, the
// functions and fields to insert, the record a field reference reads, and the buttons.
class FormulaEditorBase : public QDialog
{
    Q_OBJECT

public:
    explicit FormulaEditorBase(QWidget *parent = nullptr);

protected:
    QPlainTextEdit *fm;
    QLabel *preview;
    QListWidget *functions;
    QListWidget *fields;
    QRadioButton *cr;
    QRadioButton *pr;
    QPushButton *btnClear;
    QPushButton *btnOk;
    QPushButton *btnCancel;

private:
    QWidget *listColumn(const QString &caption, QListWidget *list);
};

#endif
