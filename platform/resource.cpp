#include "platform/resource.h"

#include "platform/platformpaths.h"

#include <QFileInfo>

QString Resource::findSound(const QString &name)
{
    if (name.isEmpty())
        return QString();
    const QString path
        = PlatformPaths::shareDir() + QStringLiteral("/sounds/") + name + QStringLiteral(".wav");
    return QFileInfo(path).isFile() ? path : QString();
}
