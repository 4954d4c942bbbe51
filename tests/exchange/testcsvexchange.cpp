#include "calc/datetimeformat.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "exchange/csvcolumn.h"
#include "exchange/csvexporter.h"
#include "exchange/csvimporter.h"
#include "exchange/csvvalueconverter.h"
#include "exchange/datetimewriter.h"
#include "exchange/textlinereader.h"
#include "reminders/reminder.h"
#include "support/testhome.h"

#include <QFile>
#include <QTest>
#include <QTextCodec>

#include <memory>

// Values into and out of delimited text: the conversion table of the import, the quoting
// and value table of the export, and the round trip with the losses the format has.
class TestCsvExchange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void conversion_data();
    void conversion();
    void quoting_data();
    void quoting();
    void dateWriting_data();
    void dateWriting();
    void exportFile();
    void failedExportKeepsOldFile_data();
    void failedExportKeepsOldFile();
    void roundTrip_data();
    void roundTrip();
};

namespace
{
using F = FieldDef;

std::unique_ptr<DataManager> cardOf(
    const TestHome &home, const QString &name, const QList<int> &types)
{
    auto card = std::make_unique<DataManager>(home.file(name));
    QList<FieldDef> fields;
    for (int type : types) {
        FieldDef field;
        field.title = QStringLiteral("f%1").arg(fields.size());
        field.type = type;
        fields << field;
    }
    card->setFields(fields, true);
    return card;
}

// A field's value in one comparable text form, whatever its type.
QString valueText(const DataRecord &record, int field, int type)
{
    switch (type) {
    case F::Integer:
    case F::Bool:
    case F::Count:
        return QString::number(record.intValue(field));
    case F::Double:
        return QString::number(record.doubleValue(field), 'g', 15);
    case F::Date:
        return record.dateValue(field).toString(Qt::ISODate);
    case F::Time:
        return record.timeValue(field).toString(Qt::ISODate);
    case F::DateTime:
        return record.dateTimeValue(field).toString(Qt::ISODate);
    case F::Memo:
        return record.memo();
    case F::Image:
        return record.image();
    case F::Reminder:
        return record.hasReminder() ? record.reminder()->dateTime.toString(Qt::ISODate) : QString();
    default:
        return record.stringValue(field);
    }
}

void setValueText(DataRecord *record, int field, int type, const QString &text)
{
    switch (type) {
    case F::Integer:
    case F::Bool:
    case F::Count:
        record->setIntValue(field, text.toInt());
        break;
    case F::Double:
        record->setDoubleValue(field, text.toDouble());
        break;
    case F::Date:
        record->setDateValue(field, QDate::fromString(text, Qt::ISODate));
        break;
    case F::Time:
        record->setTimeValue(field, QTime::fromString(text, Qt::ISODate));
        break;
    case F::DateTime:
        record->setDateTimeValue(field, QDateTime::fromString(text, Qt::ISODate));
        break;
    case F::Memo:
        record->setMemo(text);
        break;
    case F::Image:
        record->setImage(text);
        break;
    case F::Reminder: {
        auto *reminder = new Reminder;
        reminder->dateTime = QDateTime::fromString(text, Qt::ISODate);
        record->setReminder(reminder);
        break;
    }
    default:
        record->setStringValue(field, text);
        break;
    }
}

CsvExporter::Options commaOptions()
{
    CsvExporter::Options options;
    options.format.delimiter = QStringLiteral(",");
    options.dateFormat = QStringLiteral("YYYY-MM-DD");
    options.timeFormat = QStringLiteral("hh:mm:ss");
    options.dateTimeFormat = QStringLiteral("YYYY-MM-DD hh:mm:ss");
    return options;
}
} // namespace

