#ifndef LOCALTIMEZONE_H
#define LOCALTIMEZONE_H

// The C library reads the system's zone file again for every local time it works out while
// TZ is unset, and a card of many records works out thousands of them as it loads. Naming
// the system's own zone in TZ keeps the same zone without the reads.
class LocalTimeZone
{
public:
    // The value pin() gives TZ.
    static const char *const systemZone;

    // Names the system's zone in TZ, unless TZ is set already. True if it did.
    static bool pin();
    // Reads the zone file again after the system's zone may have changed, if pin() set TZ.
    static void reload();
};

#endif
