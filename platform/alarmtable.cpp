#include "platform/alarmtable.h"

#include "platform/global.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace
{
int writes = 0;

const QByteArray header
    = QByteArrayLiteral("# norvika alarms: when (UTC), channel, message, data\n");

bool earlier(const AlarmTable::Alarm &a, const AlarmTable::Alarm &b)
{
    return a.when < b.when;
}
} // namespace

AlarmTable::AlarmTable(const QString &fileName)
    : m_fileName(fileName)
    , m_lock(fileName + QStringLiteral(".lock"))
{
    QDir().mkpath(QFileInfo(m_fileName).absolutePath());
    m_lock.tryLock(lockTimeoutMs);
    read();
}

QString AlarmTable::defaultFileName()
{
    return Global::applicationFileName(QStringLiteral("norvika"), QStringLiteral("alarms"));
}

void AlarmTable::read()
{
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QList<QByteArray> lines = file.read(maxFileSize).split('\n');
    for (const QByteArray &line : lines) {
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        Alarm alarm;
        if (m_alarms.size() < maxAlarms && parseLine(line, alarm))
            m_alarms.append(alarm);
        else
            ++m_dropped;
    }
    if (!file.atEnd())
        ++m_dropped;
    std::stable_sort(m_alarms.begin(), m_alarms.end(), earlier);
}

bool AlarmTable::isValid(const Alarm &alarm)
{
    return alarm.when.isValid() && !alarm.channel.isEmpty() && !alarm.message.isEmpty()
        && alarm.channel.size() <= maxNameLength && alarm.message.size() <= maxNameLength;
}

bool AlarmTable::parseLine(const QByteArray &line, Alarm &alarm)
{
    const QList<QByteArray> parts = line.split('\t');
    if (parts.size() != 4)
        return false;
    alarm.when
        = QDateTime::fromString(QString::fromLatin1(parts[0]), Qt::ISODateWithMs).toLocalTime();
    alarm.channel = QByteArray::fromPercentEncoding(parts[1]);
    alarm.message = QByteArray::fromPercentEncoding(parts[2]);
    bool ok = false;
    alarm.data = parts[3].trimmed().toInt(&ok);
    return ok && isValid(alarm);
}

QByteArray AlarmTable::formatLine(const Alarm &alarm)
{
    return alarm.when.toUTC().toString(Qt::ISODateWithMs).toLatin1() + '\t'
        + alarm.channel.toPercentEncoding() + '\t' + alarm.message.toPercentEncoding() + '\t'
        + QByteArray::number(alarm.data) + '\n';
}

bool AlarmTable::add(const Alarm &alarm)
{
    if (!isValid(alarm) || m_alarms.size() >= maxAlarms)
        return false;
    if (m_alarms.contains(alarm))
        return true;
    // Kept in time order, so the file reads as a schedule and the next one is first.
    const auto at = std::upper_bound(m_alarms.begin(), m_alarms.end(), alarm, earlier);
    m_alarms.insert(at, alarm);
    m_changed = true;
    return true;
}

int AlarmTable::remove(
    const QDateTime &when, const QByteArray &channel, const QByteArray &message, int data)
{
    const qsizetype removed = m_alarms.removeIf([&](const Alarm &a) {
        return (!when.isValid() || a.when == when) && (channel.isNull() || a.channel == channel)
            && (message.isNull() || a.message == message) && (data == -1 || a.data == data);
    });
    if (removed > 0)
        m_changed = true;
    return int(removed);
}

QList<AlarmTable::Alarm> AlarmTable::takeDue(const QDateTime &now)
{
    QList<Alarm> due;
    QList<Alarm> waiting;
    for (const Alarm &alarm : std::as_const(m_alarms))
        (alarm.when <= now ? due : waiting).append(alarm);
    if (due.isEmpty())
        return due;
    m_alarms = waiting;
    m_changed = true;
    return due;
}

QDateTime AlarmTable::nextDue() const
{
    return m_alarms.isEmpty() ? QDateTime() : m_alarms.first().when;
}

bool AlarmTable::save()
{
    if (!m_changed)
        return true;
    if (!isLocked())
        return false;
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(header);
    for (const Alarm &alarm : std::as_const(m_alarms))
        file.write(formatLine(alarm));
    if (!file.commit())
        return false;
    ++writes;
    m_changed = false;
    return true;
}

int AlarmTable::writeCount()
{
    return writes;
}
