#ifndef PASSWORDDIALOG_H
#define PASSWORDDIALOG_H

#include "app/passworddialogbase.h"

class DBRecord;

// Asks for a password, once or, with confirm, twice so that a new password is typed alike.
class PasswordDialog : public PasswordDialogBase
{
    Q_OBJECT

public:
    explicit PasswordDialog(bool confirm, QWidget *parent = nullptr);

    // Runs the dialog until it is cancelled (the null string) or gives a password; with
    // confirm, until both fields agree.
    QString getPassword();

    // For editing and deleting a card: true when the card has no password or the user types
    // it; otherwise tells "Access denied." and gives false.
    static bool verifyPassword(const DBRecord *record, QWidget *parent = nullptr);

public Q_SLOTS:
    void maskChanged() override;

private:
    QString typedText() const;

    bool confirm;
};

#endif
