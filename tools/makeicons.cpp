// Builds the program's picture folders from the icon map and an installed icon theme.
//
//   norvika-makeicons MAP THEME_DIR SHARE_DIR
//
// Every name of MAP becomes SHARE_DIR/pics/[folder/]name.png for a desktop tool bar,
// pics/[folder/]16|24|32/name.png for font-sized icons and pics144/[folder/]name.png
// for high-resolution screens. Each pics/ picture has a "name@2x.png" twin of twice the size,
// which the toolkit takes on a screen of device pixel ratio 2. A picture missing from the
// theme fails the build.
//
//   norvika-makeicons --hicolor CONTEXT/PICTURE THEME_DIR OUT_DIR NAME
//
// writes the one picture as OUT_DIR/<N>x<N>/apps/NAME.png at the sizes a desktop's icon
// theme looks in, for the application's icon in the hicolor theme.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>

namespace
{

const int toolBarSize = 22;
const int highResolutionSize = 32;
const int fontSizes[] = { 16, 24, 32 };
const int themeSizes[] = { 8, 16, 22, 32, 48, 64, 128, 256 };
const int hicolorSizes[] = { 16, 22, 24, 32, 48, 64, 128, 256 };

struct Entry {
    int line = 0;
    QString folder; // empty, or the application's own folder under pics/
    QString name;
    QString source; // context/picture, or "blank"
    int percent = 100;
};

[[noreturn]] void fail(const QString &message)
{
    std::fprintf(stderr, "norvika-makeicons: %s\n", qPrintable(message));
    std::exit(1);
}

Entry parseEntry(const QStringList &words, const QString &where)
{
    Entry entry;
    if (words.size() < 2 || words.size() > 3)
        fail(where + QStringLiteral(": expected \"name source [size=N%]\""));
    entry.name = words.at(0);
    entry.source = words.at(1);
    if (words.size() == 3) {
        static const QRegularExpression sizeOption(QStringLiteral("^size=(\\d{1,3})%$"));
        const QRegularExpressionMatch match = sizeOption.match(words.at(2));
        if (!match.hasMatch() || match.captured(1).toInt() < 10 || match.captured(1).toInt() > 100)
            fail(where
                + QStringLiteral(": bad option \"%1\" (size=10% to size=100%)").arg(words.at(2)));
        entry.percent = match.captured(1).toInt();
    }
    if (entry.name.startsWith(QLatin1Char('/')) || entry.name.contains(QStringLiteral("..")))
        fail(where + QStringLiteral(": the name \"%1\" leaves its folder").arg(entry.name));
    return entry;
}

QList<Entry> readMap(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        fail(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
    QTextStream in(&file);
    QList<Entry> entries;
    QSet<QString> seen;
    QString folder;
    static const QRegularExpression spaces(QStringLiteral("\\s+"));
    for (int number = 1; !in.atEnd(); ++number) {
        const QString line = in.readLine().trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QString where = QStringLiteral("%1:%2").arg(QFileInfo(path).fileName()).arg(number);
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            folder = line.mid(1, line.size() - 2).trimmed();
            continue;
        }
        Entry entry = parseEntry(line.split(spaces), where);
        entry.line = number;
        entry.folder = folder;
        const QString key = folder + QLatin1Char('/') + entry.name;
        if (seen.contains(key))
            fail(where + QStringLiteral(": \"%1\" is mapped twice").arg(entry.name));
        seen.insert(key);
        entries.append(entry);
    }
    return entries;
}

// The theme's file for the picture: the smallest size at least as large as wanted, so
// that scaling only ever shrinks; failing that the largest there is.
QString themeFile(const QString &themeDir, const QString &source, int size)
{
    QString largest;
    for (int themeSize : themeSizes) {
        const QString candidate
            = QStringLiteral("%1/%2x%2/%3.png").arg(themeDir).arg(themeSize).arg(source);
        if (!QFileInfo::exists(candidate))
            continue;
        if (themeSize >= size)
            return candidate;
        largest = candidate;
    }
    return largest;
}

QImage picture(const Entry &entry, const QString &themeDir, int size, const QString &mapName)
{
    const int wanted = qMax(1, size * entry.percent / 100);
    if (entry.source == QLatin1String("blank")) {
        QImage blank(wanted, wanted, QImage::Format_ARGB32);
        blank.fill(Qt::transparent);
        return blank;
    }
    const QString file = themeFile(themeDir, entry.source, wanted);
    if (file.isEmpty())
        fail(QStringLiteral("%1:%2: the picture \"%3\" for \"%4\" is not in %5 "
                            "(is the package oxygen-icon-theme installed?)")
                 .arg(mapName)
                 .arg(entry.line)
                 .arg(entry.source, entry.name, themeDir));
    QImage image(file);
    if (image.isNull())
        fail(QStringLiteral("cannot decode %1").arg(file));
    image = image.convertToFormat(QImage::Format_ARGB32);
    if (image.width() != wanted || image.height() != wanted)
        image = image.scaled(wanted, wanted, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return image;
}

void write(const QImage &image, const QString &path)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        fail(QStringLiteral("cannot create the folder of %1").arg(path));
    if (!image.save(path, "PNG"))
        fail(QStringLiteral("cannot write %1").arg(path));
}

// The twice-as-large twin of a picture's path: "name.png" becomes "name@2x.png".
QString doublePath(const QString &path)
{
    return path.left(path.size() - 4) + QStringLiteral("@2x.png");
}

// The picture and its twin for a screen of device pixel ratio 2.
void writeBoth(const Entry &entry, const QString &themeDir, int size, const QString &mapName,
    const QString &path)
{
    write(picture(entry, themeDir, size, mapName), path);
    write(picture(entry, themeDir, 2 * size, mapName), doublePath(path));
}

QString outputPath(
    const QString &shareDir, const QString &root, const Entry &entry, const QString &sizeFolder)
{
    QString path = shareDir + QLatin1Char('/') + root + QLatin1Char('/');
    if (!entry.folder.isEmpty())
        path += entry.folder + QLatin1Char('/');
    if (!sizeFolder.isEmpty())
        path += sizeFolder + QLatin1Char('/');
    return path + entry.name + QStringLiteral(".png");
}

void build(
    const Entry &entry, const QString &themeDir, const QString &shareDir, const QString &mapName)
{
    const QString pics = QStringLiteral("pics");
    writeBoth(entry, themeDir, toolBarSize, mapName, outputPath(shareDir, pics, entry, QString()));
    for (int size : fontSizes)
        writeBoth(entry, themeDir, size, mapName,
            outputPath(shareDir, pics, entry, QString::number(size)));
    write(picture(entry, themeDir, highResolutionSize, mapName),
        outputPath(shareDir, QStringLiteral("pics144"), entry, QString()));
}

void buildHicolor(
    const QString &source, const QString &themeDir, const QString &outDir, const QString &name)
{
    Entry entry;
    entry.name = name;
    entry.source = source;
    for (int size : hicolorSizes)
        write(picture(entry, themeDir, size, QStringLiteral("--hicolor")),
            QStringLiteral("%1/%2x%2/apps/%3.png").arg(outDir).arg(size).arg(name));
}

void requireTheme(const QString &themeDir)
{
    if (!QFileInfo(themeDir).isDir())
        fail(QStringLiteral("the icon theme folder %1 does not exist "
                            "(install the package oxygen-icon-theme)")
                 .arg(themeDir));
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() == 6 && args.at(1) == QLatin1String("--hicolor")) {
        requireTheme(args.at(3));
        buildHicolor(args.at(2), args.at(3), args.at(4), args.at(5));
        return 0;
    }
    if (args.size() != 4) {
        std::fprintf(stderr,
            "usage: norvika-makeicons MAP THEME_DIR SHARE_DIR\n"
            "       norvika-makeicons --hicolor CONTEXT/PICTURE THEME_DIR OUT_DIR NAME\n");
        return 2;
    }
    const QString mapPath = args.at(1);
    const QString themeDir = args.at(2);
    const QString shareDir = args.at(3);
    requireTheme(themeDir);
    const QList<Entry> entries = readMap(mapPath);
    if (entries.isEmpty())
        fail(QStringLiteral("%1 maps no names").arg(mapPath));
    for (const Entry &entry : entries)
        build(entry, themeDir, shareDir, QFileInfo(mapPath).fileName());
    return 0;
}
