#include "exchange/palmdatabase.h"

#include <QDataStream>
#include <QIODevice>

#include <cstring>

bool PalmDatabase::read(QIODevice *device, bool headerOnly)
{
    m_device = device;
    m_records.clear();
    m_errorString.clear();
    m_valid = false;
    if (!device || !device->isOpen() || device->isSequential())
        return fail(tr("The file is not open for reading."));
    m_fileSize = device->size();
    if (!readHeader())
        return false;
    if (!headerOnly && !readRecordList())
        return false;
    m_valid = true;
    return true;
}

bool PalmDatabase::isType(const char *type, const char *creator) const
{
    return m_header.type.size() == 4 && m_header.creator.size() == 4
        && std::memcmp(m_header.type.constData(), type, 4) == 0
        && std::memcmp(m_header.creator.constData(), creator, 4) == 0;
}

bool PalmDatabase::readRecord(int index, QByteArray *bytes) const
{
    bytes->clear();
    if (index < 0 || index >= m_records.size())
        return false;
    const Record &record = m_records.at(index);
    return record.size >= 0 && readAt(record.offset, record.size, bytes);
}

bool PalmDatabase::fail(const QString &message)
{
    m_errorString = message;
    m_valid = false;
    return false;
}

bool PalmDatabase::readAt(qint64 offset, qint64 length, QByteArray *bytes) const
{
    bytes->clear();
    if (offset < 0 || length < 0 || offset > m_fileSize || length > m_fileSize - offset)
        return false;
    if (!m_device->seek(offset))
        return false;
    *bytes = m_device->read(length);
    return bytes->size() == length;
}

bool PalmDatabase::readHeader()
{
    QByteArray bytes;
    if (!readAt(0, headerSize, &bytes))
        return fail(tr("The file is shorter than a Palm database header."));
    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::BigEndian);
    const QByteArray name = bytes.left(32);
    m_header.name = name.left(name.indexOf('\0') < 0 ? 32 : name.indexOf('\0'));
    stream.skipRawData(32);
    stream >> m_header.attributes >> m_header.version >> m_header.creationDate
        >> m_header.modificationDate >> m_header.backupDate >> m_header.modificationNumber
        >> m_header.appInfoOffset >> m_header.sortInfoOffset;
    m_header.type = bytes.mid(60, 4);
    m_header.creator = bytes.mid(64, 4);
    stream.skipRawData(8);
    stream >> m_header.uniqueIdSeed >> m_header.nextRecordList >> m_header.numRecords;
    return true;
}

// Offsets must rise and start behind the list: a span that runs back into the list or into
// another record means a damaged file. An offset past the end is kept; only that record
// then fails to read.
bool PalmDatabase::readRecordList()
{
    const qint64 listEnd = headerSize + qint64(m_header.numRecords) * listEntrySize;
    QByteArray bytes;
    if (!readAt(headerSize, listEnd - headerSize, &bytes))
        return fail(tr("The record list runs past the end of the file."));
    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::BigEndian);
    m_records.reserve(m_header.numRecords);
    for (int i = 0; i < m_header.numRecords; ++i) {
        quint32 offset = 0;
        quint8 attributes = 0;
        quint8 id[3] = {};
        stream >> offset >> attributes >> id[0] >> id[1] >> id[2];
        Record record;
        record.offset = offset;
        record.attributes = attributes;
        record.uniqueId = (quint32(id[0]) << 16) | (quint32(id[1]) << 8) | id[2];
        if (record.offset < listEnd)
            return fail(tr("Record %1 starts inside the header or the record list.").arg(i));
        if (!m_records.isEmpty() && record.offset < m_records.last().offset)
            return fail(tr("Record %1 overlaps the record before it.").arg(i));
        m_records.append(record);
    }
    for (int i = 0; i < m_records.size(); ++i) {
        const qint64 end = i + 1 < m_records.size() ? m_records.at(i + 1).offset : m_fileSize;
        m_records[i].size = end - m_records.at(i).offset;
    }
    return true;
}
