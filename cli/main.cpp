#include "cli/cliapp.h"
#include "platform/localtimezone.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
// Reports paint (fonts, PDF pages), which takes the GUI library, but never a display.
// The session folder it asks for is made as the toolkit would, without its warning.
std::unique_ptr<QCoreApplication> paintingApplication(int &argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QByteArray runtime = QFile::encodeName(
            QDir::tempPath() + QStringLiteral("/runtime-norvika-%1").arg(getuid()));
        mkdir(runtime.constData(), 0700);
        struct stat info {
        };
        // Only a folder of our own that nobody else can enter.
        if (stat(runtime.constData(), &info) == 0 && info.st_uid == getuid()
            && (info.st_mode & 0777) == 0700)
            qputenv("XDG_RUNTIME_DIR", runtime);
    }
    return std::make_unique<QGuiApplication>(argc, argv);
}
} // namespace

int main(int argc, char **argv)
{
    LocalTimeZone::pin();
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const bool paints = CliApp::commandName(arguments) == QLatin1String("report");
    auto app
        = paints ? paintingApplication(argc, argv) : std::make_unique<QCoreApplication>(argc, argv);
    // The name that names the program's folders and channels, as in the desktop program.
    app->setObjectName(QStringLiteral("norvika"));
    return CliApp().run(app->arguments().mid(1));
}
