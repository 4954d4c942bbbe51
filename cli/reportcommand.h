#ifndef REPORTCOMMAND_H
#define REPORTCOMMAND_H

#include "cli/clicommand.h"

// report CARD --record N [--pdf OUT.pdf]: a record as the report view shows it, as text
// lines of label and value, and optionally as the page itself in a PDF file.
class ReportCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("report"); }
    QString synopsis() const override { return QStringLiteral("CARD --record N [--pdf OUT.pdf]"); }
    QString summary() const override
    {
        return QStringLiteral("show record N as the report view does, optionally as a PDF");
    }

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 1; }
    int maxArguments() const override { return 1; }
    int run(const ArgumentParser &arguments) override;
};

#endif
