#ifndef NAMEDLISTDIALOG_H
#define NAMEDLISTDIALOG_H

#include <QDialog>
#include <QStringList>

class DataManager;
class QPushButton;
class QTreeWidget;

// The list of a card's named filters or views: new, edit, remove, sort and move them, and
// select one. The dialog works on its rows; the card's list follows them in doUpdate, which
// runs before a new entry is made and when the dialog goes (from each subclass's destructor,
// as it needs the subclass).
class NamedListDialog : public QDialog
{
    Q_OBJECT

public:
    NamedListDialog(DataManager *manager, const QString &caption, const QString &rowIcon,
        QWidget *parent = nullptr);

public Q_SLOTS:
    void doUpdate();
    void doNew();
    void doEdit();
    void doRemove();
    void doUp();
    void doDown();
    void sort();
    void doSelect();

protected:
    // The subclass's constructor fills the rows once it can answer titles().
    void fillRows();

    virtual QStringList titles() const = 0;
    // Makes the card's list the entries at these positions of it, in this order.
    virtual void reorder(const QList<int> &positions) = 0;
    virtual void makeCurrent(int index) = 0;
    // Runs the entry's editor (index -1: a new entry); true when accepted and applied.
    virtual bool edit(int index) = 0;
    virtual QString removeQuestion(const QString &title) const = 0;

    DataManager *manager;

private Q_SLOTS:
    void currentChanged();

private:
    void buildWidgets();
    int currentRow() const;
    void moveCurrent(int by);

    const QString rowIcon;
    QTreeWidget *list = nullptr;
    QPushButton *btnNew = nullptr;
    QPushButton *btnEdit = nullptr;
    QPushButton *btnRemove = nullptr;
    QPushButton *btnSort = nullptr;
    QPushButton *btnUp = nullptr;
    QPushButton *btnDown = nullptr;
    QPushButton *btnSelect = nullptr;
    QPushButton *btnClose = nullptr;
    bool changed = false;
    bool selectedFlag = false;
};

#endif
