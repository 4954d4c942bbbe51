#include "cli/argumentparser.h"

bool ArgumentParser::parse(const QStringList &arguments)
{
    m_seen.clear();
    m_values.clear();
    m_positional.clear();
    m_error.clear();
    bool optionsEnded = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &arg = arguments.at(i);
        if (optionsEnded || !arg.startsWith(QLatin1String("--"))) {
            m_positional << arg;
            continue;
        }
        if (arg == QLatin1String("--")) {
            optionsEnded = true;
            continue;
        }
        const QString name = arg.mid(2);
        if (m_flags.contains(name)) {
            m_seen.insert(name);
        } else if (m_valueOptions.contains(name)) {
            if (i + 1 >= arguments.size()) {
                m_error = QStringLiteral("option %1 needs a value").arg(arg);
                return false;
            }
            m_seen.insert(name);
            m_values[name].append(arguments.at(++i));
        } else {
            m_error = QStringLiteral("unknown option %1").arg(arg);
            return false;
        }
    }
    return true;
}

QString ArgumentParser::value(const QString &name) const
{
    const QStringList given = m_values.value(name);
    return given.isEmpty() ? QString() : given.constLast();
}
