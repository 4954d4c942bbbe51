#include "platform/dateformat.h"

#include "platform/datetimesettings.h"

DateFormat DateFormat::current()
{
    DateTimeSettings *settings = DateTimeSettings::instance();
    return DateFormat(settings->dateSeparator(), settings->shortOrder(), settings->longOrder());
}
