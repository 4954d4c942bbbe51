#include "cli/exportcommand.h"

#include "card/datamanager.h"
#include "cli/argumentparser.h"
#include "cli/cardopener.h"
#include "cli/csvcommandoptions.h"
#include "exchange/csvexporter.h"
#include "store/mrlpim.h"

namespace
{
// Without the option, the first entry of the dialog's selector for that format.
QString formatOption(const ArgumentParser &arguments, const QString &option, const QString &list)
{
    if (arguments.isSet(option))
        return arguments.value(option);
    return MRLPIM::loadDataList(list).value(0);
}
} // namespace

void ExportCommand::declareOptions(ArgumentParser &parser) const
{
    CsvCommandOptions::declare(parser);
    parser.addValueOption(QStringLiteral("date-format"));
    parser.addValueOption(QStringLiteral("time-format"));
    parser.addValueOption(QStringLiteral("datetime-format"));
    parser.addValueOption(QStringLiteral("multiline"));
}

int ExportCommand::run(const ArgumentParser &arguments)
{
    CsvExporter::Options options;
    QString error;
    if (!CsvCommandOptions::readFormat(arguments, &options.format, &error)
        || !CsvCommandOptions::readCodec(
            arguments, QStringLiteral("UTF-8"), &options.codec, &error))
        return usageError(error);
    options.dateFormat
        = formatOption(arguments, QStringLiteral("date-format"), QStringLiteral("dateFormat"));
    options.timeFormat
        = formatOption(arguments, QStringLiteral("time-format"), QStringLiteral("timeFormat"));
    options.dateTimeFormat = formatOption(
        arguments, QStringLiteral("datetime-format"), QStringLiteral("dateTimeFormat"));
    if (arguments.isSet(QStringLiteral("multiline")))
        options.multilineSeparator
            = CsvCommandOptions::separator(arguments.value(QStringLiteral("multiline")));

    auto card = CardOpener::open(arguments.positional().at(0), &error);
    if (!card)
        return fail(error);
    card->setReadOnly(true);
    CsvExporter exporter(options);
    if (!exporter.write(*card, arguments.positional().at(1)))
        return fail(exporter.errorString().replace(QLatin1Char('\n'), QLatin1Char(' ')));
    return Success;
}
