#ifndef PASSWORDHASH_H
#define PASSWORDHASH_H

#include <QByteArray>
#include <QString>

// One-way password hashes in the MD5 crypt form "$1$<salt>$<hash>", for users of the
// library that keep a password they must never be able to read back.
class PasswordHash
{
public:
    // A hash with a fresh eight-letter salt; the null string if hashing failed.
    static QString hashPassword(const QString &password);
    // True when password gives hash; a text that is no MD5 crypt hash matches nothing.
    static bool checkPassword(const QString &password, const QString &hash);

    static QByteArray marker() { return QByteArrayLiteral("$1$"); }

private:
    static QByteArray makeSalt();
    static quint32 randomSeed();
};

#endif
