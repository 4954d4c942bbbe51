#ifndef CONFIG_H
#define CONFIG_H

#include <QMap>
#include <QString>
#include <QStringList>

// A named settings file of groups of key/value entries. Each object reads the file
// when made and writes it back on write() and on destruction when something changed,
// so settings are read and written where they are used.
class Config
{
public:
    enum Domain { File, User };

    // With User, name is a bare name and the file is "<settings>/<name>.conf";
    // with File, name is the file's path.
    explicit Config(const QString &name, Domain domain = User);
    ~Config();

    Config(const Config &) = delete;
    Config &operator=(const Config &) = delete;

    bool isValid() const;
    QString fileName() const { return m_fileName; }

    void setGroup(const QString &group);
    QString group() const { return m_group; }
    bool hasKey(const QString &key) const;

    QString readEntry(const QString &key, const QString &deflt = QString()) const;
    int readNumEntry(const QString &key, int deflt = -1) const;
    bool readBoolEntry(const QString &key, bool deflt = false) const;
    QStringList readListEntry(const QString &key, QChar separator) const;

    void writeEntry(const QString &key, const QString &value);
    void writeEntry(const QString &key, const char *value);
    void writeEntry(const QString &key, int value);
    void writeEntry(const QString &key, bool value);
    void writeEntry(const QString &key, const QStringList &list, QChar separator);
    void removeEntry(const QString &key);
    void clearGroup();

    // Writes the file now if anything changed; false when it could not be written, and
    // then the file holds what it held before and errorString() says why.
    bool write();
    QString errorString() const { return m_errorString; }

private:
    using Group = QMap<QString, QString>;

    void read();
    bool fail(const QString &reason);
    static QString escapeValue(const QString &value);
    static QString unescapeValue(const QString &text);

    QString m_fileName;
    QString m_group;
    QMap<QString, Group> m_groups;
    bool m_valid = false;
    bool m_changed = false;
    QString m_errorString;
};

#endif
