#ifndef PASSWORDMASK_H
#define PASSWORDMASK_H

#include <QString>

// The form in which a card file keeps its password: a masking, so that the password cannot
// be read from the file at a glance, not a cipher. Each UTF-16 unit becomes a length letter
// and a base-36 number, chained through a running key.
class PasswordMask
{
public:
    static QString scramble(const QString &password);
    // Reads as far as the text is well formed; a damaged tail is dropped.
    static QString unscramble(const QString &masked);

private:
    static constexpr quint32 initialKey = 0x2c7f5a1;
    static quint32 nextKey(char16_t unit, quint32 key) { return unit * key; }
};

#endif
