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

// What a record without details answers with.
const QMap<QString, QString> noProperties;
const QStringList noStrings;
} // namespace

struct PIMRecord::Details {
    QMap<QString, QString> properties;
    QStringList sortKeys;
    QStringList categories;
};

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
{
    uuid_copy(m_uid, other.m_uid);
    if (other.m_details)
        m_details = std::make_unique<Details>(*other.m_details);
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

PIMRecord::Details &PIMRecord::details()
{
    if (!m_details)
        m_details = std::make_unique<Details>();
    return *m_details;
}

void PIMRecord::setProperty(const QString &key, const QString &value)
{
    details().properties.insert(key, value);
    markManagerChanged();
}

QString PIMRecord::property(const QString &key) const
{
    return m_details ? m_details->properties.value(key) : QString();
}

bool PIMRecord::hasProperty(const QString &key) const
{
    return m_details && m_details->properties.contains(key);
}

void PIMRecord::removeProperty(const QString &key)
{
    if (m_details)
        m_details->properties.remove(key);
    markManagerChanged();
}

const QMap<QString, QString> &PIMRecord::properties() const
{
    return m_details ? m_details->properties : noProperties;
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
    const QStringList &mine = sortKeys();
    const QStringList &theirs = other.sortKeys();
    for (qsizetype i = 0; i < mine.size(); ++i) {
        if (mine.at(i) < theirs.value(i))
            return ascending;
    }
    return !ascending;
}

void PIMRecord::setSortKeys(const QStringList &keys)
{
    if (m_details || !keys.isEmpty())
        details().sortKeys = keys;
}

void PIMRecord::setSortKey(const QString &key)
{
    QStringList &keys = details().sortKeys;
    if (keys.size() == 1)
        keys.first() = key;
    else
        keys = QStringList { key };
}

const QStringList &PIMRecord::sortKeys() const
{
    return m_details ? m_details->sortKeys : noStrings;
}

bool PIMRecord::sortKeysEqual(const PIMRecord &other) const
{
    const QStringList &mine = sortKeys();
    const QStringList &theirs = other.sortKeys();
    for (qsizetype i = 0; i < mine.size(); ++i) {
        if (mine.at(i) != theirs.value(i))
            return false;
    }
    return true;
}

void PIMRecord::setCategories(const QStringList &list)
{
    if (m_details || !list.isEmpty())
        details().categories = list;
}

const QStringList &PIMRecord::categories() const
{
    return m_details ? m_details->categories : noStrings;
}

QList<PIMRecord *> PIMRecord::foundCategories() const
{
    QList<PIMRecord *> found;
    const PIMManager *related = m_manager ? m_manager->relatedManager() : nullptr;
    if (!related)
        return found;
    for (const QString &uidText : categories()) {
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
            details().properties.insert(name, MRLPIM::unescape(tokens));
        } else if (key == QLatin1String("CATS")) {
            setCategories(MRLPIM::unescape(tokens).split(QLatin1Char('\n'), Qt::SkipEmptyParts));
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
    const QMap<QString, QString> &props = properties();
    for (auto it = props.cbegin(); it != props.cend(); ++it)
        stream << "PROP=" << it.key() << '=' << MRLPIM::escape(it.value()) << '\n';
    const QStringList &cats = categories();
    if (!cats.isEmpty())
        stream << "CATS=" << MRLPIM::escape(cats.join(QLatin1Char('\n'))) << '\n';
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
    const QMap<QString, QString> &props = properties();
    out.putInt32(qint32(props.size()));
    for (auto it = props.cbegin(); it != props.cend(); ++it) {
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
            details().properties.insert(key, value);
    }
    if (BinaryFormat::ok(stream)) {
        QStringList list;
        BinaryFormat::readStringList(stream, list);
        setCategories(list);
    }
}
