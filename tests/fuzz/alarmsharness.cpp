// The alarm table: the bytes are the shared file of waiting alarms, read when the table is
// made; the due alarms are then taken as the dispatcher does.
#include "fuzzinput.h"

#include "platform/alarmtable.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    AlarmTable table(FuzzInput::write(QStringLiteral("alarms"), data, size));
    const QDateTime due = table.nextDue();
    if (due.isValid())
        table.takeDue(due);
    return 0;
}
