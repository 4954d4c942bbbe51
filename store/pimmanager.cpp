#include "store/pimmanager.h"

#include "platform/global.h"
#include "store/bigendianwriter.h"
#include "store/binaryformat.h"
#include "store/filewindow.h"
#include "store/mrlpim.h"
#include "store/pimrecord.h"
#include "store/recordsorter.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <future>
#include <memory>
#include <unistd.h>

namespace
{
// The smallest record of the binary form: uid, two date-times, a property count and a
// category count.
constexpr qint64 minBinaryRecordBytes = 16 + 8 + 8 + 4 + 4;
// The smallest block of the text form: "END" and its line feed.
constexpr qint64 minTextRecordBytes = 4;
// A property of the binary header: key and value, each at least its 4-byte length.
constexpr qint64 minPropertyBytes = 8;
constexpr qint64 copyBlockSize = 16384;
constexpr qint64 recordChunkSize = 1 << 20;
// Bounds the search for a free name for the copy of a damaged file.
constexpr int maxDamagedCopies = 1000;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool posixRename(const QString &from, const QString &to)
{
    return ::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

// Makes a completed rename durable: without it a power cut can bring the old name back.
void syncFolder(const QString &path)
{
    const int fd = ::open(
        QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

// One line of a text file without its line end, as a text stream would read it.
QString textLine(QIODevice &device)
{
    QByteArray line = device.readLine();
    if (line.endsWith('\n'))
        line.chop(1);
    if (line.endsWith('\r'))
        line.chop(1);
    return QString::fromUtf8(line);
}

// Hands each line of a text header to take, as tokens, and leaves the device where the records
// begin. False when a header was begun but not closed by its "END".
template <typename Take> bool scanTextHeader(QIODevice &device, Take take)
{
    if (device.atEnd())
        return true;
    if (textLine(device) != QLatin1String("FOLDER")) {
        // No header: the whole file is record blocks.
        device.seek(0);
        return true;
    }
    while (!device.atEnd()) {
        const QString line = textLine(device);
        if (line == QLatin1String("END"))
            return true;
        // Unlike a record line, empty tokens are dropped here; old files rely on that.
        const QStringList tokens = line.split(QLatin1Char('='), Qt::SkipEmptyParts);
        if (!tokens.isEmpty())
            take(tokens);
    }
    return false;
}

} // namespace

PIMManager::PIMManager(const QString &folder, const QString &fileName, bool templates,
    bool headerOnly, PIMManager *relatedManager)
    : m_fileName(fileName)
    , m_folder(templates ? folder + QStringLiteral("templates") : folder)
    , m_templates(templates)
    , m_headerOnly(headerOnly)
    , m_relatedManager(relatedManager)
{
    // Lets queued connections and signal spies carry records.
    qRegisterMetaType<PIMRecord *>();
}

PIMManager::~PIMManager()
{
    save();
    clearRecords();
}

QString PIMManager::fullPath() const
{
    if (QDir::isRelativePath(m_fileName))
        return Global::applicationFileName(m_folder, m_fileName);
    return m_fileName;
}

// ---- Loading ----------------------------------------------------------------------------

bool PIMManager::load()
{
    clearRecords();
    resetHeader();
    m_damaged = false;
    m_damagedKept = false;
    m_dataStart = 0;
    m_errorString.clear();

    const QString path = fullPath();
    const QString pending = path + QStringLiteral(".new");
    // A save that was cut off between writing and renaming left the card only here. Beside
    // the card, a ".new" is a save cut off while writing: the card is the whole old one,
    // and the remains would only sit there until the next save.
    if (QFile::exists(pending)) {
        if (QFile::exists(path))
            QFile::remove(pending);
        else if (posixRename(pending, path))
            syncFolder(path);
    }

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_errorString = tr("Cannot open \"%1\": %2").arg(path, file.errorString());
        return false;
    }
    // A whole load reads through a window of the file, which answers the parser's many
    // questions of size and end without asking the system. A header is read from the file.
    QIODevice *source = &file;
    FileWindow window(file);
    if (!m_headerOnly) {
        window.open(QIODevice::ReadOnly);
        source = &window;
    }
    if (m_format == BinaryFormat)
        readBinary(*source);
    else
        readText(*source);
    file.close();
    if (m_damaged)
        m_errorString = tr("The file \"%1\" is damaged; the records that were whole have "
                           "been loaded.")
                            .arg(path);

    afterLoad();
    rebuildView();
    Q_EMIT updated();
    return true;
}

void PIMManager::clearRecords()
{
    m_view.clear();
    forgetSortedOrder();
    qDeleteAll(m_records);
    m_records.clear();
}

void PIMManager::readText(QIODevice &device)
{
    // The header is read as bytes, so that where the records begin is exact: a text
    // stream's position is not after bytes that are no UTF-8, and asking for it then
    // leaves the stream reading empty lines for ever.
    if (!readTextHeader(device))
        m_damaged = true;
    m_dataStart = device.pos();
    if (!m_headerOnly)
        readAllRecords(device);
}

// False when a header was begun but not closed by its "END".
bool PIMManager::readTextHeader(QIODevice &device)
{
    return scanTextHeader(device, [this](const QStringList &tokens) { readHeader(tokens); });
}

void PIMManager::readBinary(QIODevice &device)
{
    QDataStream stream(&device);
    ::BinaryFormat::prepare(stream);
    readHeader(stream);
    if (!::BinaryFormat::ok(stream) || m_total < -1) {
        // Where the records begin is unknown: a header-only save carries nothing over, and
        // the original stays in its ".damaged" copy.
        m_dataStart = device.size();
        m_damaged = true;
        return;
    }
    m_dataStart = device.pos();
    if (!m_headerOnly)
        readAllRecords(device);
}

void PIMManager::readAllRecords(QIODevice &device)
{
    const qint64 minBytes = m_format == BinaryFormat ? minBinaryRecordBytes : minTextRecordBytes;
    const qint64 expected = prepareRecords(device.size() - device.pos(), minBytes);
    readRecords(device, expected, [this](PIMRecord *record) { m_records.append(record); });
    // A file holding fewer records than its header states lost some of them.
    if (m_total >= 0 && m_records.size() < m_total)
        m_damaged = true;
}

// Reads records from where the device stands until expected were read or the file ends, and
// hands each over to take, which owns it from then. A record cut off marks the load damaged
// and ends it.
void PIMManager::readRecords(
    QIODevice &device, qint64 expected, const std::function<void(PIMRecord *)> &take)
{
    if (m_format == BinaryFormat) {
        QDataStream stream(&device);
        ::BinaryFormat::prepare(stream);
        for (qint64 count = 0; count < expected && !stream.atEnd(); ++count) {
            PIMRecord *record = createBlankRecord();
            record->read(stream);
            if (!::BinaryFormat::ok(stream)) {
                delete record;
                m_damaged = true;
                break;
            }
            take(record);
        }
        return;
    }
    QTextStream stream(&device);
    stream.setEncoding(QStringConverter::Utf8);
    for (qint64 count = 0; count < expected && !stream.atEnd(); ++count) {
        PIMRecord *record = createRecord();
        if (!record->read(stream)) {
            delete record;
            m_damaged = true;
            break;
        }
        take(record);
    }
}

bool PIMManager::visitPassingRecords(const std::function<void(const PIMRecord &)> &visit)
{
    QFile file(fullPath());
    FileWindow window(file);
    if (!file.open(QIODevice::ReadOnly) || !window.open(QIODevice::ReadOnly)
        || !window.seek(m_dataStart)) {
        m_errorString = tr("Cannot open \"%1\": %2").arg(fullPath(), file.errorString());
        return false;
    }
    beginAcceptPass();
    const qint64 expected = m_total < 0 ? std::numeric_limits<qint64>::max() : m_total;
    readRecords(window, expected, [this, &visit](PIMRecord *record) {
        const std::unique_ptr<PIMRecord> owned(record);
        if (accept(record))
            visit(*record);
    });
    endAcceptPass();
    return true;
}

// How many records to read: the header's total, or all there are when it states none. The
// vector is sized from the total only as far as the bytes left could hold, so a damaged
// count allocates nothing large.
qint64 PIMManager::prepareRecords(qint64 bytesLeft, qint64 minRecordBytes)
{
    if (m_total < 0)
        return std::numeric_limits<qint64>::max();
    m_records.reserve(qMin<qint64>(m_total, qMax<qint64>(0, bytesLeft) / minRecordBytes));
    return m_total;
}

void PIMManager::readHeader(const QStringList &tokens)
{
    const QString key = tokens.first();
    const QString value = tokens.value(1);
    if (key == QLatin1String("SYNCDATETIME")) {
        m_syncDateTime = MRLPIM::stringToDateTime(value);
    } else if (key == QLatin1String("SORT")) {
        m_sortColumn = value.toInt(nullptr, 10);
    } else if (key == QLatin1String("SORTORDER")) {
        m_sortAscending = value.toInt(nullptr, 10) != 0;
    } else if (key == QLatin1String("PERPAGE")) {
        m_perPage = value.toInt(nullptr, 10);
    } else if (key == QLatin1String("TOTAL")) {
        m_total = value.toInt(nullptr, 10);
    } else if (key == QLatin1String("LASTCURRENT")) {
        QStringList rest = tokens;
        m_lastCurrent = MRLPIM::unescape(rest);
    } else if (key == QLatin1String("PROP") && tokens.size() >= 2) {
        QStringList rest = tokens;
        const QString name = rest.takeAt(1);
        m_properties.insert(name, MRLPIM::unescape(rest));
    }
}

void PIMManager::readHeader(QDataStream &stream)
{
    qint32 number = 0;
    stream >> number;
    m_readFormatVersion = number;
    stream >> m_syncDateTime;
    stream >> number;
    m_sortColumn = number;
    qint8 ascending = 1;
    stream >> ascending;
    m_sortAscending = ascending != 0;
    stream >> number;
    m_perPage = number;
    stream >> m_lastCurrent;
    stream >> number;
    m_total = number;
    qint32 count = 0;
    stream >> count;
    if (!::BinaryFormat::ok(stream) || !::BinaryFormat::countFits(stream, count, minPropertyBytes))
        return;
    for (qint32 i = 0; i < count && ::BinaryFormat::ok(stream); ++i) {
        QString key;
        QString value;
        stream >> key >> value;
        if (::BinaryFormat::ok(stream))
            m_properties.insert(key, value);
    }
}

void PIMManager::resetHeader()
{
    m_syncDateTime = QDateTime();
    m_sortColumn = -1;
    m_sortAscending = true;
    m_lastCurrent = QString();
    m_perPage = 15;
    m_total = -1;
    m_formatVersion = 0;
    m_readFormatVersion = 0;
    m_properties.clear();
}

// ---- Saving -----------------------------------------------------------------------------

bool PIMManager::forceSave()
{
    m_changed = true;
    return save();
}

// Writes "<file>.new" completely and durably, then renames it over the file, so that at
// every moment one of the two holds the whole card.
bool PIMManager::save()
{
    if (!m_changed)
        return true;
    if (m_readOnly) {
        m_errorString = tr("\"%1\" is open for reading only").arg(fullPath());
        return false;
    }
    const QString path = fullPath();
    if (m_damaged && !m_damagedKept && !keepDamagedOriginal())
        return false;

    const QString pending = path + QStringLiteral(".new");
    if (!writePending(pending)) {
        QFile::remove(pending);
        return false;
    }
    if (!posixRename(pending, path)) {
        m_errorString = tr("Cannot replace \"%1\": %2").arg(path, systemError());
        QFile::remove(pending);
        return false;
    }
    syncFolder(path);

    m_changeCount = 0;
    m_changed = false;
    m_dataStart = m_newDataStart;
    m_errorString.clear();
    return true;
}

// Writes the whole file under the pending name and makes it durable; any failure on the way
// (full disk, size limit, I/O error) leaves a message and a false result.
bool PIMManager::writePending(const QString &pending)
{
    QFile file(pending);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        m_errorString = tr("Cannot write \"%1\": %2").arg(pending, file.errorString());
        return false;
    }
    errno = 0;
    bool ok = m_format == BinaryFormat ? writeBinary(file) : writeText(file);
    int error = errno;
    if (ok && !file.flush()) {
        ok = false;
        error = errno;
    }
    if (ok && ::fsync(file.handle()) != 0) {
        ok = false;
        error = errno;
    }
    file.close();
    if (ok && file.error() == QFileDevice::NoError)
        return true;
    const QString reason
        = error != 0 ? QString::fromLocal8Bit(std::strerror(error)) : file.errorString();
    m_errorString = tr("Cannot save \"%1\": %2. The file on disk was left as it was.")
                        .arg(fullPath(), reason);
    return false;
}

bool PIMManager::writeText(QIODevice &device)
{
    if (m_headerOnly)
        findTextRecordPart();
    QTextStream stream(&device);
    stream.setEncoding(QStringConverter::Utf8);
    stream << "FOLDER\n";
    writeHeader(stream);
    stream << "END\n";
    stream.flush();
    m_newDataStart = device.pos();
    if (m_headerOnly)
        return stream.status() == QTextStream::Ok && copyRecordPart(device);
    for (const PIMRecord *record : std::as_const(m_records))
        record->write(stream);
    stream.flush();
    return stream.status() == QTextStream::Ok;
}

// A text list is held for as long as the program runs, and another program may rewrite it
// meanwhile: the records to carry across, and their count, are those of the file as it is now,
// or the offset found at loading could cut into a longer header.
void PIMManager::findTextRecordPart()
{
    QFile old(fullPath());
    if (!old.open(QIODevice::ReadOnly))
        return;
    scanTextHeader(old, [this](const QStringList &tokens) {
        if (tokens.first() == QLatin1String("TOTAL"))
            m_total = tokens.value(1).toInt(nullptr, 10);
    });
    m_dataStart = old.pos();
}

bool PIMManager::writeBinary(QIODevice &device)
{
    QDataStream stream(&device);
    ::BinaryFormat::prepare(stream);
    writeHeader(stream);
    m_newDataStart = device.pos();
    if (m_headerOnly)
        return ::BinaryFormat::ok(stream) && copyRecordPart(device);
    return ::BinaryFormat::ok(stream) && writeRecordsBinary(device);
}

// Records are put together a megabyte at a time in one buffer while the one before goes to
// the device on a second thread: the copy into the file overlaps the encoding. Only one thread
// touches the device at a time, and a failed write's errno comes back to this one.
bool PIMManager::writeRecordsBinary(QIODevice &device) const
{
    BigEndianWriter buffers[2];
    int filling = 0;
    std::future<int> writing;
    const auto finishWriting = [&] {
        const int error = writing.valid() ? writing.get() : 0;
        if (error != 0)
            errno = error;
        return error == 0;
    };
    const auto handOver = [&] {
        const bool before = finishWriting();
        const BigEndianWriter &full = buffers[filling];
        writing = std::async(std::launch::async, [&device, &full] {
            errno = 0;
            const bool whole = device.write(full.data(), full.size()) == full.size();
            return whole ? 0 : (errno != 0 ? errno : EIO);
        });
        filling = 1 - filling;
        buffers[filling].clear();
        return before;
    };
    bool ok = true;
    for (const PIMRecord *record : std::as_const(m_records)) {
        record->encode(buffers[filling]);
        if (buffers[filling].size() >= recordChunkSize && !(ok = handOver()))
            break;
    }
    if (ok)
        ok = handOver();
    return finishWriting() && ok;
}

void PIMManager::writeHeader(QTextStream &stream) const
{
    if (m_syncDateTime.isValid())
        stream << "SYNCDATETIME=" << MRLPIM::dateTimeToString(m_syncDateTime) << '\n';
    stream << "SORT=" << m_sortColumn << '\n';
    stream << "SORTORDER=" << (m_sortAscending ? 1 : 0) << '\n';
    stream << "PERPAGE=" << m_perPage << '\n';
    for (auto it = m_properties.cbegin(); it != m_properties.cend(); ++it)
        stream << "PROP=" << it.key() << '=' << MRLPIM::escape(it.value()) << '\n';
    if (!m_lastCurrent.isEmpty())
        stream << "LASTCURRENT=" << MRLPIM::escape(m_lastCurrent) << '\n';
    stream << "TOTAL=" << storedTotal() << '\n';
}

void PIMManager::writeHeader(QDataStream &stream) const
{
    stream << qint32(m_formatVersion) << m_syncDateTime << qint32(m_sortColumn)
           << qint8(m_sortAscending ? 1 : 0) << qint32(m_perPage) << m_lastCurrent
           << qint32(storedTotal()) << qint32(m_properties.size());
    for (auto it = m_properties.cbegin(); it != m_properties.cend(); ++it)
        stream << it.key() << it.value();
}

int PIMManager::storedTotal() const
{
    return m_headerOnly ? m_total : int(m_records.size());
}

// The records of a header-only manager were never read: they are carried over from the
// old file as they stand.
bool PIMManager::copyRecordPart(QIODevice &device) const
{
    QFile old(fullPath());
    if (!old.open(QIODevice::ReadOnly))
        return true;
    if (!old.seek(m_dataStart))
        return true;
    QByteArray block;
    do {
        block = old.read(copyBlockSize);
        if (block.isEmpty())
            break;
        if (device.write(block) != block.size())
            return false;
    } while (block.size() == copyBlockSize);
    return old.error() == QFileDevice::NoError;
}

// Before the first save over a file that loaded damaged, its bytes are kept beside it so
// that what could not be read is not lost; an older copy is never overwritten.
bool PIMManager::keepDamagedOriginal()
{
    const QString path = fullPath();
    if (!QFile::exists(path)) {
        m_damagedKept = true;
        return true;
    }
    const QString base = path + QStringLiteral(".damaged");
    for (int n = 1; n <= maxDamagedCopies; ++n) {
        const QString copy = n == 1 ? base : base + QStringLiteral(".%1").arg(n);
        if (QFile::exists(copy))
            continue;
        if (!QFile::copy(path, copy))
            break;
        m_damagedKept = true;
        return true;
    }
    m_errorString = tr("Cannot keep a copy of the damaged file \"%1\"; it was not "
                       "overwritten.")
                        .arg(path);
    return false;
}

// ---- Change counting --------------------------------------------------------------------

void PIMManager::countChange()
{
    if (m_changeCount == -1)
        return;
    ++m_changeCount;
    m_changed = true;
    if (m_changeCount > 10) {
        // The save runs from the event loop, never inside the operation that counted.
        m_changeCount = -1;
        QCoreApplication::postEvent(this, new QEvent(QEvent::Type(AutoSaveEvent)));
    }
}

bool PIMManager::event(QEvent *event)
{
    if (event->type() == QEvent::Type(AutoSaveEvent)) {
        // After a failed save, counting starts again so that a later one is tried.
        if (!save())
            m_changeCount = 0;
        return true;
    }
    return QObject::event(event);
}

void PIMManager::reload()
{
    load();
}

void PIMManager::haveChange()
{
    m_changed = true;
}

// ---- Records ----------------------------------------------------------------------------

PIMRecord *PIMManager::createRecord()
{
    return new PIMRecord(this);
}

PIMRecord *PIMManager::createBlankRecord()
{
    return createRecord();
}

bool PIMManager::add(PIMRecord *record)
{
    record->setManager(this);
    recordAdding(record);
    forgetSortedOrder();
    m_records.append(record);
    if (accept(record))
        insertIntoView(record);
    countChange();
    Q_EMIT newTask(record);
    Q_EMIT changed();
    return true;
}

bool PIMManager::insertLoaded(PIMRecord *record)
{
    record->setManager(this);
    forgetSortedOrder();
    m_records.append(record);
    m_changed = true;
    return true;
}

bool PIMManager::update(PIMRecord *old, PIMRecord *record)
{
    record->setUpdated(QDateTime::currentDateTime());
    recordUpdated(old, record);
    forgetSortedOrder();
    const bool moved = m_sortColumn != -1 && sortKeysChanged(old, record);
    const bool accepted = accept(record);
    delete old;

    if (!m_view.contains(record)) {
        if (accepted)
            insertIntoView(record);
    } else if (!accepted) {
        m_view.removeAll(record);
    } else if (moved) {
        m_view.removeAll(record);
        insertIntoView(record);
    }
    countChange();
    Q_EMIT taskUpdated(record);
    Q_EMIT changed();
    return true;
}

bool PIMManager::remove(PIMRecord *record)
{
    recordRemoving(record);
    forgetSortedOrder();
    m_view.removeAll(record);
    Q_EMIT taskRemoved(record);
    const qsizetype index = m_records.indexOf(record);
    if (index >= 0) {
        m_records.removeAt(index);
        delete record;
    }
    countChange();
    Q_EMIT changed();
    if (index >= 0 && index < m_records.size())
        recordUpdated(nullptr, m_records.at(index));
    return true;
}

bool PIMManager::removeAll()
{
    clearRecords();
    m_changed = true;
    save();
    Q_EMIT updated();
    return true;
}

PIMRecord *PIMManager::findByUid(const uuid_t uid) const
{
    for (PIMRecord *record : m_records) {
        if (uuid_compare(record->uid(), uid) == 0)
            return record;
    }
    return nullptr;
}

PIMRecord *PIMManager::findByUid(const QString &uidText) const
{
    if (uidText.isEmpty())
        return nullptr;
    uuid_t uid;
    uuid_clear(uid);
    uuid_parse(uidText.toLatin1().constData(), uid);
    return findByUid(uid);
}

bool PIMManager::contains(const PIMRecord *record) const
{
    return m_records.contains(record);
}

PIMRecord *PIMManager::first() const
{
    return m_records.isEmpty() ? nullptr : m_records.first();
}

PIMRecord *PIMManager::last() const
{
    return m_records.isEmpty() ? nullptr : m_records.last();
}

void PIMManager::select(PIMRecord *record)
{
    Q_EMIT taskSelected(contains(record) ? record : nullptr);
}

// ---- Header items -----------------------------------------------------------------------

void PIMManager::setSyncDateTime(const QDateTime &when)
{
    m_syncDateTime = when;
    m_changed = true;
}

void PIMManager::setPerPage(int perPage)
{
    if (perPage == m_perPage)
        return;
    m_perPage = perPage;
    m_changed = true;
}

void PIMManager::setLastCurrent(const QString &uidText)
{
    if (uidText == m_lastCurrent)
        return;
    m_lastCurrent = uidText;
    m_changed = true;
}

void PIMManager::setProperty(const QString &key, const QString &value)
{
    m_properties.insert(key, value);
    m_changed = true;
}

QString PIMManager::property(const QString &key) const
{
    return m_properties.value(key);
}

bool PIMManager::hasProperty(const QString &key) const
{
    return m_properties.contains(key);
}

void PIMManager::removeProperty(const QString &key)
{
    m_properties.remove(key);
    m_changed = true;
}

// ---- Sorting and the view ---------------------------------------------------------------

namespace
{
// How many records ahead a pass over all records asks the memory for.
constexpr qsizetype prefetchDistance = 8;
} // namespace

void PIMManager::setSortingEnabled(bool enabled)
{
    m_sortingEnabled = enabled;
    if (enabled || (m_sortColumn == -1 && m_sortAscending))
        return;
    m_sortColumn = -1;
    m_sortAscending = true;
    resortAfterChange();
}

void PIMManager::sort(int column)
{
    if (!m_sortingEnabled)
        return;
    if (column == m_sortColumn) {
        m_sortAscending = !m_sortAscending;
    } else {
        m_sortColumn = column;
        m_sortAscending = true;
    }
    resortAfterChange();
}

void PIMManager::setSortOrder(bool ascending)
{
    if (!m_sortingEnabled || ascending == m_sortAscending)
        return;
    m_sortAscending = ascending;
    resortAfterChange();
}

void PIMManager::setSort(int column, bool ascending)
{
    if (!m_sortingEnabled || (column == m_sortColumn && ascending == m_sortAscending))
        return;
    m_sortColumn = column;
    m_sortAscending = ascending;
    resortAfterChange();
}

void PIMManager::resortAfterChange()
{
    forgetSortedOrder();
    m_changed = true;
    rebuildView();
    Q_EMIT updated();
}

void PIMManager::rebuildView()
{
    forgetSortedOrder();
    refilterView();
}

void PIMManager::refilterView()
{
    if (m_sortColumn == -1) {
        m_view.clear();
        fillView();
        return;
    }
    fillViewSorted();
}

void PIMManager::fillView()
{
    beginAcceptPass();
    if (m_sortAscending) {
        const qsizetype n = m_records.size();
        for (qsizetype i = 0; i < n; ++i) {
            if (i + prefetchDistance < n)
                __builtin_prefetch(m_records.at(i + prefetchDistance));
            if (accept(m_records.at(i)))
                m_view.append(m_records.at(i));
        }
    } else {
        for (auto it = m_records.crbegin(); it != m_records.crend(); ++it) {
            if (accept(*it))
                m_view.append(*it);
        }
    }
    endAcceptPass();
}

// The records are tested in the order they lie in memory, then picked in the sorted order.
// The sort is stable (and stable in reverse for a descending order), so this gives the
// order that sorting the passing records alone would give.
void PIMManager::fillViewSorted()
{
    if (m_sortedOrder.empty())
        makeSortedOrder();
    std::vector<char> passed(m_records.size());
    beginAcceptPass();
    const qsizetype n = m_records.size();
    for (qsizetype i = 0; i < n; ++i) {
        // Records lie apart in memory: asking for one a few steps ahead hides the wait.
        if (i + prefetchDistance < n)
            __builtin_prefetch(m_records.at(i + prefetchDistance));
        passed[i] = accept(m_records.at(i));
    }
    endAcceptPass();
    m_view.clear();
    for (const quint32 i : m_sortedOrder) {
        if (passed[i])
            m_view.append(m_records.at(i));
    }
}

// Sorting all records from the same starting order each time keeps records with equal keys
// in one order, whichever filter is on.
void PIMManager::makeSortedOrder()
{
    m_view = m_records;
    if (!m_sortAscending)
        std::reverse(m_view.begin(), m_view.end());
    prepareSort();
    m_sortedOrder = RecordSorter::order(m_view);
    if (!m_sortAscending) {
        const quint32 last = quint32(m_records.size() - 1);
        for (quint32 &position : m_sortedOrder)
            position = last - position;
    }
}

void PIMManager::insertIntoView(PIMRecord *record)
{
    if (m_sortColumn == -1) {
        if (m_sortAscending)
            m_view.append(record);
        else
            m_view.prepend(record);
        return;
    }
    // Positions are sought with lessThan meaning "lower", whatever the real order.
    const bool ascending = m_sortAscending;
    m_sortAscending = true;
    makeSortKeys(record);
    m_view.insert(ascending ? ascendingPosition(record) : descendingPosition(record), record);
    m_sortAscending = ascending;
}

qsizetype PIMManager::ascendingPosition(const PIMRecord *record) const
{
    for (qsizetype i = 0; i < m_view.size(); ++i) {
        if (record->lessThan(*m_view.at(i)))
            return i;
    }
    return m_view.size();
}

qsizetype PIMManager::descendingPosition(const PIMRecord *record) const
{
    for (qsizetype i = m_view.size() - 1; i >= 0; --i) {
        if (record->lessThan(*m_view.at(i)))
            return i + 1;
    }
    return 0;
}

// ---- Hooks for subclasses ---------------------------------------------------------------

bool PIMManager::accept(PIMRecord *)
{
    return true;
}

void PIMManager::beginAcceptPass()
{
}

void PIMManager::endAcceptPass()
{
}

void PIMManager::recordAdding(PIMRecord *)
{
}

void PIMManager::recordUpdated(PIMRecord *, PIMRecord *)
{
}

void PIMManager::recordRemoving(PIMRecord *)
{
}

void PIMManager::afterLoad()
{
}

void PIMManager::prepareSort()
{
}

void PIMManager::makeSortKeys(PIMRecord *)
{
}

bool PIMManager::sortKeysChanged(PIMRecord *, PIMRecord *)
{
    return false;
}
