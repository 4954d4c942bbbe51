#ifndef FORMATCOMMAND_H
#define FORMATCOMMAND_H

#include "cli/clicommand.h"

// format number CODE VALUE / format datetime CODE DATETIME: the text a format code makes.
class FormatCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("format"); }
    QString synopsis() const override
    {
        return QStringLiteral("number CODE VALUE | datetime CODE YYYY-MM-DDThh:mm:ss");
    }
    QString summary() const override
    {
        return QStringLiteral("print what a number or date-time format code makes of a value");
    }

protected:
    int minArguments() const override { return 3; }
    int maxArguments() const override { return 3; }
    int run(const ArgumentParser &arguments) override;
};

#endif
