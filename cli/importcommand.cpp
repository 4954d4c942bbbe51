#include "cli/importcommand.h"

#include "card/datamanager.h"
#include "cli/argumentparser.h"
#include "cli/csvcommandoptions.h"
#include "exchange/csvcolumnscanner.h"
#include "exchange/csvformat.h"
#include "exchange/csvimporter.h"
#include "exchange/csvrowreader.h"
#include "exchange/importedcard.h"
#include "exchange/textlinereader.h"
#include "platform/platformpaths.h"
#include "store/dbmanager.h"
#include "store/mrlpim.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace
{
struct ColumnOption {
    const char *name;
    void (*apply)(CsvColumn &column, const QString &value);
};

// The options that set one member of a column; "--type", "--title" and "--skip" come first.
const ColumnOption columnOptions[] = {
    { "title", [](CsvColumn &c, const QString &v) { c.title = v; } },
    { "thousands", [](CsvColumn &c, const QString &v) { c.format = v; } },
    { "decimal", [](CsvColumn &c, const QString &v) { c.decimal = v; } },
    { "format", [](CsvColumn &c, const QString &v) { c.format = v; } },
    { "multiline",
        [](CsvColumn &c, const QString &v) { c.format = CsvCommandOptions::separator(v); } },
    { "yes-no", [](CsvColumn &c, const QString &v) { c.format = v; } },
    { "base-dir", [](CsvColumn &c, const QString &v) { c.format = v; } },
    { "item-separator",
        [](CsvColumn &c, const QString &v) { c.format = CsvCommandOptions::separator(v); } },
};

// The setting a column of this type starts with before its own options.
QString defaultFormat(int type)
{
    switch (type) {
    case FieldDef::Date:
        return MRLPIM::loadDataList(QStringLiteral("dateFormat")).value(0);
    case FieldDef::Time:
        return MRLPIM::loadDataList(QStringLiteral("timeFormat")).value(0);
    case FieldDef::DateTime:
        return MRLPIM::loadDataList(QStringLiteral("dateTimeFormat")).value(0);
    case FieldDef::Text:
    case FieldDef::Memo:
        return QStringLiteral("\n");
    case FieldDef::Bool:
        return QStringLiteral("Yes/No");
    case FieldDef::MultiList:
        return QStringLiteral(" ");
    default:
        return QString();
    }
}

int typeCode(const QString &text)
{
    bool ok = false;
    const int code = text.toInt(&ok);
    if (ok)
        return code >= 0 && code < FieldDef::TypeCount ? code : -1;
    const QStringList names = FieldDef::typeNames();
    for (int i = 0; i < names.size(); ++i) {
        if (names.at(i).compare(text, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

// "N=VALUE" with N a column from 1; false when it is not that shape.
bool splitColumnValue(const QString &text, int *column, QString *value)
{
    const qsizetype equals = text.indexOf(QLatin1Char('='));
    bool ok = false;
    *column = text.left(equals).toInt(&ok) - 1;
    *value = text.mid(equals + 1);
    return equals > 0 && ok && *column >= 0;
}
} // namespace

QString ImportCommand::synopsis() const
{
    return QStringLiteral(
        "csv FILE [--codec NAME] [--delimiter NAME | --other-delimiter TEXT] [--qualifier TEXT] "
        "[--start-row N] [--titles] [--title N=TEXT] [--type N=TYPE] [--skip N] "
        "[--thousands N=SEP] [--decimal N=SEP] [--format N=CODE] [--multiline N=SEP] "
        "[--yes-no N=PAIR] [--base-dir N=DIR] [--item-separator N=SEP]");
}

void ImportCommand::declareOptions(ArgumentParser &parser) const
{
    CsvCommandOptions::declare(parser);
    parser.addValueOption(QStringLiteral("start-row"));
    parser.addFlag(QStringLiteral("titles"));
    parser.addValueOption(QStringLiteral("type"));
    parser.addValueOption(QStringLiteral("skip"));
    for (const ColumnOption &option : columnOptions)
        parser.addValueOption(QLatin1String(option.name));
}

int ImportCommand::run(const ArgumentParser &arguments)
{
    const QString kind = arguments.positional().at(0);
    if (kind == QLatin1String("csv"))
        return importCsv(arguments);
    return usageError(QStringLiteral("unknown kind of file %1").arg(kind));
}

bool ImportCommand::applyColumnOptions(
    const ArgumentParser &arguments, QList<CsvColumn> *columns, QString *error, bool *usage) const
{
    *usage = true;
    int index = 0;
    QString value;
    const auto column = [&](const QString &option, const QString &text) {
        if (!splitColumnValue(text, &index, &value)) {
            *error = QStringLiteral("--%1 takes N=VALUE with a column N from 1").arg(option);
            return false;
        }
        if (index >= columns->size()) {
            *error
                = QStringLiteral("--%1: the file has %2 columns").arg(option).arg(columns->size());
            *usage = false;
            return false;
        }
        return true;
    };
    int memoColumns = 0;
    for (const QString &text : arguments.values(QStringLiteral("type"))) {
        if (!column(QStringLiteral("type"), text))
            return false;
        const int type = typeCode(value);
        if (type < 0 || type == FieldDef::Reminder || type == FieldDef::Increment) {
            *error = QStringLiteral("--type: %1 is not a type a column can take").arg(value);
            return false;
        }
        (*columns)[index].type = type;
        (*columns)[index].format = defaultFormat(type);
    }
    for (const CsvColumn &c : *columns)
        memoColumns += c.type == FieldDef::Memo ? 1 : 0;
    if (memoColumns > 1) {
        *error = QStringLiteral("--type: Memo is for one column only");
        return false;
    }
    for (const QString &text : arguments.values(QStringLiteral("skip"))) {
        if (!column(QStringLiteral("skip"), text + QStringLiteral("=")))
            return false;
        (*columns)[index].skip = true;
    }
    for (const ColumnOption &option : columnOptions) {
        for (const QString &text : arguments.values(QLatin1String(option.name))) {
            if (!column(QLatin1String(option.name), text))
                return false;
            option.apply((*columns)[index], value);
        }
    }
    return true;
}

int ImportCommand::importCsv(const ArgumentParser &arguments)
{
    CsvFormat format;
    QTextCodec *codec = nullptr;
    QString error;
    if (!CsvCommandOptions::readFormat(arguments, &format, &error)
        || !CsvCommandOptions::readCodec(arguments, QString(), &codec, &error))
        return usageError(error);
    bool ok = true;
    const int startRow = arguments.isSet(QStringLiteral("start-row"))
        ? arguments.value(QStringLiteral("start-row")).toInt(&ok)
        : 1;
    if (!ok || startRow < 1)
        return usageError(QStringLiteral("--start-row takes a row number from 1"));
    const bool titles = arguments.isSet(QStringLiteral("titles"));

    const QString path = arguments.positional().at(1);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("Cannot open file: %1").arg(path));
    TextLineReader lines(&file, codec);

    // Step 2 of the wizard: count the columns.
    CsvRowReader rows(lines, format);
    CsvColumnScanner scanner(titles);
    rows.skipLines(startRow - 1);
    QStringList row;
    CsvRowReader::Status status;
    while ((status = rows.next(&row)) == CsvRowReader::Row)
        scanner.addRow(row);
    if (status == CsvRowReader::Overflow)
        return fail(rows.errorString());
    QList<CsvColumn> columns = scanner.columns();
    bool usage = false;
    if (!applyColumnOptions(arguments, &columns, &error, &usage))
        return usage ? usageError(error) : fail(error);

    // Step 3: the import.
    const QString folder = PlatformPaths::documentsDir();
    QDir().mkpath(folder);
    const QString cardPath = ImportedCard::freePath(folder, QFileInfo(path).completeBaseName());
    if (cardPath.isEmpty())
        return fail(QStringLiteral("no free card name for %1").arg(path));
    ImportedCard target(cardPath, CsvImporter::description(QFileInfo(path).fileName()));
    CsvImporter importer(format, columns, startRow, titles);
    if (importer.run(lines, target.card()) == CsvImporter::Failed)
        return fail(importer.errorString());
    if (importer.unfinishedLine() > 0) {
        QTextStream(stderr) << "norvika-cli: warning: line " << importer.unfinishedLine()
                            << ": a quoted value opened here is never closed; its row is dropped\n";
    }
    DBManager list(false);
    list.load();
    if (!target.finish(&list))
        return fail(target.errorString().replace(QLatin1Char('\n'), QLatin1Char(' ')));
    out() << QFileInfo(cardPath).absoluteFilePath() << '\n';
    return Success;
}
