#ifndef DATETIMEWRITER_H
#define DATETIMEWRITER_H

#include <QDate>
#include <QList>
#include <QString>
#include <QTime>

// Writes dates and times by a date-time format code as formatDateTime does, with the code
// read once: an export writes the same code for every record, and takes the date and the
// time apart, so no moment has to be made in the local time zone for a value. An empty
// code writes the system's own short format of the parts asked for.
class DateTimeWriter
{
public:
    enum Parts { DatePart = 1, TimePart = 2, BothParts = 3 };

    DateTimeWriter(const QString &code, Parts systemParts);

    // Appends nothing when the date or the time is invalid.
    void append(QString &out, QDate date, QTime time) const;

private:
    struct Run {
        QChar letter; // a literal character when length is 0
        int length = 0;
    };
    struct Day {
        int year = 0;
        int month = 0;
        int day = 0;
    };
    void appendRun(QString &out, const Run &run, const Day &day, QTime time) const;

    Parts m_systemParts;
    bool m_system = false;
    bool m_twelveHour = false;
    QList<Run> m_runs;
};

#endif
