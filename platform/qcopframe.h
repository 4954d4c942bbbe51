#ifndef QCOPFRAME_H
#define QCOPFRAME_H

#include <QByteArray>

class QIODevice;

// One message between two processes of the program on the local socket: a 32-bit
// big-endian length, then that many bytes holding the kind and the fields.
class QCopFrame
{
public:
    enum Kind : quint8 { Send = 1, Query = 2, Reply = 3 };
    enum ReadResult { Incomplete, Complete, Invalid };

    // Bounds of what a peer may make us hold: one frame, and a channel or message name.
    static constexpr quint32 maxPayload = 1024 * 1024;
    static constexpr qsizetype maxNameLength = 1024;

    Kind kind = Send;
    QByteArray channel;
    QByteArray message;
    QByteArray data;
    bool answer = false; // of a Reply: the message reached a receiver, or the channel has one

    static QCopFrame reply(bool answer);

    QByteArray encode() const;
    // Takes one whole frame from the device when it holds one. Invalid for a length
    // beyond the bound or a body that is not a well-formed frame; the caller drops the peer.
    static ReadResult read(QIODevice *device, QCopFrame &frame);

private:
    bool decode(const QByteArray &payload);
    bool isWellFormed() const;
};

#endif
