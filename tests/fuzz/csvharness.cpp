// The delimited-text reader: the first byte picks a delimiter, a qualifier and an encoding,
// the rest is the text, read row by row as the import does until it ends or a bound stops it.
#include "fuzzinput.h"

#include "exchange/csvformat.h"
#include "exchange/csvrowreader.h"
#include "exchange/textlinereader.h"

#include <QBuffer>
#include <QTextCodec>

namespace
{
CsvFormat formatOf(uint8_t choice)
{
    static const QString qualifiers[]
        = { QStringLiteral("\""), QStringLiteral("'"), QString(), QStringLiteral("\"\"") };
    CsvFormat format;
    const int delimiters = int(CsvFormat::delimiterNames().size());
    format.delimiter = choice % 16 < delimiters
        ? CsvFormat::delimiterFor(choice % 16, false, QString())
        : QStringLiteral("<>");
    format.qualifier = qualifiers[(choice >> 4) % 4];
    return format;
}

QTextCodec *codecOf(uint8_t choice)
{
    static const char *names[] = { "UTF-8", "ISO-8859-1", "UTF-16LE", "Windows-1252" };
    return QTextCodec::codecForName(names[choice >> 6]);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    QByteArray text = FuzzInput::bytes(data + 1, size - 1);
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TextLineReader lines(&buffer, codecOf(data[0]));
    CsvRowReader reader(lines, formatOf(data[0]));
    QStringList row;
    while (reader.next(&row) == CsvRowReader::Row)
        row.clear();
    return 0;
}
