#include "app/resourceicons.h"

#include "app/mrlapplication.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGuiApplication>

namespace
{
QString &keptBase()
{
    static QString base;
    return base;
}

// The twice-as-large twin that the icon build writes beside a picture, for a screen of
// device pixel ratio 2; empty when there is none.
QString sharpTwin(const QString &file)
{
    const QString twin = file.left(file.size() - 4) + QStringLiteral("@2x.png");
    return QFileInfo(twin).isFile() ? twin : QString();
}

qreal screenRatio()
{
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance())
        ? qGuiApp->devicePixelRatio()
        : 1.0;
}
} // namespace

QStringList ResourceIcons::searchPath(
    const QString &name, const QString &base, const QString &app, bool highResolution)
{
    const bool ownFolder = !app.isEmpty();
    QStringList patterns;
    if (highResolution) {
        if (ownFolder)
            patterns << QStringLiteral("/pics144/") + app + QStringLiteral("/%1.png");
        patterns << QStringLiteral("/pics144/mrl/%1.png");
    }
    if (ownFolder)
        patterns << QStringLiteral("/pics/") + app + QStringLiteral("/%1.png");
    patterns << QStringLiteral("/pics/mrl/%1.png");
    if (highResolution)
        patterns << QStringLiteral("/pics144/%1.png");
    patterns << QStringLiteral("/pics/%1.png");

    QStringList files;
    for (const QString &pattern : std::as_const(patterns))
        files << base + pattern.arg(name);
    return files;
}

QString ResourceIcons::findIn(
    const QString &name, const QString &base, const QString &app, bool highResolution)
{
    if (name.isEmpty())
        return QString();
    const QStringList files = searchPath(name, base, app, highResolution);
    for (const QString &file : files) {
        if (QFileInfo(file).isFile())
            return file;
    }
    return QString();
}

QString ResourceIcons::find(const QString &name)
{
    if (keptBase().isEmpty())
        keptBase() = MRLApplication::qpeDir();
    const QString app = QCoreApplication::instance() ? qApp->objectName() : QString();
    return findIn(name, keptBase(), app, MRLApplication::isHighResolution());
}

void ResourceIcons::reset()
{
    keptBase().clear();
}

int ResourceIcons::sizeFor(const QFont &font)
{
    const int height = QFontMetrics(font).height();
    if (height < 17)
        return 16;
    if (height < 25)
        return 24;
    return 32;
}

QImage loadImage(const QString &name)
{
    const QString file = ResourceIcons::find(name);
    return file.isEmpty() ? QImage() : QImage(file);
}

QPixmap loadPixmap(const QString &name)
{
    const QString file = ResourceIcons::find(name);
    if (file.isEmpty())
        return QPixmap();
    const QString twin = screenRatio() > 1 ? sharpTwin(file) : QString();
    if (twin.isEmpty())
        return QPixmap(file);
    QPixmap sharp(twin);
    sharp.setDevicePixelRatio(2);
    return sharp;
}

QBitmap loadBitmap(const QString &name)
{
    const QString file = ResourceIcons::find(name);
    return file.isEmpty() ? QBitmap() : QBitmap(file);
}

// The toolkit adds the "@2x" twin of the file itself and draws whichever suits the screen.
QIcon loadIconSet(const QString &name)
{
    const QString file = ResourceIcons::find(name);
    return file.isEmpty() ? QIcon() : QIcon(file);
}

QPixmap loadSizedPixmap(const QString &name, const QFont &font)
{
    return loadPixmap(QStringLiteral("%1/%2").arg(ResourceIcons::sizeFor(font)).arg(name));
}
