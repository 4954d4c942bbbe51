#include "cli/cliapp.h"

#include "cli/addcommand.h"
#include "cli/cellscommand.h"
#include "cli/clicommand.h"
#include "cli/dumpcommand.h"
#include "cli/exportcommand.h"
#include "cli/formatcommand.h"
#include "cli/formulacommand.h"
#include "cli/generatecommand.h"
#include "cli/importcommand.h"
#include "cli/getcommand.h"
#include "cli/listcommand.h"
#include "cli/sendcommand.h"
#include "cli/servecommand.h"
#include "cli/reportcommand.h"
#include "cli/setfieldscommand.h"
#include "platform/platformpaths.h"

#include <QTextStream>

#include <cstdio>

CliApp::CliApp()
{
    m_commands.push_back(std::make_unique<DumpCommand>());
    m_commands.push_back(std::make_unique<CellsCommand>());
    m_commands.push_back(std::make_unique<FormulaCommand>());
    m_commands.push_back(std::make_unique<FormatCommand>());
    m_commands.push_back(std::make_unique<SetFieldsCommand>());
    m_commands.push_back(std::make_unique<AddCommand>());
    m_commands.push_back(std::make_unique<GenerateCommand>());
    m_commands.push_back(std::make_unique<ListCommand>());
    m_commands.push_back(std::make_unique<ImportCommand>());
    m_commands.push_back(std::make_unique<ServeCommand>());
    m_commands.push_back(std::make_unique<SendCommand>());
    m_commands.push_back(std::make_unique<GetCommand>());
    m_commands.push_back(std::make_unique<ReportCommand>());
    m_commands.push_back(std::make_unique<ExportCommand>());
}

CliApp::~CliApp() = default;

CliCommand *CliApp::find(const QString &name) const
{
    for (const auto &command : m_commands) {
        if (command->name() == name)
            return command.get();
    }
    return nullptr;
}

void CliApp::printHelp() const
{
    QTextStream out(stdout);
    out.setEncoding(QStringConverter::Utf8);
    out << "usage: norvika-cli [--home DIR] COMMAND [ARGS...]\n"
           "Works on Norvika's cards without a display.\n\n"
           "Options:\n"
           "  --home DIR   keep every file (settings, data, documents) under DIR\n"
           "               (default: $NORVIKA_HOME, else the user's usual places)\n"
           "  --help       show this help; COMMAND --help shows a command's\n"
           "  --version    show the version\n";
    if (!m_commands.empty())
        out << "\nCommands:\n";
    for (const auto &command : m_commands)
        out << "  " << command->name().leftJustified(12) << ' ' << command->summary() << '\n';
}

int CliApp::usageError(const QString &message) const
{
    QTextStream err(stderr);
    err.setEncoding(QStringConverter::Utf8);
    err << "norvika-cli: " << message << '\n'
        << "usage: norvika-cli [--home DIR] COMMAND [ARGS...]  (norvika-cli --help lists the "
           "commands)\n";
    return CliCommand::UsageError;
}

QString CliApp::commandName(const QStringList &arguments)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments.at(i) == QLatin1String("--home"))
            ++i;
        else if (!arguments.at(i).startsWith(QLatin1String("--")))
            return arguments.at(i);
    }
    return QString();
}

int CliApp::run(const QStringList &arguments)
{
    qsizetype i = 0;
    for (; i < arguments.size(); ++i) {
        const QString &arg = arguments.at(i);
        if (arg == QLatin1String("--help")) {
            printHelp();
            return CliCommand::Success;
        }
        if (arg == QLatin1String("--version")) {
            QTextStream(stdout) << "norvika-cli " << NORVIKA_VERSION << '\n';
            return CliCommand::Success;
        }
        if (arg == QLatin1String("--home")) {
            if (++i >= arguments.size())
                return usageError(QStringLiteral("option --home needs a value"));
            PlatformPaths::setHomeRoot(arguments.at(i));
            continue;
        }
        if (arg.startsWith(QLatin1String("--")))
            return usageError(QStringLiteral("unknown option %1").arg(arg));
        break;
    }
    if (i >= arguments.size())
        return usageError(QStringLiteral("no command given"));
    CliCommand *command = find(arguments.at(i));
    if (!command)
        return usageError(QStringLiteral("unknown command %1").arg(arguments.at(i)));
    return command->execute(arguments.mid(i + 1));
}
