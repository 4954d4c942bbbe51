#include "app/mrlapplication.h"
#include "app/mrldb.h"

int main(int argc, char **argv)
{
    MRLApplication app(argc, argv, QStringLiteral("norvika"));
    MRLDB window;
    app.showMainDocumentWidget(&window, false);
    return app.exec();
}
