#include "cli/generatecommand.h"

#include "card/datamanager.h"
#include "cli/argumentparser.h"
#include "cli/cardopener.h"
#include "cli/samplecard.h"

#include <QFile>

namespace {
// Far beyond any real card, and still a file that fits in memory several times over.
constexpr qint64 maxRecords = 10000000;
} // namespace

void GenerateCommand::declareOptions(ArgumentParser &parser) const
{
    parser.addValueOption(QStringLiteral("records"));
    parser.addValueOption(QStringLiteral("seed"));
}

int GenerateCommand::run(const ArgumentParser &arguments)
{
    if (!arguments.isSet(QStringLiteral("records")))
        return usageError(QStringLiteral("--records N is needed"));
    bool ok = false;
    const qint64 records = arguments.value(QStringLiteral("records")).toLongLong(&ok);
    if (!ok || records < 0 || records > maxRecords)
        return usageError(QStringLiteral("--records takes a number from 0 to %1").arg(maxRecords));
    quint64 seed = 1;
    if (arguments.isSet(QStringLiteral("seed"))) {
        seed = arguments.value(QStringLiteral("seed")).toULongLong(&ok);
        if (!ok)
            return usageError(QStringLiteral("--seed takes a whole number"));
    }

    const QString path = arguments.positional().at(0);
    QString error;
    auto card = CardOpener::create(path, &error);
    if (!card)
        return fail(error);
    SampleCard(seed).fill(*card, int(records));
    if (!card->forceSave())
        return fail(card->errorString());
    return Success;
}
