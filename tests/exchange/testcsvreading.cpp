#include "exchange/csvformat.h"
#include "exchange/csvlineparser.h"
#include "exchange/csvrowreader.h"
#include "exchange/textlinereader.h"

#include <QBuffer>
#include <QTest>
#include <QTextCodec>

// The line parser keeps the rules old files were written against, quirks included, and the
// row reader bounds whatever a file holds.
class TestCsvReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parser_data();
    void parser();
    void rows_data();
    void rows();
    void longValuesStop_data();
    void longValuesStop();
};

void TestCsvReading::parser_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("delimiter");
    QTest::addColumn<QString>("qualifier");
    QTest::addColumn<QStringList>("before"); // values of an open row, continued
    QTest::addColumn<int>("result");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<bool>("open");

    const QString c = QStringLiteral(",");
    const QString q = QStringLiteral("\"");
    const int ok = CsvLineParser::Success;
    const int failure = CsvLineParser::Failure;
    QTest::newRow("plain") << "a,b,c" << c << q << QStringList() << ok
                           << QStringList { "a", "b", "c" } << false;
    QTest::newRow("trailing delimiter gives no empty value")
        << "a,b," << c << q << QStringList() << ok << QStringList { "a", "b" } << false;
    QTest::newRow("empty value inside")
        << "a,,b" << c << q << QStringList() << ok << QStringList { "a", "", "b" } << false;
    QTest::newRow("delimiter inside quotes")
        << "\"a,b\",c" << c << q << QStringList() << ok << QStringList { "a,b", "c" } << false;
    QTest::newRow("doubled qualifier becomes the delimiter")
        << "\"a\"\"b\"" << c << q << QStringList() << ok << QStringList { "a,b" } << false;
    QTest::newRow("doubled qualifier becomes a tab")
        << "\"a\"\"b\""
        << "\t" << q << QStringList() << ok << QStringList { "a\tb" } << false;
    QTest::newRow("text behind a closing qualifier is the next value")
        << "\"a\"b,c" << c << q << QStringList() << ok << QStringList { "a", "b", "c" } << false;
    QTest::newRow("two-character delimiter skips one behind quotes")
        << "\"a\"::b"
        << "::" << q << QStringList() << ok << QStringList { "a", ":b" } << false;
    QTest::newRow("two-character delimiter skips one unquoted")
        << "a::b"
        << "::" << q << QStringList() << ok << QStringList { "a", ":b" } << false;
    QTest::newRow("blank before a qualifier makes it plain")
        << " \"a,b\"" << c << q << QStringList() << ok << QStringList { " \"a", "b\"" } << false;
    QTest::newRow("value opens across lines")
        << "x,\"abc" << c << q << QStringList() << ok << QStringList { "x", "abc\n" } << true;
    QTest::newRow("open value closes") << "def\",y" << c << q << QStringList { "abc\n" } << ok
                                       << QStringList { "abc\ndef", "y" } << false;
    QTest::newRow("empty line inside an open value disappears")
        << "" << c << q << QStringList { "abc\n" } << ok << QStringList { "abc\n" } << true;
    QTest::newRow("open value goes on with doubled qualifiers")
        << "d\"\"e" << c << q << QStringList { "abc\n" } << ok << QStringList { "abc\nd,e\n" }
        << true;
    QTest::newRow("line ends after an opening qualifier")
        << "a,\"" << c << q << QStringList() << failure << QStringList { "a" } << false;
    QTest::newRow("line ends after a doubled qualifier")
        << "\"ab\"\"" << c << q << QStringList() << failure << QStringList() << false;
    QTest::newRow("empty qualifier: all unquoted") << "\"a,b\"" << c << QString() << QStringList()
                                                   << ok << QStringList { "\"a", "b\"" } << false;
    QTest::newRow("qualifier of two characters never quotes")
        << "''a,b''" << c << "''" << QStringList() << ok << QStringList { "''a", "b''" } << false;
    QTest::newRow("delimiter equal to qualifier")
        << "\"a\"b" << q << q << QStringList() << ok << QStringList { "a", "b" } << false;
    QTest::newRow("NUL is an ordinary character")
        << QStringLiteral("a%1b,c").arg(QChar(0)) << c << q << QStringList() << ok
        << QStringList { QStringLiteral("a%1b").arg(QChar(0)), "c" } << false;
    QTest::newRow("doubled wildcard qualifier matches any two characters")
        << "?a??b?" << c << "?" << QStringList() << ok << QStringList { ",," } << false;
    QTest::newRow("too many values")
        << "a,b,c,d" << c << q << QStringList() << int(CsvLineParser::TooManyValues)
        << QStringList { "a", "b", "c" } << false;
}

