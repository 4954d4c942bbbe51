#include "cli/cardopener.h"

#include "card/datamanager.h"

#include <QFileInfo>

namespace {
// A relative name would be taken as a file of the application's folder: make it absolute.
QString absolute(const QString &path)
{
    return QFileInfo(path).absoluteFilePath();
}
} // namespace

std::unique_ptr<DataManager> CardOpener::open(const QString &path, QString *error)
{
    return load(path, false, error);
}

std::unique_ptr<DataManager> CardOpener::openHeader(const QString &path, QString *error)
{
    return load(path, true, error);
}

std::unique_ptr<DataManager> CardOpener::load(
    const QString &path, bool headerOnly, QString *error)
{
    const QString full = absolute(path);
    if (!QFileInfo(full).isFile()) {
        *error = QStringLiteral("%1: no such card").arg(path);
        return nullptr;
    }
    auto manager = std::make_unique<DataManager>(full, false, headerOnly);
    if (!manager->load()) {
        *error = manager->errorString();
        return nullptr;
    }
    return manager;
}

std::unique_ptr<DataManager> CardOpener::create(const QString &path, QString *error)
{
    const QString full = absolute(path);
    if (!QFileInfo(QFileInfo(full).absolutePath()).isDir()) {
        *error = QStringLiteral("%1: the folder does not exist").arg(path);
        return nullptr;
    }
    return std::make_unique<DataManager>(full);
}
