#include "card/passwordmask.h"

QString PasswordMask::scramble(const QString &password)
{
    QString masked;
    quint32 key = initialKey;
    for (const QChar c : password) {
        const char16_t unit = c.unicode();
        // The key is taken as a signed 32-bit value, so the number may carry a minus sign.
        const QString number = QString::number(qint32(unit ^ key), 36);
        masked += QChar(char16_t(u'a' + number.size()));
        masked += number;
        key = nextKey(unit, key);
    }
    return masked;
}

QString PasswordMask::unscramble(const QString &masked)
{
    QString password;
    quint32 key = initialKey;
    qsizetype pos = 0;
    while (pos < masked.size()) {
        const int length = masked.at(pos).unicode() - u'a';
        if (length <= 0 || length > masked.size() - pos - 1)
            break;
        bool ok = false;
        const qint32 number = masked.mid(pos + 1, length).toInt(&ok, 36);
        if (!ok)
            break;
        const char16_t unit = char16_t(quint32(number) ^ key);
        password += QChar(unit);
        key = nextKey(unit, key);
        pos += 1 + length;
    }
    return password;
}
