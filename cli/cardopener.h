#ifndef CARDOPENER_H
#define CARDOPENER_H

#include <QString>

#include <memory>

class DataManager;

// Opens a card named on the command line the way the desktop program opens one: the
// whole card is loaded, with its stored filter and sort applied.
class CardOpener
{
public:
    // Null, with a message in *error, when the card cannot be loaded.
    static std::unique_ptr<DataManager> open(const QString &path, QString *error);
    // The same with the header alone: schema, views, filters and sort, but no records.
    static std::unique_ptr<DataManager> openHeader(const QString &path, QString *error);
    // A manager for a card that is to be written anew at path (the folder must exist).
    static std::unique_ptr<DataManager> create(const QString &path, QString *error);

private:
    static std::unique_ptr<DataManager> load(const QString &path, bool headerOnly, QString *error);
};

#endif
