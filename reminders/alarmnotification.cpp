#include "reminders/alarmnotification.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QDebug>
#include <QVariantMap>

#include <utility>

namespace
{
const char service[] = "org.freedesktop.Notifications";
const char path[] = "/org/freedesktop/Notifications";
const char interface[] = "org.freedesktop.Notifications";
// The hint value of the notification service for a notification that must be seen.
const uchar critical = 2;

QDBusMessage call(const char *method)
{
    return QDBusMessage::createMethodCall(QString::fromLatin1(service), QString::fromLatin1(path),
        QString::fromLatin1(interface), QString::fromLatin1(method));
}
} // namespace

AlarmNotification::AlarmNotification(QObject *parent)
    : QObject(parent)
{
}

AlarmNotification::~AlarmNotification()
{
    close();
}

bool AlarmNotification::connectBus()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        reportOnce(QStringLiteral("no session bus"));
        return false;
    }
    if (!m_connected)
        m_connected = bus.connect(QString::fromLatin1(service), QString::fromLatin1(path),
            QString::fromLatin1(interface), QStringLiteral("ActionInvoked"), this,
            SLOT(actionInvoked(uint, QString)));
    return true;
}

// While the service has not yet named the notification on its way, only the newest body
// waits to replace it: a pile of alarms makes two calls, not one per alarm.
void AlarmNotification::show(const QString &body)
{
    if (!connectBus())
        return;
    m_closeWhenKnown = false;
    if (m_waiting) {
        m_next = body;
        return;
    }
    send(body);
}

void AlarmNotification::send(const QString &body)
{
    QDBusMessage message = call("Notify");
    message << QCoreApplication::applicationName() << m_id << QStringLiteral("appointment-soon")
            << tr("Card Alarm") << body << QStringList { QStringLiteral("default"), tr("Open") }
            << QVariantMap { { QStringLiteral("urgency"), QVariant::fromValue(critical) } } << 0;
    m_waiting = true;
    auto *watcher
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &AlarmNotification::notified);
}

void AlarmNotification::notified(QDBusPendingCallWatcher *watcher)
{
    watcher->deleteLater();
    m_waiting = false;
    const QString next = std::exchange(m_next, QString());
    const QDBusPendingReply<uint> reply = *watcher;
    if (reply.isError()) {
        reportOnce(reply.error().message());
        return;
    }
    m_id = reply.value();
    if (m_closeWhenKnown)
        close();
    else if (!next.isNull())
        send(next);
}

// The alarm goes on without the desktop's notification; saying so once is enough.
void AlarmNotification::reportOnce(const QString &why)
{
    if (std::exchange(m_reported, true))
        return;
    qDebug().noquote() << "Alarms go without a desktop notification:" << why;
}

void AlarmNotification::close()
{
    m_next.clear();
    if (m_waiting) {
        m_closeWhenKnown = true;
        return;
    }
    if (m_id == 0)
        return;
    sendClose(m_id);
    m_id = 0;
}

void AlarmNotification::sendClose(uint id)
{
    QDBusMessage message = call("CloseNotification");
    message << id;
    QDBusConnection::sessionBus().asyncCall(message);
}

void AlarmNotification::actionInvoked(uint id, const QString &action)
{
    if (id == m_id && action == QLatin1String("default"))
        Q_EMIT activated();
}
