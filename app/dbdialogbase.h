#ifndef DBDIALOGBASE_H
#define DBDIALOGBASE_H

#include <QDialog>

class DBListView;
class PIMRecord;
class QPlainTextEdit;
class QPushButton;

// The form of the card chooser: the list of cards, the description of the current one, and
// the buttons of the card commands.
class DBDialogBase : public QDialog
{
    Q_OBJECT

public:
    explicit DBDialogBase(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void doNew() = 0;
    virtual void doEdit() = 0;
    virtual void doOpen() = 0;
    virtual void doDelete() = 0;
    virtual void doRemove() = 0;
    virtual void doSelect() = 0;
    virtual void doDuplicate() = 0;
    virtual void selectionCleared() = 0;
    virtual void selected(PIMRecord *record) = 0;

protected:
    DBListView *list;
    QPlainTextEdit *memo;
    QPushButton *btnOpen;
    QPushButton *btnNew;
    QPushButton *btnEdit;
    QPushButton *btnDup;
    QPushButton *btnRemove;
    QPushButton *btnSelect;
    QPushButton *btnOk;
};

#endif
