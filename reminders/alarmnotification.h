#ifndef ALARMNOTIFICATION_H
#define ALARMNOTIFICATION_H

#include <QObject>
#include <QString>

class QDBusPendingCallWatcher;

// The desktop's stand-in for the LED: one notification of the desktop's notification
// service on the session bus, replaced by each new alarm and closed with the alarm. Calls
// never wait for the service; without a bus or a service the alarm goes on without it.
class AlarmNotification : public QObject
{
    Q_OBJECT

public:
    explicit AlarmNotification(QObject *parent = nullptr);
    ~AlarmNotification() override;

    // Shows body under "Card Alarm", replacing the one shown before.
    void show(const QString &body);
    // Takes the notification down, also one still on its way to the service.
    void close();
    bool isShown() const { return m_id != 0 || m_waiting; }
    // The service's id of the notification on screen; 0 while none is known.
    uint id() const { return m_id; }

Q_SIGNALS:
    // The user chose the notification: the program is to come to the front.
    void activated();

private Q_SLOTS:
    void actionInvoked(uint id, const QString &action);

private:
    void send(const QString &body);
    void notified(QDBusPendingCallWatcher *watcher);
    void reportOnce(const QString &why);
    void sendClose(uint id);
    bool connectBus();

    uint m_id = 0;
    bool m_waiting = false;
    bool m_closeWhenKnown = false;
    bool m_connected = false;
    bool m_reported = false;
    QString m_next;
};

#endif
