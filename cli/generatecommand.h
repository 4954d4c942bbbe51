#ifndef GENERATECOMMAND_H
#define GENERATECOMMAND_H

#include "cli/clicommand.h"

// generate --records N [--seed S] OUT.card: a card of N deterministic sample records.
class GenerateCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("generate"); }
    QString synopsis() const override { return QStringLiteral("--records N [--seed S] OUT.card"); }
    QString summary() const override
    {
        return QStringLiteral("write a card of N sample records (replaces OUT.card)");
    }

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 1; }
    int maxArguments() const override { return 1; }
    int run(const ArgumentParser &arguments) override;
};

#endif
