#ifndef CLIRUNNER_H
#define CLIRUNNER_H

#include <QByteArray>
#include <QStringList>

// Runs norvika-cli in a child process with the given home and standard input.
struct CliResult
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

CliResult runCli(const QString &home, const QStringList &arguments, const QByteArray &input = {});

#endif
