#include "app/mrlapplication.h"
#include "app/mrldb.h"

int main(int argc, char **argv)
{
    MRLApplication app(argc, argv, QStringLiteral("norvika"));
    // A second start hands its document to the program already running, and ends.
    if (app.forwardToRunningInstance())
        return 0;
    MRLDB window;
    // The window keeps its own size and maximised state between runs.
    app.showMainDocumentWidget(&window, true);
    return app.exec();
}
