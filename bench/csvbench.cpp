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

#include <functional>
#include <limits>

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

double cpuMs(const rusage &usage)
{
    const auto ms = [](const timeval &t) { return t.tv_sec * 1e3 + t.tv_usec / 1e3; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

// The processor time of the fastest run, this process and its children together: on a
// machine shared with other work the wall clock also counts the time spent waiting.
double bestCpuMs(int runs, const std::function<void()> &operation)
{
    double fastest = std::numeric_limits<double>::infinity();
    for (int i = 0; i < runs; ++i) {
        rusage self {}, children {};
        getrusage(RUSAGE_SELF, &self);
        getrusage(RUSAGE_CHILDREN, &children);
        const double before = cpuMs(self) + cpuMs(children);
        operation();
        getrusage(RUSAGE_SELF, &self);
        getrusage(RUSAGE_CHILDREN, &children);
        fastest = qMin(fastest, cpuMs(self) + cpuMs(children) - before);
    }
    return fastest;
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

    const auto ourExportRun = [&] { CsvExporter(options()).write(source, ourCsv); };
    const auto peerExportRun = [&] {
        sqliteShell(
            database, { ".mode csv", ".headers on", ".output " + peerCsv, "SELECT * FROM card;" });
    };
    const auto ourImportRun = [&] {
        QFile file(ourCsv);
        file.open(QIODevice::ReadOnly);
        TextLineReader lines(&file, QTextCodec::codecForName("UTF-8"));
        QFile::remove(scratch.filePath(QStringLiteral("in.card")));
        DataManager target(scratch.filePath(QStringLiteral("in.card")));
        CsvImporter(options().format, sampleColumns(), 1, true).run(lines, &target);
        target.forceSave();
    };
    const auto peerImportRun = [&] {
        const QString fresh = scratch.filePath(QStringLiteral("import.sqlite"));
        QFile::remove(fresh);
        sqliteShell(fresh, { ".mode csv", ".import " + peerCsv + " card" });
    };
    Stopwatch stopwatch(runs);
    ResultTable table;
    table.add(QStringLiteral("CSV export / sqlite3 .mode csv output"), stopwatch.best(ourExportRun),
        stopwatch.best(peerExportRun));
    table.add(QStringLiteral("CSV import into a saved card / sqlite3 .import"),
        stopwatch.best(ourImportRun), stopwatch.best(peerImportRun));
    ResultTable cpu;
    cpu.add(QStringLiteral("CSV export, processor time"), bestCpuMs(runs, ourExportRun),
        bestCpuMs(runs, peerExportRun));
    cpu.add(QStringLiteral("CSV import, processor time"), bestCpuMs(runs, ourImportRun),
        bestCpuMs(runs, peerImportRun));

    out << "card: " << card << ", " << source.count() << " records; best of " << runs
        << " runs\n\n";
    out << table.text();
    out << "\nprocessor time (user and system) of the same operations:\n\n" << cpu.text();
    out << "\npeak memory of norvika-cli import csv: " << peak << " KiB\n";
    return 0;
}
