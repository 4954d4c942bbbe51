#include "pclink/pclinkpaths.h"

#include "platform/global.h"
#include "platform/platformpaths.h"
#include "store/mrlpim.h"

#include <QDir>
#include <QFileInfo>

QString PCLinkPaths::resolve(const QString &name)
{
    if (QDir::isAbsolutePath(name))
        return name;
    const QString rest = name.mid(3);
    const QString app = MRLPIM::applicationName();
    if (name.startsWith(QLatin1String("[D]")))
        return Global::applicationFileName(app + QStringLiteral("Data"), rest);
    if (rest.endsWith(QLatin1String(".card")))
        return PlatformPaths::documentsDir() + QLatin1Char('/') + rest;
    return Global::applicationFileName(app, rest);
}

bool PCLinkPaths::mayRead(const QString &path, const QStringList &extraFiles)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    if (canonical.isEmpty() || !QFileInfo(canonical).isFile())
        return false;
    for (const QString &extra : extraFiles) {
        if (QFileInfo(extra).canonicalFilePath() == canonical)
            return true;
    }
    for (const QString &root : readRoots()) {
        if (isUnder(canonical, root))
            return true;
    }
    return false;
}

bool PCLinkPaths::mayWrite(const QString &path, const QString &allowed)
{
    const QFileInfo info(path);
    const QString name = info.fileName();
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return false;
    if (info.isSymLink() || (info.exists() && !info.isFile()))
        return false;
    const QString folder = canonicalFolder(path);
    if (folder.isEmpty())
        return false;
    if (!allowed.isEmpty() && folder == canonicalFolder(allowed)
        && name == QFileInfo(allowed).fileName())
        return true;
    const QString documents = QFileInfo(PlatformPaths::documentsDir()).canonicalFilePath();
    return !documents.isEmpty() && isUnder(folder + QLatin1Char('/') + name, documents);
}

QStringList PCLinkPaths::readRoots()
{
    const QString app = MRLPIM::applicationName();
    QStringList roots;
    for (const QString &dir :
        { PlatformPaths::documentsDir(), PlatformPaths::dataDir() + QLatin1Char('/') + app,
            PlatformPaths::dataDir() + QLatin1Char('/') + app + QStringLiteral("Data") }) {
        const QString canonical = QFileInfo(dir).canonicalFilePath();
        if (!canonical.isEmpty())
            roots << canonical;
    }
    return roots;
}

bool PCLinkPaths::isUnder(const QString &canonical, const QString &root)
{
    return canonical.startsWith(root + QLatin1Char('/'));
}

QString PCLinkPaths::canonicalFolder(const QString &path)
{
    return QFileInfo(QFileInfo(path).absolutePath()).canonicalFilePath();
}
