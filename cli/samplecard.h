#ifndef SAMPLECARD_H
#define SAMPLECARD_H

#include <QList>
#include <QString>

#include <cstdint>

class DataManager;
class DataRecord;
class FieldDef;

// Fills a card with a fixed schema of ten fields (String, Integer, Double, Date, Time,
// DateTime, Text, List, Bool, MultiList) and records whose content follows from a seed
// alone, so benchmarks and tests get the same card on every run.
class SampleCard
{
public:
    explicit SampleCard(std::uint64_t seed) : m_state(seed) {}

    static QList<FieldDef> fields();
    void fill(DataManager &card, int records);

private:
    std::uint64_t next();
    int below(int bound);
    QString words(int count);
    void fillRecord(DataRecord &record, int index);

    std::uint64_t m_state;
};

#endif
