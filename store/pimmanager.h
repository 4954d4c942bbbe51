#ifndef PIMMANAGER_H
#define PIMMANAGER_H

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

#include <uuid/uuid.h>

#include <functional>
#include <vector>

class PIMRecord;
class QDataStream;
class QIODevice;
class QTextStream;

// The base of every collection of records: one file in text or binary form, the records
// of that file (owned), a filtered and sorted view on them, a header of common settings,
// change counting with an automatic save, and the virtual hooks subclasses plug into.
class PIMManager : public QObject
{
    Q_OBJECT

public:
    enum Format { TextFormat = 0, BinaryFormat = 1 };
    enum { AutoSaveEvent = 1001 };

    PIMManager(const QString &folder, const QString &fileName, bool templates = false,
               bool headerOnly = false, PIMManager *relatedManager = nullptr);
    // Saves first. By then a subclass's overrides are gone, so a subclass that adds to the
    // file (header items, its own record class) must call save() in its own destructor.
    ~PIMManager() override;

    QString fullPath() const;
    QString fileName() const { return m_fileName; }
    QString folder() const { return m_folder; }
    bool isTemplates() const { return m_templates; }
    bool isHeaderOnly() const { return m_headerOnly; }
    int format() const { return m_format; }

    // Files
    virtual bool load();
    bool save();
    bool forceSave();
    bool isChanged() const { return m_changed; }
    // A card opened only to be looked at: changes stay in memory and saving writes nothing.
    void setReadOnly(bool readOnly) { m_readOnly = readOnly; }
    bool isReadOnly() const { return m_readOnly; }
    // For a manager made header-only and loaded: reads the records of its file one at a time
    // and hands each that passes the current filter to visit, keeping none, so that memory
    // stays that of one record whatever the size of the file. The order is the file's.
    // False when the file cannot be read.
    bool visitPassingRecords(const std::function<void(const PIMRecord &)> &visit);
    // The last load found a damaged or truncated file and kept what was whole.
    bool loadedDamaged() const { return m_damaged; }
    // Why the last load or save failed, for the user.
    QString errorString() const { return m_errorString; }

    // Records
    virtual PIMRecord *createRecord();
    // A record to be filled from the binary form; managers whose records are cheap to make
    // blank say so here, the others get createRecord().
    virtual PIMRecord *createBlankRecord();
    bool add(PIMRecord *record);
    bool insertLoaded(PIMRecord *record);
    bool update(PIMRecord *old, PIMRecord *record);
    bool remove(PIMRecord *record);
    bool removeAll();
    PIMRecord *findByUid(const uuid_t uid) const;
    PIMRecord *findByUid(const QString &uidText) const;
    bool contains(const PIMRecord *record) const;
    PIMRecord *first() const;
    PIMRecord *last() const;
    int count() const { return int(m_records.size()); }
    const QList<PIMRecord *> &records() const { return m_records; }
    const QList<PIMRecord *> &view() const { return m_view; }
    void select(PIMRecord *record);

    // Header items
    QDateTime syncDateTime() const { return m_syncDateTime; }
    void setSyncDateTime(const QDateTime &when);
    int perPage() const { return m_perPage; }
    void setPerPage(int perPage);
    QString lastCurrent() const { return m_lastCurrent; }
    void setLastCurrent(const QString &uidText);
    int total() const { return m_total; }
    int formatVersion() const { return m_formatVersion; }
    int readFormatVersion() const { return m_readFormatVersion; }
    void setProperty(const QString &key, const QString &value);
    QString property(const QString &key) const;
    bool hasProperty(const QString &key) const;
    void removeProperty(const QString &key);
    const QMap<QString, QString> &properties() const { return m_properties; }
    PIMManager *relatedManager() const { return m_relatedManager; }
    void setRelatedManager(PIMManager *manager) { m_relatedManager = manager; }

    // Sorting
    void setSortingEnabled(bool enabled);
    bool isSortingEnabled() const { return m_sortingEnabled; }
    void sort(int column);
    void setSortOrder(bool ascending);
    void setSort(int column, bool ascending);
    int sortColumn() const { return m_sortColumn; }
    bool sortOrder() const { return m_sortAscending; }
    // Sorts and filters every record anew, for records changed in place.
    void rebuildView();

