#include "platform/qcopenvelope.h"

#include "platform/qcopchannel.h"

QCopEnvelope::QCopEnvelope(const QByteArray &channel, const QByteArray &message)
    : m_channel(channel)
    , m_message(message)
{
    m_buffer.open(QIODevice::WriteOnly);
    setDevice(&m_buffer);
}

QCopEnvelope::~QCopEnvelope()
{
    setDevice(nullptr);
    QCopChannel::send(m_channel, m_message, m_buffer.data());
}
