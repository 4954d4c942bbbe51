#ifndef CSVROWREADER_H
#define CSVROWREADER_H

#include "exchange/csvlineparser.h"

#include <QString>
#include <QStringList>

#include <functional>

class CsvFormat;
class TextLineReader;

// Reads whole rows of delimited text: a quoted value open at a line's end is carried on
// into the next lines. Every bound of the input is checked here, before a caller makes
// anything for a row: a line or an open value over 16 MiB and a row over maxValues end
// the reading with a message naming the line.
class CsvRowReader
{
public:
    static constexpr qsizetype maxValues = 10000;

    enum Status {
        Row, // a complete row with at least one value
        End, // no more text (an unfinished quoted value is dropped)
        ParseError, // the parser refused a line; what was read before stands
        Stopped, // the line hook asked to stop
        Overflow // a bound was passed; errorString() says which
    };

    CsvRowReader(TextLineReader &lines, const CsvFormat &format);

    // Called once a line with the reader's position; returning false stops the reading.
    void setLineHook(std::function<bool()> hook) { m_hook = std::move(hook); }
    // Skips count lines, as the start row asks; false if the reading ended first.
    bool skipLines(int count);
    Status next(QStringList *row);

    // The line on which an unfinished quoted value opened, 0 if none was left at the end.
    int unfinishedLine() const { return m_unfinishedLine; }
    int lineNumber() const;
    QString errorString() const { return m_error; }

private:
    Status endOfText();

    TextLineReader &m_lines;
    CsvLineParser m_parser;
    std::function<bool()> m_hook;
    int m_openedAt = 0;
    int m_unfinishedLine = 0;
    QString m_error;
};

#endif
