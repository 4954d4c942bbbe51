#ifndef ALARMDISPATCHER_H
#define ALARMDISPATCHER_H

#include "platform/alarmtable.h"

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

// Delivers the alarms of AlarmTable's file when they fall due: each goes as a QCop message
// on its channel, with the data a QDataStream of (QDateTime when, int data), and leaves
// the table. Alarms that fell due while no program ran go at start(). The file is watched,
// so alarms another process adds are scheduled; the wait is capped, so a change of the
// clock delays an alarm by at most maxWaitMs.
class AlarmDispatcher : public QObject
{
    Q_OBJECT

public:
    static constexpr int maxWaitMs = 60 * 1000;
    static constexpr int retryMs = 1000;

    // The table is the program's (AlarmTable::defaultFileName) unless one is given.
    explicit AlarmDispatcher(QObject *parent = nullptr);
    AlarmDispatcher(const QString &fileName, QObject *parent);

    // Starts delivering, the first time from the event loop.
    void start();
    bool isActive() const { return m_started; }

    // The message's data for an alarm.
    static QByteArray messageData(const AlarmTable::Alarm &alarm);

private:
    void check();
    void fileMayHaveChanged();
    void schedule(const QDateTime &next);
    static void deliver(const AlarmTable::Alarm &alarm);
    QString fileSignature() const;

    QString m_fileName;
    QString m_seen;
    QTimer m_timer;
    QFileSystemWatcher m_watcher;
    bool m_started = false;
};

#endif
