#include "exchange/dbmanager2.h"

#include "exchange/dbrecord2.h"
#include "store/mrlpim.h"

DBManager2::DBManager2()
    : PIMManager(MRLPIM::applicationName(), QStringLiteral("db"))
{
    setSortingEnabled(false);
}

PIMRecord *DBManager2::createRecord()
{
    return new DBRecord2(this);
}
