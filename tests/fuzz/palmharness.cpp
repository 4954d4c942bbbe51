// The Palm readers: the bytes are read as a bare database, as MobileDB and as JFile, and
// every row of a reader that accepts them is read.
#include "fuzzinput.h"

#include "exchange/jfilereader.h"
#include "exchange/mobiledbreader.h"

#include <QBuffer>

namespace
{
template <class Reader> void readAllRows(QByteArray &bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Reader reader;
    if (!reader.read(&buffer))
        return;
    for (int i = -1; i <= reader.rowCount(); ++i)
        reader.row(i);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray bytes = FuzzInput::bytes(data, size);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    PalmDatabase database;
    if (database.read(&buffer)) {
        QByteArray record;
        for (int i = 0; i < database.records().size(); ++i)
            database.readRecord(i, &record);
    }
    readAllRows<MobileDBReader>(bytes);
    readAllRows<JFileReader>(bytes);
    return 0;
}
