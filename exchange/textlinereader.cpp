#include "exchange/textlinereader.h"

#include <QCoreApplication>
#include <QIODevice>
#include <QTextCodec>

namespace
{
constexpr qint64 chunkSize = 64 * 1024;
} // namespace

TextLineReader::TextLineReader(QIODevice *device, QTextCodec *codec)
    : m_device(device)
    , m_codec(codec ? codec : QTextCodec::codecForLocale())
{
    rewind();
}

TextLineReader::~TextLineReader() = default;

bool TextLineReader::rewind()
{
    m_decoder.reset(m_codec->makeDecoder());
    m_buffer.clear();
    m_pos = 0;
    m_scan = 0;
    m_nextLineFeed = -1;
    m_nextReturn = -1;
    m_skipLineFeed = false;
    m_atEnd = false;
    m_lineNumber = 0;
    m_error.clear();
    return m_device->seek(0);
}

qint64 TextLineReader::position() const
{
    return m_device->pos();
}

qint64 TextLineReader::size() const
{
    return m_device->size();
}

bool TextLineReader::fill()
{
    if (m_atEnd)
        return false;
    const QByteArray bytes = m_device->read(chunkSize);
    if (bytes.isEmpty()) {
        m_atEnd = true;
        return false;
    }
    m_buffer.remove(0, m_pos);
    m_scan -= m_pos;
    m_pos = 0;
    m_nextLineFeed = -1;
    m_nextReturn = -1;
    m_buffer += m_decoder->toUnicode(bytes);
    return true;
}

// Where c occurs next at or after from, the buffer's size if nowhere. A position found
// before stays good until the scan passes it, so a file ending its lines with only one
// of the two characters does not have the buffer searched for the other on every line.
qsizetype TextLineReader::nextOf(QChar c, qsizetype &cached, qsizetype from) const
{
    if (cached < from) {
        const qsizetype found = QStringView(m_buffer).indexOf(c, from);
        cached = found < 0 ? m_buffer.size() : found;
    }
    return cached;
}

// Looks for the end of a line in what is buffered. The scan goes on where the last one
// stopped, so a long line is not searched again after every refill.
bool TextLineReader::takeLine(QStringView *line)
{
    if (m_skipLineFeed && m_pos < m_buffer.size()) {
        if (m_buffer.at(m_pos) == QLatin1Char('\n'))
            ++m_pos;
        m_skipLineFeed = false;
    }
    const qsizetype from = qMax(m_pos, m_scan);
    const qsizetype end = qMin(nextOf(QLatin1Char('\n'), m_nextLineFeed, from),
        nextOf(QLatin1Char('\r'), m_nextReturn, from));
    if (end >= m_buffer.size()) {
        m_scan = m_buffer.size();
        return false;
    }
    *line = QStringView(m_buffer).sliced(m_pos, end - m_pos);
    m_skipLineFeed = m_buffer.at(end) == QLatin1Char('\r');
    m_pos = end + 1;
    m_scan = m_pos;
    return true;
}

bool TextLineReader::tooLong()
{
    m_error = QCoreApplication::translate("TextLineReader", "Line %1: longer than 16 MiB.")
                  .arg(m_lineNumber + 1);
    return false;
}

bool TextLineReader::readLine(QString *line)
{
    QStringView view;
    if (!readLine(&view))
        return false;
    *line = view.toString();
    return true;
}

bool TextLineReader::readLine(QStringView *line)
{
    if (hasError())
        return false;
    for (;;) {
        if (takeLine(line))
            break;
        if (m_buffer.size() - m_pos > maxLineLength)
            return tooLong();
        if (!fill()) {
            if (m_pos >= m_buffer.size())
                return false;
            *line = QStringView(m_buffer).sliced(m_pos);
            m_pos = m_buffer.size();
            break;
        }
    }
    if (line->size() > maxLineLength)
        return tooLong();
    ++m_lineNumber;
    return true;
}
