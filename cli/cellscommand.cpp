#include "cli/cellscommand.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "cli/argumentparser.h"
#include "cli/cardopener.h"
#include "views/recordcells.h"

#include <QTextStream>

namespace
{
const QString viewOption = QStringLiteral("view");
const QString filterOption = QStringLiteral("filter");
const QString sortOption = QStringLiteral("sort");
const QString descendingOption = QStringLiteral("descending");
const QString findOption = QStringLiteral("find");

// The number an option holds, or min - 1 when it is no number.
int indexValue(const ArgumentParser &arguments, const QString &option, int min)
{
    bool ok = false;
    const int value = arguments.value(option).toInt(&ok);
    return ok ? value : min - 1;
}

QString cellText(const RecordCells::Cell &cell)
{
    if (cell.isIcon())
        return QLatin1Char('<') + RecordCells::iconName(cell.icon) + QLatin1Char('>');
    QString text = cell.text;
    // One record stays one line.
    text.replace(QLatin1Char('\t'), QLatin1Char(' '));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return text;
}
} // namespace

void CellsCommand::declareOptions(ArgumentParser &parser) const
{
    parser.addValueOption(viewOption);
    parser.addValueOption(filterOption);
    parser.addValueOption(sortOption);
    parser.addFlag(descendingOption);
    parser.addValueOption(findOption);
}

int CellsCommand::run(const ArgumentParser &arguments)
{
    int result = Success;
    const auto card = openSelected(arguments, &result);
    if (!card)
        return result;
    const QList<int> columns = card->currentColumns();
    const auto print = [&](const PIMRecord &record) { printRecord(*card, columns, record); };
    if (card->isHeaderOnly()) {
        // Each record is printed as it is read and then dropped, so a card of any size
        // takes the memory of one record.
        if (!card->visitPassingRecords(print))
            return fail(card->errorString());
        return Success;
    }
    for (const PIMRecord *record : card->view())
        print(*record);
    return Success;
}

std::unique_ptr<DataManager> CellsCommand::openSelected(
    const ArgumentParser &arguments, int *result)
{
    const QString path = arguments.positional().at(0);
    QString error;
    for (const bool headerOnly : { true, false }) {
        auto card = headerOnly ? CardOpener::openHeader(path, &error)
                               : CardOpener::open(path, &error);
        if (!card) {
            *result = fail(error);
            return nullptr;
        }
        // The options choose what to look at for this run only.
        card->setReadOnly(true);
        error = select(arguments, *card);
        if (!error.isEmpty()) {
            *result = usageError(error);
            return nullptr;
        }
        // Without a sort the records show in the order of the file.
        if (!headerOnly || (card->sortColumn() == -1 && card->sortOrder()))
            return card;
    }
    return nullptr;
}

void CellsCommand::printRecord(
    const DataManager &card, const QList<int> &columns, const PIMRecord &record)
{
    QString line = record.uidString();
    const auto &data = static_cast<const DataRecord &>(record);
    for (const RecordCells::Cell &cell : RecordCells::cells(data, card.fieldList(), columns))
        line += QLatin1Char('\t') + cellText(cell);
    out() << line << '\n';
}

QString CellsCommand::select(const ArgumentParser &arguments, DataManager &card)
{
    if (arguments.isSet(findOption) && arguments.isSet(filterOption))
        return QStringLiteral("--find and --filter cannot be used together");
    if (arguments.isSet(viewOption)) {
        const int view = indexValue(arguments, viewOption, -1);
        if (view < -1 || view >= card.views().size())
            return QStringLiteral("--view takes -1 or a view index below %1")
                .arg(card.views().size());
        card.setCurrentView(view);
    }
    if (arguments.isSet(filterOption)) {
        const int filter = indexValue(arguments, filterOption, -1);
        if (filter < -1 || filter >= card.filters().size())
            return QStringLiteral("--filter takes -1 or a filter index below %1")
                .arg(card.filters().size());
        card.setCurrentFilter(filter);
    }
    const bool descending = arguments.isSet(descendingOption);
    if (arguments.isSet(sortOption)) {
        const int field = indexValue(arguments, sortOption, 0);
        if (field < 0 || field >= card.fieldCount())
            return QStringLiteral("--sort takes a field index below %1").arg(card.fieldCount());
        card.setSort(field, !descending);
    } else if (descending) {
        card.setSort(card.sortColumn(), false);
    }
    if (arguments.isSet(findOption))
        card.setAdHocFilter(findFilter(arguments.value(findOption)));
    return QString();
}

// The find the program's find dialog makes from a text typed into its first widgets.
FilterDef CellsCommand::findFilter(const QString &text)
{
    FilterCondition condition;
    condition.field = FilterCondition::AllTextFields;
    condition.op = FilterCondition::Contains;
    condition.text = text;
    FilterDef find;
    find.conditions << condition;
    return find;
}
