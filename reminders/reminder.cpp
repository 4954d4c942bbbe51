#include "reminders/reminder.h"

#include <QDataStream>

bool Reminder::operator==(const Reminder &other) const
{
    return dateTime == other.dateTime && sound == other.sound && led == other.led
        && type == other.type;
}

void Reminder::write(QDataStream &stream) const
{
    stream << dateTime << qint32(sound) << qint32(led) << qint32(type);
}

void Reminder::read(QDataStream &stream)
{
    qint32 soundFlag = 0;
    qint32 ledFlag = 0;
    qint32 pattern = 0;
    stream >> dateTime >> soundFlag >> ledFlag >> pattern;
    sound = soundFlag != 0;
    led = ledFlag != 0;
    type = pattern;
}
