#include "card/datamanager.h"
#include "card/datarecord.h"
#include "clirunner.h"
#include "reminders/reminder.h"
#include "support/testhome.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

// report CARD --record N [--pdf OUT.pdf], run as users run it.
class TestReportCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textMatchesGolden();
    void pdfHoldsTheText();
    void pages_data();
    void pages();
    void badInput_data();
    void badInput();

private:
    static QString allFieldsCard(const TestHome &home);
    static QString run(const QString &tool, const QStringList &arguments);
};

// One field of each of the fifteen types, and a second record after it.
QString TestReportCommand::allFieldsCard(const TestHome &home)
{
    const QString path = home.file(QStringLiteral("all.card"));
    const struct {
        int type;
        const char *title;
        const char *format;
    } columns[] = { { FieldDef::String, "Name", "" }, { FieldDef::Integer, "Pages", "" },
        { FieldDef::Double, "Price", "0.00" }, { FieldDef::Date, "Bought", "YYYY-MM-DD" },
        { FieldDef::Time, "At", "hh:mm" }, { FieldDef::DateTime, "Read", "YYYY-MM-DD hh:mm" },
        { FieldDef::Text, "Notes", "" }, { FieldDef::Memo, "Memo", "" },
        { FieldDef::Reminder, "Remind", "YYYY-MM-DD hh:mm" }, { FieldDef::List, "Colour", "" },
        { FieldDef::Bool, "Owned", "" }, { FieldDef::Count, "Copies", "" },
        { FieldDef::Image, "Cover", "" }, { FieldDef::MultiList, "Tags", "" },
        { FieldDef::Increment, "No", "" } };
    QList<FieldDef> fields;
    for (const auto &column : columns) {
        FieldDef def;
        def.type = column.type;
        def.title = def.label = QString::fromLatin1(column.title);
        def.format = QString::fromLatin1(column.format);
        fields.append(def);
    }
    DataManager card(path);
    card.setFields(fields, true);
    DataRecord *record = card.newRecord();
    const QDateTime moment(QDate(2005, 4, 3), QTime(13, 5));
    record->setStringValue(0, QStringLiteral("Ann\tLee"));
    record->setDoubleValue(1, 320);
    record->setDoubleValue(2, 12.5);
    record->setDateValue(3, moment.date());
    record->setTimeValue(4, moment.time());
    record->setDateTimeValue(5, moment);
    record->setStringValue(6, QStringLiteral("first line\nsecond line"));
    record->setMemo(QStringLiteral("not in the report"));
    auto *reminder = new Reminder;
    reminder->dateTime = QDateTime(QDate(2030, 1, 2), QTime(8, 0));
    record->setReminder(reminder);
    record->setStringValue(9, QStringLiteral("red"));
    record->setDoubleValue(10, 1);
    record->setDoubleValue(11, 2);
    record->setImage(home.file(QStringLiteral("missing.png")));
    record->setStringValue(13, QStringLiteral("a\nb"));
    record->setDoubleValue(14, 7);
    card.add(record);
    DataRecord *second = card.newRecord();
    second->setStringValue(0, QStringLiteral("Bob"));
    card.add(second);
    return card.save() ? path : QString();
}

void TestReportCommand::textMatchesGolden()
{
    TestHome home;
    const QString card = allFieldsCard(home);
    const CliResult result = runCli(home.path(), { "report", card, "--record", "0" });
    QCOMPARE(result.status, 0);
    QFile golden(TestHome::dataFile(QStringLiteral("report/allfields.txt")));
    QVERIFY(golden.open(QIODevice::ReadOnly));
    QCOMPARE(result.out, golden.readAll());
    QVERIFY(result.err.isEmpty());
}

