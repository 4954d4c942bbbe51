#ifndef FORMULACOMMAND_H
#define FORMULACOMMAND_H

#include "cli/clicommand.h"

// formula EXPR [--card CARD --record N]: evaluates a formula, optionally on a record.
class FormulaCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("formula"); }
    QString synopsis() const override { return QStringLiteral("EXPR [--card CARD --record N]"); }
    QString summary() const override
    {
        return QStringLiteral("evaluate a formula, on record N of a card if given");
    }

    // The value as "%.17g" prints it, and "nan", "inf", "-inf" for the others.
    static QString valueText(double value);

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 1; }
    int maxArguments() const override { return 1; }
    int run(const ArgumentParser &arguments) override;
};

#endif
