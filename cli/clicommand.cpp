#include "cli/clicommand.h"

#include "cli/argumentparser.h"

#include <QTextStream>

#include <cstdio>

QTextStream &CliCommand::out()
{
    static QTextStream stream(stdout);
    stream.setEncoding(QStringConverter::Utf8);
    return stream;
}

int CliCommand::fail(const QString &message)
{
    out().flush();
    QTextStream err(stderr);
    err.setEncoding(QStringConverter::Utf8);
    err << "norvika-cli: " << message << '\n';
    return Failure;
}

QString CliCommand::usage() const
{
    return QStringLiteral("usage: norvika-cli [--home DIR] %1 %2").arg(name(), synopsis()).trimmed();
}

int CliCommand::usageError(const QString &message) const
{
    out().flush();
    QTextStream err(stderr);
    err.setEncoding(QStringConverter::Utf8);
    err << "norvika-cli: " << message << '\n' << usage() << '\n';
    return UsageError;
}

void CliCommand::declareOptions(ArgumentParser &) const
{
}

int CliCommand::execute(const QStringList &arguments)
{
    ArgumentParser parser;
    parser.addFlag(QStringLiteral("help"));
    parser.addFlag(QStringLiteral("version"));
    declareOptions(parser);
    if (!parser.parse(arguments))
        return usageError(parser.errorString());
    if (parser.isSet(QStringLiteral("help"))) {
        out() << usage() << '\n' << summary() << '\n';
        out().flush();
        return Success;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        out() << "norvika-cli " << name() << ' ' << NORVIKA_VERSION << '\n';
        out().flush();
        return Success;
    }
    const int count = int(parser.positional().size());
    if (count < minArguments())
        return usageError(QStringLiteral("too few arguments"));
    if (count > maxArguments())
        return usageError(QStringLiteral("too many arguments"));
    const int status = run(parser);
    out().flush();
    return status;
}
