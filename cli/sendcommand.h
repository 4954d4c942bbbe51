#ifndef SENDCOMMAND_H
#define SENDCOMMAND_H

#include "cli/linkcommand.h"

// "send HOST CARD... [--port N]": offers each card to a PC Link server as the send dialog
// does, and prints the path of each card that arrived.
class SendCommand : public LinkCommand
{
public:
    QString name() const override { return QStringLiteral("send"); }
    QString synopsis() const override { return QStringLiteral("HOST CARD... [--port N]"); }
    QString summary() const override;

protected:
    int minArguments() const override { return 2; }
    int maxArguments() const override { return 10000; }
    int run(const ArgumentParser &arguments) override;
};

#endif
