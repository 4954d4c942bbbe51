#ifndef CLIAPP_H
#define CLIAPP_H

#include <QStringList>

#include <memory>
#include <vector>

class CliCommand;

// norvika-cli's entry: the global options (--home, --help, --version) and the
// dispatch to the command named next.
class CliApp
{
public:
    CliApp();
    ~CliApp();

    // arguments without the program name; returns the process status.
    int run(const QStringList &arguments);
    // The command the arguments name, past the global options, or an empty string.
    static QString commandName(const QStringList &arguments);

private:
    CliCommand *find(const QString &name) const;
    void printHelp() const;
    int usageError(const QString &message) const;

    std::vector<std::unique_ptr<CliCommand>> m_commands;
};

#endif
