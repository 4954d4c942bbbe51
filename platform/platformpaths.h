#ifndef PLATFORMPATHS_H
#define PLATFORMPATHS_H

#include <QString>

// Where the program keeps its files on a desktop. NORVIKA_HOME puts all of them
// under one folder (settings/, data/, documents/), which is how tests isolate themselves.
class PlatformPaths
{
public:
    static QString homeRoot();      // NORVIKA_HOME, or empty when the user's usual places are used
    static QString settingsDir();   // Config files
    static QString dataDir();       // application folders (Global::applicationFileName)
    static QString documentsDir();  // where new documents go
    static QString shareDir();      // read-only program files: pics/, etc/, sounds/

    // Overrides NORVIKA_HOME for this process; an empty text returns to the environment.
    static void setHomeRoot(const QString &dir);
};

#endif
