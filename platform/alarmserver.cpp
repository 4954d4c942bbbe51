#include "platform/alarmserver.h"

#include "platform/alarmtable.h"

bool AlarmServer::addAlarm(
    const QDateTime &when, const QByteArray &channel, const QByteArray &message, int data)
{
    AlarmTable table;
    return table.add({ when, channel, message, data }) && table.save();
}

bool AlarmServer::deleteAlarm(
    const QDateTime &when, const QByteArray &channel, const QByteArray &message, int data)
{
    AlarmTable table;
    table.remove(when, channel, message, data);
    return table.save();
}
