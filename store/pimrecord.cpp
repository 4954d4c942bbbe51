#include "store/pimrecord.h"

#include "store/bigendianwriter.h"
#include "store/binaryformat.h"
#include "store/mrlpim.h"
#include "store/pimmanager.h"

#include <QDataStream>
#include <QTextStream>

namespace
{
// A property is at least its key and value, each a 4-byte length.
constexpr qint64 minPropertyBytes = 8;
} // namespace

PIMRecord::PIMRecord(PIMManager *manager)
    : m_manager(manager)
{
    uuid_generate(m_uid);
    m_created = LocalStamp(QDateTime::currentDateTime());
    m_updated = LocalStamp(QDateTime::currentDateTime());
}

PIMRecord::PIMRecord(PIMManager *manager, BlankTag)
    : m_manager(manager)
{
    uuid_clear(m_uid);
}

PIMRecord::PIMRecord(const PIMRecord &other)
    : m_created(other.m_created)
    , m_updated(other.m_updated)
    , m_manager(other.m_manager)
    , m_properties(other.m_properties)
    , m_sortKeys(other.m_sortKeys)
    , m_categories(other.m_categories)
{
    uuid_copy(m_uid, other.m_uid);
}

PIMRecord::~PIMRecord() = default;

void PIMRecord::newUid()
{
    uuid_generate(m_uid);
}

QString PIMRecord::uidString() const
{
    char text[37];
    uuid_unparse(m_uid, text);
    return QString::fromLatin1(text);
}

void PIMRecord::setUid(const uuid_t uid)
{
    uuid_copy(m_uid, uid);
}

void PIMRecord::markManagerChanged()
{
    if (m_manager)
        m_manager->haveChange();
}

void PIMRecord::setProperty(const QString &key, const QString &value)
{
    m_properties.insert(key, value);
    markManagerChanged();
}

QString PIMRecord::property(const QString &key) const
{
    return m_properties.value(key);
}

bool PIMRecord::hasProperty(const QString &key) const
{
    return m_properties.contains(key);
}

void PIMRecord::removeProperty(const QString &key)
{
    m_properties.remove(key);
    markManagerChanged();
}

void PIMRecord::save(PIMRecord *old)
{
    if (!m_manager)
        return;
    if (m_manager->contains(this))
        m_manager->update(old, this);
    else
        m_manager->add(this);
}

void PIMRecord::remove()
{
    if (m_manager)
        m_manager->remove(this);
}

void PIMRecord::select()
{
    if (m_manager)
        m_manager->select(this);
}

bool PIMRecord::isFirst() const
{
    if (!m_manager || m_manager->count() == 0)
        return true;
    return m_manager->first() == this;
}

// Only a smaller key decides; a greater one lets the walk go on. So with several keys a
// record counts as lower if it is lower on any one of them. The list views depend on it.
bool PIMRecord::lessThan(const PIMRecord &other) const
{
    const bool ascending = m_manager ? m_manager->sortOrder() : true;
    for (qsizetype i = 0; i < m_sortKeys.size(); ++i) {
        if (m_sortKeys.at(i) < other.m_sortKeys.value(i))
            return ascending;
    }
    return !ascending;
}

void PIMRecord::setSortKey(const QString &key)
{
    if (m_sortKeys.size() == 1)
        m_sortKeys.first() = key;
    else
        m_sortKeys = QStringList { key };
}

bool PIMRecord::sortKeysEqual(const PIMRecord &other) const
{
    for (qsizetype i = 0; i < m_sortKeys.size(); ++i) {
        if (m_sortKeys.at(i) != other.m_sortKeys.value(i))
            return false;
    }
    return true;
}

QList<PIMRecord *> PIMRecord::foundCategories() const
{
    QList<PIMRecord *> found;
    const PIMManager *related = m_manager ? m_manager->relatedManager() : nullptr;
    if (!related)
        return found;
    for (const QString &uidText : m_categories) {
        if (PIMRecord *category = related->findByUid(uidText))
            found.append(category);
    }
    return found;
}

