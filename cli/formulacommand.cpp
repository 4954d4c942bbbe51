#include "cli/formulacommand.h"

#include "calc/formulaevaluator.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "cli/argumentparser.h"
#include "cli/cardopener.h"

#include <QTextStream>

#include <cmath>

QString FormulaCommand::valueText(double value)
{
    if (std::isnan(value))
        return QStringLiteral("nan");   // printf would give "-nan" for some
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("inf") : QStringLiteral("-inf");
    return QString::asprintf("%.17g", value);
}

void FormulaCommand::declareOptions(ArgumentParser &parser) const
{
    parser.addValueOption(QStringLiteral("card"));
    parser.addValueOption(QStringLiteral("record"));
}

int FormulaCommand::run(const ArgumentParser &arguments)
{
    const bool withCard = arguments.isSet(QStringLiteral("card"));
    if (withCard != arguments.isSet(QStringLiteral("record")))
        return usageError(QStringLiteral("--card and --record go together"));

    std::unique_ptr<DataManager> card;
    const DataRecord *record = nullptr;
    const DataRecord *previous = nullptr;
    if (withCard) {
        bool ok = false;
        const int index = arguments.value(QStringLiteral("record")).toInt(&ok);
        if (!ok || index < 0)
            return usageError(QStringLiteral("--record takes a record number from 0"));
        QString error;
        card = CardOpener::open(arguments.value(QStringLiteral("card")), &error);
        if (!card)
            return fail(error);
        if (index >= card->count())
            return fail(QStringLiteral("the card has %1 records").arg(card->count()));
        record = static_cast<const DataRecord *>(card->records().at(index));
        if (index > 0)
            previous = static_cast<const DataRecord *>(card->records().at(index - 1));
    }

    FormulaEvaluator evaluator;
    bool ok = false;
    const double value = evaluator.evaluate(arguments.positional().at(0), &ok, record, previous);
    out() << valueText(value) << ' ' << (ok ? "ok" : "failed") << '\n';
    return Success;
}
