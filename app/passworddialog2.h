#ifndef PASSWORDDIALOG2_H
#define PASSWORDDIALOG2_H

#include "app/passworddialog.h"

class DBManager;
class QComboBox;
class QToolButton;

// The password question on opening a card. It doubles as a switch to another card: the
// combo box offers every card of the list, and choosing one without a password opens that
// one at once. "Exit" gives up; the cards button goes back to the chooser.
class PasswordDialog2 : public PasswordDialog
{
    Q_OBJECT

public:
    PasswordDialog2(DBManager *manager, DBRecord *record, QWidget *parent = nullptr);

    // The card chosen in the combo box.
    DBRecord *selectedRecord() const;
    bool isManagerRequested() const { return managerRequested; }

    // The card to open for record: record itself or the card the user switched to, once its
    // password was typed. Null when the password was wrong or the user left by "Exit";
    // null with cancelled set when the user asked for the chooser.
    static DBRecord *authorize(
        DBManager *manager, DBRecord *record, bool &cancelled, QWidget *parent = nullptr);

public Q_SLOTS:
    void dbActivated();
    void callManager();

private:
    void fillCards(DBRecord *current);

    DBManager *manager;
    bool managerRequested = false;
    QComboBox *cards;
    QToolButton *btnCards;
};

#endif
