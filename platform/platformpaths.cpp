#include "platform/platformpaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace
{
QString &homeOverride()
{
    static QString dir;
    return dir;
}

QString underHome(
    const QString &sub, QStandardPaths::StandardLocation fallback, const QString &leaf)
{
    const QString root = PlatformPaths::homeRoot();
    if (!root.isEmpty())
        return QDir(root).absoluteFilePath(sub);
    const QString base = QStandardPaths::writableLocation(fallback);
    return leaf.isEmpty() ? base : base + QLatin1Char('/') + leaf;
}
} // namespace

QString PlatformPaths::homeRoot()
{
    if (!homeOverride().isEmpty())
        return homeOverride();
    return qEnvironmentVariable("NORVIKA_HOME");
}

void PlatformPaths::setHomeRoot(const QString &dir)
{
    homeOverride() = dir.isEmpty() ? QString() : QFileInfo(dir).absoluteFilePath();
}

QString PlatformPaths::settingsDir()
{
    return underHome(QStringLiteral("settings"), QStandardPaths::GenericConfigLocation,
        QStringLiteral("norvika"));
}

QString PlatformPaths::dataDir()
{
    return underHome(QStringLiteral("data"), QStandardPaths::GenericDataLocation,
        QStringLiteral("norvika-data"));
}

QString PlatformPaths::documentsDir()
{
    return underHome(QStringLiteral("documents"), QStandardPaths::DocumentsLocation, QString());
}

QString PlatformPaths::shareDir()
{
    const QString fromEnv = qEnvironmentVariable("NORVIKA_SHARE");
    if (!fromEnv.isEmpty())
        return fromEnv;
    if (QCoreApplication::instance()) {
        const QString installed = QCoreApplication::applicationDirPath() + QLatin1Char('/')
            + QStringLiteral(NORVIKA_SHARE_FROM_BINARY);
        if (QFileInfo(installed + QStringLiteral("/pics")).isDir())
            return QDir::cleanPath(installed);
    }
    return QStringLiteral(NORVIKA_BUILD_SHARE_DIR);
}
