#include "cardbench.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "views/filterdef.h"
#include "views/filtermatcher.h"

#include <malloc.h>
#include <memory>

namespace
{
std::unique_ptr<DataManager> loaded(const QString &path)
{
    auto card = std::make_unique<DataManager>(path);
    card->load();
    // A card saves itself when it closes: the measurements must leave the input as it was,
    // or each one would measure the card the previous one changed.
    card->setReadOnly(true);
    return card;
}

// Heap bytes in use: unlike the resident size, this sees memory the allocator reuses.
qint64 heapBytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}
} // namespace

CardBench::CardBench(const QString &path, const QString &scratchFolder, int runs)
    : m_path(path)
    , m_scratch(scratchFolder + QStringLiteral("/saved.card"))
    , m_stopwatch(runs)
{
}

double CardBench::load() const
{
    return m_stopwatch.best([&] { loaded(m_path); });
}

double CardBench::headerOnlyLoad() const
{
    return m_stopwatch.best([&] { DataManager(m_path, false, true).load(); });
}

double CardBench::save() const
{
    auto card = loaded(m_path);
    // Saving to another file leaves the input card as it is for the other measurements.
    auto copy = std::make_unique<DataManager>(m_scratch);
    copy->setFields(card->fields(), true);
    for (PIMRecord *record : card->records())
        copy->insertLoaded(new DataRecord(*static_cast<DataRecord *>(record)));
    return m_stopwatch.best([&] { copy->forceSave(); });
}

double CardBench::sortBy(int column) const
{
    auto card = loaded(m_path);
    return m_stopwatch.best([&] { card->setSort(column, true); }, [&] { card->setSort(-1, true); });
}

double CardBench::acceptAllTextContains(const QString &needle) const
{
    auto card = loaded(m_path);
    FilterCondition condition;
    condition.field = FilterCondition::AllTextFields;
    condition.op = FilterCondition::Contains;
    condition.text = needle;
    return m_stopwatch.best([&] {
        // Made in each pass, as the live count of the find dialog makes it.
        const FilterMatcher matcher({ condition }, card->fieldList());
        m_matches = 0;
        for (const PIMRecord *record : card->records())
            m_matches += matcher.accept(*static_cast<const DataRecord *>(record));
    });
}

double CardBench::find(const QString &needle) const
{
    auto card = loaded(m_path);
    card->setSort(0, true);
    FilterDef find;
    FilterCondition condition;
    condition.text = needle;
    find.conditions << condition;
    const double best = m_stopwatch.best(
        [&] { card->setAdHocFilter(find); }, [&] { card->setCurrentFilter(-1); });
    card->setAdHocFilter(find);
    m_matches = int(card->view().size());
    return best;
}

double CardBench::threeConditions(const QString &prefix, int atLeast, const QDate &from) const
{
    auto card = loaded(m_path);
    FilterDef filter;
    FilterCondition startsWith;
    startsWith.field = 0;
    startsWith.op = FilterCondition::StartsWith;
    startsWith.text = prefix;
    FilterCondition count;
    count.field = 1;
    count.op = FilterCondition::AtLeast;
    count.number = atLeast;
    FilterCondition day;
    day.field = 3;
    day.op = FilterCondition::OnOrAfter;
    day.date = from;
    filter.conditions << startsWith << count << day;
    card->setFilters({ filter });
    const double best
        = m_stopwatch.best([&] { card->setCurrentFilter(0); }, [&] { card->setCurrentFilter(-1); });
    card->setCurrentFilter(0);
    m_matches = int(card->view().size());
    return best;
}

double CardBench::recalculateAllWithPrevious() const
{
    auto card = loaded(m_path);
    QList<FieldDef> fields = card->fields();
    FieldDef running;
    running.title = QStringLiteral("Running total");
    running.type = FieldDef::Double;
    card->setFields(fields << running);
    // A running sum: every record adds its count to the previous record's total. Formulas
    // name fields as the card numbered them, so the new field gets its formula in a second step.
    fields = card->fields();
    fields.last().formula = QStringLiteral("[F1]+[F%1!]").arg(fields.size() - 1);
    card->setFields(fields);
    return m_stopwatch.best([&] { card->recalculateAll(); });
}

qint64 CardBench::loadedMemory() const
{
    const qint64 before = heapBytesInUse();
    auto card = loaded(m_path);
    return heapBytesInUse() - before;
}
