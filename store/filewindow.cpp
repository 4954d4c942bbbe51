#include "store/filewindow.h"

#include <QFile>

#include <cstring>

FileWindow::FileWindow(QFile &file)
    : m_file(file)
{
}

bool FileWindow::open(OpenMode mode)
{
    if ((mode & ~Unbuffered) != ReadOnly || !m_file.isReadable())
        return false;
    m_size = m_file.size();
    m_window.clear();
    m_windowStart = 0;
    m_position = 0;
    // The window is the buffer: a second one inside the device would copy every byte twice.
    return QIODevice::open(ReadOnly | Unbuffered);
}

bool FileWindow::seek(qint64 position)
{
    if (!QIODevice::seek(position))
        return false;
    m_position = position;
    return true;
}

qint64 FileWindow::readData(char *data, qint64 maxSize)
{
    qint64 done = 0;
    while (done < maxSize) {
        const qint64 offset = m_position - m_windowStart;
        if ((offset < 0 || offset >= m_window.size()) && !fillWindow())
            break;
        const qint64 at = m_position - m_windowStart;
        const qint64 count = qMin(maxSize - done, qint64(m_window.size()) - at);
        std::memcpy(data + done, m_window.constData() + at, size_t(count));
        done += count;
        m_position += count;
    }
    return done;
}

qint64 FileWindow::writeData(const char *, qint64)
{
    return -1;
}

// False at the end of the file or when it cannot be read: the reader then sees it end.
bool FileWindow::fillWindow()
{
    if (m_position >= m_size || !m_file.seek(m_position))
        return false;
    m_window.resize(qMin(windowBytes, m_size - m_position));
    const qint64 got = m_file.read(m_window.data(), m_window.size());
    if (got <= 0) {
        m_window.clear();
        return false;
    }
    m_window.resize(got);
    m_windowStart = m_position;
    return true;
}
