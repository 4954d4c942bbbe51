#include "pclink/pclinkframe.h"

QByteArray PCLinkFrame::frame(const QByteArray &payload)
{
    return QByteArray::number(payload.size()) + ' ' + payload;
}

QByteArray PCLinkFrame::message(const QByteArray &tag, const QStringList &fields)
{
    QByteArray payload = tag;
    for (const QString &field : fields) {
        const QByteArray text = field.toUtf8();
        payload += QByteArray::number(text.size()) + ' ' + text;
    }
    return frame(payload);
}

qint64 PCLinkFrame::lengthValue(QByteArrayView digits)
{
    if (digits.size() > maxLengthDigits)
        return -2;
    bool ok = false;
    const qint64 value = digits.toLongLong(&ok);
    if (!ok)
        return -1;
    return value < 0 ? -2 : value;
}

PCLinkFrame::Take PCLinkFrame::take(QByteArray &buffer, QByteArray &payload)
{
    const qsizetype blank = buffer.indexOf(' ');
    if (blank < 0)
        return buffer.size() > maxLengthDigits ? Broken : NeedMore;
    const qint64 length = lengthValue(QByteArrayView(buffer).first(blank));
    if (length < -1 || length > maxPayload)
        return Broken;
    // A length that is no number reads as 0: the frame is empty and goes.
    const qint64 payloadLength = qMax<qint64>(length, 0);
    if (buffer.size() < blank + 1 + payloadLength)
        return NeedMore;
    payload = buffer.mid(blank + 1, payloadLength);
    buffer.remove(0, blank + 1 + payloadLength);
    return Taken;
}

PCLinkFrame::FieldReader::FieldReader(const QByteArray &payload, qsizetype start)
    : m_payload(payload)
    , m_pos(start)
{
}

bool PCLinkFrame::FieldReader::next(QString &value)
{
    value = QString();
    if (m_pos >= m_payload.size())
        return true; // an absent field reads as a null text
    const qsizetype blank = m_payload.indexOf(' ', m_pos);
    if (blank < 0)
        return false;
    const qint64 length = lengthValue(QByteArrayView(m_payload).sliced(m_pos, blank - m_pos));
    if (length < 0 || length > m_payload.size() - blank - 1)
        return false;
    value = QString::fromUtf8(m_payload.constData() + blank + 1, length);
    m_pos = blank + 1 + length;
    return true;
}