void TestCsvReading::parser()
{
    QFETCH(QString, line);
    QFETCH(QString, delimiter);
    QFETCH(QString, qualifier);
    QFETCH(QStringList, before);
    QFETCH(int, result);
    QFETCH(QStringList, values);
    QFETCH(bool, open);

    QStringList got = before;
    bool isOpen = !before.isEmpty();
    QCOMPARE(int(CsvLineParser(delimiter, qualifier, 3).parse(line, got, isOpen)), result);
    QCOMPARE(got, values);
    QCOMPARE(isOpen, open);
}

void TestCsvReading::rows_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QStringList>("rows"); // each row's values joined with "|"
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("unfinishedLine");

    const int end = CsvRowReader::End;
    QTest::newRow("mixed line ends")
        << QByteArray("a,b\r\nc\rd\n\"e\r\nf\"\n") << QByteArray("UTF-8")
        << QStringList { "a|b", "c", "d", "e\nf" } << end << 0;
    // The reader reads 64 KiB at a time: line ends found before must not outlive a refill.
    QTest::newRow("only carriage returns over several reads")
        << QByteArray("ab\r").repeated(30000) << QByteArray("UTF-8")
        << QStringList(30000, QStringLiteral("ab")) << end << 0;
    QTest::newRow("line feeds then a return across a read")
        << QByteArray("a\n").repeated(32767) + "b\r\nc\rd\n"
        << QByteArray("UTF-8")
        << QStringList(32767, QStringLiteral("a")) + QStringList { "b", "c", "d" } << end << 0;
    QTest::newRow("no line end at the end")
        << QByteArray("a\nb") << QByteArray("UTF-8") << QStringList { "a", "b" } << end << 0;
    QTest::newRow("empty file") << QByteArray() << QByteArray("UTF-8") << QStringList() << end << 0;
    QTest::newRow("empty lines are no rows")
        << QByteArray("\n\na\n\n") << QByteArray("UTF-8") << QStringList { "a" } << end << 0;
    QTest::newRow("quote open at the end drops its row")
        << QByteArray("a\n\"b\nc\n") << QByteArray("UTF-8") << QStringList { "a" } << end << 2;
    QTest::newRow("parser failure keeps the rows before")
        << QByteArray("a\nb,\"\nc\n") << QByteArray("UTF-8") << QStringList { "a" }
        << int(CsvRowReader::ParseError) << 0;
    QTest::newRow("invalid bytes become U+FFFD")
        << QByteArray("a\xff,b\n") << QByteArray("UTF-8")
        << QStringList { QStringLiteral("a\uFFFD|b") } << end << 0;
    QTest::newRow("8-bit codec") << QByteArray("\xe9t\xe9\n") << QByteArray("ISO-8859-1")
                                 << QStringList { QStringLiteral("\u00e9t\u00e9") } << end << 0;
    QTest::newRow("row over the value bound")
        << QByteArray("a\n") + QByteArray("x,").repeated(CsvRowReader::maxValues + 1)
        << QByteArray("UTF-8") << QStringList { "a" } << int(CsvRowReader::Overflow) << 0;
}

void TestCsvReading::rows()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, codec);
    QFETCH(QStringList, rows);
    QFETCH(int, status);
    QFETCH(int, unfinishedLine);

    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TextLineReader lines(&buffer, QTextCodec::codecForName(codec));
    CsvFormat format;
    format.delimiter = QStringLiteral(",");
    CsvRowReader reader(lines, format);
    QStringList got;
    QStringList row;
    CsvRowReader::Status last;
    while ((last = reader.next(&row)) == CsvRowReader::Row)
        got << row.join(QLatin1Char('|'));
    QCOMPARE(got, rows);
    QCOMPARE(int(last), status);
    QCOMPARE(reader.unfinishedLine(), unfinishedLine);
    if (last == CsvRowReader::Overflow)
        QVERIFY(reader.errorString().startsWith(QLatin1String("Line 2: ")));
}

void TestCsvReading::longValuesStop_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");

    const QByteArray mebibyte(1024 * 1024, 'x');
    QTest::newRow("one line") << QByteArray("a\n") + mebibyte.repeated(17) + "\nb\n"
                              << "Line 2: longer than 16 MiB.";
    QTest::newRow("a quoted value over many lines")
        << QByteArray("a\n\"") + (mebibyte + "\n").repeated(17) + "\"\n"
        << "Line 17: a quoted value longer than 16 MiB.";
}

void TestCsvReading::longValuesStop()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);

    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TextLineReader lines(&buffer, QTextCodec::codecForName("UTF-8"));
    CsvRowReader reader(lines, CsvFormat());
    QStringList row;
    QCOMPARE(reader.next(&row), CsvRowReader::Row);
    QCOMPARE(reader.next(&row), CsvRowReader::Overflow);
    QCOMPARE(reader.errorString(), message);
}

QTEST_GUILESS_MAIN(TestCsvReading)
#include "testcsvreading.moc"
