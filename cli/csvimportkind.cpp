#include "cli/csvimportkind.h"

#include "card/datamanager.h"
#include "cli/argumentparser.h"
#include "cli/csvcommandoptions.h"
#include "exchange/cardimporttarget.h"
#include "exchange/csvcolumnscanner.h"
#include "exchange/csvformat.h"
#include "exchange/csvimporter.h"
#include "exchange/csvrowreader.h"
#include "exchange/textlinereader.h"
#include "store/mrlpim.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace
{
const QString startRowOption = QStringLiteral("start-row");
const QString titlesFlag = QStringLiteral("titles");
const QString typeOption = QStringLiteral("type");
const QString skipOption = QStringLiteral("skip");

struct ColumnOption {
    const char *name;
    void (*apply)(CsvColumn &column, const QString &value);
};

// The options that set one member of a column; "--type" and "--skip" come first.
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

// The first row to read, from 1; 0 when the option is not a row number.
int startRow(const ArgumentParser &arguments)
{
    if (!arguments.isSet(startRowOption))
        return 1;
    bool ok = false;
    const int row = arguments.value(startRowOption).toInt(&ok);
    return ok && row >= 1 ? row : 0;
}
} // namespace

QString CsvImportKind::synopsis() const
{
    return QStringLiteral(
        "[--delimiter NAME | --other-delimiter TEXT] [--qualifier TEXT] "
        "[--start-row N] [--titles] [--title N=TEXT] [--type N=TYPE] [--skip N] "
        "[--thousands N=SEP] [--decimal N=SEP] [--format N=CODE] [--multiline N=SEP] "
        "[--yes-no N=PAIR] [--base-dir N=DIR] [--item-separator N=SEP]");
}

QStringList CsvImportKind::flags() const
{
    return { titlesFlag };
}

QStringList CsvImportKind::valueOptions() const
{
    QStringList options = { QStringLiteral("delimiter"), QStringLiteral("other-delimiter"),
        QStringLiteral("qualifier"), startRowOption, typeOption, skipOption };
    for (const ColumnOption &option : columnOptions)
        options.append(QLatin1String(option.name));
    return options;
}

bool CsvImportKind::check(const ArgumentParser &arguments, QString *message) const
{
    CsvFormat format;
    if (!CsvCommandOptions::readFormat(arguments, &format, message))
        return false;
    if (startRow(arguments) == 0) {
        *message = QStringLiteral("--start-row takes a row number from 1");
        return false;
    }
    QList<CsvColumn> columns;
    return applyColumnOptions(arguments, &columns, true, message);
}

bool CsvImportKind::applyColumnOptions(
    const ArgumentParser &arguments, QList<CsvColumn> *columns, bool grow, QString *error) const
{
    int index = 0;
    QString value;
    const auto column = [&](const QString &option, const QString &text) {
        if (!splitColumnValue(text, &index, &value)) {
            *error = QStringLiteral("--%1 takes N=VALUE with a column N from 1").arg(option);
            return false;
        }
        while (grow && index >= columns->size())
            columns->append(CsvColumn());
        if (index >= columns->size()) {
            *error
                = QStringLiteral("--%1: the file has %2 columns").arg(option).arg(columns->size());
            return false;
        }
        return true;
    };
    for (const QString &text : arguments.values(typeOption)) {
        if (!column(typeOption, text))
            return false;
        const int type = typeCode(value);
        if (type < 0 || type == FieldDef::Reminder || type == FieldDef::Increment) {
            *error = QStringLiteral("--type: %1 is not a type a column can take").arg(value);
            return false;
        }
        (*columns)[index].type = type;
        (*columns)[index].format = defaultFormat(type);
    }
    int memoColumns = 0;
    for (const CsvColumn &c : *columns)
        memoColumns += c.type == FieldDef::Memo ? 1 : 0;
    if (memoColumns > 1) {
        *error = QStringLiteral("--type: Memo is for one column only");
        return false;
    }
    for (const QString &text : arguments.values(skipOption)) {
        if (!column(skipOption, text + QStringLiteral("=")))
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

bool CsvImportKind::import(const QString &file, const ArgumentParser &arguments,
    CardImportTarget *target, QString *message) const
{
    CsvFormat format;
    CsvCommandOptions::readFormat(arguments, &format, message);
    const int firstRow = startRow(arguments);
    const bool titles = arguments.isSet(titlesFlag);
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        *message = QStringLiteral("Cannot open file: %1").arg(file);
        return false;
    }
    TextLineReader lines(&source, target->codec());

    // Step 2 of the wizard: count the columns.
    CsvRowReader rows(lines, format);
    CsvColumnScanner scanner(titles);
    rows.skipLines(firstRow - 1);
    QStringList row;
    CsvRowReader::Status status;
    while ((status = rows.next(&row)) == CsvRowReader::Row)
        scanner.addRow(row);
    if (status == CsvRowReader::Overflow) {
        *message = rows.errorString();
        return false;
    }
    QList<CsvColumn> columns = scanner.columns();
    if (!applyColumnOptions(arguments, &columns, false, message))
        return false;

    // Step 3: the import.
    if (!target->begin(file, QByteArray(), CsvImporter::description(QFileInfo(file).fileName()))) {
        *message = target->errorString();
        return false;
    }
    CsvImporter importer(format, columns, firstRow, titles);
    if (importer.run(lines, target->card()) == CsvImporter::Failed) {
        *message = importer.errorString();
        return false;
    }
    if (importer.unfinishedLine() > 0) {
        QTextStream(stderr) << "norvika-cli: warning: line " << importer.unfinishedLine()
                            << ": a quoted value opened here is never closed; its row is dropped\n";
    }
    if (target->finish(CsvImporter::fieldsFor(columns)))
        return true;
    *message = target->errorString();
    return false;
}