void TestCsvExchange::conversion_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    const struct {
        const char *name;
        int type;
        const char *format, *decimal, *input, *expected;
    } rows[] = {
        { "integer with thousands", F::Integer, ",", ".", "1,234,567", "1234567" },
        { "integer that fails is 0", F::Integer, "", ".", "12a", "0" },
        { "count with blank thousands", F::Count, " ", ".", "12 000", "12000" },
        { "repeated removal from the start", F::Integer, "ab", ".", "1aabb2", "12" },
        { "double with both separators", F::Double, ".", ",", "1.234,5", "1234.5" },
        { "double that fails is 0", F::Double, "", ".", "x", "0" },
        { "date by code", F::Date, "DD/MM/YYYY", ".", "03/04/2005", "2005-04-03" },
        { "two-digit year", F::Date, "D.M.YY", ".", "3.4.05", "2005-04-03" },
        { "date that does not fit stays empty", F::Date, "DD/MM/YYYY", ".", "2005-04-03", "" },
        { "time with AM/PM", F::Time, "hh:mm AM/PM", ".", "01:05 PM", "13:05:00" },
        { "twelve AM is midnight", F::Time, "hh:mm AM/PM", ".", "12:30 AM", "00:30:00" },
        { "date-time", F::DateTime, "YYYY-MM-DD hh:mm:ss", ".", "2004-03-07 18:05:09",
            "2004-03-07T18:05:09" },
        { "text separator to line feeds", F::Text, "|", ".", "a|b||c", "a\nb\n\nc" },
        { "text without separator", F::Text, "", ".", "a|b", "a|b" },
        { "memo goes to the memo", F::Memo, " / ", ".", "a / b", "a\nb" },
        { "bool first of the pair", F::Bool, "Y/N", ".", "Y", "1" },
        { "bool compares exactly", F::Bool, "Y/N", ".", "y", "0" },
        { "bool pair of three parts", F::Bool, "a/b/c", ".", "a", "0" },
        { "image to the base directory", F::Image, "/home/p", ".", "/old/pics/a.png",
            "/home/p/a.png" },
        { "multilist drops empty items", F::MultiList, ";", ".", ";x;;y;", "x\ny" },
        { "string as it stands", F::String, "", ".", " a,b ", " a,b " },
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << row.type << QString::fromUtf8(row.format)
                                << QString::fromUtf8(row.decimal) << QString::fromUtf8(row.input)
                                << QString::fromUtf8(row.expected);
}

void TestCsvExchange::conversion()
{
    QFETCH(int, type);
    QFETCH(QString, format);
    QFETCH(QString, decimal);
    QFETCH(QString, input);
    QFETCH(QString, expected);

    TestHome home;
    auto card = cardOf(home, QStringLiteral("c.card"), { type });
    CsvColumn column;
    column.type = type;
    column.format = format;
    column.decimal = decimal;
    DataRecord record(card.get());
    CsvValueConverter(column).store(&record, 0, input);
    QCOMPARE(valueText(record, 0, type), expected);
}

void TestCsvExchange::quoting_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("delimiter");
    QTest::addColumn<QString>("qualifier");
    QTest::addColumn<QString>("expected");
    const struct {
        const char *name, *value, *delimiter, *qualifier, *expected;
    } rows[] = {
        { "qualifier doubled", "a\"b", ",", "\"", "\"a\"\"b\"," },
        { "numbers quoted too", "12", ";", "'", "'12';" },
        { "no qualifier, no need", "ab", ",", "", "ab," },
        { "no qualifier, delimiter inside falls back to \"", "a,b\"c", ",", "", "\"a,b\"\"c\"," },
        { "no qualifier, line feed inside", "a\nb", ",", "", "\"a\nb\"," },
        { "qualifier as a pattern: . doubles all", "ab", ",", ".", "......," },
        { "invalid pattern doubles nothing", "a(b", ",", "(", "(a(b(," },
        { "two-character delimiter", "a", "::", "\"", "\"a\"::" },
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << QString::fromUtf8(row.value) << QString::fromUtf8(row.delimiter)
                                << QString::fromUtf8(row.qualifier)
                                << QString::fromUtf8(row.expected);
}

void TestCsvExchange::quoting()
{
    QFETCH(QString, value);
    QFETCH(QString, delimiter);
    QFETCH(QString, qualifier);
    QFETCH(QString, expected);

    CsvExporter::Options options;
    options.format.delimiter = delimiter;
    options.format.qualifier = qualifier;
    QCOMPARE(CsvExporter(options).quoted(value), expected);
}

