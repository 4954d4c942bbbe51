#include "stopwatch.h"

#include "app/mrlapplication.h"
#include "app/mrldb.h"
#include "card/datamanager.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "views/listview.h"

#include <QFileInfo>
#include <QTextStream>

namespace {
// The card to come back to: the window opens it as it is shown, without the chooser.
void rememberCard(const QString &path)
{
    DBManager list(false);
    list.load();
    if (!list.findByPath(path))
        list.addCard(path);
    list.save();
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    config.writeEntry(QStringLiteral("card"), path);
}
} // namespace

// norvika-openbench CARD [RUNS]: the time from opening a card in the main window to its
// first page of records drawn, beside the time the card's load alone takes, and how many
// row items the list made for it.
int main(int argc, char **argv)
{
    MRLApplication app(argc, argv, QStringLiteral("norvika"));
    QTextStream out(stdout);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        QTextStream(stderr) << "usage: norvika-openbench CARD [RUNS]\n";
        return 2;
    }
    const QString card = QFileInfo(args.at(1)).absoluteFilePath();
    const Stopwatch stopwatch(args.size() > 2 ? args.at(2).toInt() : 5);
    rememberCard(card);

    MRLDB window;
    window.show();
    app.processEvents();
    // Each run starts with no card open: closing the one before is not part of opening.
    const double open = stopwatch.best(
        [&] {
            window.openCard(card);
            window.records()->viewport()->repaint();
        },
        [&] { window.closeCard(); });
    const double load = stopwatch.best([&] { DataManager(card).load(); });
    const DataManager *opened = window.openedCard();
    if (!opened) {
        QTextStream(stderr) << "norvika-openbench: the card did not open\n";
        return 1;
    }
    out << "| open to first page | load alone | open / load | row items | records |\n"
        << "|---:|---:|---:|---:|---:|\n"
        << "| " << QString::number(open, 'f', 2) << " ms | " << QString::number(load, 'f', 2)
        << " ms | " << QString::number(open / load, 'f', 2) << " | "
        << window.records()->itemCount() << " | " << opened->count() << " |\n";
    return 0;
}
