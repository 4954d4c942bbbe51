#include "platform/alarmdispatcher.h"

#include "platform/qcopchannel.h"

#include <QDataStream>
#include <QFileInfo>

#include <algorithm>

AlarmDispatcher::AlarmDispatcher(QObject *parent)
    : AlarmDispatcher(AlarmTable::defaultFileName(), parent)
{
}

AlarmDispatcher::AlarmDispatcher(const QString &fileName, QObject *parent)
    : QObject(parent)
    , m_fileName(fileName)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &AlarmDispatcher::check);
    connect(
        &m_watcher, &QFileSystemWatcher::fileChanged, this, &AlarmDispatcher::fileMayHaveChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
        &AlarmDispatcher::fileMayHaveChanged);
}

void AlarmDispatcher::start()
{
    if (m_started)
        return;
    m_started = true;
    // The folder is watched too: the file may not exist yet, and each save replaces it.
    m_watcher.addPath(QFileInfo(m_fileName).absolutePath());
    if (QFileInfo::exists(m_fileName))
        m_watcher.addPath(m_fileName);
    m_seen = fileSignature();
    m_timer.start(0);
}

QString AlarmDispatcher::fileSignature() const
{
    const QFileInfo info(m_fileName);
    if (!info.exists())
        return QString();
    return QString::number(info.size()) + QLatin1Char(' ')
        + QString::number(info.lastModified().toMSecsSinceEpoch());
}

void AlarmDispatcher::fileMayHaveChanged()
{
    if (QFileInfo::exists(m_fileName) && !m_watcher.files().contains(m_fileName))
        m_watcher.addPath(m_fileName);
    // The folder also changes for the lock file and the program's other files.
    const QString signature = fileSignature();
    if (signature == m_seen)
        return;
    m_seen = signature;
    m_timer.start(0);
}

void AlarmDispatcher::check()
{
    QList<AlarmTable::Alarm> due;
    QDateTime next;
    {
        AlarmTable table(m_fileName);
        if (!table.isLocked()) {
            m_timer.start(retryMs);
            return;
        }
        due = table.takeDue(QDateTime::currentDateTime());
        // Delivered only once they are out of the file, so none can come twice.
        if (!due.isEmpty() && !table.save()) {
            qWarning("AlarmDispatcher: could not write %s", qPrintable(m_fileName));
            m_timer.start(maxWaitMs);
            return;
        }
        next = table.nextDue();
    }
    m_seen = fileSignature();
    for (const AlarmTable::Alarm &alarm : std::as_const(due))
        deliver(alarm);
    schedule(next);
}

void AlarmDispatcher::schedule(const QDateTime &next)
{
    qint64 wait = maxWaitMs;
    if (next.isValid())
        wait = std::clamp<qint64>(QDateTime::currentDateTime().msecsTo(next), 0, maxWaitMs);
    m_timer.start(int(wait));
}

QByteArray AlarmDispatcher::messageData(const AlarmTable::Alarm &alarm)
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << alarm.when << alarm.data;
    return data;
}

void AlarmDispatcher::deliver(const AlarmTable::Alarm &alarm)
{
    if (!QCopChannel::send(alarm.channel, alarm.message, messageData(alarm)))
        qWarning("AlarmDispatcher: no receiver on %s for %s", alarm.channel.constData(),
            alarm.message.constData());
}
