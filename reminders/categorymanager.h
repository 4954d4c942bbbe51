#ifndef CATEGORYMANAGER_H
#define CATEGORYMANAGER_H

#include "store/pimmanager.h"

#include <QString>

class CategoryRecord;

// The shared store of categories, "mrlCategory" in the application's data folder, in the
// text form. A store that does not exist yet starts as a copy of the default shipped for the
// user's language, when there is one.
class CategoryManager : public PIMManager
{
    Q_OBJECT

public:
    // Seeds the file when it is missing; loading is left to the caller, as for every manager.
    CategoryManager();
    // Saves while the category records can still be written as such.
    ~CategoryManager() override;

    static QString storeName() { return QStringLiteral("mrlCategory"); }
    // "<share>/etc/<application>/<lower-cased LANG>_mrlCategory".
    static QString defaultPath();

    PIMRecord *createRecord() override;
    // The first category with exactly that title, or null.
    CategoryRecord *find(const QString &title) const;

protected:
    void prepareSort() override;
    void makeSortKeys(PIMRecord *record) override;
    bool sortKeysChanged(PIMRecord *old, PIMRecord *record) override;
};

#endif
