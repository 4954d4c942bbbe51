#include "app/mrlapplication.h"
#include "app/mrldb.h"
#include "app/resourceicons.h"
#include "platform/stopsignals.h"

#include <QIcon>

int main(int argc, char **argv)
{
    MRLApplication app(argc, argv, QStringLiteral("norvika"));
    // A second start hands its document to the program already running, and ends.
    if (app.forwardToRunningInstance())
        return 0;
    // Desktops match the window to the installed menu entry and icon by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral(NORVIKA_APP_ID));
    QGuiApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral(NORVIKA_APP_ID), loadIconSet(QStringLiteral("cards"))));
    MRLDB window;
    // Stopped by the session or a terminal, the program quits as Exit does: the card is saved.
    StopSignals stopSignals;
    QObject::connect(&stopSignals, &StopSignals::stopRequested, &app, &QCoreApplication::quit);
    // The window keeps its own size and maximised state between runs.
    app.showMainDocumentWidget(&window, true);
    return app.exec();
}
