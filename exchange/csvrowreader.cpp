#include "exchange/csvrowreader.h"

#include "exchange/csvformat.h"
#include "exchange/textlinereader.h"

#include <QCoreApplication>
#include <QDebug>

CsvRowReader::CsvRowReader(TextLineReader &lines, const CsvFormat &format)
    : m_lines(lines)
    , m_parser(format.delimiter, format.qualifier, maxValues)
{
}

int CsvRowReader::lineNumber() const
{
    return m_lines.lineNumber();
}

bool CsvRowReader::skipLines(int count)
{
    QStringView line;
    for (int i = 0; i < count; ++i) {
        if (!m_lines.readLine(&line))
            return false;
    }
    return true;
}

CsvRowReader::Status CsvRowReader::endOfText()
{
    if (m_lines.hasError()) {
        m_error = m_lines.errorString();
        return Overflow;
    }
    return End;
}

CsvRowReader::Status CsvRowReader::next(QStringList *row)
{
    row->clear();
    bool open = false;
    QStringView line;
    for (;;) {
        if (m_hook && !m_hook())
            return Stopped;
        if (!m_lines.readLine(&line)) {
            m_unfinishedLine = open ? m_openedAt : 0;
            return endOfText();
        }
        const bool wasOpen = open;
        switch (m_parser.parse(line, *row, open)) {
        case CsvLineParser::Failure:
            qDebug("CSV ERROR at line %d", lineNumber());
            return ParseError;
        case CsvLineParser::TooManyValues:
            m_error = QCoreApplication::translate(
                "CsvRowReader", "Line %1: more than %2 values in a row.")
                          .arg(lineNumber())
                          .arg(maxValues);
            return Overflow;
        case CsvLineParser::Success:
            break;
        }
        if (open && !wasOpen)
            m_openedAt = lineNumber();
        if (open && row->last().size() > TextLineReader::maxLineLength) {
            m_error = QCoreApplication::translate(
                "CsvRowReader", "Line %1: a quoted value longer than 16 MiB.")
                          .arg(lineNumber());
            return Overflow;
        }
        if (!open && !row->isEmpty())
            return Row;
    }
}
