#ifndef FILEWINDOW_H
#define FILEWINDOW_H

#include <QByteArray>
#include <QIODevice>

class QFile;

// Reads an open file through a window of a megabyte. A parser that asks for the size and the
// end before every value would make a QFile ask the system each time; reading the whole file
// into memory first avoids that but holds all of it beside what is made from it.
class FileWindow : public QIODevice
{
public:
    static constexpr qint64 windowBytes = 1 << 20;

    // file stays the caller's and must stay open while this reads it.
    explicit FileWindow(QFile &file);

    // Opens for reading from the start of the file; only ReadOnly is accepted.
    bool open(OpenMode mode) override;
    qint64 size() const override { return m_size; }
    bool seek(qint64 position) override;

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

private:
    bool fillWindow();

    QFile &m_file;
    qint64 m_size = 0;
    QByteArray m_window;
    qint64 m_windowStart = 0;
    qint64 m_position = 0;
};

#endif
