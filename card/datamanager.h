#ifndef DATAMANAGER_H
#define DATAMANAGER_H

#include "card/fielddef.h"
#include "store/pimmanager.h"

#include <QList>
#include <QString>
#include <QStringList>

class DataRecord;

// One open card: the record store of its file, its schema, named filters and views, its
// description, icon and password. It keeps alarms of reminders registered, calculated
// fields up to date, and restructures every record when the schema changes.
class DataManager : public PIMManager
{
    Q_OBJECT

public:
    explicit DataManager(const QString &path, bool templates = false, bool headerOnly = false);
    ~DataManager() override;

    PIMRecord *createRecord() override;
    // A record filled from the field defaults, not yet added. Moves Increment counters.
    DataRecord *newRecord();

    // Schema. fields() renumbers every entry's origin to its position first, which is
    // how setFields recognises the entries of an edited copy.
    QList<FieldDef> fields() const;
    // The list as it stands, without renumbering.
    const QList<FieldDef> &fieldList() const { return m_fields; }
    int fieldCount() const { return int(m_fields.size()); }
    // The entry at i; a default FieldDef for an index out of range.
    FieldDef field(int i) const;
    void setFields(const QList<FieldDef> &list, bool installOnly = false);
    QStringList fieldItems(int i) const;
    void setFieldItems(int i, const QStringList &items);
    void setFieldWidth(int i, int width);

    QString description() const { return m_description; }
    void setDescription(const QString &description);
    QString icon() const { return m_icon; }
    void setIcon(const QString &icon);
    // Plain text; empty means the card is not locked.
    QString password() const { return m_password; }
    void setPassword(const QString &password);

    // Evaluates the calculated fields of record in the order of the property "fs"; with a
    // formula on the previous record ("fr" is "1") or a null record, walks on to the end.
    void recalculate(DataRecord *record, bool touch);
    void recalculateAll();

private:
    mutable QList<FieldDef> m_fields;
    QString m_description;
    QString m_icon;
    QString m_password;
};

#endif
