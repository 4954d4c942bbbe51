// The formula evaluator: the bytes are a formula, evaluated without records and against two
// records of a sample card (one as the previous record), so references read real values.
#include "fuzzinput.h"

#include "calc/formulaevaluator.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "cli/samplecard.h"

#include <memory>

namespace
{
const DataManager &sampleCard()
{
    static const std::unique_ptr<DataManager> card = [] {
        auto made
            = std::make_unique<DataManager>(FuzzInput::home() + QStringLiteral("/sample.card"));
        made->setReadOnly(true);
        SampleCard(1).fill(*made, 2);
        return made;
    }();
    return *card;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString formula = QString::fromUtf8(FuzzInput::bytes(data, size));
    const auto &records = sampleCard().records();
    const auto *first = static_cast<const DataRecord *>(records.at(0));
    const auto *second = static_cast<const DataRecord *>(records.at(1));
    bool ok = false;
    FormulaEvaluator().evaluate(formula, &ok, nullptr, nullptr);
    FormulaEvaluator().evaluate(formula, &ok, second, first);
    return 0;
}