void TestCsvExchange::dateWriting_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QString>("expected");

    const QDate day(2005, 4, 3);
    QTest::newRow("padded runs") << "DD/MM/YYYY hh:mm:ss" << day << QTime(7, 5, 9)
                                 << "03/04/2005 07:05:09";
    QTest::newRow("single letters, two-digit year")
        << "D.M.YY h:m:s" << day << QTime(7, 5, 9) << "3.4.05 7:5:9";
    QTest::newRow("noon is 12 PM") << "hh:mm AM/PM" << day << QTime(12, 30) << "12:30 PM";
    QTest::newRow("midnight is 12 AM") << "h:mm AM/PM" << day << QTime(0, 5) << "12:05 AM";
    QTest::newRow("afternoon") << "hh:mm AM/PM" << day << QTime(13, 5) << "01:05 PM";
    QTest::newRow("other characters copied") << "Y_at_M" << day << QTime(0, 0) << "05_at_4";
    QTest::newRow("invalid date writes nothing") << "DD" << QDate() << QTime(0, 0) << "";
    // Where a moment would make an unset time midnight, an unset time is written empty.
    QTest::newRow("invalid time writes nothing") << "hh" << day << QTime() << "";
}

// The code is read once, and the text of a valid moment stays what formatDateTime gives.
void TestCsvExchange::dateWriting()
{
    QFETCH(QString, code);
    QFETCH(QDate, date);
    QFETCH(QTime, time);
    QFETCH(QString, expected);

    QString written = QStringLiteral("x");
    DateTimeWriter(code, DateTimeWriter::BothParts).append(written, date, time);
    QCOMPARE(written, QLatin1Char('x') + expected);
    if (time.isValid())
        QCOMPARE(formatDateTime(QDateTime(date, time), code), expected);
}

