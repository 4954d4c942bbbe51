#include "cli/cliapp.h"
#include "platform/localtimezone.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    LocalTimeZone::pin();
    QCoreApplication app(argc, argv);
    // The name that names the program's folders and channels, as in the desktop program.
    app.setObjectName(QStringLiteral("norvika"));
    return CliApp().run(app.arguments().mid(1));
}
