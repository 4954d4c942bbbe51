#ifndef DATETIMEPARSER_H
#define DATETIMEPARSER_H

#include <QDateTime>
#include <QList>
#include <QString>

// Reads a moment back from text written with a date-time format code, the reverse of
// formatDateTime: "D", "M", "Y", "h", "m", "s" runs take digits (a run of one or two
// letters takes one or two), "AM/PM" or "^" takes "AM" or "PM", and every other character
// must stand as it is. Missing parts are the first day of the current year and midnight;
// a two-digit year below 70 is in this century. An empty code reads ISO 8601 text.
class DateTimeParser
{
public:
    explicit DateTimeParser(const QString &code);

    // An invalid date-time when the text does not fit the code.
    QDateTime parse(const QString &text) const;
    // The same as a date and a time apart, without making a moment in the local time
    // zone; false when the text does not fit the code.
    bool parse(const QString &text, QDate *date, QTime *time) const;

private:
    struct Parts;
    struct Run {
        QChar letter; // a character that must stand as it is when length is 0
        qsizetype length = 0;
    };
    bool readRun(QStringView text, qsizetype &pos, const Run &run, Parts &parts) const;

    QString m_code;
    QList<Run> m_runs; // the code read once
    int m_year; // the year a code without one gives
};

#endif
