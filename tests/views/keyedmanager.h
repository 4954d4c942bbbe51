#ifndef KEYEDMANAGER_H
#define KEYEDMANAGER_H

#include "store/pimmanager.h"

#include <QString>

// A record manager for list tests: each record carries a "key" property that is its sort
// key. It writes no file.
class KeyedManager : public PIMManager
{
    Q_OBJECT

public:
    explicit KeyedManager(const QString &home);

    static QString key(int n);
    // Appends n records keyed 0 .. n-1 and sorts the view by key.
    void fill(int n);
    PIMRecord *makeRecord(const QString &key) const;
    // Adds a record the way an editor does.
    PIMRecord *addKeyed(const QString &key);
    PIMRecord *at(int index) const { return view().at(index); }

protected:
    void prepareSort() override;
    void makeSortKeys(PIMRecord *record) override;
    bool sortKeysChanged(PIMRecord *old, PIMRecord *record) override;
};

#endif
