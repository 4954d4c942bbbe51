#ifndef DATETIMEPARSER_H
#define DATETIMEPARSER_H

#include <QDateTime>
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

private:
    struct Parts;
    bool readRun(
        const QString &text, qsizetype &pos, QChar letter, qsizetype length, Parts &parts) const;

    QString m_code;
};

#endif
