#include "store/dbmanager.h"

#include "card/datamanager.h"
#include "platform/platformpaths.h"
#include "store/dbrecord.h"
#include "store/mrlpim.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace
{
constexpr qint64 copyBlockSize = 16384;
// Bounds the search for a free name for a duplicate.
constexpr int maxDuplicates = 10000;

DBRecord *entry(PIMRecord *record)
{
    return static_cast<DBRecord *>(record);
}
} // namespace

DBManager::DBManager(bool extended)
    : PIMManager(MRLPIM::applicationName(), listFileName(extended), false, !extended)
    , m_extended(extended)
{
}

DBManager::~DBManager()
{
    save();
}

QString DBManager::listFileName(bool extended)
{
    return MRLPIM::applicationName()
        + (extended ? QStringLiteral("IDX_EXT") : QStringLiteral("IDX"));
}

PIMRecord *DBManager::createRecord()
{
    return new DBRecord(this);
}

// ---- Entries and their cards ------------------------------------------------------------

void DBManager::refresh(DBRecord *record)
{
    if (m_extended)
        return;
    record->setTitle(titleOf(record->path()));
    DataManager card(record->path(), false, true);
    const bool available = readCardHeader(card);
    record->setAvailable(available);
    if (!available)
        return;
    if (!card.icon().isEmpty())
        record->setIcon(card.icon());
    record->setDescription(card.description());
    record->setPassword(card.password());
}

void DBManager::refreshAll()
{
    for (PIMRecord *record : records())
        refresh(entry(record));
}

DBRecord *DBManager::findByTitle(const QString &title) const
{
    for (PIMRecord *record : records()) {
        if (entry(record)->title() == title)
            return entry(record);
    }
    return nullptr;
}

DBRecord *DBManager::findByPath(const QString &path) const
{
    for (PIMRecord *record : records()) {
        if (entry(record)->path() == path)
            return entry(record);
    }
    return nullptr;
}

bool DBManager::isAvailable(const DBRecord *record) const
{
    return m_extended || record->available();
}

void DBManager::setAvailable(DBRecord *record, bool available)
{
    record->setAvailable(available);
}

QString DBManager::iconDir(bool highResolution)
{
    const QString app = QLatin1Char('/') + MRLPIM::applicationName() + QLatin1Char('/');
    const QString base = PlatformPaths::shareDir();
    const QString high = base + QStringLiteral("/pics144") + app + iconPrefix();
    // A picture set without a high-resolution copy still has its icons to offer.
    if (highResolution && QFileInfo(high).isDir())
        return high;
    return base + QStringLiteral("/pics") + app + iconPrefix();
}

bool DBManager::copyFile(const QString &source, const QString &target, bool remove)
{
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly))
        return false;
    QFile out(target);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    bool written = true;
    QByteArray block;
    do {
        block = in.read(copyBlockSize);
        written = out.write(block) == block.size();
    } while (written && block.size() == copyBlockSize);
    written = out.flush() && written;
    out.close();
    in.close();
    if (!written || QFileInfo(source).size() != QFileInfo(target).size()) {
        QFile::remove(target);
        return false;
    }
    if (remove)
        QFile::remove(source);
    return true;
}

// ---- Flows ------------------------------------------------------------------------------

bool DBManager::createCard(DBRecord *record)
{
    add(record);
    if (record->available()) {
        save();
        return true;
    }
    removeCard(record, false);
    return false;
}

DBRecord *DBManager::addCard(const QString &path)
{
    if (findByPath(path))
        return nullptr;
    auto *record = new DBRecord(this);
    record->setPath(path);
    refresh(record);
    add(record);
    save();
    return record;
}

bool DBManager::removeCard(DBRecord *record, bool deleteFile)
{
    record->setDeleteFile(deleteFile);
    remove(record);
    return save();
}

QString DBManager::duplicatePath(const DBRecord *record) const
{
    const QString stem = record->folder() + QLatin1Char('/') + record->title() + QLatin1Char('_')
        + tr("Copy") + QLatin1Char('_');
    for (int n = 1; n <= maxDuplicates; ++n) {
        const QString path = stem + QString::number(n) + QStringLiteral(".card");
        if (!QFileInfo::exists(path))
            return path;
    }
    return QString();
}

DBRecord *DBManager::duplicateCard(const DBRecord *record)
{
    const QString path = duplicatePath(record);
    if (path.isEmpty() || !copyFile(record->path(), path, false))
        return nullptr;
    auto *copy = new DBRecord(*record);
    copy->newUid();
    copy->setCreated(QDateTime::currentDateTime());
    copy->setUpdated(QDateTime::currentDateTime());
    copy->setPath(path);
    refresh(copy);
    add(copy);
    save();
    renewRecordIdentities(path);
    return copy;
}

// No two cards may share a record's identity: alarms and transfers find records by it.
void DBManager::renewRecordIdentities(const QString &path)
{
    DataManager card(path);
    if (!card.load())
        return;
    for (PIMRecord *record : card.records())
        record->newUid();
    card.setLastCurrent(QString());
    card.forceSave();
}

