#include "cardbench.h"
#include "rawfilecost.h"
#include "resulttable.h"
#include "sqlitepeer.h"

#include "card/datamanager.h"
#include "platform/localtimezone.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include <memory>

// norvika-bench CARD [RUNS] [PEER.sqlite]: times the card operations against sqlite3 on the
// same rows and against the raw I/O of the card's bytes, and prints one table. With
// PEER.sqlite the peer's database stays there, for the sqlite3 shell to be measured on.
int main(int argc, char **argv)
{
    LocalTimeZone::pin(); // as the programs do
    QCoreApplication app(argc, argv);
    app.setObjectName(QStringLiteral("norvika"));
    QTextStream out(stdout);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        QTextStream(stderr) << "usage: norvika-bench CARD [RUNS] [PEER.sqlite]\n";
        return 2;
    }
    const QString card = QFileInfo(args.at(1)).absoluteFilePath();
    const int runs = args.size() > 2 ? args.at(2).toInt() : 5;
    QTemporaryDir scratch;

    CardBench ours(card, scratch.path(), runs);
    const QString peerPath
        = args.size() > 3 ? args.at(3) : scratch.filePath(QStringLiteral("peer.sqlite"));
    SqlitePeer peer(peerPath, runs);
    RawFileCost raw(card);
    {
        DataManager source(card);
        source.load();
        if (!peer.import(source)) {
            QTextStream(stderr) << "norvika-bench: sqlite3: " << peer.errorString() << '\n';
            return 1;
        }
        out << "card: " << card << ", " << source.count() << " records, " << raw.size()
            << " bytes; best of " << runs << " runs\n\n";
    }
    Stopwatch stopwatch(runs);
    const double rawRead = stopwatch.best([&] { raw.read(); });
    const double rawWrite
        = stopwatch.best([&] { raw.write(scratch.filePath(QStringLiteral("raw.card"))); });

    ResultTable table;
    table.add(
        QStringLiteral("full load / read all rows"), ours.load(), peer.readAllRows(), rawRead);
    table.add(QStringLiteral("save (atomic, fsync)"), ours.save(), ResultTable::none, rawWrite);
    table.add(QStringLiteral("header-only load"), ours.headerOnlyLoad());
    table.add(QStringLiteral("sort by String / ORDER BY name"), ours.sortBy(0),
        peer.orderBy(QStringLiteral("name")));
    table.add(QStringLiteral("sort by Double / ORDER BY price"), ours.sortBy(2),
        peer.orderBy(QStringLiteral("price")));
    table.add(QStringLiteral("sort by Date / ORDER BY day"), ours.sortBy(3),
        peer.orderBy(QStringLiteral("day")));
    const double contains = ours.acceptAllTextContains(QStringLiteral("river"));
    table.add(QStringLiteral("live find count: contains on All Text Fields / LIKE (%1 matches)")
                  .arg(ours.lastMatches()),
        contains, peer.likeOverTextColumns(QStringLiteral("river")));
    const double find = ours.find(QStringLiteral("river"));
    table.add(QStringLiteral("find, list rebuilt and sorted by String / LIKE (%1 matches)")
                  .arg(ours.lastMatches()),
        find, peer.likeOverTextColumns(QStringLiteral("river")));
    const QDate from(1995, 1, 1);
    const double three = ours.threeConditions(QStringLiteral("t"), 50000, from);
    table.add(QStringLiteral("filter: starts with, at least, on or after / WHERE (%1 matches)")
                  .arg(ours.lastMatches()),
        three, peer.threeConditions(QStringLiteral("t"), 50000, from));
    table.add(QStringLiteral("recalculateAll, formula on previous record"),
        ours.recalculateAllWithPrevious());
    out << table.text();

    const qint64 memory = ours.loadedMemory();
    out << "\nmemory of the loaded card: " << memory / 1024 << " KiB, "
        << QString::number(double(memory) / qMax<qint64>(1, raw.size()), 'f', 2)
        << " x the file size\n";
    return 0;
}
