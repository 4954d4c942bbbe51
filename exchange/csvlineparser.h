#ifndef CSVLINEPARSER_H
#define CSVLINEPARSER_H

#include <QRegularExpression>
#include <QString>
#include <QStringList>

// Splits one line of delimited text into values. Files written by older versions of this
// program and by the devices it exchanges with rely on its exact rules, quirks included:
// a doubled qualifier inside a quoted value becomes one delimiter, a trailing delimiter
// gives no empty last value, and of a delimiter of several characters only the first one
// is skipped behind a quoted value. A quoted value may run over several lines: the caller
// keeps `open` between calls, and the value grows with a line feed per line.
class CsvLineParser
{
public:
    enum Result {
        Success,
        Failure, // a line ends right behind an opening or a doubled qualifier
        TooManyValues // the values would pass maxValues: the row is not finished
    };

    CsvLineParser(const QString &delimiter, const QString &qualifier, qsizetype maxValues);

    Result parse(QStringView line, QStringList &values, bool &open) const;

private:
    bool startsQuoted(QStringView line, qsizetype pos) const;
    Result parseQuoted(QStringView line, qsizetype &pos, QStringList &values, bool &open) const;
    QString undoubled(QString text) const;
    bool append(QStringList &values, bool open, QString text) const;

    QString m_delimiter;
    QString m_qualifier;
    QRegularExpression m_doubled; // the qualifier twice, as a wildcard pattern
    qsizetype m_maxValues;
};

#endif