void TestCsvExchange::exportFile()
{
    TestHome home;
    auto card = cardOf(home, QStringLiteral("c.card"),
        { F::String, F::Double, F::Date, F::MultiList, F::Memo, F::Reminder, F::Bool });
    DataRecord *record = card->newRecord();
    const QStringList values
        = { "x\ny", "3.14159265", "2005-04-03", "a\nb,c", "m\nn", "2006-01-02T03:04:05", "1" };
    for (int i = 0; i < values.size(); ++i)
        setValueText(record, i, card->field(i).type, values.at(i));
    record->setCreated(QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
    record->setUpdated(QDateTime(QDate(2004, 3, 8), QTime(1, 2, 3)));
    card->insertLoaded(record);

    CsvExporter::Options options = commaOptions();
    options.format.delimiter = QStringLiteral("::");
    options.multilineSeparator = QStringLiteral(" / ");
    const QString path = home.file(QStringLiteral("out.csv"));
    QVERIFY(CsvExporter(options).write(*card, path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(!bytes.startsWith("\xef\xbb\xbf"));
    QCOMPARE(QString::fromUtf8(bytes),
        QStringLiteral("\"f0\"::\"f1\"::\"f2\"::\"f3\"::\"f4\"::\"f5\"::\"f6\"::\"Created "
                       "Date\"::\"Updated Date\"\n"
                       "\"x / y\"::\"3.14159\"::\"2005-04-03\"::\"a;b,c\"::\"m / n\"::\"2006-01-02 "
                       "03:04:05\"::\"1\"::"
                       "\"2004-03-07 18:05:09\"::\"2004-03-08 01:02:03\"\n"));
}

void TestCsvExchange::failedExportKeepsOldFile_data()
{
    QTest::addColumn<bool>("stop");
    QTest::addColumn<QString>("target");

    QTest::newRow("folder missing") << false << "missing/out.csv";
    QTest::newRow("stopped half way") << true << "out.csv";
}

void TestCsvExchange::failedExportKeepsOldFile()
{
    QFETCH(bool, stop);
    QFETCH(QString, target);

    TestHome home;
    auto card = cardOf(home, QStringLiteral("c.card"), { F::String });
    for (int i = 0; i < 200; ++i)
        card->insertLoaded(card->newRecord());
    const QString path = home.file(target);
    QFile old(path);
    if (old.open(QIODevice::WriteOnly))
        old.write("old");
    old.close();

    CsvExporter exporter(commaOptions());
    exporter.setProgressHook([&](int written) { return !stop || written < 100; });
    QVERIFY(!exporter.write(*card, path));
    QCOMPARE(exporter.wasStopped(), stop);
    if (!stop)
        QCOMPARE(exporter.errorString(), QStringLiteral("Cannot write to file:\n%1").arg(path));
    QFile after(path);
    QCOMPARE(after.open(QIODevice::ReadOnly) ? after.readAll() : QByteArray(),
        stop ? QByteArray("old") : QByteArray());
}

void TestCsvExchange::roundTrip_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("importType");
    QTest::addColumn<QString>("importFormat");
    QTest::addColumn<QString>("expected");
    const struct {
        const char *name;
        int type;
        const char *value;
        int importType;
        const char *importFormat, *expected;
    } rows[] = {
        // Plain numbers, dates and lists are covered by the conversion and export tables.
        { "string", F::String, "a, b", F::String, "", "a, b" },
        { "text over lines", F::Text, "a\nb", F::Text, "\n", "a\nb" },
        { "memo", F::Memo, "m\n\"n\"", F::Memo, "\n", "m\n,n," },
        { "bool", F::Bool, "1", F::Bool, "1/0", "1" },
        { "time", F::Time, "13:05:09", F::Time, "hh:mm:ss", "13:05:09" },
        { "date-time", F::DateTime, "2004-03-07T18:05:09", F::DateTime, "YYYY-MM-DD hh:mm:ss",
            "2004-03-07T18:05:09" },
        { "image", F::Image, "pics/a.png", F::Image, "", "pics/a.png" },
        { "multilist", F::MultiList, "x\ny", F::MultiList, ";", "x\ny" },
        // The losses the format has, each exactly as it comes back.
        { "loss: double at 6 digits", F::Double, "3.14159265", F::Double, "", "3.14159" },
        { "loss: qualifier comes back as the delimiter", F::String, "say \"hi\"", F::String, "",
            "say ,hi," },
        { "loss: reminder only as text", F::Reminder, "2006-01-02T03:04:05", F::String, "",
            "2006-01-02 03:04:05" },
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << row.type << QString::fromUtf8(row.value) << row.importType
                                << QString::fromUtf8(row.importFormat)
                                << QString::fromUtf8(row.expected);
}

void TestCsvExchange::roundTrip()
{
    QFETCH(int, type);
    QFETCH(QString, value);
    QFETCH(int, importType);
    QFETCH(QString, importFormat);
    QFETCH(QString, expected);

    TestHome home;
    auto card = cardOf(home, QStringLiteral("c.card"), { type });
    DataRecord *record = card->newRecord();
    setValueText(record, 0, type, value);
    card->insertLoaded(record);
    const QString path = home.file(QStringLiteral("out.csv"));
    QVERIFY(CsvExporter(commaOptions()).write(*card, path));

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    TextLineReader lines(&file, QTextCodec::codecForName("UTF-8"));
    QList<CsvColumn> columns(3);
    columns[0].type = importType;
    columns[0].format = importFormat;
    columns[1].skip = columns[2].skip = true;
    CsvFormat format;
    format.delimiter = QStringLiteral(",");
    auto imported = cardOf(home, QStringLiteral("i.card"), {});
    CsvImporter importer(format, columns, 1, true);
    QCOMPARE(importer.run(lines, imported.get()), CsvImporter::Finished);
    QCOMPARE(importer.count(), 1);
    QCOMPARE(imported->fieldCount(), 1);
    const auto *back = static_cast<const DataRecord *>(imported->records().constFirst());
    QCOMPARE(valueText(*back, 0, importType), expected);
    QVERIFY(!back->hasReminder());
}

QTEST_GUILESS_MAIN(TestCsvExchange)
#include "testcsvexchange.moc"
