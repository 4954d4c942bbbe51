// Writes the seed corpora of the fuzz harnesses, one folder per harness, from the program's
// own writers: cards, card lists and categories as they are saved, the alarm table, delimited text as the
// export writes it, link messages as the link sends them, the shipped format codes with texts
// they format, and formulas of every form the evaluator knows.
// Usage: norvika-fuzzseeds OUTPUT_FOLDER
#include "calc/datetimeformat.h"
#include "card/datamanager.h"
#include "cli/samplecard.h"
#include "exchange/csvexporter.h"
#include "exchange/palmsamples.h"
#include "pclink/pclinkframe.h"
#include "platform/alarmtable.h"
#include "platform/config.h"
#include "platform/platformpaths.h"
#include "reminders/categorymanager.h"
#include "reminders/categoryrecord.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>

#include <cstdio>

namespace
{
QDir g_out;

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeSeed(const QString &harness, const QString &name, const QByteArray &bytes)
{
    g_out.mkpath(harness);
    QFile file(g_out.filePath(harness + QLatin1Char('/') + name));
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        && file.write(bytes) == bytes.size();
}

QString sampleCard(const QString &folder, int records)
{
    const QString path = folder + QStringLiteral("/sample%1.card").arg(records);
    DataManager card(path);
    SampleCard(std::uint64_t(records) + 1).fill(card, records);
    card.forceSave();
    return path;
}

void writeCards(const QString &folder)
{
    for (const int records : { 0, 1, 3, 20 })
        writeSeed(QStringLiteral("card"), QStringLiteral("sample%1.card").arg(records),
            readFile(sampleCard(folder, records)));
}

void writeCardLists(const QString &folder)
{
    {
        DBManager device(false);
        for (const int records : { 0, 1, 3 })
            device.addCard(sampleCard(folder, records));
        device.forceSave();
        writeSeed(
            QStringLiteral("textstore"), QStringLiteral("device"), readFile(device.fullPath()));
    }
    DBManager extended(true);
    for (int i = 0; i < 3; ++i) {
        auto *entry = static_cast<DBRecord *>(extended.createRecord());
        entry->setTitle(QStringLiteral("Card %1 \"quoted\"\tand tabbed").arg(i));
        entry->setIcon(QStringLiteral("%1").arg(i + 10));
        entry->setDescription(QStringLiteral("Line one\nline two of %1").arg(i));
        entry->setPassword(i == 1 ? QStringLiteral("secret") : QString());
        entry->setPath(folder + QStringLiteral("/card%1.card").arg(i));
        extended.add(entry);
    }
    extended.forceSave();
    writeSeed(
        QStringLiteral("textstore"), QStringLiteral("extended"), readFile(extended.fullPath()));
}

void writeCategories()
{
    CategoryManager store;
    const QList<std::pair<QString, QColor>> categories = { { QStringLiteral("Business"),
        QColor(Qt::blue) }, { QStringLiteral("Personal \"home\""), QColor() },
        { QStringLiteral("Travel\tabroad"), QColor(0x12, 0x34, 0x56) } };
    for (const auto &[title, color] : categories) {
        auto *category = static_cast<CategoryRecord *>(store.createRecord());
        category->setTitle(title);
        category->setTextColor(color);
        category->setLineColor(color.isValid() ? color.lighter() : QColor());
        store.add(category);
    }
    store.forceSave();
    writeSeed(QStringLiteral("categories"), QStringLiteral("store"), readFile(store.fullPath()));
}

void writeAlarms(const QString &folder)
{
    const QString path = folder + QStringLiteral("/alarms");
    {
        AlarmTable table(path);
        const QDateTime start(QDate(2026, 11, 25), QTime(9, 30), Qt::UTC);
        for (int i = 0; i < 4; ++i)
            table.add({ start.addSecs(i * 3600), "norvika",
                QByteArray("alarm(QDateTime,int) #") + QByteArray::number(i), i });
        table.save();
    }
    writeSeed(QStringLiteral("alarms"), QStringLiteral("table"), readFile(path));
}

void writeCsv(const QString &folder)
{
    DataManager card(folder + QStringLiteral("/export.card"));
    card.setReadOnly(true);
    SampleCard(7).fill(card, 6);
    // The harness reads its first byte as the delimiter (low four bits), the qualifier
    // (next two) and the encoding (top two), in the orders it lists them.
    const struct {
        int delimiter;
        int qualifier;
        const char *codec;
        int codecIndex;
    } layouts[] = { { 0, 0, "UTF-8", 0 }, { 3, 0, "ISO-8859-1", 1 }, { 2, 1, "UTF-16LE", 2 },
        { 7, 2, "Windows-1252", 3 } };
    static const QString qualifiers[] = { QStringLiteral("\""), QStringLiteral("'"), QString() };
    for (const auto &layout : layouts) {
        CsvExporter::Options options;
        options.format.delimiter = CsvFormat::delimiterFor(layout.delimiter, false, QString());
        options.format.qualifier = qualifiers[layout.qualifier];
        options.codec = QTextCodec::codecForName(layout.codec);
        const QString path = folder + QStringLiteral("/export.csv");
        CsvExporter(options).write(card, path);
        const char choice = char(layout.delimiter | layout.qualifier << 4 | layout.codecIndex << 6);
        writeSeed(QStringLiteral("csv"), QStringLiteral("export-%1").arg(layout.codecIndex),
            choice + readFile(path));
    }
}

void writeLinkMessages()
{
    const QByteArray offer = PCLinkFrame::message("I",
        { QStringLiteral("/home/u/Documents/Äpfel.card"), QStringLiteral("1234"),
            QStringLiteral("Äpfel.card") });
    writeSeed(QStringLiteral("pclink"), QStringLiteral("offer"), offer);
    writeSeed(QStringLiteral("pclink"), QStringLiteral("request"),
        PCLinkFrame::message("R", { QStringLiteral("norvikaIDX_EXT"), QStringLiteral("list") })
            + PCLinkFrame::message("AOK") + PCLinkFrame::message("FS"));
    writeSeed(QStringLiteral("pclink"), QStringLiteral("answers"),
        PCLinkFrame::message("ACANCEL") + offer + PCLinkFrame::message("R"));
}

void writeFormats()
{
    const QDateTime moment(QDate(2026, 2, 28), QTime(23, 59, 58));
    const QDir defaults(QStringLiteral(NORVIKA_FORMAT_DEFAULTS));
    int n = 0;
    for (const QString &name : defaults.entryList(QDir::Files)) {
        const QList<QByteArray> codes = readFile(defaults.filePath(name)).split('\n');
        for (const QByteArray &code : codes) {
            if (code.isEmpty())
                continue;
            const QString text = formatDateTime(moment, QString::fromUtf8(code));
            writeSeed(QStringLiteral("formats"), QStringLiteral("code%1").arg(n++),
                code + '\n' + text.toUtf8());
        }
    }
}

void writeFormulas()
{
    const char *formulas[] = { "1+2*3", "([F1]+[F2])/2", "[F2!]*1.5-[F1]", "sqrt(abs(-16))",
        "atan(1, 2)+arctan(1)", "sin(cos(tan(0.5)))", "arcsin(0.5)+arccos(0.5)", "-(-(3))^2",
        "2^0.5*[F9]", "1e3/[F1]" };
    int n = 0;
    for (const char *formula : formulas)
        writeSeed(QStringLiteral("formula"), QStringLiteral("formula%1").arg(n++), formula);
}

void writeSettings(const QString &folder)
{
    const QString path = folder + QStringLiteral("/seed.conf");
    {
        Config config(path, Config::File);
        config.setGroup(QStringLiteral("Options"));
        config.writeEntry(QStringLiteral("card"), QStringLiteral("/home/u/Documents/a b.card"));
        config.writeEntry(QStringLiteral("perPage"), 15);
        config.writeEntry(QStringLiteral("sound"), true);
        config.setGroup(QStringLiteral("Colours"));
        config.writeEntry(QStringLiteral("rows"),
            { QStringLiteral("#ffffff"), QStringLiteral("#e0e0ff") }, QLatin1Char(','));
        config.writeEntry(QStringLiteral("memo"), QStringLiteral("two\nlines = and \\ more"));
    }
    writeSeed(QStringLiteral("settings"), QStringLiteral("seed.conf"), readFile(path));
}

void writePalm()
{
    const QMap<QString, QByteArray> samples = palmSamples();
    for (auto it = samples.begin(); it != samples.end(); ++it)
        writeSeed(QStringLiteral("palm"), it.key(), it.value());
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT_FOLDER\n", argv[0]);
        return 2;
    }
    g_out = QDir(QString::fromLocal8Bit(argv[1]));
    g_out.mkpath(QStringLiteral("."));
    QTemporaryDir home;
    PlatformPaths::setHomeRoot(home.path());
    writeCards(home.path());
    writeCardLists(home.path());
    writeCategories();
    writeAlarms(home.path());
    writeCsv(home.path());
    writeLinkMessages();
    writeFormats();
    writeFormulas();
    writeSettings(home.path());
    writePalm();
    return 0;
}
