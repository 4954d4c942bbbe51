#include "platform/global.h"

#include "platform/platformpaths.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>

namespace {
// Bounds of one scan, so a huge or looping tree under a mount cannot stall the program.
constexpr int maxScanDepth = 8;
constexpr int maxScannedEntries = 200000;

bool typeMatches(const QString &type, const QStringList &filters)
{
    for (const QString &f : filters) {
        if (f == type)
            return true;
        if (f.endsWith(QLatin1String("/*")) && type.startsWith(f.left(f.size() - 1)))
            return true;
    }
    return false;
}

void scan(const QString &dir, int depth, const QStringList &filters, QStringList &found, int &budget)
{
    const QFileInfoList entries = QDir(dir).entryInfoList(
        QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Readable, QDir::Name);
    for (const QFileInfo &info : entries) {
        if (--budget < 0)
            return;
        if (info.isDir()) {
            if (depth < maxScanDepth && !info.isSymLink())
                scan(info.absoluteFilePath(), depth + 1, filters, found, budget);
        } else if (typeMatches(Global::documentType(info.absoluteFilePath()), filters)) {
            found << info.absoluteFilePath();
        }
    }
}
} // namespace

QString Global::applicationFileName(const QString &appName, const QString &fileName)
{
    const QString dir = PlatformPaths::dataDir() + QLatin1Char('/') + appName;
    QDir().mkpath(dir);
    return dir + QLatin1Char('/') + fileName;
}

QStringList Global::documentRoots()
{
    QStringList roots{PlatformPaths::documentsDir()};
    if (!PlatformPaths::homeRoot().isEmpty())
        return roots;
    const QString user = qEnvironmentVariable("USER");
    for (const QString &media : {QStringLiteral("/media/") + user, QStringLiteral("/run/media/") + user}) {
        const QDir dir(media);
        for (const QString &mount : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            roots << dir.absoluteFilePath(mount);
    }
    return roots;
}

QString Global::documentType(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    // Types of the platform's own that no desktop MIME database knows.
    if (suffix == QLatin1String("card"))
        return QStringLiteral("application/norvika");
    if (suffix == QLatin1String("pdb") || suffix == QLatin1String("prc"))
        return QStringLiteral("palm/database");
    if (suffix == QLatin1String("csv"))
        return QStringLiteral("csv/csv");
    static const QMimeDatabase db;
    return db.mimeTypeForFile(path, QMimeDatabase::MatchExtension).name();
}

QStringList Global::findDocuments(const QString &mimeFilter)
{
    const QStringList filters = mimeFilter.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    QStringList found;
    int budget = maxScannedEntries;
    for (const QString &root : documentRoots())
        scan(root, 0, filters, found, budget);
    return found;
}
