#ifndef DBRECORD_H
#define DBRECORD_H

#include "store/pimrecord.h"

#include <QString>

// One entry of the card list: a .card file with the title, icon, description and password
// the list shows for it. In the device list only the path is stored; the rest is read out of
// the card's own header by DBManager::refresh.
class DBRecord : public PIMRecord
{
public:
    explicit DBRecord(PIMManager *manager);
    DBRecord(const DBRecord &other);
    ~DBRecord() override;

    QString title() const override { return m_title; }
    void setTitle(const QString &title) { m_title = title; }
    QString icon() const { return m_icon; }
    void setIcon(const QString &icon) { m_icon = icon; }
    QString description() const { return m_description; }
    void setDescription(const QString &description) { m_description = description; }
    // Plain text as typed; empty means the card is not locked.
    QString password() const { return m_password; }
    void setPassword(const QString &password) { m_password = password; }
    QString path() const { return m_path; }
    void setPath(const QString &path) { m_path = path; }
    // The folder the card file lies in; empty for an entry without a path.
    QString folder() const;

    // Set just before removal when the card file is to go with the entry.
    bool deleteFile() const { return m_deleteFile; }
    void setDeleteFile(bool deleteFile) { m_deleteFile = deleteFile; }
    // The card file could be read at the last refresh (see DBManager::isAvailable).
    bool available() const { return m_available; }
    void setAvailable(bool available) { m_available = available; }

    void readField(const QString &key, const QStringList &tokens, QTextStream &stream) override;
    using PIMRecord::write;
    void write(QTextStream &stream) const override;

    static QString defaultIcon() { return QStringLiteral("12"); }

private:
    QString m_title;
    QString m_icon;
    QString m_description;
    QString m_password;
    QString m_path;
    bool m_deleteFile = false;
    bool m_available = false;
};

#endif
