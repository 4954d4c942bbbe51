// The number and date-time formats: the first line of the bytes is a format code, the rest
// a text. The code formats fixed values (including the edges of the double range) and
// parses the text as the delimited-text import reads dates and times.
#include "fuzzinput.h"

#include "calc/datetimeformat.h"
#include "calc/numberformat.h"
#include "exchange/datetimeparser.h"

#include <limits>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString input = QString::fromUtf8(FuzzInput::bytes(data, size));
    const qsizetype end = input.indexOf(QLatin1Char('\n'));
    const QString code = end < 0 ? input : input.left(end);
    const QString text = end < 0 ? QString() : input.mid(end + 1);
    for (const double value :
        { 0.0, -1.5, 123456.789, 1e300, -1e-300, std::numeric_limits<double>::max(),
            std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity() })
        formatNumber(value, code);
    formatDateTime(QDateTime(QDate(2026, 11, 25), QTime(17, 5, 9)), code);
    formatDateTime(QDateTime(QDate(-4713, 1, 2), QTime(0, 0)), code);
    DateTimeParser(code).parse(text);
    return 0;
}
