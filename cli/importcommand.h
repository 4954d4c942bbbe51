#ifndef IMPORTCOMMAND_H
#define IMPORTCOMMAND_H

#include "cli/clicommand.h"
#include "exchange/csvcolumn.h"

#include <QList>

class DBManager;

// import KIND FILE [options]: a new card made from a foreign file, as the import dialog
// makes it. Each kind is one branch of run(); "csv" runs the three steps of the text
// wizard in one go.
class ImportCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("import"); }
    QString synopsis() const override;
    QString summary() const override
    {
        return QStringLiteral("make a new card from a foreign file and print its path");
    }

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 2; }
    int maxArguments() const override { return 2; }
    int run(const ArgumentParser &arguments) override;

private:
    int importCsv(const ArgumentParser &arguments);
    // Applies the per-column options to the columns the file has; false with a message.
    bool applyColumnOptions(const ArgumentParser &arguments, QList<CsvColumn> *columns,
        QString *error, bool *usage) const;
};

#endif
