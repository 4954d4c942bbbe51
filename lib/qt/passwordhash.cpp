#include "lib/qt/passwordhash.h"

#include <QFile>
#include <QRandomGenerator>

#include <crypt.h>
#include <random>

namespace
{
constexpr int saltLength = 8;

QString cryptText(const QString &password, const QByteArray &setting)
{
    const char *result = crypt(password.toUtf8().constData(), setting.constData());
    // Failures give null or a text starting with "*", never a hash.
    if (!result || result[0] != '$')
        return QString();
    return QString::fromLatin1(result);
}
} // namespace

QString PasswordHash::hashPassword(const QString &password)
{
    return cryptText(password, marker() + makeSalt() + '$');
}

bool PasswordHash::checkPassword(const QString &password, const QString &hash)
{
    if (!hash.startsWith(QLatin1String(marker())))
        return false;
    const QString computed = cryptText(password, hash.toLatin1());
    return !computed.isNull() && computed == hash;
}

QByteArray PasswordHash::makeSalt()
{
    std::minstd_rand generator(randomSeed());
    QByteArray salt;
    for (int i = 0; i < saltLength; ++i)
        salt.append(char('a' + generator() % 26));
    return salt;
}

quint32 PasswordHash::randomSeed()
{
    QFile device(QStringLiteral("/dev/urandom"));
    quint32 seed = 0;
    if (device.open(QIODevice::ReadOnly)
        && device.read(reinterpret_cast<char *>(&seed), sizeof seed) == sizeof seed)
        return seed;
    return QRandomGenerator::system()->generate();
}
