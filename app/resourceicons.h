#ifndef RESOURCEICONS_H
#define RESOURCEICONS_H

#include <QBitmap>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QStringList>

class QFont;

// Finds the program's pictures by name. A name may hold folders ("std/c07", "icons/12");
// the file is "<name>.png" under the application's own folder or the shared "mrl" folder
// before the common one, and on a high-resolution screen the "pics144" folders go first.
class ResourceIcons
{
public:
    // The files tried for name, in order.
    static QStringList searchPath(
        const QString &name, const QString &base, const QString &app, bool highResolution);
    // The first of searchPath that exists, or an empty text.
    static QString findIn(
        const QString &name, const QString &base, const QString &app, bool highResolution);
    // The file for name under the platform's folder, for this application and screen.
    static QString find(const QString &name);

    // The platform's folder is read once and kept; this forgets it (when the share folder
    // is switched, as tests do).
    static void reset();

    // The size folder (16, 24 or 32) that suits text of the font.
    static int sizeFor(const QFont &font);
};

// The picture of that name, or a null one when there is none.
QImage loadImage(const QString &name);
QPixmap loadPixmap(const QString &name);
QBitmap loadBitmap(const QString &name);
QIcon loadIconSet(const QString &name);
// The picture drawn for text of the font: "16/<name>", "24/<name>" or "32/<name>".
QPixmap loadSizedPixmap(const QString &name, const QFont &font);

#endif
