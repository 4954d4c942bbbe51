#ifndef SERVECOMMAND_H
#define SERVECOMMAND_H

#include "cli/linkcommand.h"

// "serve [--port N]": makes this home the PC Link server, catalogue included, until SIGINT
// or SIGTERM; received cards join the card list.
class ServeCommand : public LinkCommand
{
public:
    QString name() const override { return QStringLiteral("serve"); }
    QString synopsis() const override { return QStringLiteral("[--port N]"); }
    QString summary() const override;

protected:
    int minArguments() const override { return 0; }
    int maxArguments() const override { return 0; }
    int run(const ArgumentParser &arguments) override;

private:
    static void serveUntilStopped();
};

#endif
