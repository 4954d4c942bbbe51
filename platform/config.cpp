#include "platform/config.h"

#include "platform/platformpaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

Config::Config(const QString &name, Domain domain)
    : m_fileName(domain == File ? name
                                : PlatformPaths::settingsDir() + QLatin1Char('/') + name
                                      + QStringLiteral(".conf")),
      m_group(QStringLiteral("Default"))
{
    read();
}

// Settings written on the way out have no caller left to tell; the log says it instead.
Config::~Config()
{
    if (!write())
        qWarning("%s", qPrintable(m_errorString));
}

bool Config::isValid() const
{
    return m_valid;
}

void Config::read()
{
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        // A file not written yet is a valid, empty configuration.
        m_valid = !file.exists();
        return;
    }
    m_valid = true;
    QTextStream in(&file);
    in.setEncoding(QStringConverter::Utf8);
    Group *current = nullptr;
    while (!in.atEnd()) {
        const QString line = in.readLine();
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')))
            continue;
        if (trimmed.startsWith(QLatin1Char('[')) && trimmed.endsWith(QLatin1Char(']'))) {
            current = &m_groups[trimmed.mid(1, trimmed.size() - 2)];
            continue;
        }
        const int eq = line.indexOf(QLatin1Char('='));
        if (!current || eq < 0)
            continue;
        // "key = value": one blank after "=" belongs to the layout, the rest to the value.
        QString value = line.mid(eq + 1);
        if (value.startsWith(QLatin1Char(' ')))
            value.remove(0, 1);
        current->insert(line.left(eq).trimmed(), unescapeValue(value));
    }
}

bool Config::write()
{
    if (!m_changed)
        return true;
    QDir().mkpath(QFileInfo(m_fileName).absolutePath());
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return fail(file.errorString());
    QTextStream out(&file);
    out.setEncoding(QStringConverter::Utf8);
    for (auto g = m_groups.cbegin(); g != m_groups.cend(); ++g) {
        out << '[' << g.key() << "]\n";
        for (auto e = g->cbegin(); e != g->cend(); ++e)
            out << e.key() << " = " << escapeValue(e.value()) << '\n';
    }
    // QSaveFile's commit passes over a write that failed in its own buffer (a full disk
    // is found only there), so the stream and the buffer are checked before it.
    out.flush();
    if (out.status() != QTextStream::Ok || !file.flush()) {
        const QString reason = file.errorString();
        file.cancelWriting();
        return fail(reason);
    }
    if (!file.commit())
        return fail(file.errorString());
    m_changed = false;
    m_errorString.clear();
    return true;
}

bool Config::fail(const QString &reason)
{
    m_errorString = QCoreApplication::translate("Config",
        "Cannot save the settings \"%1\": %2. The file on disk was left as it was.")
                        .arg(m_fileName, reason);
    return false;
}

void Config::setGroup(const QString &group)
{
    m_group = group;
}

bool Config::hasKey(const QString &key) const
{
    const auto g = m_groups.constFind(m_group);
    return g != m_groups.cend() && g->contains(key);
}

QString Config::readEntry(const QString &key, const QString &deflt) const
{
    const auto g = m_groups.constFind(m_group);
    if (g == m_groups.cend())
        return deflt;
    return g->value(key, deflt);
}

int Config::readNumEntry(const QString &key, int deflt) const
{
    bool ok = false;
    const int value = readEntry(key).toInt(&ok);
    return ok ? value : deflt;
}

bool Config::readBoolEntry(const QString &key, bool deflt) const
{
    const QString text = readEntry(key);
    if (text.isEmpty())
        return deflt;
    return text.toInt() != 0 || text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
}

QStringList Config::readListEntry(const QString &key, QChar separator) const
{
    const QString text = readEntry(key);
    if (text.isEmpty())
        return {};
    return text.split(separator);
}

void Config::writeEntry(const QString &key, const QString &value)
{
    Group &g = m_groups[m_group];
    const auto it = g.constFind(key);
    if (it != g.cend() && *it == value)
        return;
    g.insert(key, value);
    m_changed = true;
}

void Config::writeEntry(const QString &key, const char *value)
{
    writeEntry(key, QString::fromUtf8(value));
}

void Config::writeEntry(const QString &key, int value)
{
    writeEntry(key, QString::number(value));
}

void Config::writeEntry(const QString &key, bool value)
{
    writeEntry(key, QString::number(value ? 1 : 0));
}

void Config::writeEntry(const QString &key, const QStringList &list, QChar separator)
{
    writeEntry(key, list.join(separator));
}

void Config::removeEntry(const QString &key)
{
    auto g = m_groups.find(m_group);
    if (g != m_groups.end() && g->remove(key) > 0)
        m_changed = true;
}

void Config::clearGroup()
{
    if (m_groups.remove(m_group) > 0)
        m_changed = true;
}

// Line feeds and backslashes are escaped so that every entry stays on one line.
QString Config::escapeValue(const QString &value)
{
    QString out;
    out.reserve(value.size());
    for (const QChar c : value) {
        if (c == QLatin1Char('\\'))
            out += QStringLiteral("\\\\");
        else if (c == QLatin1Char('\n'))
            out += QStringLiteral("\\n");
        else if (c == QLatin1Char('\r'))
            out += QStringLiteral("\\r");
        else
            out += c;
    }
    return out;
}

QString Config::unescapeValue(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c != QLatin1Char('\\') || i + 1 == text.size()) {
            out += c;
            continue;
        }
        const QChar next = text.at(++i);
        out += next == QLatin1Char('n') ? QChar(QLatin1Char('\n'))
             : next == QLatin1Char('r') ? QChar(QLatin1Char('\r'))
                                        : next;
    }
    return out;
}