    // Counts one change towards the automatic save (posted at the eleventh).
    void countChange();

public Q_SLOTS:
    void reload();
    void haveChange();

Q_SIGNALS:
    void newTask(PIMRecord *record);
    void taskUpdated(PIMRecord *record);
    void taskRemoved(PIMRecord *record);
    void taskSelected(PIMRecord *record);
    void updated();
    void changed();

protected:
    bool event(QEvent *event) override;

    virtual bool accept(PIMRecord *record);
    // Bracket the accept calls of one pass over all records, for work done once per pass.
    virtual void beginAcceptPass();
    virtual void endAcceptPass();
    virtual void writeHeader(QTextStream &stream) const;
    virtual void readHeader(const QStringList &tokens);
    virtual void writeHeader(QDataStream &stream) const;
    virtual void readHeader(QDataStream &stream);
    virtual void resetHeader();
    virtual void recordAdding(PIMRecord *record);
    virtual void recordUpdated(PIMRecord *old, PIMRecord *record);
    virtual void recordRemoving(PIMRecord *record);
    virtual void afterLoad();
    virtual void prepareSort();
    virtual void makeSortKeys(PIMRecord *record);
    virtual bool sortKeysChanged(PIMRecord *old, PIMRecord *record);

    void insertIntoView(PIMRecord *record);
    // Filters anew from the sorted order kept since the last change, for a change of filter.
    void refilterView();
    void setFormat(int format) { m_format = format; }
    void setFormatVersion(int version) { m_formatVersion = version; }
    // For subclasses whose header parts find damage of their own while reading.
    void markDamaged() { m_damaged = true; }
    // Direct access for subclasses that restructure their records (schema changes).
    QList<PIMRecord *> &mutableView()
    {
        forgetSortedOrder();
        return m_view;
    }
    QList<PIMRecord *> &mutableRecords()
    {
        forgetSortedOrder();
        return m_records;
    }
    // For subclasses that change records in place: their sort keys may have changed.
    void forgetSortedOrder() { m_sortedOrder.clear(); }

private:
    void clearRecords();
    void readText(QIODevice &device);
    bool readTextHeader(QIODevice &device);
    void readBinary(QIODevice &device);
    qint64 prepareRecords(qint64 bytesLeft, qint64 minRecordBytes);
    void readAllRecords(QIODevice &device);
    void readRecords(
        QIODevice &device, qint64 expected, const std::function<void(PIMRecord *)> &take);
    bool writePending(const QString &pending);
    bool writeText(QIODevice &device);
    void findTextRecordPart();
    bool writeBinary(QIODevice &device);
    bool writeRecordsBinary(QIODevice &device) const;
    int storedTotal() const;
    bool copyRecordPart(QIODevice &device) const;
    bool keepDamagedOriginal();
    void resortAfterChange();
    void fillView();
    void fillViewSorted();
    void makeSortedOrder();
    qsizetype ascendingPosition(const PIMRecord *record) const;
    qsizetype descendingPosition(const PIMRecord *record) const;

    QString m_fileName;
    QString m_folder;
    bool m_templates;
    bool m_headerOnly;
    QList<PIMRecord *> m_records;   // owning, in file order
    QList<PIMRecord *> m_view;      // borrowed, in display order
    // The positions in m_records of every record in the sorted order, filter aside, so that
    // a new filter only picks from it; empty when unknown. Any change to the records or the
    // sort forgets it.
    std::vector<quint32> m_sortedOrder;
    int m_changeCount = 0;
    bool m_changed = false;
    bool m_readOnly = false;
    QDateTime m_syncDateTime;
    int m_sortColumn = -1;
    bool m_sortAscending = true;
    int m_perPage = 15;
    QString m_lastCurrent;
    int m_total = -1;
    qint64 m_dataStart = 0;
    qint64 m_newDataStart = 0;
    PIMManager *m_relatedManager;
    bool m_sortingEnabled = true;
    int m_format = TextFormat;
    int m_formatVersion = 0;
    int m_readFormatVersion = 0;
    QMap<QString, QString> m_properties;
    bool m_damaged = false;
    bool m_damagedKept = false;   // the damaged original was copied aside already
    QString m_errorString;
};

#endif
