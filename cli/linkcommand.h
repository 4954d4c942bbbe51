#ifndef LINKCOMMAND_H
#define LINKCOMMAND_H

#include "cli/clicommand.h"

#include <QStringList>

class TransferRunner;

// What serve, send and get share: the --port option and, for the two clients, one run of a
// file list through the link until it is over.
class LinkCommand : public CliCommand
{
protected:
    void declareOptions(ArgumentParser &parser) const override;
    // The port of --port, or the standard one; false when the text is no port.
    static bool port(const ArgumentParser &arguments, quint16 &port);
    // Runs the runner to its end; false when the link failed as a whole (already reported).
    static bool runToEnd(TransferRunner &runner);
};

#endif
