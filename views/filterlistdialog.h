#ifndef FILTERLISTDIALOG_H
#define FILTERLISTDIALOG_H

#include <QDialog>

class DataManager;
class QPushButton;
class QTreeWidget;

// The list of a card's filters: new, edit, remove, sort and move them, and select one.
// The dialog works on its rows; the card's list follows them in doUpdate, which runs
// before a new filter is made and when the dialog goes.
class FilterListDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FilterListDialog(
        DataManager *manager, QWidget *parent = nullptr, const char *name = nullptr);
    ~FilterListDialog() override;

public Q_SLOTS:
    void doUpdate();
    void doNew();
    void doEdit();
    void doRemove();
    void doUp();
    void doDown();
    void sort();
    void doSelect();

private Q_SLOTS:
    void currentChanged();

private:
    void buildWidgets();
    QPushButton *addButton(const char *name, const QString &icon, const QString &tip);
    void fillRows();
    int currentRow() const;
    void moveCurrent(int by);

    DataManager *manager;
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
