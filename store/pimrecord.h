#ifndef PIMRECORD_H
#define PIMRECORD_H

#include "store/localstamp.h"

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

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
    const QMap<QString, QString> &properties() const { return m_properties; }

    // Passing to the manager. save() updates a record the manager holds, which deletes old
    // (the copy from before the edit); otherwise it adds the record and leaves old alone.
    void save(PIMRecord *old);
    void remove();
    void select();
    bool isFirst() const;
    PIMManager *manager() const { return m_manager; }
    void setManager(PIMManager *manager) { m_manager = manager; }

    // Sort keys
    void setSortKeys(const QStringList &keys) { m_sortKeys = keys; }
    // The same for one key, reusing the list a record already has.
    void setSortKey(const QString &key);
    const QStringList &sortKeys() const { return m_sortKeys; }
    bool lessThan(const PIMRecord &other) const;
    bool sortKeysEqual(const PIMRecord &other) const;

    // Categories: UID texts of records of the manager's related manager
    void setCategories(const QStringList &list) { m_categories = list; }
    const QStringList &categories() const { return m_categories; }
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

    uuid_t m_uid;
    LocalStamp m_created;
    LocalStamp m_updated;
    PIMManager *m_manager;
    QMap<QString, QString> m_properties;
    QStringList m_sortKeys;
    QStringList m_categories;
};

#endif
