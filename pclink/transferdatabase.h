#ifndef TRANSFERDATABASE_H
#define TRANSFERDATABASE_H

#include <QDialog>

class DBListView;
class QGroupBox;
class QLineEdit;
class QPushButton;

// The form of the transfer window: the server's address with Connect, the list of cards
// ("dbs"), Start and Cancel.
class TransferDataBase : public QDialog
{
    Q_OBJECT

public:
    explicit TransferDataBase(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void start() = 0;
    virtual void doConnect() = 0;

protected:
    QLineEdit *addr;
    QPushButton *btnConnect;
    QGroupBox *dbbox;
    DBListView *list;
    QPushButton *btnOk;
    QPushButton *btnCancel;
};

#endif
