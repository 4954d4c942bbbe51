#ifndef SEQUENTIALBUFFER_H
#define SEQUENTIALBUFFER_H

#include <QByteArray>
#include <QIODevice>

#include <cstring>

// A read-only device that will not tell its size, as a socket or pipe would not: readers
// cannot check counts against the bytes left and must stop at the end of data instead.
class SequentialBuffer : public QIODevice
{
public:
    explicit SequentialBuffer(const QByteArray &bytes)
        : m_bytes(bytes)
    {
        open(QIODevice::ReadOnly);
    }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override
    {
        return m_bytes.size() - m_offset + QIODevice::bytesAvailable();
    }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const qint64 length = qMin(maxSize, qint64(m_bytes.size()) - m_offset);
        if (length <= 0)
            return -1;
        std::memcpy(data, m_bytes.constData() + m_offset, size_t(length));
        m_offset += length;
        return length;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_offset = 0;
};

#endif
