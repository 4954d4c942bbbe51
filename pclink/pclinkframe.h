#ifndef PCLINKFRAME_H
#define PCLINKFRAME_H

#include <QByteArray>
#include <QString>
#include <QStringList>

// The byte forms of the link: a frame is "<length> <payload>", a payload is a tag followed
// by fields, a field is "<length> <text>". Lengths are decimal counts of bytes.
class PCLinkFrame
{
public:
    // Bounds of what a peer may announce; anything beyond breaks the connection.
    static constexpr int maxLengthDigits = 10;
    static constexpr qsizetype maxPayload = 64 * 1024;

    static QByteArray frame(const QByteArray &payload);
    static QByteArray message(const QByteArray &tag, const QStringList &fields = {});

    // The value of a length text: -1 for no number, -2 for a negative or oversized one.
    static qint64 lengthValue(QByteArrayView digits);

    enum Take { Taken, NeedMore, Broken };
    // Moves the first whole frame of the received bytes into payload. NeedMore while it is
    // unfinished; Broken when its length is malformed or beyond the bounds above.
    static Take take(QByteArray &buffer, QByteArray &payload);

    // Reads the fields of a payload behind its tag. A field is counted in UTF-8 bytes, as
    // the writer counts it, so names beyond ASCII cross the link intact.
    class FieldReader
    {
    public:
        explicit FieldReader(const QByteArray &payload, qsizetype start);
        // False when a field's length is malformed or runs past the payload.
        bool next(QString &value);

    private:
        QByteArray m_payload;
        qsizetype m_pos;
    };
};

#endif
