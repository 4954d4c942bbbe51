#ifndef IMPORTCOMMAND_H
#define IMPORTCOMMAND_H

#include "cli/clicommand.h"

#include <memory>
#include <vector>

class ImportKind;

// "import KIND FILE [--codec NAME] [kind's options]": makes a new card of FILE as the
// import dialog does, lists it, and prints its path.
class ImportCommand : public CliCommand
{
public:
    ImportCommand();
    ~ImportCommand() override;

    QString name() const override { return QStringLiteral("import"); }
    QString synopsis() const override;
    QString summary() const override;

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 2; }
    int maxArguments() const override { return 2; }
    int run(const ArgumentParser &arguments) override;

private:
    const ImportKind *find(const QString &name) const;
    bool usesForeignOption(
        const ImportKind *kind, const ArgumentParser &arguments, QString *option) const;

    std::vector<std::unique_ptr<ImportKind>> m_kinds;
};

#endif