// ---- The text store ---------------------------------------------------------------------

void DBManager::readHeader(const QStringList &tokens)
{
    if (!m_extended && tokens.first() == QLatin1String("I")) {
        QStringList rest = tokens;
        m_paths.append(MRLPIM::unescape(rest));
        return;
    }
    PIMManager::readHeader(tokens);
}

void DBManager::writeHeader(QTextStream &stream) const
{
    PIMManager::writeHeader(stream);
    for (const QString &path : m_paths)
        stream << "I=" << MRLPIM::escape(path) << '\n';
}

void DBManager::resetHeader()
{
    PIMManager::resetHeader();
    m_paths.clear();
}

// The device list's entries are its paths; all else is read from the cards by refresh.
void DBManager::afterLoad()
{
    if (m_extended)
        return;
    QList<PIMRecord *> &list = mutableRecords();
    list.reserve(m_paths.size());
    for (const QString &path : std::as_const(m_paths)) {
        auto *record = new DBRecord(this);
        record->setPath(path);
        list.append(record);
    }
}

// ---- Keeping the card files in step -----------------------------------------------------

void DBManager::recordAdding(PIMRecord *record)
{
    recordUpdated(nullptr, record);
}

// Writes the entry's values into its card (creating the file of a new card) and moves the
// file when the edit changed its path. A card that cannot be written or moved keeps its
// old path and title.
void DBManager::recordUpdated(PIMRecord *oldRecord, PIMRecord *changedRecord)
{
    if (m_extended)
        return;
    const DBRecord *old = entry(oldRecord);
    DBRecord *record = entry(changedRecord);
    const bool isNew = !contains(record);
    if (isNew)
        m_paths.append(record->path());
    const QString oldPath = old ? old->path() : record->path();

    record->setAvailable(writeCardHeader(record, oldPath, isNew));
    if (!record->available()) {
        if (old)
            restorePath(record, oldPath);
        haveChange();
        return;
    }
    if (!old || QDir::cleanPath(oldPath) == QDir::cleanPath(record->path()))
        return;
    if (moveCard(oldPath, record->path())) {
        m_paths.removeAll(oldPath);
        m_paths.append(record->path());
        return;
    }
    restorePath(record, oldPath);
    haveChange();
}

// Only a card that reads, or the first file of a new card, is written: a file that exists
// but does not read as a card is never replaced by an empty one.
bool DBManager::writeCardHeader(const DBRecord *record, const QString &path, bool isNew) const
{
    DataManager card(path, false, true);
    const bool readable = readCardHeader(card);
    if (!readable && !(isNew && !QFileInfo::exists(path)))
        return false;
    card.setIcon(record->icon());
    card.setDescription(record->description());
    card.setPassword(record->password());
    return card.save();
}

// A header that does not read means the file is no card this program can open.
bool DBManager::readCardHeader(DataManager &card)
{
    return card.load() && !card.loadedDamaged();
}

// Never over another card: an edit may keep the title and change only the folder.
bool DBManager::moveCard(const QString &from, const QString &to)
{
    return !QFileInfo::exists(to) && copyFile(from, to, true);
}

void DBManager::restorePath(DBRecord *record, const QString &path)
{
    record->setPath(path);
    record->setTitle(titleOf(path));
}

// The file name up to ".card": a title may hold dots of its own.
QString DBManager::titleOf(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

void DBManager::recordRemoving(PIMRecord *record)
{
    if (m_extended)
        return;
    const DBRecord *card = entry(record);
    m_paths.removeAll(card->path());
    if (card->deleteFile())
        QFile::remove(card->path());
}

// ---- Sorting by the list's columns ------------------------------------------------------

QString DBManager::sortKey(const DBRecord *record) const
{
    switch (sortColumn()) {
    case 0:
        return record->icon();
    case 1:
        return record->title();
    case 2:
        return record->description().isEmpty() ? QStringLiteral("0") : QStringLiteral("1");
    case 3:
        return record->password().isEmpty() ? QStringLiteral("0") : QStringLiteral("1");
    case 4:
        return record->folder();
    default:
        return QString();
    }
}

void DBManager::prepareSort()
{
    for (PIMRecord *record : view())
        makeSortKeys(record);
}

void DBManager::makeSortKeys(PIMRecord *record)
{
    record->setSortKeys(QStringList { sortKey(entry(record)) });
}

bool DBManager::sortKeysChanged(PIMRecord *oldRecord, PIMRecord *changedRecord)
{
    const DBRecord *old = entry(oldRecord);
    const DBRecord *record = entry(changedRecord);
    if (!old)
        return false;
    switch (sortColumn()) {
    case 0:
        return old->icon() != record->icon();
    case 1:
        return old->title() != record->title();
    case 2:
        return old->description().isEmpty() != record->description().isEmpty();
    case 3:
        return old->password().isEmpty() != record->password().isEmpty();
    case 4:
        return old->folder() != record->folder();
    default:
        return false;
    }
}
