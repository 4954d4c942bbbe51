#ifndef PCLINKPATHS_H
#define PCLINKPATHS_H

#include <QString>
#include <QStringList>

// Where the names of the link lead, and which of them a peer may touch here.
// A name is absolute, or a three-character marker and a name: "[D]" for the application's
// data-list folder, anything else ("[A]" by convention) for the application's own places.
class PCLinkPaths
{
public:
    // The local path of a link name. Three characters are cut from every relative name,
    // marker or not. On the desktop cards live in the documents folder, so "[A]" places a
    // card there and the application's other files in its data folder.
    static QString resolve(const QString &name);

    // A regular file inside the documents or application folders, or one of extraFiles
    // (the card list's cards), after symlinks are resolved.
    static bool mayRead(const QString &path, const QStringList &extraFiles);
    // A new or regular, non-symlink file whose folder lies inside the documents folder,
    // or exactly `allowed` (a name this end asked for itself).
    static bool mayWrite(const QString &path, const QString &allowed = QString());

private:
    static QStringList readRoots();
    static bool isUnder(const QString &canonical, const QString &root);
    static QString canonicalFolder(const QString &path);
};

#endif
