#include "platform/alarmserver.h"

#include "platform/alarmtable.h"

#include <memory>

namespace
{
std::unique_ptr<AlarmTable> batchTable;
int batchDepth = 0;
} // namespace

AlarmServer::Batch::Batch()
{
    if (batchDepth++ == 0)
        batchTable = std::make_unique<AlarmTable>();
}

AlarmServer::Batch::~Batch()
{
    if (--batchDepth > 0)
        return;
    batchTable->save();
    batchTable.reset();
}

bool AlarmServer::addAlarm(
    const QDateTime &when, const QByteArray &channel, const QByteArray &message, int data)
{
    if (batchTable)
        return batchTable->add({ when, channel, message, data });
    AlarmTable table;
    return table.add({ when, channel, message, data }) && table.save();
}

bool AlarmServer::deleteAlarm(
    const QDateTime &when, const QByteArray &channel, const QByteArray &message, int data)
{
    if (batchTable) {
        batchTable->remove(when, channel, message, data);
        return true;
    }
    AlarmTable table;
    table.remove(when, channel, message, data);
    return table.save();
}
