#ifndef COLUMNSETUP_H
#define COLUMNSETUP_H

#include "views/viewdef.h"

#include <QDialog>

class DataManager;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// Edits one view of a card: its name, sort, filter and the columns of the list, picked
// from all fields (a field may be picked twice).
class ColumnSetup : public QDialog
{
    Q_OBJECT

public:
    // The filter chooser offers the card's filters only to the first views, as the menus do.
    static constexpr int filterChoiceViews = 5;

    // index: a view of the manager, or -1 for a new one.
    ColumnSetup(
        DataManager *manager, int index, QWidget *parent = nullptr, const char *name = nullptr);

    // Called after the dialog was accepted: stores the view in the card.
    void apply();

public Q_SLOTS:
    void doGet();
    void doRemove();
    void doUp();
    void doDown();
    void currentChanged();
    // Asks before an edited view is thrown away.
    void reject() override;

private:
    void buildWidgets();
    void fillChoosers(int sortColumn, bool ascending, const QString &filter);
    void addColumnRow(QTreeWidget *to, int field);
    void moveCurrent(int by);
    ViewDef shownView() const;

    DataManager *manager;
    const int index;
    ViewDef startView;

    QLineEdit *vname = nullptr;
    QComboBox *sort = nullptr;
    QComboBox *order = nullptr;
    QComboBox *filter = nullptr;
    QTreeWidget *allcolumns = nullptr;
    QTreeWidget *list = nullptr;
    QPushButton *btnGet = nullptr;
    QPushButton *btnRemove = nullptr;
    QPushButton *btnUp = nullptr;
    QPushButton *btnDown = nullptr;
};

#endif
