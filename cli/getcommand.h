#ifndef GETCOMMAND_H
#define GETCOMMAND_H

#include "cli/linkcommand.h"

// "get HOST REMOTE_PATH... [--port N] [--overwrite]": fetches files from a PC Link server
// as the get dialog does, lists the cards among them, and prints where each was stored.
class GetCommand : public LinkCommand
{
public:
    QString name() const override { return QStringLiteral("get"); }
    QString synopsis() const override
    {
        return QStringLiteral("HOST REMOTE_PATH... [--port N] [--overwrite]");
    }
    QString summary() const override;

protected:
    void declareOptions(ArgumentParser &parser) const override;
    int minArguments() const override { return 2; }
    int maxArguments() const override { return 10000; }
    int run(const ArgumentParser &arguments) override;
};

#endif
