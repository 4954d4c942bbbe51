#include "reminders/alarmnotification.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QDebug>
#include <QVariantMap>

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
        qDebug() << "No session bus: alarms go without a desktop notification";
        return false;
    }
    if (!m_connected)
        m_connected = bus.connect(QString::fromLatin1(service), QString::fromLatin1(path),
            QString::fromLatin1(interface), QStringLiteral("ActionInvoked"), this,
            SLOT(actionInvoked(uint, QString)));
    return true;
}

void AlarmNotification::show(const QString &body)
{
    if (!connectBus())
        return;
    QDBusMessage message = call("Notify");
    message << QCoreApplication::applicationName() << m_id << QStringLiteral("appointment-soon")
            << tr("Card Alarm") << body << QStringList { QStringLiteral("default"), tr("Open") }
            << QVariantMap { { QStringLiteral("urgency"), QVariant::fromValue(critical) } } << 0;
    m_waiting = true;
    m_closeWhenKnown = false;
    auto *watcher
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &AlarmNotification::notified);
}

void AlarmNotification::notified(QDBusPendingCallWatcher *watcher)
{
    watcher->deleteLater();
    m_waiting = false;
    const QDBusPendingReply<uint> reply = *watcher;
    if (reply.isError()) {
        qDebug() << "No desktop notification for the alarm:" << reply.error().message();
        return;
    }
    m_id = reply.value();
    if (m_closeWhenKnown)
        close();
}

void AlarmNotification::close()
{
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
