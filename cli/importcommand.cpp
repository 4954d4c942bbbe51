#include "cli/importcommand.h"

#include "cli/argumentparser.h"
#include "cli/csvcommandoptions.h"
#include "cli/csvimportkind.h"
#include "cli/jfileimportkind.h"
#include "cli/mobiledbimportkind.h"
#include "exchange/cardimporttarget.h"
#include "store/dbmanager.h"

#include <QTextStream>

namespace
{
const QString codecOption = QStringLiteral("codec");
}

ImportCommand::ImportCommand()
{
    m_kinds.push_back(std::make_unique<MobileDBImportKind>());
    m_kinds.push_back(std::make_unique<JFileImportKind>());
    m_kinds.push_back(std::make_unique<CsvImportKind>());
}

ImportCommand::~ImportCommand() = default;

QString ImportCommand::synopsis() const
{
    QStringList lines;
    for (const auto &kind : m_kinds)
        lines.append(
            QStringLiteral("%1 FILE [--codec NAME] %2").arg(kind->name(), kind->synopsis()));
    return lines.join(QStringLiteral(" | ")).trimmed();
}

QString ImportCommand::summary() const
{
    return QStringLiteral("make a new card of a foreign file, list it and print its path");
}

void ImportCommand::declareOptions(ArgumentParser &parser) const
{
    parser.addValueOption(codecOption);
    for (const auto &kind : m_kinds) {
        for (const QString &flag : kind->flags())
            parser.addFlag(flag);
        for (const QString &option : kind->valueOptions())
            parser.addValueOption(option);
    }
}

int ImportCommand::run(const ArgumentParser &arguments)
{
    const QString kindName = arguments.positional().at(0);
    const ImportKind *kind = find(kindName);
    if (!kind)
        return usageError(QStringLiteral("import what: unknown kind %1").arg(kindName));
    QString message;
    if (usesForeignOption(kind, arguments, &message) || !kind->check(arguments, &message))
        return usageError(message);
    // Without --codec the local 8-bit conversion applies, as the dialog's first entry does.
    QTextCodec *textCodec = nullptr;
    if (!CsvCommandOptions::readCodec(arguments, QString(), &textCodec, &message))
        return usageError(message);

    DBManager list(false);
    list.load();
    list.refreshAll();
    CardImportTarget target(&list, textCodec);
    if (!kind->import(arguments.positional().at(1), arguments, &target, &message))
        return fail(message.replace(u'\n', u' '));
    out() << target.path() << '\n';
    return Success;
}

const ImportKind *ImportCommand::find(const QString &name) const
{
    for (const auto &kind : m_kinds) {
        if (kind->name() == name)
            return kind.get();
    }
    return nullptr;
}

bool ImportCommand::usesForeignOption(
    const ImportKind *kind, const ArgumentParser &arguments, QString *message) const
{
    const QStringList own = kind->flags() + kind->valueOptions();
    for (const auto &other : m_kinds) {
        for (const QString &option : other->flags() + other->valueOptions()) {
            if (!own.contains(option) && arguments.isSet(option)) {
                *message = QStringLiteral("--%1 is not an option of import %2")
                               .arg(option, kind->name());
                return true;
            }
        }
    }
    return false;
}
