#ifndef ALARMTABLE_H
#define ALARMTABLE_H

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QLockFile>
#include <QString>

// The alarms waiting to be delivered, kept in a text file that several processes share:
// the object locks the file while it lives, reads it when made and writes it on save().
// One line per alarm: the UTC moment, the channel and the message (percent-encoded) and
// the data, separated by tabs. Lines that can't be read are dropped, not reported.
class AlarmTable
{
public:
    struct Alarm {
        QDateTime when;
        QByteArray channel;
        QByteArray message;
        int data = 0;

        bool operator==(const Alarm &other) const = default;
    };

    // Bounds that keep a damaged or hostile file from costing without limit.
    static constexpr qsizetype maxAlarms = 20000;
    static constexpr qsizetype maxNameLength = 1024;
    static constexpr qint64 maxFileSize = 16 * 1024 * 1024;
    static constexpr int lockTimeoutMs = 3000;

    explicit AlarmTable(const QString &fileName = defaultFileName());
    ~AlarmTable() = default;

    AlarmTable(const AlarmTable &) = delete;
    AlarmTable &operator=(const AlarmTable &) = delete;

    // The program's table: the file "alarms" of the application's data folder.
    static QString defaultFileName();

    // Whether the lock was had; without it save() refuses, so no other writer is undone.
    bool isLocked() const { return m_lock.isLocked(); }
    const QList<Alarm> &alarms() const { return m_alarms; }
    // Lines of the file that were dropped as unreadable.
    int droppedLines() const { return m_dropped; }

    // False for an alarm with no valid moment, channel or message, or a full table.
    // An alarm equal to one in the table is kept once.
    bool add(const Alarm &alarm);
    // Removes the matching alarms: an invalid moment, a null channel or message and
    // data -1 match anything. Returns how many went.
    int remove(
        const QDateTime &when, const QByteArray &channel, const QByteArray &message, int data);
    // Removes and returns the alarms due at now, earliest first.
    QList<Alarm> takeDue(const QDateTime &now);
    // The moment of the earliest alarm, or an invalid one for an empty table.
    QDateTime nextDue() const;

    // Writes the file when something changed; false when it could not be written.
    bool save();
    // How many times this process has written a table file.
    static int writeCount();

private:
    void read();
    static bool isValid(const Alarm &alarm);
    static bool parseLine(const QByteArray &line, Alarm &alarm);
    static QByteArray formatLine(const Alarm &alarm);

    QString m_fileName;
    QLockFile m_lock;
    QList<Alarm> m_alarms;
    int m_dropped = 0;
    bool m_changed = false;
};

#endif
