#include "support/testhome.h"

#include "platform/platformpaths.h"

#include <QDir>

TestHome::TestHome()
{
    PlatformPaths::setHomeRoot(m_dir.path());
    QDir().mkpath(documents());
}

TestHome::~TestHome()
{
    PlatformPaths::setHomeRoot(QString());
}

QString TestHome::documents() const
{
    return PlatformPaths::documentsDir();
}

QString TestHome::dataFile(const QString &name)
{
    return QStringLiteral(NORVIKA_TEST_DATA "/") + name;
}
