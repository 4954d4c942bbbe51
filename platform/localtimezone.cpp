#include "platform/localtimezone.h"

#include <QByteArray>
#include <QtGlobal>

#include <ctime>

const char *const LocalTimeZone::systemZone = ":/etc/localtime";

namespace {
bool pinnedHere = false;
} // namespace

bool LocalTimeZone::pin()
{
    if (qEnvironmentVariableIsSet("TZ"))
        return false;
    qputenv("TZ", systemZone);
    tzset();
    pinnedHere = true;
    return true;
}

void LocalTimeZone::reload()
{
    if (!pinnedHere || qgetenv("TZ") != systemZone)
        return;
    // The library skips the file while TZ stays the same text: let it see TZ change.
    qunsetenv("TZ");
    tzset();
    qputenv("TZ", systemZone);
    tzset();
}
