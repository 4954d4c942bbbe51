#ifndef LISTCOMMAND_H
#define LISTCOMMAND_H

#include "cli/clicommand.h"

class DBManager;

// "list [--add CARD] [--remove CARD]": prints the device card list as the chooser shows it,
// one card a line (title, availability, path, separated by TABs), after adding or removing
// an entry if asked.
class ListCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("list"); }
    QString synopsis() const override { return QStringLiteral("[--add CARD] [--remove CARD]"); }
    QString summary() const override;

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 0; }
    int maxArguments() const override { return 0; }
    int run(const ArgumentParser &arguments) override;

private:
    static QString absolutePath(const QString &argument);
    static int add(DBManager &list, const QString &argument);
    static int remove(DBManager &list, const QString &argument);
    static void print(const DBManager &list);
};

#endif
