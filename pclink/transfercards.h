#ifndef TRANSFERCARDS_H
#define TRANSFERCARDS_H

#include <QString>
#include <QStringList>

class DBManager;

// What the transfers do to the card lists: the published catalogue, the file lists of a
// Send and a Get, and the bookkeeping once a card has crossed.
class TransferCards
{
public:
    static QString transferKey() { return QStringLiteral("transfer"); }
    static QString devicePathKey() { return QStringLiteral("device_path"); }
    static QString catalogueRequest(); // the catalogue as a client asks the server for it
    static QString cataloguePath(); // where the catalogue lies on this end

    // Saves and refreshes the card list, then writes the catalogue with a copy of every
    // entry in the list's order. Returns the catalogue's path.
    static QString publishCatalogue(DBManager &cards);
    static void withdrawCatalogue();

    // Send: for every ticked card in list order its path, then the name to store it under
    // on the server (its "device_path" and "/", or "[A]", and its file name).
    static QStringList sendList(const DBManager &cards);
    static QString sendTarget(const QString &cardPath);
    // Get: where a remote card lands here: the documents folder with the remote file name,
    // or the local card of that file name.
    static QString getDestination(const DBManager &local, const QString &remotePath);

    // A card file arrived at path: list it, or refresh its entry; then save the list.
    // Files that are no cards are left alone.
    static void registerCard(DBManager &cards, const QString &path);
    // A Get of the remote card remotePath finished: the card is listed under its file name
    // in the documents folder and remembers the remote folder as its "device_path".
    static QString registerFetched(DBManager &local, const QString &remotePath);
    // Takes the tick from every entry of path.
    static void untick(DBManager &cards, const QString &path);

    static bool isCard(const QString &path);
};

#endif
