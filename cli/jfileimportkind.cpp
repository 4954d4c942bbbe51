#include "cli/jfileimportkind.h"

#include "cli/argumentparser.h"
#include "exchange/jfileimporter.h"

namespace
{
const QString formulaFlag = QStringLiteral("formula");
const QString valueFlag = QStringLiteral("value");
const QString dateFormatOption = QStringLiteral("date-format");

QString dateFormat(const ArgumentParser &arguments)
{
    return arguments.isSet(dateFormatOption) ? arguments.value(dateFormatOption)
                                             : JFileImporter::dateFormats().first();
}
} // namespace

QStringList JFileImportKind::flags() const
{
    return { formulaFlag, valueFlag };
}

QStringList JFileImportKind::valueOptions() const
{
    return { dateFormatOption };
}

bool JFileImportKind::check(const ArgumentParser &arguments, QString *message) const
{
    if (arguments.isSet(formulaFlag) && arguments.isSet(valueFlag)) {
        *message = QStringLiteral("--formula and --value exclude each other");
        return false;
    }
    if (!JFileImporter::dateFormats().contains(dateFormat(arguments))) {
        *message = QStringLiteral("unknown date format: %1").arg(dateFormat(arguments));
        return false;
    }
    return true;
}

bool JFileImportKind::import(const QString &file, const ArgumentParser &arguments,
    CardImportTarget *target, QString *message) const
{
    const auto calculated
        = arguments.isSet(valueFlag) ? JFileImporter::ImportValue : JFileImporter::ImportFormula;
    JFileImporter importer(target, dateFormat(arguments), calculated);
    if (importer.import(file))
        return true;
    *message = importer.errorString();
    return false;
}
