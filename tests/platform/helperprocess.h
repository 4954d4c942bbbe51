#ifndef HELPERPROCESS_H
#define HELPERPROCESS_H

#include <QString>
#include <QStringList>

// Runs the platform helper (a second process of the program) with the test's home, while
// this process's event loop keeps serving, and returns its exit code (-1 if it crashed or hung).
class HelperProcess
{
public:
    static int run(const QString &home, const QStringList &arguments,
        const QString &workingDirectory = QString());
};

#endif
