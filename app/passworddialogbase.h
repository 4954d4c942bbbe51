#ifndef PASSWORDDIALOGBASE_H
#define PASSWORDDIALOGBASE_H

#include <QDialog>

class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

// The form of the password dialogs: one or two password fields, a picture, and the
// buttons Mask, Cancel and Ok.
class PasswordDialogBase : public QDialog
{
    Q_OBJECT

public:
    explicit PasswordDialogBase(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void maskChanged() = 0;

protected:
    QLineEdit *p1;
    QLineEdit *p2;
    QPushButton *btnMask;
    QPushButton *btnCancel = nullptr;
    QPushButton *btnOk = nullptr;
    QFrame *Line9;
    QLabel *icon;
    // Rows above the fields are free for what a subclass adds.
    QGridLayout *grid;
    static constexpr int firstFieldRow = 1;
};

#endif
