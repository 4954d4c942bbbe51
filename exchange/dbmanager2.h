#ifndef DBMANAGER2_H
#define DBMANAGER2_H

#include "store/pimmanager.h"

// The card list of older versions, the text store "db" of the application's folder. Only
// read, except for its property "converted", which marks the conversion as done.
class DBManager2 : public PIMManager
{
    Q_OBJECT

public:
    DBManager2();

    PIMRecord *createRecord() override;
};

#endif
