#include "clirunner.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

// import csv and export, run as users run them: the real binary in a test home.
class TestCsvCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip();
    void badInput_data();
    void badInput();
    void unfinishedQuoteWarns();

private:
    static QJsonObject dump(const TestHome &home, const QString &card);
    static QString writeFile(const TestHome &home, const QString &name, const QByteArray &bytes);
};

QJsonObject TestCsvCommands::dump(const TestHome &home, const QString &card)
{
    return QJsonDocument::fromJson(runCli(home.path(), { "dump", card }).out).object();
}

QString TestCsvCommands::writeFile(
    const TestHome &home, const QString &name, const QByteArray &bytes)
{
    QFile file(home.file(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return file.fileName();
}

namespace
{
// Values as they can come back: doubles at 6 digits, times without milliseconds.
QJsonValue comparable(const QJsonValue &value, int type)
{
    if (type == 2)
        return QString::number(value.toDouble(), 'g', 6);
    if (type == 4 || type == 5)
        return value.toString().section(QLatin1Char('.'), 0, 0);
    return value;
}
} // namespace

void TestCsvCommands::roundTrip()
{
    TestHome home;
    const QString card = home.file("sample.card");
    QCOMPARE(runCli(home.path(), { "generate", "--records", "25", card }).status, 0);
    const QString csv = home.file("out.csv");
    const QStringList formats = { "--date-format", "YYYY-MM-DD", "--time-format", "hh:mm:ss",
        "--datetime-format", "YYYY-MM-DD hh:mm:ss" };
    QCOMPARE(
        runCli(home.path(), QStringList { "export", card, csv, "--delimiter", "comma" } + formats)
            .status,
        0);

    const QStringList importArguments
        = { "import", "csv", csv, "--codec", "UTF-8", "--delimiter", "comma", "--titles", "--type",
              "2=Integer", "--type", "3=Double", "--type", "4=Date", "--format", "4=YYYY-MM-DD",
              "--type", "5=Time", "--format", "5=hh:mm:ss", "--type", "6=DateTime", "--format",
              "6=YYYY-MM-DD hh:mm:ss", "--type", "7=Text", "--type", "8=List", "--type", "9=Bool",
              "--yes-no", "9=1/0", "--type", "10=MultiList", "--item-separator", "10=;" };
    const CliResult imported = runCli(home.path(), importArguments);
    QCOMPARE(imported.status, 0);
    const QString path = QString::fromUtf8(imported.out).trimmed();
    QCOMPARE(path, QDir(home.documents()).absoluteFilePath("out.card"));
    QVERIFY(runCli(home.path(), { "list" }).out.contains(path.toUtf8()));

    const QJsonObject before = dump(home, card);
    const QJsonObject after = dump(home, path);
    QCOMPARE(
        after["description"].toString(), QStringLiteral("Text/CSV file imported Card [out.csv]"));
    QCOMPARE(after["icon"].toString(), QStringLiteral("12"));
    const QJsonArray fields = before["fields"].toArray();
    QCOMPARE(after["fields"].toArray().size(), fields.size());
    const QJsonArray a = before["records"].toArray();
    const QJsonArray b = after["records"].toArray();
    QCOMPARE(b.size(), a.size());
    for (qsizetype r = 0; r < a.size(); ++r) {
        const QJsonArray x = a[r].toObject()["values"].toArray();
        const QJsonArray y = b[r].toObject()["values"].toArray();
        for (qsizetype f = 0; f < fields.size(); ++f) {
            const int type = fields[f].toObject()["type"].toInt();
            QCOMPARE(after["fields"].toArray()[f].toObject()["type"].toInt(), type);
            QCOMPARE(comparable(y[f], type), comparable(x[f], type));
        }
    }
    const CliResult again = runCli(home.path(), importArguments);
    QCOMPARE(QString::fromUtf8(again.out).trimmed(),
        QDir(home.documents()).absoluteFilePath("out_Copy_1.card"));
}

void TestCsvCommands::badInput_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("arguments"); // FILE stands for the text's path
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");

    const QByteArray two("a,b\n");
    QTest::newRow("missing file") << two << QStringList { "import", "csv", "nothing.csv" } << 1
                                  << "norvika-cli: Cannot open file: nothing.csv";
    QTest::newRow("unknown codec")
        << two << QStringList { "import", "csv", "FILE", "--codec", "NoSuch" } << 2
        << "norvika-cli: unknown codec NoSuch";
    QTest::newRow("unknown delimiter")
        << two << QStringList { "import", "csv", "FILE", "--delimiter", "dot" } << 2
        << "norvika-cli: --delimiter takes one of";
    QTest::newRow("reminder refused")
        << two << QStringList { "import", "csv", "FILE", "--type", "1=Reminder" } << 2
        << "norvika-cli: --type: Reminder is not";
    QTest::newRow("increment refused by code")
        << two << QStringList { "import", "csv", "FILE", "--type", "1=14" } << 2
        << "norvika-cli: --type: 14 is not";
    QTest::newRow("memo twice") << two
                                << QStringList { "import", "csv", "FILE", "--delimiter", "comma",
                                       "--type", "1=Memo", "--type", "2=memo" }
                                << 2 << "norvika-cli: --type: Memo is for one column only";
    QTest::newRow("column past the file")
        << two << QStringList { "import", "csv", "FILE", "--skip", "3" } << 1
        << "norvika-cli: --skip: the file has 1 columns";
    QTest::newRow("row over 10000 values")
        << QByteArray("x,").repeated(10001)
        << QStringList { "import", "csv", "FILE", "--delimiter", "comma" } << 1
        << "norvika-cli: Line 1: more than 10000 values in a row.";
    QTest::newRow("export to a missing folder")
        << two << QStringList { "export", "CARD", "no/such/out.csv" } << 1
        << "norvika-cli: Cannot write to file: no/such/out.csv";
}

void TestCsvCommands::badInput()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QString, message);

    TestHome home;
    const QString file = writeFile(home, "in.csv", text);
    const QString card = home.file("sample.card");
    QCOMPARE(runCli(home.path(), { "generate", "--records", "1", card }).status, 0);
    arguments.replaceInStrings(QRegularExpression("^FILE$"), file);
    arguments.replaceInStrings(QRegularExpression("^CARD$"), card);
    const CliResult result = runCli(home.path(), arguments);
    QCOMPARE(result.status, status);
    QVERIFY2(result.err.startsWith(message.toUtf8()), result.err);
    QCOMPARE(QDir(home.documents()).entryList({ "*.card*" }), QStringList());
}

void TestCsvCommands::unfinishedQuoteWarns()
{
    TestHome home;
    const QString file = writeFile(home, "in.csv", "a\tb\nc\t\"d\ne\n");
    const CliResult result = runCli(home.path(), { "import", "csv", file });
    QCOMPARE(result.status, 0);
    QVERIFY2(result.err.contains("warning: line 2:"), result.err);
    const QJsonObject card = dump(home, QString::fromUtf8(result.out).trimmed());
    QCOMPARE(card["fields"].toArray().size(), 2);
    QCOMPARE(card["records"].toArray().size(), 1);
}

QTEST_GUILESS_MAIN(TestCsvCommands)
#include "testcsvcommands.moc"
