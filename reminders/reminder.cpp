#include "reminders/reminder.h"

#include "store/mrlpim.h"

#include <QDataStream>
#include <QTextStream>

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

void Reminder::write(QTextStream &stream) const
{
    stream << "DATETIME=" << MRLPIM::dateTimeToString(dateTime) << '\n'
           << "SOUND=" << (sound ? 1 : 0) << '\n'
           << "LED=" << (led ? 1 : 0) << '\n'
           << "TYPE=" << type << '\n'
           << "REMINDER_END" << '\n';
}

bool Reminder::read(QTextStream &stream)
{
    while (!stream.atEnd()) {
        const QString line = stream.readLine();
        if (line == QLatin1String("REMINDER_END"))
            return true;
        readLine(line);
    }
    return false;
}

void Reminder::readLine(const QString &line)
{
    const QStringList parts = line.split(u'=', Qt::SkipEmptyParts);
    if (parts.size() < 2)
        return;
    const QString &key = parts.at(0);
    const QString &value = parts.at(1);
    if (key == QLatin1String("DATETIME"))
        dateTime = MRLPIM::stringToDateTime(value);
    else if (key == QLatin1String("SOUND"))
        sound = value.toInt() != 0;
    else if (key == QLatin1String("LED"))
        led = value.toInt() != 0;
    else if (key == QLatin1String("TYPE"))
        type = value.toInt();
}
