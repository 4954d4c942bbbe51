// The link protocol's frames: the bytes arrive in small chunks, as a peer's would, and every
// whole frame is taken and its fields read as the handlers read them (names resolved and
// checked as a served or received path), until the stream breaks or ends. Payloads hold no NUL, so
// a chunk ends at one, as the link reads it.
#include "fuzzinput.h"

#include "pclink/pclinkframe.h"
#include "pclink/pclinkpaths.h"

namespace
{
constexpr qsizetype chunkSize = 7;
constexpr int fieldsPerMessage = 8;

void readFields(const QByteArray &payload)
{
    PCLinkFrame::FieldReader fields(payload, 1);
    QString value;
    for (int i = 0; i < fieldsPerMessage && fields.next(value); ++i) {
        const QString path = PCLinkPaths::resolve(value);
        PCLinkPaths::mayRead(path, {});
        PCLinkPaths::mayWrite(path);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = FuzzInput::bytes(data, size);
    QByteArray buffer;
    for (qsizetype at = 0; at < bytes.size(); at += chunkSize) {
        QByteArray chunk = bytes.mid(at, chunkSize);
        const qsizetype nul = chunk.indexOf('\0');
        if (nul >= 0)
            chunk.truncate(nul);
        buffer += chunk;
        QByteArray payload;
        PCLinkFrame::Take taken;
        while ((taken = PCLinkFrame::take(buffer, payload)) == PCLinkFrame::Taken)
            readFields(payload);
        if (taken == PCLinkFrame::Broken)
            return 0;
    }
    return 0;
}
