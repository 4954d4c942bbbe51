#ifndef DBFLOWS_H
#define DBFLOWS_H

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class DBManager;
class DBRecord;
class QWidget;

// What the user does to cards, from the chooser or from the main window: each flow asks
// what it needs, changes the card list and its files through the DBManager, tells the
// user about failures, and saves the list.
class DBFlows
{
    Q_DECLARE_TR_FUNCTIONS(DBFlows)

public:
    // Runs the details dialog for a new card and makes its file. The new entry, or null when
    // the dialog was cancelled or the file could not be made.
    static DBRecord *newCard(DBManager *manager, QWidget *parent);
    // Asks for the password, runs the details dialog, and moves the file if needed. True
    // when the details were accepted.
    static bool editCard(DBManager *manager, DBRecord *record, QWidget *parent);
    // Asks for the password and a confirmation; deletes the entry and its file.
    static bool deleteCard(DBManager *manager, DBRecord *record, QWidget *parent);
    // Asks for a confirmation; takes the entry out of the list and leaves the file.
    static bool removeFromList(DBManager *manager, DBRecord *record, QWidget *parent);
    // Copies the card beside itself; the new entry or null.
    static DBRecord *duplicateCard(DBManager *manager, DBRecord *record, QWidget *parent);
    // Lets the user choose card files and puts those not yet listed into the list; the last
    // new entry or null.
    static DBRecord *openCards(DBManager *manager, QWidget *parent);
    // The open part of openCards, for files already chosen.
    static DBRecord *addCards(DBManager *manager, const QStringList &files);

    // The folder the file chooser starts in.
    static QString openCardPath();

private:
    static QString caption();
    // After a flow that changed the list: a list that could not be saved is still changed,
    // and the user is told why (the list on disk is the one before the flow).
    static void reportListSave(const DBManager *manager);
};

#endif
