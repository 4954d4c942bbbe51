#ifndef DBMANAGER_H
#define DBMANAGER_H

#include "store/pimmanager.h"

#include <QString>
#include <QStringList>

class DataManager;
class DBRecord;

// The list of cards, in one of two modes. The device list ("norvikaIDX") keeps only one
// path per card in its header and reads everything else out of the card files at run time,
// so a card on a removed memory card simply shows as unavailable. The extended list
// ("norvikaIDX_EXT") keeps whole entries and is never checked against the file system; it is
// the catalogue that PC Link publishes. The device list also owns the life of card files:
// making, moving, duplicating and deleting them.
class DBManager : public PIMManager
{
    Q_OBJECT

public:
    explicit DBManager(bool extended);
    // Saves while the "I=" lines can still be written.
    ~DBManager() override;

    static QString listFileName(bool extended);

    bool isExtended() const { return m_extended; }
    // The card files of the device list, in file order.
    const QStringList &paths() const { return m_paths; }

    PIMRecord *createRecord() override;

    // Reads title, icon, description and password of an entry from its card's header and
    // notes whether the card could be read. Does nothing in the extended list.
    void refresh(DBRecord *record);
    void refreshAll();

    DBRecord *findByTitle(const QString &title) const;
    DBRecord *findByPath(const QString &path) const;

    bool isAvailable(const DBRecord *record) const;
    void setAvailable(DBRecord *record, bool available);

    // Where the card icons are: their names are iconPrefix() plus the icon name for the
    // picture lookup, and iconDir() is the folder that holds them, for listing.
    static QString iconPrefix() { return QStringLiteral("icons/"); }
    static QString iconDir(bool highResolution);

    // Copies in blocks and compares the sizes; on success removes the source if asked, on
    // failure removes the partial target.
    static bool copyFile(const QString &source, const QString &target, bool remove);

    // The parts of the card flows that need no dialog. Each saves the list.

    // Adds a new entry, which writes its card file. False when the file could not be made:
    // the entry is then removed from the list again, and deleted.
    bool createCard(DBRecord *record);
    // Puts an existing card file into the list; null when the path is listed already.
    DBRecord *addCard(const QString &path);
    // Takes the entry out of the list, with its file when deleteFile is set.
    bool removeCard(DBRecord *record, bool deleteFile);
    // A copy of the card under the first free name "<title>_Copy_<n>.card" beside it, whose
    // records all have new identities. Null when the copy failed.
    DBRecord *duplicateCard(const DBRecord *record);
    // The name duplicateCard would take, or empty when no free one was found.
    QString duplicatePath(const DBRecord *record) const;

protected:
    void readHeader(const QStringList &tokens) override;
    void writeHeader(QTextStream &stream) const override;
    using PIMManager::readHeader;
    using PIMManager::writeHeader;
    void resetHeader() override;
    void recordAdding(PIMRecord *record) override;
    void recordUpdated(PIMRecord *old, PIMRecord *record) override;
    void recordRemoving(PIMRecord *record) override;
    void afterLoad() override;
    void prepareSort() override;
    void makeSortKeys(PIMRecord *record) override;
    bool sortKeysChanged(PIMRecord *old, PIMRecord *record) override;

private:
    static bool readCardHeader(DataManager &card);
    bool writeCardHeader(const DBRecord *record, const QString &path, bool isNew) const;
    static bool moveCard(const QString &from, const QString &to);
    static void restorePath(DBRecord *record, const QString &path);
    static QString titleOf(const QString &path);
    QString sortKey(const DBRecord *record) const;
    static void renewRecordIdentities(const QString &path);

    bool m_extended;
    QStringList m_paths; // the "I=" lines of the device list
};

#endif
