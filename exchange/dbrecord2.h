#ifndef DBRECORD2_H
#define DBRECORD2_H

#include "card/fielddef.h"
#include "store/pimrecord.h"

#include <QList>
#include <QString>

// One card of the older card list "db", read only: the card's file, title, icon,
// description and password, and its field definitions, which stood in the entry's own
// properties ("t0", "c0", "f0", "v0", "d0", "t1", ...).
class DBRecord2 : public PIMRecord
{
public:
    explicit DBRecord2(PIMManager *manager)
        : PIMRecord(manager)
    {
    }

    QString title() const override { return m_title; }
    QString icon() const { return m_icon; }
    QString description() const { return m_description; }
    // A crypted password ("$1$...") of the old list is dropped: the card arrives unlocked.
    QString password() const { return m_password; }
    QString path() const { return m_path; }

    // Title, label, type, formula and default of each field, read until "v%1" is empty.
    // A type outside the known codes reads as String.
    QList<FieldDef> fields() const;

    void readField(const QString &key, const QStringList &tokens, QTextStream &stream) override;

private:
    QString m_title;
    QString m_icon = QStringLiteral("12");
    QString m_description;
    QString m_password;
    QString m_path;
};

#endif
