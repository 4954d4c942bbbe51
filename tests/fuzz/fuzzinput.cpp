#include "fuzzinput.h"

#include "platform/platformpaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace
{
// Every input is a file write and a read: in memory where the system offers a memory file
// system, since on a busy disk the writes would cost more than the readers.
QTemporaryDir &homeDir()
{
    static const QString memory = QStringLiteral("/dev/shm");
    static QTemporaryDir dir(QFileInfo(memory).isWritable()
            ? memory + QStringLiteral("/norvika-fuzz-XXXXXX")
            : QDir::tempPath() + QStringLiteral("/norvika-fuzz-XXXXXX"));
    return dir;
}
} // namespace

QByteArray FuzzInput::bytes(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), qsizetype(size));
}

QString FuzzInput::write(const QString &relative, const uint8_t *data, size_t size)
{
    const QString path = QDir(home()).filePath(relative);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    return path;
}

QString FuzzInput::home()
{
    return homeDir().path();
}

// Readers post events and name their files under the home, so both exist before the first
// input; the application object lives as long as the process.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static QCoreApplication app(*argc, *argv);
    // Readers note damage on the debug channel; at thousands of inputs a second that is noise.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    PlatformPaths::setHomeRoot(FuzzInput::home());
    return 0;
}
