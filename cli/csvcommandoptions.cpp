#include "cli/csvcommandoptions.h"

#include "cli/argumentparser.h"
#include "exchange/csvformat.h"

#include <QTextCodec>

void CsvCommandOptions::declare(ArgumentParser &parser)
{
    parser.addValueOption(QStringLiteral("codec"));
    parser.addValueOption(QStringLiteral("delimiter"));
    parser.addValueOption(QStringLiteral("other-delimiter"));
    parser.addValueOption(QStringLiteral("qualifier"));
}

bool CsvCommandOptions::readFormat(
    const ArgumentParser &arguments, CsvFormat *format, QString *error)
{
    const QString name = arguments.isSet(QStringLiteral("delimiter"))
        ? arguments.value(QStringLiteral("delimiter"))
        : QStringLiteral("tab");
    const int index = int(CsvFormat::delimiterNames().indexOf(name));
    if (index < 0) {
        *error = QStringLiteral("--delimiter takes one of %1")
                     .arg(CsvFormat::delimiterNames().join(QStringLiteral(", ")));
        return false;
    }
    const bool other = arguments.isSet(QStringLiteral("other-delimiter"));
    format->delimiter
        = CsvFormat::delimiterFor(index, other, arguments.value(QStringLiteral("other-delimiter")));
    if (arguments.isSet(QStringLiteral("qualifier")))
        format->qualifier = arguments.value(QStringLiteral("qualifier"));
    return true;
}

bool CsvCommandOptions::readCodec(
    const ArgumentParser &arguments, const QString &fallback, QTextCodec **codec, QString *error)
{
    const QString name = arguments.isSet(QStringLiteral("codec"))
        ? arguments.value(QStringLiteral("codec"))
        : fallback;
    *codec = name.isEmpty() ? nullptr : QTextCodec::codecForName(name.toLatin1());
    if (!name.isEmpty() && !*codec) {
        *error = QStringLiteral("unknown codec %1").arg(name);
        return false;
    }
    return true;
}

QString CsvCommandOptions::separator(const QString &name)
{
    if (name == QLatin1String("newline"))
        return QStringLiteral("\n");
    if (name == QLatin1String("space"))
        return QStringLiteral(" ");
    return name;
}
