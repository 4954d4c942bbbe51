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
