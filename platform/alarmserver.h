#ifndef ALARMSERVER_H
#define ALARMSERVER_H

#include <QByteArray>
#include <QDateTime>

// The platform's alarm service: an alarm is a moment and a QCop message (channel,
// message, an int of data) that the running program receives at that moment, or at its
// next start when it was not running then. Alarms live in AlarmTable's file, so any
// process may add them, with or without an event loop; AlarmDispatcher delivers them.
class AlarmServer
{
public:
    // While a batch lives, the calls of this process share one table, locked all along and
    // written once when the outermost batch ends; a call then answers false only for an
    // alarm that is not valid. Batches nest. No event may be served inside one, as the
    // table's lock keeps every other reader of the file waiting.
    class Batch
    {
    public:
        Batch();
        ~Batch();
        Batch(const Batch &) = delete;
        Batch &operator=(const Batch &) = delete;
    };

    // False when the alarm is not valid (no moment, channel or message) or the table
    // could not be written. An alarm already registered is kept once.
    static bool addAlarm(
        const QDateTime &when, const QByteArray &channel, const QByteArray &message, int data = 0);
    // Removes every matching alarm. An invalid moment, a null channel, a null message and
    // data -1 match anything. False when the table could not be written.
    static bool deleteAlarm(
        const QDateTime &when, const QByteArray &channel, const QByteArray &message, int data);
};

#endif
