#ifndef GLOBAL_H
#define GLOBAL_H

#include <QString>
#include <QStringList>

// The platform's small shared services: application data files and the document index.
class Global
{
public:
    // "<data>/<appName>/<fileName>"; the folder is created when missing.
    static QString applicationFileName(const QString &appName, const QString &fileName);

    // Every document under the documents folder and the mounted media whose type matches
    // mimeFilter: MIME types separated by ";", each exact or "major/*".
    static QStringList findDocuments(const QString &mimeFilter);

    // The folders findDocuments scans: the documents folder, then mounted media.
    static QStringList documentRoots();

    // The MIME type the document index gives a file.
    static QString documentType(const QString &path);
};

#endif
