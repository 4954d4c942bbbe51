#include "card/datamanager.h"
#include "card/datarecord.h"
#include "exchange/cardimporttarget.h"
#include "exchange/jfileimporter.h"
#include "exchange/jfilereader.h"
#include "exchange/mobiledbimporter.h"
#include "palmsamples.h"
#include "pdbwriter.h"
#include "store/dbmanager.h"
#include "support/testhome.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTextCodec>
#include <QtEndian>

// Importing MobileDB and JFile files: the schema and values that arrive, and the refusal of
// damaged files without a trace.
class TestPalmImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesMatchWriter();
    void brokenFiles_data();
    void brokenFiles();
    void mobileFields();
    void values_data();
    void values();
    void codecDecidesLabels();
    void jfileFields();
    void jfileImportValue();
    void jfileKeys_data();
    void jfileKeys();
    void jfileDatesAndTimes_data();
    void jfileDatesAndTimes();
    void recordSizes();
};

namespace
{
QString sample(const QString &name)
{
    return TestHome::dataFile(QStringLiteral("palm/") + name);
}

// Imports a sample into the home's documents; returns the new card's path or empty.
QString importSample(
    const QString &name, JFileImporter::Calculated calculated = JFileImporter::ImportFormula)
{
    DBManager list(false);
    list.load();
    CardImportTarget target(&list, nullptr);
    if (name.startsWith(QLatin1String("jfile"))) {
        JFileImporter importer(&target, QStringLiteral("M/D/Y"), calculated);
        return importer.import(sample(name)) ? target.path() : QString();
    }
    MobileDBImporter importer(&target);
    return importer.import(sample(name)) ? target.path() : QString();
}

// A slot as text: dates and times in ISO form, numbers as numbers, unset as "-".
QString slotText(const DataManager &card, const DataRecord *record, int i)
{
    if (!record->isSet(i))
        return QStringLiteral("-");
    switch (card.field(i).type) {
    case FieldDef::Date:
        return record->dateValue(i).toString(Qt::ISODate);
    case FieldDef::Time:
        return record->timeValue(i).toString(QStringLiteral("hh:mm:ss"));
    case FieldDef::Integer:
    case FieldDef::Double:
    case FieldDef::Bool:
    case FieldDef::Increment:
        return QString::number(record->doubleValue(i));
    default:
        return record->stringValue(i);
    }
}

QByteArray fiftyFieldFile(int numFields, const QByteArrayList &extensions)
{
    QList<PdbWriter::JField> fields;
    for (int i = 0; i < 50; ++i)
        fields.append({ "F" + QByteArray::number(i), 1 });
    PdbWriter pdb("Fifty", "JfD5", "JFi5");
    pdb.setAppInfo(PdbWriter::jfileInfo(fields, extensions, numFields));
    return pdb.bytes();
}
} // namespace

// After a deliberate change to the samples, NORVIKA_WRITE_PALM_SAMPLES=1 rewrites the files.
void TestPalmImport::samplesMatchWriter()
{
    const bool write = qEnvironmentVariableIsSet("NORVIKA_WRITE_PALM_SAMPLES");
    const QMap<QString, QByteArray> samples = palmSamples();
    for (auto it = samples.cbegin(); it != samples.cend(); ++it) {
        QFile file(sample(it.key()));
        if (write) {
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(it.value());
            continue;
        }
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(it.key()));
        QVERIFY2(file.readAll() == it.value(), qPrintable(it.key()));
    }
}

void TestPalmImport::brokenFiles_data()
{
    QTest::addColumn<QString>("file");
    const QStringList files = palmSamples().keys();
    for (const QString &file : files) {
        if (!file.endsWith(QLatin1String("-good.pdb")))
            QTest::newRow(qPrintable(file)) << file;
    }
}

