#ifndef TESTHOME_H
#define TESTHOME_H

#include <QString>
#include <QTemporaryDir>

// A fresh, empty home for every file the program keeps (settings, data, documents),
// removed again when the object goes. Tests make one per case so none sees another's files.
class TestHome
{
public:
    TestHome();
    ~TestHome();

    QString path() const { return m_dir.path(); }
    QString documents() const;
    QString file(const QString &relative) const { return m_dir.filePath(relative); }
    // A file of tests/data.
    static QString dataFile(const QString &name);

private:
    QTemporaryDir m_dir;
};

#endif
