#ifndef TRANSFERCOMMANDS_H
#define TRANSFERCOMMANDS_H

#include <QString>

class DBManager;
class QWidget;

// The three transfer commands as the chooser and the main window offer them. The caller has
// saved its open card first, and closes it for serve and get.
class TransferCommands
{
public:
    // Publishes the catalogue, serves until the user closes the window, withdraws it.
    static void serve(DBManager *cards, QWidget *parent);
    // Send with the card at currentPath ticked.
    static void send(DBManager *cards, const QString &currentPath, QWidget *parent);
    static void get(DBManager *cards, QWidget *parent);
    // Saves the card list and refreshes its cards from their files.
    static void prepare(DBManager *cards);
};

#endif