void TestReportCommand::pdfHoldsTheText()
{
    TestHome home;
    const QString card = allFieldsCard(home);
    const QString pdf = home.file(QStringLiteral("page.pdf"));
    const CliResult result = runCli(home.path(), { "report", card, "--record", "0", "--pdf", pdf });
    QCOMPARE(result.status, 0);
    QVERIFY(result.out.startsWith("Name:\tAnn Lee\n"));

    const QString text
        = run(QStringLiteral("pdftotext"), { QStringLiteral("-layout"), pdf, QStringLiteral("-") })
              .simplified();
    for (const char *expected : { "Name:", "Ann", "Pages: 320", "Price: 12.50",
             "Bought: 2005-04-03", "line second line", "Owned: Yes", "Tags: a", "No: 7" })
        QVERIFY2(text.contains(QLatin1String(expected)), qPrintable(expected + (" in: " + text)));
    QVERIFY(!text.contains(QLatin1String("not in the report")));
}

QString TestReportCommand::run(const QString &tool, const QStringList &arguments)
{
    QProcess process;
    process.start(tool, arguments);
    process.waitForFinished(30000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

void TestReportCommand::pages_data()
{
    QTest::addColumn<int>("fields");
    QTest::addColumn<int>("lines");
    QTest::addColumn<bool>("onePage");
    QTest::newRow("rows run over pages, never split") << 150 << 1 << false;
    QTest::newRow("a row taller than a page is scaled to one") << 1 << 400 << true;
}

void TestReportCommand::pages()
{
    QFETCH(int, fields);
    QFETCH(int, lines);
    QFETCH(bool, onePage);
    TestHome home;
    const QString path = home.file(QStringLiteral("long.card"));
    {
        QList<FieldDef> list;
        for (int i = 0; i < fields; ++i) {
            FieldDef def;
            def.type = FieldDef::Text;
            def.title = def.label = QStringLiteral("F%1").arg(i);
            list.append(def);
        }
        DataManager card(path);
        card.setFields(list, true);
        DataRecord *record = card.newRecord();
        QStringList text;
        for (int i = 0; i < lines; ++i)
            text << QStringLiteral("line %1").arg(i);
        for (int i = 0; i < fields; ++i)
            record->setStringValue(i, text.join(QLatin1Char('\n')));
        card.add(record);
        QVERIFY(card.save());
    }
    const QString pdf = home.file(QStringLiteral("long.pdf"));
    QCOMPARE(runCli(home.path(), { "report", path, "--record", "0", "--pdf", pdf }).status, 0);
    const QString info = run(QStringLiteral("pdfinfo"), { pdf });
    const bool single = info.contains(QRegularExpression(QStringLiteral("Pages:\\s+1\\n")));
    QCOMPARE(single, onePage);
    // Each page holds whole rows: every label and the last line are there once.
    const QString text = run(QStringLiteral("pdftotext"), { pdf, QStringLiteral("-") });
    QCOMPARE(text.count(QStringLiteral("F%1:").arg(fields - 1)), 1);
    QVERIFY(text.contains(QStringLiteral("line %1").arg(lines - 1)));
}

void TestReportCommand::badInput_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("no such record")
        << QStringList { "--record", "2" } << 1 << QByteArray("norvika-cli: No record 2.\n");
    QTest::newRow("negative record") << QStringList { "--record", "-1" } << 2 << QByteArray();
    QTest::newRow("record no number") << QStringList { "--record", "x" } << 2 << QByteArray();
    QTest::newRow("record missing") << QStringList {} << 2 << QByteArray();
    QTest::newRow("unwritable pdf")
        << QStringList { "--record", "0", "--pdf", "HOME/no/such/folder/out.pdf" } << 1
        << QByteArray();
}

// A refused run prints no lines and leaves no file behind.
void TestReportCommand::badInput()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QByteArray, error);
    TestHome home;
    arguments.replaceInStrings(QStringLiteral("HOME"), home.path());
    const CliResult result
        = runCli(home.path(), QStringList { "report", allFieldsCard(home) } + arguments);
    QCOMPARE(result.status, status);
    QVERIFY(result.out.isEmpty());
    QVERIFY2(result.err.startsWith("norvika-cli: "), result.err.constData());
    if (!error.isEmpty())
        QCOMPARE(result.err, error);
    QVERIFY(!QFile::exists(home.file(QStringLiteral("no/such/folder/out.pdf"))));
}

QTEST_GUILESS_MAIN(TestReportCommand)
#include "testreportcommand.moc"
