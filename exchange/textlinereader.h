#ifndef TEXTLINEREADER_H
#define TEXTLINEREADER_H

#include <QString>

#include <memory>

class QIODevice;
class QTextCodec;
class QTextDecoder;

// Reads a text file line by line through a codec. "\r\n", "\n" and a lone "\r" each end a
// line, so files from any system read alike. Bytes the codec cannot decode become U+FFFD;
// a NUL is an ordinary character. A line is bounded: one longer than maxLineLength stops
// the reading with an error instead of growing without end.
class TextLineReader
{
public:
    static constexpr qsizetype maxLineLength = 16 * 1024 * 1024;

    // A null codec means the local 8-bit conversion.
    TextLineReader(QIODevice *device, QTextCodec *codec);
    ~TextLineReader();

    // Back to the start of the device; false if it cannot seek.
    bool rewind();
    // The next line without its end. False at the end of the text or on an error.
    bool readLine(QString *line);
    // The same without a copy: the view stays valid until the next call.
    bool readLine(QStringView *line);
    bool hasError() const { return !m_error.isEmpty(); }
    QString errorString() const { return m_error; }
    // Lines handed out since the last rewind.
    int lineNumber() const { return m_lineNumber; }
    // Bytes consumed from the device, and its size, for progress bars.
    qint64 position() const;
    qint64 size() const;

private:
    bool fill();
    bool takeLine(QStringView *line);
    qsizetype nextOf(QChar c, qsizetype &cached, qsizetype from) const;
    bool tooLong();

    QIODevice *m_device;
    QTextCodec *m_codec;
    std::unique_ptr<QTextDecoder> m_decoder;
    QString m_buffer;
    qsizetype m_pos = 0; // start of the next line in m_buffer
    qsizetype m_scan = 0; // where the search for its end goes on
    // The next "\n" and "\r" found at or after the scan, the buffer's size if none is
    // buffered, -1 if not searched yet: each character is looked at once per kind.
    qsizetype m_nextLineFeed = -1;
    qsizetype m_nextReturn = -1;
    bool m_skipLineFeed = false; // the last line ended with "\r": a "\n" next belongs to it
    bool m_atEnd = false;
    int m_lineNumber = 0;
    QString m_error;
};

#endif