void TestPalmImport::brokenFiles()
{
    QFETCH(QString, file);
    for (const bool asJFile : { false, true }) {
        TestHome home;
        DBManager list(false);
        list.load();
        CardImportTarget target(&list, nullptr);
        JFileImporter jfile(&target, QStringLiteral("M/D/Y"), JFileImporter::ImportFormula);
        MobileDBImporter mobile(&target);
        QVERIFY(!(asJFile ? jfile.import(sample(file)) : mobile.import(sample(file))));
        QCOMPARE(asJFile ? jfile.errorString() : mobile.errorString(),
            asJFile ? QStringLiteral("Import failed.\nWrong JFile 5.x file format.")
                    : QStringLiteral("Import failed.\nWrong MobileDB file format."));
        QCOMPARE(QDir(home.documents()).entryList(QDir::Files | QDir::Hidden), QStringList());
        DBManager reloaded(false);
        reloaded.load();
        QCOMPARE(reloaded.records().size(), 0);
    }
}

// Each field as "title|label|type|width|items".
void TestPalmImport::mobileFields()
{
    TestHome home;
    const QString path = importSample(QStringLiteral("mobiledb-good.pdb"));
    QCOMPARE(path, home.documents() + QStringLiteral("/Garden.card"));
    DataManager card(path);
    QVERIFY(card.load());
    QCOMPARE(card.description(), QStringLiteral("MobileDB imported Card [mobiledb-good.pdb]"));
    QCOMPARE(card.icon(), QStringLiteral("12"));
    QStringList fields;
    for (int i = 0; i < card.fieldCount(); ++i) {
        const FieldDef field = card.field(i);
        fields << QStringLiteral("%1|%2|%3|%4|%5")
                      .arg(field.title, field.label)
                      .arg(field.type)
                      .arg(field.width)
                      .arg(field.items.join(QLatin1Char(';')));
    }
    QCOMPARE(fields,
        QStringList({
            "Name|Name|0|100|", // empty type, no line feed: String
            "Count|Count|1|0|", // I, only empty values: Integer
            "Price|Price|2|40|", // I with a point: Double, width by number
            "Born|Born|3|0|", // D
            "At|At|4|0|", // d
            "Ok||10|0|", // B has no label
            "Kind|Kind|9|0|red;green", // L items
            "Notes|Notes|6|0|", // line feed keeps Text
        }));
}

// Rows of both samples, each slot as text.
void TestPalmImport::values_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("records");
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("values");
    const QString mobile = QStringLiteral("mobiledb-good.pdb");
    QTest::newRow("epoch, 3599 s cut to 00:59, Yes is false")
        << mobile << 5 << 0
        << QStringList { "Ann", "0", "1.5", "1904-01-01", "00:59:00", "0", "green",
               "line1\nline2" };
    QTest::newRow("category 3 row, yes is true")
        << mobile << 5 << 1
        << QStringList { "Bob", "0", "2", "1904-01-02", "00:01:00", "1", "red", "x" };
    QTest::newRow("damaged row keeps defaults") << mobile << 5 << 2 << QStringList { "", "0", "0" };
    QTest::newRow("short row: no date or time")
        << mobile << 5 << 3 << QStringList { "Cy", "0", "0", "", "", "0", "", "" };
    QTest::newRow("empty date and time stay unset")
        << mobile << 5 << 4 << QStringList { "Di", "4", "0", "", "", "0", "", "" };
    const QString jfile = QStringLiteral("jfile-good.pdb");
    QTest::newRow(
        "day-month name in 1974, M/D/Y, a formula on a missing previous record fails to 0")
        << jfile << 2 << 0
        << QStringList { "Saw", "3", "2.5", "7.5", "6", "a", "p\nq\nr", "12", "1974-02-03",
               "2003-12-25", "09:30:00", "1", "z", "0" };
    QTest::newRow("unknown month, empty date, hours only, yes is not 1, previous total")
        << jfile << 2 << 1
        << QStringList { "Axe", "0", "0", "0", "0", "b", "", "13", "", "", "07:00:00", "0", "",
               "8.5" };
}

