#include "rawfilecost.h"

#include <QFile>

#include <cstdio>
#include <unistd.h>

RawFileCost::RawFileCost(const QString &path) : m_path(path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        m_bytes = file.readAll();
}

void RawFileCost::read() const
{
    QFile file(m_path);
    if (file.open(QIODevice::ReadOnly))
        file.readAll();
}

void RawFileCost::write(const QString &target) const
{
    const QString pending = target + QStringLiteral(".new");
    QFile out(pending);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return;
    out.write(m_bytes);
    out.flush();
    ::fsync(out.handle());
    out.close();
    ::rename(QFile::encodeName(pending).constData(), QFile::encodeName(target).constData());
}
