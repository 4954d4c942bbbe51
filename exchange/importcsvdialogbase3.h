#ifndef IMPORTCSVDIALOGBASE3_H
#define IMPORTCSVDIALOGBASE3_H

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

// The form of the import's progress: a picture, a line of text, the bar and Cancel.
class ImportCSVDialogBase3 : public QDialog
{
    Q_OBJECT

public:
    explicit ImportCSVDialogBase3(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void cancel() = 0;

protected:
    QLabel *icon;
    QLabel *text;
    QProgressBar *pr;
    QPushButton *btnCancel;
};

#endif