void TestPalmImport::values()
{
    QFETCH(QString, file);
    QFETCH(int, row);
    QFETCH(QStringList, values);
    TestHome home;
    DataManager card(importSample(file));
    QVERIFY(card.load());
    QTEST(int(card.records().size()), "records");
    const auto *record = static_cast<const DataRecord *>(card.records().at(row));
    for (int i = 0; i < values.size(); ++i)
        QCOMPARE(slotText(card, record, i), values.at(i));
}

// The database name and the labels go through the chosen codec.
void TestPalmImport::codecDecidesLabels()
{
    TestHome home;
    PdbWriter pdb("\xEB\xCE\xC9\xC7\xC9", "Mdb1", "Mdb1");
    pdb.addRecord(PdbWriter::mobileRecord({ "\xF0\xD2\xC9" }), 1);
    QFile file(home.file(QStringLiteral("koi8.pdb")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(pdb.bytes());
    file.close();
    DBManager list(false);
    CardImportTarget target(&list, QTextCodec::codecForName("KOI8-R"));
    MobileDBImporter importer(&target);
    QVERIFY(importer.import(file.fileName()));
    QCOMPARE(target.path(), home.documents() + QStringLiteral("/Книги.card"));
    DataManager card(target.path());
    QVERIFY(card.load());
    QCOMPARE(card.field(0).title, QStringLiteral("При"));
}

// Fields by index as "title|type|formula|default|items".
void TestPalmImport::jfileFields()
{
    TestHome home;
    DataManager card(importSample(QStringLiteral("jfile-good.pdb")));
    QVERIFY(card.load());
    QCOMPARE(card.fieldCount(), 14);
    QCOMPARE(card.description(), QStringLiteral("JFile 5.x imported Card [jfile-good.pdb]"));
    const std::pair<int, const char *> expected[] = {
        { 0, "Item|0||none|" }, // String, default by key a
        { 1, "Qty|1|||" }, // after a dropped field
        { 3, "Total|2|[F2] * [F1]||" }, // 70 through the map
        { 4, "Twice|2|2 * [F1]||" }, // 71 constant
        { 5, "Kind|9|||a;b" }, // popup, one item a value
        { 6, "Tags|13||y;x|" }, // MultiList default keeps order
        { 7, "No|14||12;10|" }, // Increment
        { 12, "Odd|0|||" }, // unknown type
        { 13, "Next|2|[F3!] + 1||" }, // 72 previous record
    };
    for (const auto &[index, text] : expected) {
        const FieldDef field = card.field(index);
        QCOMPARE(QStringLiteral("%1|%2|%3|%4|%5")
                     .arg(field.title)
                     .arg(field.type)
                     .arg(field.formula, field.defaultValue, field.items.join(QLatin1Char(';'))),
            QString::fromUtf8(text));
    }
}

void TestPalmImport::jfileImportValue()
{
    TestHome home;
    DataManager card(importSample(QStringLiteral("jfile-good.pdb"), JFileImporter::ImportValue));
    QVERIFY(card.load());
    QCOMPARE(card.field(3).formula, QString());
    QCOMPARE(card.field(3).type, int(FieldDef::Double));
    QCOMPARE(static_cast<const DataRecord *>(card.records().at(0))->doubleValue(3), 7.5);
}

void TestPalmImport::jfileKeys_data()
{
    QTest::addColumn<int>("numFields");
    QTest::addColumn<QByteArrayList>("extensions");
    QTest::addColumn<int>("field");
    QTest::addColumn<QByteArray>("defaultValue");
    QTest::newRow("A is 26") << 50 << QByteArrayList { "defltA", "v" } << 26 << QByteArray("v");
    QTest::newRow("X is 49") << 50 << QByteArrayList { "defltX", "v" } << 49 << QByteArray("v");
    QTest::newRow("z is 25, first value")
        << 50 << QByteArrayList { "defltz", "v", "w" } << 25 << QByteArray("v");
    QTest::newRow("49 fields leave X unread")
        << 49 << QByteArrayList { "defltX", "v" } << 48 << QByteArray();
    QTest::newRow("value before a key dropped")
        << 50 << QByteArrayList { "v", "defltb" } << 1 << QByteArray();
}

void TestPalmImport::jfileKeys()
{
    QFETCH(int, numFields);
    QFETCH(QByteArrayList, extensions);
    QByteArray bytes = fiftyFieldFile(numFields, extensions);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    JFileReader reader;
    QVERIFY(reader.read(&buffer));
    QCOMPARE(reader.fieldCount(), numFields);
    QFETCH(int, field);
    QTEST(reader.fields().at(field).defaultValue, "defaultValue");
}

// A row with a date format reads a date; one without reads a time.
void TestPalmImport::jfileDatesAndTimes_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("option");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QTime>("time");
    QTest::newRow("3 Feb") << "M/D/Y" << 1 << QByteArray("3 Feb") << QDate(1974, 2, 3) << QTime();
    QTest::newRow("month names are exact")
        << "M/D/Y" << 1 << QByteArray("3 feb") << QDate() << QTime();
    QTest::newRow("D.M.Y") << "D.M.Y" << 0 << QByteArray("24.12.2003") << QDate(2003, 12, 24)
                           << QTime();
    QTest::newRow("Y-M-D") << "Y-M-D" << 0 << QByteArray("2003-12-24") << QDate(2003, 12, 24)
                           << QTime();
    QTest::newRow("two-digit year kept")
        << "M/D/Y" << 0 << QByteArray("1/2/03") << QDate(3, 1, 2) << QTime();
    QTest::newRow("missing parts from 1974-07-03")
        << "D/M/Y" << 0 << QByteArray("9") << QDate(1974, 7, 9) << QTime();
    QTest::newRow("empty date") << "M/D/Y" << 0 << QByteArray() << QDate() << QTime();
    QTest::newRow("h:m") << "" << 0 << QByteArray("9:30") << QDate() << QTime(9, 30);
    QTest::newRow("h.m.s") << "" << 0 << QByteArray("9.30.15") << QDate() << QTime(9, 30, 15);
    QTest::newRow("hours alone") << "" << 0 << QByteArray("7") << QDate() << QTime(7, 0);
    QTest::newRow("out of range") << "" << 0 << QByteArray("25:00") << QDate() << QTime();
    QTest::newRow("empty time") << "" << 0 << QByteArray() << QDate() << QTime();
}

void TestPalmImport::jfileDatesAndTimes()
{
    QFETCH(QString, format);
    QFETCH(int, option);
    QFETCH(QByteArray, text);
    if (format.isEmpty()) {
        QTEST(JFileImporter::time(text), "time");
        return;
    }
    DBManager list(false);
    CardImportTarget target(&list, nullptr);
    JFileImporter importer(&target, format, JFileImporter::ImportFormula);
    QTEST(importer.date(text, option), "date");
}

namespace
{
bool readDatabase(QByteArray bytes, PalmDatabase *database)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return database->read(&buffer);
}
} // namespace

// Sizes come from the next offset; a last record past the end gets a negative size.
void TestPalmImport::recordSizes()
{
    PalmDatabase database;
    QVERIFY(readDatabase(PdbWriter("None", "Mdb1", "Mdb1").bytes(), &database));
    QVERIFY(database.records().isEmpty());
    PdbWriter pdb("Sizes", "Mdb1", "Mdb1");
    pdb.addRecord("abcd");
    pdb.addRecord("ef");
    QByteArray bytes = pdb.bytes();
    QVERIFY(readDatabase(bytes, &database));
    QCOMPARE(database.records().at(0).size, qint64(4));
    QCOMPARE(database.records().at(1).size, qint64(2));
    const quint32 pastEnd = qToBigEndian(quint32(bytes.size() + 10));
    bytes.replace(78 + 8, 4, reinterpret_cast<const char *>(&pastEnd), 4);
    QVERIFY(readDatabase(bytes, &database));
    QCOMPARE(database.records().at(1).size, qint64(-10));
}

QTEST_GUILESS_MAIN(TestPalmImport)
#include "testpalmimport.moc"
