#ifndef PALMDATABASE_H
#define PALMDATABASE_H

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

class QIODevice;

// Reader of the Palm database (PDB) layout that MobileDB and JFile files share: the
// 78-byte header and the record list, all big-endian. It reads only, from a device that
// must stay open for as long as records are read.
class PalmDatabase
{
    Q_DECLARE_TR_FUNCTIONS(PalmDatabase)

public:
    static constexpr int headerSize = 78;
    static constexpr int listEntrySize = 8;

    struct Header {
        QByteArray name; // up to 32 bytes, without the NUL padding
        quint16 attributes = 0;
        quint16 version = 0;
        quint32 creationDate = 0;
        quint32 modificationDate = 0;
        quint32 backupDate = 0;
        quint32 modificationNumber = 0;
        quint32 appInfoOffset = 0;
        quint32 sortInfoOffset = 0;
        QByteArray type; // four bytes
        QByteArray creator; // four bytes
        quint32 uniqueIdSeed = 0;
        quint32 nextRecordList = 0;
        quint16 numRecords = 0;
    };

    struct Record {
        qint64 offset = 0;
        // The next record's offset, or the file's end, minus this one: negative for a
        // record that starts past the end of the file.
        qint64 size = 0;
        quint32 uniqueId = 0;
        quint8 attributes = 0;
        int category() const { return attributes & 0x07; }
    };

    PalmDatabase() = default;
    virtual ~PalmDatabase() = default;

    // Reads the header and, unless headerOnly, the record list.
    bool read(QIODevice *device, bool headerOnly = false);
    bool isValid() const { return m_valid; }
    QString errorString() const { return m_errorString; }

    const Header &header() const { return m_header; }
    const QList<Record> &records() const { return m_records; }
    qint64 fileSize() const { return m_fileSize; }
    QByteArray databaseName() const { return m_header.name; }
    // Byte for byte: case counts.
    bool isType(const char *type, const char *creator) const;

    // The data rows of the database, as each format lays them out in its records; the
    // layout alone knows none.
    virtual int rowCount() const { return 0; }
    virtual QByteArrayList row(int) const { return {}; }

    // The whole record at index; false when it lies outside the file.
    bool readRecord(int index, QByteArray *bytes) const;

protected:
    bool fail(const QString &message);
    // Reads exactly length bytes at offset, after checking that they lie inside the file.
    bool readAt(qint64 offset, qint64 length, QByteArray *bytes) const;
    void setValid(bool valid) { m_valid = valid; }

private:
    bool readHeader();
    bool readRecordList();

    QIODevice *m_device = nullptr;
    qint64 m_fileSize = 0;
    Header m_header;
    QList<Record> m_records;
    bool m_valid = false;
    QString m_errorString;
};

#endif