QString PIMRecord::categoryTitle(bool markMore) const
{
    const QList<PIMRecord *> found = foundCategories();
    if (found.isEmpty()) {
        const PIMRecord *fallback = firstCategory();
        return fallback ? fallback->title() : QString();
    }
    QString title = found.first()->title();
    if (markMore && found.size() > 1)
        title += QStringLiteral(" [...]");
    return title;
}

QStringList PIMRecord::categoryTitles() const
{
    QStringList titles;
    for (const PIMRecord *category : foundCategories())
        titles.append(category->title());
    return titles;
}

PIMRecord *PIMRecord::firstCategory() const
{
    const QList<PIMRecord *> found = foundCategories();
    if (!found.isEmpty())
        return found.first();
    const PIMManager *related = m_manager ? m_manager->relatedManager() : nullptr;
    return related ? related->first() : nullptr;
}

bool PIMRecord::read(QTextStream &stream)
{
    for (;;) {
        // A block cut off by the end of the stream is incomplete; the caller drops it.
        if (stream.atEnd())
            return false;
        const QString line = stream.readLine();
        if (line == QLatin1String("END"))
            return true;
        QStringList tokens = line.split(QLatin1Char('='), Qt::KeepEmptyParts);
        const QString key = tokens.first();
        if (key == QLatin1String("UID")) {
            uuid_t parsed;
            if (uuid_parse(tokens.value(1).toLatin1().constData(), parsed) == 0)
                uuid_copy(m_uid, parsed);
        } else if (key == QLatin1String("CREATED")) {
            setCreated(MRLPIM::stringToDateTime(tokens.value(1)));
        } else if (key == QLatin1String("UPDATED")) {
            setUpdated(MRLPIM::stringToDateTime(tokens.value(1)));
        } else if (key == QLatin1String("PROP")) {
            if (tokens.size() < 2)
                continue;
            const QString name = tokens.takeAt(1);
            m_properties.insert(name, MRLPIM::unescape(tokens));
        } else if (key == QLatin1String("CATS")) {
            m_categories = MRLPIM::unescape(tokens).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        } else {
            readField(key, tokens, stream);
        }
    }
}

void PIMRecord::readField(const QString &, const QStringList &, QTextStream &)
{
}

void PIMRecord::write(QTextStream &stream) const
{
    stream << "UID=" << uidString() << '\n';
    stream << "CREATED=" << MRLPIM::dateTimeToString(created()) << '\n';
    stream << "UPDATED=" << MRLPIM::dateTimeToString(updated()) << '\n';
    for (auto it = m_properties.cbegin(); it != m_properties.cend(); ++it)
        stream << "PROP=" << it.key() << '=' << MRLPIM::escape(it.value()) << '\n';
    if (!m_categories.isEmpty())
        stream << "CATS=" << MRLPIM::escape(m_categories.join(QLatin1Char('\n'))) << '\n';
    stream << "END\n";
}

void PIMRecord::write(QDataStream &stream) const
{
    BigEndianWriter out;
    encode(out);
    stream.writeRawData(out.data(), int(out.size()));
}

void PIMRecord::encode(BigEndianWriter &out) const
{
    out.putRaw(m_uid, sizeof(uuid_t));
    m_created.encode(out);
    m_updated.encode(out);
    out.putInt32(qint32(properties().size()));
    for (auto it = properties().cbegin(); it != properties().cend(); ++it) {
        out.putString(it.key());
        out.putString(it.value());
    }
    out.putStringList(categories());
}

void PIMRecord::read(QDataStream &stream)
{
    uuid_t raw;
    if (stream.readRawData(reinterpret_cast<char *>(raw), sizeof(uuid_t)) != sizeof(uuid_t))
        return;
    uuid_copy(m_uid, raw);
    stream >> m_created >> m_updated;
    qint32 count = 0;
    stream >> count;
    if (!BinaryFormat::ok(stream) || !BinaryFormat::countFits(stream, count, minPropertyBytes))
        return;
    for (qint32 i = 0; i < count && BinaryFormat::ok(stream); ++i) {
        QString key;
        QString value;
        BinaryFormat::readString(stream, key);
        BinaryFormat::readString(stream, value);
        if (BinaryFormat::ok(stream))
            m_properties.insert(key, value);
    }
    if (BinaryFormat::ok(stream))
        BinaryFormat::readStringList(stream, m_categories);
}
