#include "cli/reportcommand.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "cli/argumentparser.h"
#include "cli/cardopener.h"
#include "views/reportdocument.h"
#include "views/reportpage.h"
#include "views/reportsettings.h"

#include <QGuiApplication>
#include <QTextStream>

namespace
{
const QString recordOption = QStringLiteral("record");
const QString pdfOption = QStringLiteral("pdf");

// One row stays one line.
QString oneLine(QString text)
{
    text.replace(QLatin1Char('\t'), QLatin1Char(' '));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return text;
}
} // namespace

void ReportCommand::declareOptions(ArgumentParser &parser) const
{
    parser.addValueOption(recordOption);
    parser.addValueOption(pdfOption);
}

int ReportCommand::run(const ArgumentParser &arguments)
{
    if (!arguments.isSet(recordOption))
        return usageError(QStringLiteral("--record is required"));
    bool ok = false;
    const int index = arguments.value(recordOption).toInt(&ok);
    if (!ok || index < 0)
        return usageError(QStringLiteral("--record takes a record number from 0"));

    QString error;
    const auto card = CardOpener::open(arguments.positional().at(0), &error);
    if (!card)
        return fail(error);
    card->setReadOnly(true);
    if (index >= card->count())
        return fail(QStringLiteral("No record %1.").arg(index));
    const auto *record = static_cast<const DataRecord *>(card->records().at(index));
    const QList<FieldDef> &fields = card->fieldList();

    if (arguments.isSet(pdfOption)) {
        ReportDocument document(record, fields, ReportSettings::read(), QGuiApplication::font());
        if (!document.writePdf(arguments.value(pdfOption)))
            return fail(document.errorString());
    }
    for (int i = 0; i < fields.size(); ++i) {
        out() << oneLine(ReportPage::labelText(fields.at(i))) << '\t'
              << oneLine(ReportPage::valueText(*record, i, fields.at(i))) << '\n';
    }
    return Success;
}
