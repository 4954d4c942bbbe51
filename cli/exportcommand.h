#ifndef EXPORTCOMMAND_H
#define EXPORTCOMMAND_H

#include "cli/clicommand.h"

// export CARD OUT.csv [options]: every record of the card as delimited text.
class ExportCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("export"); }
    QString synopsis() const override
    {
        return QStringLiteral(
            "CARD OUT.csv [--delimiter NAME | --other-delimiter TEXT] [--qualifier TEXT] "
            "[--codec NAME] [--date-format CODE] [--time-format CODE] [--datetime-format CODE] "
            "[--multiline SEP]");
    }
    QString summary() const override
    {
        return QStringLiteral("write every record of a card to a CSV file (replaces OUT.csv)");
    }

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 2; }
    int maxArguments() const override { return 2; }
    int run(const ArgumentParser &arguments) override;
};

#endif
