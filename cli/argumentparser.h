#ifndef ARGUMENTPARSER_H
#define ARGUMENTPARSER_H

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

// Splits a command's arguments into options and positional arguments. Options are
// "--name" or "--name VALUE"; "--" ends the options, so that a positional argument may
// begin with "-" (a negative number, a formula such as "-1+2").
class ArgumentParser
{
public:
    void addFlag(const QString &name) { m_flags.insert(name); }
    void addValueOption(const QString &name) { m_valueOptions.insert(name); }

    // False on an unknown option or a missing value; errorString() then says which.
    bool parse(const QStringList &arguments);

    bool isSet(const QString &name) const { return m_seen.contains(name); }
    // The last value given for the option.
    QString value(const QString &name) const;
    // Every value given for an option that may be repeated, in command-line order.
    QStringList values(const QString &name) const { return m_values.value(name); }
    const QStringList &positional() const { return m_positional; }
    QString errorString() const { return m_error; }

private:
    QSet<QString> m_flags;
    QSet<QString> m_valueOptions;
    QSet<QString> m_seen;
    QHash<QString, QStringList> m_values;
    QStringList m_positional;
    QString m_error;
};

#endif
