#ifndef QCOPENVELOPE_H
#define QCOPENVELOPE_H

#include <QBuffer>
#include <QByteArray>
#include <QDataStream>

// A message under construction: stream the arguments in, and the message goes out on its
// channel when the envelope is destroyed. Receivers read the data with a QDataStream.
//
//     QCopEnvelope e("QPE/Application/textedit", "setDocument(QString)");
//     e << path;
class QCopEnvelope : public QDataStream
{
public:
    QCopEnvelope(const QByteArray &channel, const QByteArray &message);
    ~QCopEnvelope();

    QCopEnvelope(const QCopEnvelope &) = delete;
    QCopEnvelope &operator=(const QCopEnvelope &) = delete;

private:
    QByteArray m_channel;
    QByteArray m_message;
    QBuffer m_buffer;
};

#endif
