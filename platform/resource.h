#ifndef RESOURCE_H
#define RESOURCE_H

#include <QString>

// The program's read-only files under the platform's folder.
class Resource
{
public:
    // "<platform folder>/sounds/<name>.wav" when that file exists; empty otherwise.
    static QString findSound(const QString &name);
};

#endif
