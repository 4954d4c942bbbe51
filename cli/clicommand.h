#ifndef CLICOMMAND_H
#define CLICOMMAND_H

#include <QString>
#include <QStringList>

class ArgumentParser;
class QTextStream;

// One command of norvika-cli. A command declares its options, checks its positional
// arguments and runs; the base class prints help and reports errors in the one form
// the program keeps: "norvika-cli: message" and status 1, or usage and status 2.
class CliCommand
{
public:
    enum Status { Success = 0, Failure = 1, UsageError = 2 };

    virtual ~CliCommand() = default;

    virtual QString name() const = 0;
    virtual QString synopsis() const = 0;   // the arguments after the name, for usage lines
    virtual QString summary() const = 0;    // one line for the program's help

    // Parses the arguments (handling --help and --version) and runs the command.
    int execute(const QStringList &arguments);

    QString usage() const;

protected:
    virtual void declareOptions(ArgumentParser &parser) const;
    // The positional argument counts the command accepts.
    virtual int minArguments() const = 0;
    virtual int maxArguments() const = 0;
    virtual int run(const ArgumentParser &arguments) = 0;

    static QTextStream &out();
    static int fail(const QString &message);
    int usageError(const QString &message) const;
};

#endif
