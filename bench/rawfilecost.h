#ifndef RAWFILECOST_H
#define RAWFILECOST_H

#include <QByteArray>
#include <QString>

// The floor under loading and saving a card: reading its bytes into memory, and writing
// them to a new file made durable as a save makes it (flush, fsync, rename).
class RawFileCost
{
public:
    explicit RawFileCost(const QString &path);

    void read() const;
    void write(const QString &target) const;
    qint64 size() const { return m_bytes.size(); }

private:
    QString m_path;
    QByteArray m_bytes;
};

#endif
