#include "cli/listcommand.h"

#include "cli/argumentparser.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

QString ListCommand::summary() const
{
    return QStringLiteral("print the card list; --add and --remove change it first");
}

void ListCommand::declareOptions(ArgumentParser &parser) const
{
    parser.addValueOption(QStringLiteral("add"));
    parser.addValueOption(QStringLiteral("remove"));
}

int ListCommand::run(const ArgumentParser &arguments)
{
    DBManager list(false);
    list.load();
    // An entry must know its card's values before a removal can rewrite that card's header.
    list.refreshAll();
    if (arguments.isSet(QStringLiteral("add"))) {
        if (const int status = add(list, arguments.value(QStringLiteral("add"))))
            return status;
    }
    if (arguments.isSet(QStringLiteral("remove"))) {
        if (const int status = remove(list, arguments.value(QStringLiteral("remove"))))
            return status;
    }
    if (!list.save())
        return fail(list.errorString());
    list.rebuildView();
    print(list);
    return Success;
}

QString ListCommand::absolutePath(const QString &argument)
{
    return QDir::cleanPath(QFileInfo(argument).absoluteFilePath());
}

int ListCommand::add(DBManager &list, const QString &argument)
{
    const QString path = absolutePath(argument);
    if (!QFileInfo(path).isFile())
        return fail(QStringLiteral("no such card file: %1").arg(argument));
    list.addCard(path);
    return Success;
}

int ListCommand::remove(DBManager &list, const QString &argument)
{
    DBRecord *record = list.findByPath(argument);
    if (!record)
        record = list.findByPath(absolutePath(argument));
    if (!record)
        return fail(QStringLiteral("not in the card list: %1").arg(argument));
    list.removeCard(record, false);
    return Success;
}

void ListCommand::print(const DBManager &list)
{
    for (const PIMRecord *entry : list.view()) {
        const auto *record = static_cast<const DBRecord *>(entry);
        out() << record->title() << '\t' << (list.isAvailable(record) ? "available" : "unavailable")
              << '\t' << record->path() << '\n';
    }
}
