#ifndef CELLSCOMMAND_H
#define CELLSCOMMAND_H

#include "cli/clicommand.h"

#include <QList>

#include <memory>

class DataManager;
class FilterDef;
class PIMRecord;

// cells CARD [--view N] [--filter N] [--sort FIELD] [--descending] [--find TEXT]: the visible
// records as the main window's list shows them, one line each.
class CellsCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("cells"); }
    QString synopsis() const override
    {
        return QStringLiteral(
            "CARD [--view N] [--filter N] [--sort FIELD] [--descending] [--find TEXT]");
    }
    QString summary() const override
    {
        return QStringLiteral("print the record list's cells, one record per line");
    }

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 1; }
    int maxArguments() const override { return 1; }
    int run(const ArgumentParser &arguments) override;

private:
    // Opens the card with the options applied: header-only when its records can be printed
    // as they are read, in file order, else whole.
    std::unique_ptr<DataManager> openSelected(const ArgumentParser &arguments, int *result);
    void printRecord(const DataManager &card, const QList<int> &columns, const PIMRecord &record);
    // Applies the options to the card in memory; an empty text, or what is wrong.
    static QString select(const ArgumentParser &arguments, DataManager &card);
    // "contains" TEXT on all text fields, in place of any other filter.
    static FilterDef findFilter(const QString &text);
};

#endif
