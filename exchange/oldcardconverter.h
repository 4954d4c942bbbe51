#ifndef OLDCARDCONVERTER_H
#define OLDCARDCONVERTER_H

#include <QString>

class DBManager;
class DBRecord2;
class DataManager;

// Turns the cards of older versions, listed in the text store "db", into .card files and
// adds them to the card list. The store is marked before any card is made, so the work is
// done once, even when it is cut short; the old files stay where they are.
class OldCardConverter
{
public:
    // The number of cards made.
    static int run();

private:
    // False when no free name was left for the new card.
    static bool convert(const DBRecord2 &entry, DBManager &list);
    static void copyRecords(const DBRecord2 &entry, DataManager &card);
};

#endif
