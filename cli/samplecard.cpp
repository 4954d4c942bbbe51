#include "cli/samplecard.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "card/fielddef.h"

#include <QStringList>

namespace {
const QStringList vocabulary{
    QStringLiteral("apple"), QStringLiteral("birch"),  QStringLiteral("cedar"),
    QStringLiteral("delta"), QStringLiteral("ember"),  QStringLiteral("fjord"),
    QStringLiteral("grove"), QStringLiteral("harbor"), QStringLiteral("island"),
    QStringLiteral("juniper"), QStringLiteral("kestrel"), QStringLiteral("lantern"),
    QStringLiteral("meadow"), QStringLiteral("north"), QStringLiteral("orchard"),
    QStringLiteral("pebble"), QStringLiteral("quartz"), QStringLiteral("river"),
    QStringLiteral("spruce"), QStringLiteral("tundra"), QStringLiteral("Ålesund"),
    QStringLiteral("Øresund"), QStringLiteral("Zürich"), QStringLiteral("Kraków")};
const QStringList colours{QStringLiteral("red"), QStringLiteral("green"), QStringLiteral("blue"),
                          QStringLiteral("yellow"), QStringLiteral("white")};

FieldDef field(const char *title, int type)
{
    FieldDef f;
    f.title = QString::fromLatin1(title);
    f.label = f.title;
    f.type = type;
    if (type == FieldDef::List || type == FieldDef::MultiList)
        f.items = colours;
    return f;
}
} // namespace

QList<FieldDef> SampleCard::fields()
{
    return {field("Name", FieldDef::String),     field("Count", FieldDef::Integer),
            field("Price", FieldDef::Double),    field("Day", FieldDef::Date),
            field("Hour", FieldDef::Time),       field("Moment", FieldDef::DateTime),
            field("Notes", FieldDef::Text),      field("Colour", FieldDef::List),
            field("Done", FieldDef::Bool),       field("Tags", FieldDef::MultiList)};
}

// splitmix64: small, fast, and the same on every platform, unlike the library's
// distributions.
std::uint64_t SampleCard::next()
{
    std::uint64_t z = (m_state += 0x9e3779b97f4a7c15ULL);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}

int SampleCard::below(int bound)
{
    return int(next() % std::uint64_t(bound));
}

QString SampleCard::words(int count)
{
    QStringList picked;
    for (int i = 0; i < count; ++i)
        picked << vocabulary.at(below(int(vocabulary.size())));
    return picked.join(QLatin1Char(' '));
}

void SampleCard::fillRecord(DataRecord &record, int index)
{
    const QDate epoch(1980, 1, 1);
    const QDate day = epoch.addDays(below(20000));
    const QTime hour = QTime(0, 0).addSecs(below(86400));
    record.setStringValue(0, words(2) + QStringLiteral(" %1").arg(index));
    record.setDoubleValue(1, below(200000) - 50000);
    record.setDoubleValue(2, below(10000000) / 100.0);
    record.setDateValue(3, day);
    record.setTimeValue(4, hour);
    record.setDateTimeValue(5, QDateTime(epoch.addDays(below(20000)), QTime(0, 0).addSecs(below(86400))));
    record.setStringValue(6, words(3 + below(6)) + QLatin1Char('\n') + words(1 + below(4)));
    record.setStringValue(7, colours.at(below(int(colours.size()))));
    record.setDoubleValue(8, below(2));
    QStringList tags;
    for (const QString &colour : colours) {
        if (below(3) == 0)
            tags << colour;
    }
    record.setStringValue(9, tags.join(QLatin1Char('\n')));
    const QDateTime stamp(epoch.addDays(9000 + index / 500), QTime(0, 0).addSecs(index % 86400));
    record.setCreated(stamp);
    record.setUpdated(stamp);
}

void SampleCard::fill(DataManager &card, int records)
{
    card.setFields(fields(), true);
    card.setDescription(QStringLiteral("Sample card of %1 records").arg(records));
    card.setIcon(QStringLiteral("12"));
    for (int i = 0; i < records; ++i) {
        auto *record = static_cast<DataRecord *>(card.createRecord());
        fillRecord(*record, i);
        card.insertLoaded(record);
    }
}
