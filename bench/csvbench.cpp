#include "resulttable.h"
#include "sqlitepeer.h"
#include "stopwatch.h"

#include "card/datamanager.h"
#include "exchange/csvexporter.h"
#include "exchange/csvimporter.h"
#include "exchange/textlinereader.h"
#include "platform/localtimezone.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QTextStream>

#include <sys/resource.h>

namespace
{
// The column settings that bring the sample card's export back with its types.
QList<CsvColumn> sampleColumns()
{
    const int types[] = { FieldDef::String, FieldDef::Integer, FieldDef::Double, FieldDef::Date,
        FieldDef::Time, FieldDef::DateTime, FieldDef::Text, FieldDef::List, FieldDef::Bool,
        FieldDef::MultiList };
    const char *formats[]
        = { "", "", "", "YYYY-MM-DD", "hh:mm:ss", "YYYY-MM-DD hh:mm:ss", "\n", "", "1/0", ";" };
    QList<CsvColumn> columns;
    for (int i = 0; i < 10; ++i) {
        CsvColumn column;
        column.title = QStringLiteral("f%1").arg(i);
        column.type = types[i];
        column.format = QString::fromLatin1(formats[i]);
        columns << column;
    }
    CsvColumn stamp;
    stamp.skip = true;
    columns << stamp << stamp;
    return columns;
}

CsvExporter::Options options()
{
    CsvExporter::Options options;
    options.format.delimiter = QStringLiteral(",");
    options.dateFormat = QStringLiteral("YYYY-MM-DD");
    options.timeFormat = QStringLiteral("hh:mm:ss");
    options.dateTimeFormat = QStringLiteral("YYYY-MM-DD hh:mm:ss");
    return options;
}

// One run of the sqlite3 shell with the given dot-commands and statements.
bool sqliteShell(const QString &database, const QStringList &commands)
{
    QProcess shell;
    shell.start(QStringLiteral("sqlite3"), QStringList { database } + commands);
    return shell.waitForFinished(-1) && shell.exitCode() == 0;
}

qint64 importPeakKiB(const QString &cli, const QString &csv, const QString &home)
{
    QProcess::execute(
        cli, { "--home", home, "import", "csv", csv, "--delimiter", "comma", "--titles" });
    rusage usage {};
    getrusage(RUSAGE_CHILDREN, &usage);
    return usage.ru_maxrss;
}
} // namespace

// norvika-csvbench CARD NORVIKA_CLI [RUNS]: CSV export and import of the card's rows, ours
// against the sqlite3 shell's ".mode csv" output and ".import" of the same rows.
int main(int argc, char **argv)
{
    LocalTimeZone::pin();
    QCoreApplication app(argc, argv);
    app.setObjectName(QStringLiteral("norvika"));
    const QStringList args = app.arguments();
    if (args.size() < 3) {
        QTextStream(stderr) << "usage: norvika-csvbench CARD NORVIKA_CLI [RUNS]\n";
        return 2;
    }
    const QString card = QFileInfo(args.at(1)).absoluteFilePath();
    const int runs = args.size() > 3 ? args.at(3).toInt() : 3;
    QTemporaryDir scratch;
    const QString ourCsv = scratch.filePath(QStringLiteral("ours.csv"));
    const QString peerCsv = scratch.filePath(QStringLiteral("peer.csv"));
    const QString database = scratch.filePath(QStringLiteral("peer.sqlite"));
    QTextStream out(stdout);

    DataManager source(card);
    source.load();
    SqlitePeer peer(database, runs);
    if (!peer.import(source)) {
        QTextStream(stderr) << "norvika-csvbench: sqlite3: " << peer.errorString() << '\n';
        return 1;
    }
    // Peak memory first, before any other child process runs.
    CsvExporter(options()).write(source, ourCsv);
    const qint64 peak = importPeakKiB(args.at(2), ourCsv, scratch.filePath(QStringLiteral("home")));

    Stopwatch stopwatch(runs);
    const double ourExport = stopwatch.best([&] { CsvExporter(options()).write(source, ourCsv); });
    const double peerExport = stopwatch.best([&] {
        sqliteShell(
            database, { ".mode csv", ".headers on", ".output " + peerCsv, "SELECT * FROM card;" });
    });
    const double ourImport = stopwatch.best([&] {
        QFile file(ourCsv);
        file.open(QIODevice::ReadOnly);
        TextLineReader lines(&file, QTextCodec::codecForName("UTF-8"));
        QFile::remove(scratch.filePath(QStringLiteral("in.card")));
        DataManager target(scratch.filePath(QStringLiteral("in.card")));
        CsvImporter(options().format, sampleColumns(), 1, true).run(lines, &target);
        target.forceSave();
    });
    const double peerImport = stopwatch.best([&] {
        const QString fresh = scratch.filePath(QStringLiteral("import.sqlite"));
        QFile::remove(fresh);
        sqliteShell(fresh, { ".mode csv", ".import " + peerCsv + " card" });
    });

    out << "card: " << card << ", " << source.count() << " records; best of " << runs
        << " runs\n\n";
    ResultTable table;
    table.add(QStringLiteral("CSV export / sqlite3 .mode csv output"), ourExport, peerExport);
    table.add(
        QStringLiteral("CSV import into a saved card / sqlite3 .import"), ourImport, peerImport);
    out << table.text();
    out << "\npeak memory of norvika-cli import csv: " << peak << " KiB\n";
    return 0;
}
