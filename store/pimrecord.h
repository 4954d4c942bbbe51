#ifndef PIMRECORD_H
#define PIMRECORD_H

#include "store/localstamp.h"

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>

#include <uuid/uuid.h>

class BigEndianWriter;
class PIMManager;
class QDataStream;
class QTextStream;

// The base of everything stored: an identity, two time stamps, free properties, sort keys
// and category references, with a line-oriented text form and a binary form.
class PIMRecord
{
public:
    explicit PIMRecord(PIMManager *manager);
    // A record about to be read from a binary card, which brings its own identity and time
    // stamps: making fresh ones first would cost a random source and two clock reads apiece.
    enum BlankTag { Blank };
    PIMRecord(PIMManager *manager, BlankTag);
    // A copy keeps the uid and everything else; editors keep one as the state before an edit.
    PIMRecord(const PIMRecord &other);
    PIMRecord &operator=(const PIMRecord &) = delete;
    virtual ~PIMRecord();

    // Identity
    void newUid();
    QString uidString() const;
    const unsigned char *uid() const { return m_uid; }
    void setUid(const uuid_t uid);
    // Time stamps are local times.
    QDateTime created() const { return m_created.toDateTime(); }
    QDateTime updated() const { return m_updated.toDateTime(); }
    void setCreated(const QDateTime &when) { m_created = LocalStamp(when); }
    void setUpdated(const QDateTime &when) { m_updated = LocalStamp(when); }

    // Properties; each change marks the manager changed (without counting a change).
    void setProperty(const QString &key, const QString &value);
    QString property(const QString &key) const;
    bool hasProperty(const QString &key) const;
    void removeProperty(const QString &key);
    const QMap<QString, QString> &properties() const;

    // Passing to the manager. save() updates a record the manager holds, which deletes old
    // (the copy from before the edit); otherwise it adds the record and leaves old alone.
    void save(PIMRecord *old);
    void remove();
    void select();
    bool isFirst() const;
    PIMManager *manager() const { return m_manager; }
    void setManager(PIMManager *manager) { m_manager = manager; }

    // Sort keys
    void setSortKeys(const QStringList &keys);
    // The same for one key, reusing the list a record already has.
    void setSortKey(const QString &key);
    const QStringList &sortKeys() const;
    bool lessThan(const PIMRecord &other) const;
    bool sortKeysEqual(const PIMRecord &other) const;

    // Categories: UID texts of records of the manager's related manager
    void setCategories(const QStringList &list);
    const QStringList &categories() const;
    QString categoryTitle(bool markMore) const;
    QStringList categoryTitles() const;
    PIMRecord *firstCategory() const;
    // The title of a record that can be a category; the base has none.
    virtual QString title() const { return QString(); }

    // Text form. read() returns false when the stream ended before the block's "END":
    // the partial block is then to be dropped.
    bool read(QTextStream &stream);
    virtual void readField(const QString &key, const QStringList &tokens, QTextStream &stream);
    virtual void write(QTextStream &stream) const;

    // Binary form. write() puts what encode() makes into the stream in one piece.
    void write(QDataStream &stream) const;
    virtual void encode(BigEndianWriter &out) const;
    virtual void read(QDataStream &stream);

private:
    QList<PIMRecord *> foundCategories() const;
    void markManagerChanged();

    // Properties, sort keys and categories: most records of a loaded card have none of them,
    // so they live apart and a record without them pays one pointer.
    struct Details;
    Details &details();

    uuid_t m_uid;
    LocalStamp m_created;
    LocalStamp m_updated;
    PIMManager *m_manager;
    std::unique_ptr<Details> m_details;
};

#endif
