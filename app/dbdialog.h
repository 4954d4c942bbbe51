#ifndef DBDIALOG_H
#define DBDIALOG_H

#include "app/dbdialogbase.h"

class DBManager;
class DBRecord;
class QAction;

// The card chooser: picks the card to open and manages the card list (new, details,
// duplicate, remove or delete, add card files). A card whose file can't be read stays
// listed, greyed, and can only be taken out of the list.
class DBDialog : public DBDialogBase
{
    Q_OBJECT

public:
    // The entry of currentPath, if listed, starts as the current one.
    DBDialog(DBManager *manager, const QString &currentPath, QWidget *parent = nullptr);

    // The path of the chosen card, or the null string when none is chosen or its file isn't
    // available.
    QString selectedPath() const;
    // A plain picker that can't choose the card at path (the one already open elsewhere).
    void selectMode(const QString &path);

public Q_SLOTS:
    void doNew() override;
    void doEdit() override;
    void doOpen() override;
    void doImport();
    void doDelete() override;
    void doRemove() override;
    void doSelect() override;
    void doDuplicate() override;
    void selectionCleared() override;
    void selected(PIMRecord *record) override;

private:
    void setupButtons();
    void setupList(const QString &currentPath);
    DBRecord *current() const;
    void makeCurrent(DBRecord *record);

    DBManager *manager;
    QAction *deleteAction = nullptr;
};

#endif
