#ifndef REMINDER_H
#define REMINDER_H

#include <QDateTime>
#include <QString>

class QDataStream;
class QTextStream;

// The reminder a record may carry: a moment and how the user is alerted then.
class Reminder
{
public:
    QDateTime dateTime;
    bool sound = false;
    bool led = false;
    // The LED pattern, an index into the patterns the editor lists.
    int type = 0;

    bool operator==(const Reminder &other) const;
    bool operator!=(const Reminder &other) const { return !(*this == other); }

    // The binary block inside a card's record.
    void write(QDataStream &stream) const;
    void read(QDataStream &stream);

    // The text block of the older record format, closed by "REMINDER_END".
    void write(QTextStream &stream) const;
    // False when the stream ended before "REMINDER_END"; what was read is kept.
    bool read(QTextStream &stream);

private:
    void readLine(const QString &line);
};

#endif
