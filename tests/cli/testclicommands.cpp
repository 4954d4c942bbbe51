#include "card/datamanager.h"
#include "card/datarecord.h"
#include "clirunner.h"
#include "support/testhome.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QRegularExpression>
#include <QUuid>

// The card commands, run as users run them: the real binary on cards in a test home.
class TestCliCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formula_data();
    void formula();
    void formulaOnRecords();
    void usageErrors_data();
    void usageErrors();
    void generateIsDeterministic();
    void dumpShape();
    void addAppliesDefaultsAndValues();
    void badInputLeavesCard_data();
    void badInputLeavesCard();
    void setFieldsFollowsOrigins();
    void cellsFollowTheOptions_data();
    void cellsFollowTheOptions();

private:
    static QString fruitCard(const TestHome &home);
    static QJsonObject dump(const TestHome &home, const QString &card);
    static QByteArray fileHash(const QString &path);
    static QString writeFile(const TestHome &home, const QByteArray &bytes);
};

QJsonObject TestCliCommands::dump(const TestHome &home, const QString &card)
{
    const CliResult result = runCli(home.path(), {"dump", card});
    if (result.status != 0)
        qWarning() << result.err;
    return QJsonDocument::fromJson(result.out).object();
}

QByteArray TestCliCommands::fileHash(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256);
}

QString TestCliCommands::writeFile(const TestHome &home, const QByteArray &bytes)
{
    QFile file(home.file("fields.json"));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return file.fileName();
}

void TestCliCommands::formula_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("precedence") << "1+2*3" << QByteArray("7 ok\n");
    QTest::newRow("leading minus after --") << "-1+2" << QByteArray("1 ok\n");
    QTest::newRow("trailing operator stops") << "1+" << QByteArray("0 failed\n");
    QTest::newRow("trailing blank operator stops") << "1 +" << QByteArray("0 failed\n");
    QTest::newRow("unclosed group") << "(2" << QByteArray("0 failed\n");
    QTest::newRow("reference without a card") << "[F3]+1" << QByteArray("1 ok\n");
    QTest::newRow("infinity") << "1/0" << QByteArray("inf ok\n");
}

void TestCliCommands::formula()
{
    QFETCH(QString, expression);
    QFETCH(QByteArray, output);
    TestHome home;
    const CliResult result = runCli(home.path(), {"formula", "--", expression});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.out, output);
}

void TestCliCommands::formulaOnRecords()
{
    TestHome home;
    const QString card = home.file("s.card");
    QCOMPARE(runCli(home.path(), {"generate", "--records", "3", card}).status, 0);
    const QJsonArray records = dump(home, card).value("records").toArray();
    const double count0 = records.at(0).toObject().value("values").toArray().at(1).toDouble();
    const double count1 = records.at(1).toObject().value("values").toArray().at(1).toDouble();

    CliResult result = runCli(home.path(), {"formula", "[F1]+[F1!]", "--card", card, "--record", "1"});
    QCOMPARE(result.out, QByteArray::number(count0 + count1, 'g', 17) + " ok\n");
    result = runCli(home.path(), {"formula", "[F1!]", "--card", card, "--record", "0"});
    QCOMPARE(result.out, QByteArray("0 ok\n"));
    result = runCli(home.path(), {"formula", "1", "--card", card, "--record", "3"});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.err, QByteArray("norvika-cli: the card has 3 records\n"));
}

// "CARD" stands for a small card of four fields, one filter and one view.
void TestCliCommands::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("format: not a number") << QStringList{"format", "number", "", "abc"};
    QTest::newRow("format: not a date-time") << QStringList{"format", "datetime", "", "2004-13-40T00:00:00"};
    QTest::newRow("format: unknown kind") << QStringList{"format", "colour", "", "1"};
    QTest::newRow("formula: card without record") << QStringList{"formula", "1", "--card", "CARD"};
    QTest::newRow("generate: no count") << QStringList{"generate", "new.card"};
    QTest::newRow("cells: view past the list") << QStringList{"cells", "CARD", "--view", "1"};
    QTest::newRow("cells: filter past the list") << QStringList{"cells", "CARD", "--filter", "1"};
    QTest::newRow("cells: sort past the fields") << QStringList{"cells", "CARD", "--sort", "4"};
    QTest::newRow("cells: find with filter") << QStringList{"cells", "CARD", "--find", "a", "--filter", "0"};
    QTest::newRow("cells: find without text") << QStringList{"cells", "CARD", "--find"};
}

void TestCliCommands::usageErrors()
{
    QFETCH(QStringList, arguments);
    TestHome home;
    arguments.replaceInStrings(QRegularExpression("^CARD$"), fruitCard(home));
    const CliResult result = runCli(home.path(), arguments);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.err.startsWith("norvika-cli: "), result.err.constData());
    QVERIFY(result.out.isEmpty());
}

void TestCliCommands::generateIsDeterministic()
{
    TestHome home;
    const QString a = home.file("a.card"), b = home.file("b.card"), c = home.file("c.card");
    QCOMPARE(runCli(home.path(), {"generate", "--records", "50", "--seed", "9", a}).status, 0);
    QCOMPARE(runCli(home.path(), {"generate", "--records", "50", "--seed", "9", b}).status, 0);
    QCOMPARE(runCli(home.path(), {"generate", "--records", "50", "--seed", "10", c}).status, 0);
    auto values = [&](const QString &card) {
        QList<QJsonValue> all;
        for (const QJsonValue &r : dump(home, card).value("records").toArray())
            all << r.toObject().value("values");
        return all;
    };
    const auto va = values(a);
    QCOMPARE(va.size(), 50);
    QCOMPARE(va.first().toArray().size(), 10);
    QCOMPARE(values(b), va);
    QVERIFY(values(c) != va);
}

void TestCliCommands::dumpShape()
{
    TestHome home;
    const QString card = home.file("s.card");
    QCOMPARE(runCli(home.path(), {"generate", "--records", "2", card}).status, 0);
    const CliResult result = runCli(home.path(), {"dump", card});
    QCOMPARE(result.status, 0);
    const QJsonObject o = QJsonDocument::fromJson(result.out).object();
    // Key order is part of the output.
    const QByteArray text = result.out;
    const QList<QByteArray> order{"\"header\"", "\"description\"", "\"icon\"", "\"password\"",
                                  "\"fields\"", "\"filters\"", "\"currentFilter\"", "\"views\"",
                                  "\"currentView\"", "\"records\"", "\"view\""};
    for (int i = 1; i < order.size(); ++i)
        QVERIFY2(text.indexOf(order[i - 1]) < text.indexOf(order[i]), order[i].constData());
    QCOMPARE(o.value("header").toObject().value("total").toInt(), 2);
    QCOMPARE(o.value("fields").toArray().size(), 10);
    const QJsonArray records = o.value("records").toArray();
    QCOMPARE(o.value("view").toArray().size(), 2);
    QCOMPARE(o.value("view").toArray().at(0).toString(), records.at(0).toObject().value("uid").toString());
    const QJsonArray values = records.at(0).toObject().value("values").toArray();
    QVERIFY(QDate::fromString(values.at(3).toString(), "yyyy-MM-dd").isValid());
    QVERIFY(QTime::fromString(values.at(4).toString(), "HH:mm:ss.zzz").isValid());
    QVERIFY(QDateTime::fromString(values.at(5).toString(), "yyyy-MM-ddTHH:mm:ss.zzz").isValid());
    QVERIFY(records.at(0).toObject().value("reminder").isNull());
}

void TestCliCommands::addAppliesDefaultsAndValues()
{
    TestHome home;
    const QString card = home.file("s.card");
    QCOMPARE(runCli(home.path(), {"generate", "--records", "1", card}).status, 0);
    const QByteArray input =
        "{\"Name\": \"Ann\", \"1\": 3, \"2\": \"inf\", \"3\": \"2004-03-07\", \"4\": \"\","
        " \"memo\": \"two\\nlines\", \"reminder\": {\"dateTime\": \"2099-01-01T10:00:00\","
        " \"sound\": true, \"led\": false, \"type\": 2}}\n"
        "\n"
        "{\"Tags\": \"red\\nblue\", \"Done\": 1}\n";
    const CliResult result = runCli(home.path(), {"add", card}, input);
    QCOMPARE(result.status, 0);
    const QList<QByteArray> uids = result.out.trimmed().split('\n');
    QCOMPARE(uids.size(), 2);

    const QJsonArray records = dump(home, card).value("records").toArray();
    QCOMPARE(records.size(), 3);
    const QJsonObject ann = records.at(1).toObject();
    QCOMPARE(ann.value("uid").toString().toLatin1(), uids.at(0));
    const QJsonArray values = ann.value("values").toArray();
    QCOMPARE(values.at(0).toString(), QStringLiteral("Ann"));
    QCOMPARE(values.at(2).toString(), QStringLiteral("inf"));
    QCOMPARE(values.at(3).toString(), QStringLiteral("2004-03-07"));
    QCOMPARE(values.at(4).toString(), QString());   // an invalid time
    QCOMPARE(ann.value("memo").toString(), QStringLiteral("two\nlines"));
    QCOMPARE(ann.value("reminder").toObject().value("type").toInt(), 2);
    const QJsonArray second = records.at(2).toObject().value("values").toArray();
    QCOMPARE(second.at(9).toString(), QStringLiteral("red\nblue"));
    QCOMPARE(second.at(8).toDouble(), 1.0);
}

// A command given bad input fails as a whole: the card is left as it was.
void TestCliCommands::badInputLeavesCard_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("add: unknown title") << "add" << QByteArray("{\"Name\": \"ok\"}\n{\"Nope\": 1}\n")
                                        << QByteArray("record 2: no field \"Nope\"");
    QTest::newRow("add: not JSON") << "add" << QByteArray("{\"Name\": \n") << QByteArray("line 1: not a JSON object");
    QTest::newRow("add: malformed date") << "add" << QByteArray("{\"Day\": \"7 3 2004\"}\n")
                                         << QByteArray("malformed value");
    QTest::newRow("add: reminder without time") << "add" << QByteArray("{\"reminder\": {\"sound\": true}}\n")
                                                << QByteArray("dateTime");
    QTest::newRow("set-fields: not an array") << "set-fields" << QByteArray("{\"title\": \"x\"}") << QByteArray();
    QTest::newRow("set-fields: bad type") << "set-fields"
                                          << QByteArray("[{\"title\": \"x\", \"type\": 15, \"origin\": -1}]") << QByteArray();
    QTest::newRow("set-fields: origin out of range")
        << "set-fields" << QByteArray("[{\"title\": \"x\", \"type\": 0, \"origin\": 10}]") << QByteArray();
    QTest::newRow("missing card") << "dump" << QByteArray() << QByteArray("none.card: no such card\n");
}

void TestCliCommands::badInputLeavesCard()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, message);
    TestHome home;
    QString card = home.file("s.card");
    QCOMPARE(runCli(home.path(), {"generate", "--records", "2", card}).status, 0);
    const QByteArray before = fileHash(card);
    QStringList arguments{command, card};
    if (command == "set-fields")
        arguments << writeFile(home, input);
    if (command == "dump")
        arguments[1] = home.file("none.card");
    const CliResult result = runCli(home.path(), arguments, command == "add" ? input : QByteArray());
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.startsWith("norvika-cli: ") && result.err.contains(message), result.err.constData());
    QCOMPARE(fileHash(card), before);
}

void TestCliCommands::setFieldsFollowsOrigins()
{
    TestHome home;
    const QString card = home.file("s.card");
    QCOMPARE(runCli(home.path(), {"generate", "--records", "2", card}).status, 0);
    const QJsonObject before = dump(home, card);
    // Keep Price first, drop everything else but Name (renamed), and add a calculated field.
    // Formulas in the new list still count fields as the card handed them out.
    const QByteArray fields =
        "[{\"title\": \"Price\", \"type\": 2, \"origin\": 2},"
        " {\"title\": \"Label\", \"type\": 0, \"origin\": 0},"
        " {\"title\": \"Twice\", \"type\": 2, \"formula\": \"[F2]*2\", \"origin\": -1}]";
    const CliResult result = runCli(home.path(), {"set-fields", card, writeFile(home, fields)});
    QCOMPARE(result.status, 0);

    const QJsonObject after = dump(home, card);
    QCOMPARE(after.value("fields").toArray().size(), 3);
    QCOMPARE(after.value("fields").toArray().at(2).toObject().value("formula").toString(),
             QStringLiteral("[F0]*2"));
    QCOMPARE(after.value("header").toObject().value("properties").toObject().value("fs").toString(),
             QStringLiteral("2"));
    const QJsonArray oldValues = before.value("records").toArray().at(1).toObject().value("values").toArray();
    const QJsonArray newValues = after.value("records").toArray().at(1).toObject().value("values").toArray();
    QCOMPARE(newValues.at(0), oldValues.at(2));
    QCOMPARE(newValues.at(1), oldValues.at(0));
    QCOMPARE(newValues.at(2).toDouble(), 2 * oldValues.at(2).toDouble());
}

// Name, Count, Done, Notes; a filter "Done" and a view "Short" of Count and Name, sorted
// by Count downwards and filtered by "Done".
QString TestCliCommands::fruitCard(const TestHome &home)
{
    const QString path = home.file("fruit.card");
    DataManager card(path);
    QList<FieldDef> fields;
    const QList<std::pair<QString, int>> schema{
        {"Name", FieldDef::String}, {"Count", FieldDef::Integer}, {"Done", FieldDef::Bool}, {"Notes", FieldDef::Text}};
    for (const auto &[title, type] : schema) {
        FieldDef field;
        field.title = title;
        field.type = type;
        fields << field;
    }
    card.setFields(fields, true);
    const struct { const char *name; int count; bool done; const char *notes; } rows[] = {
        {"pear", 3, true, "a\tb"}, {"apple", 10, false, "x\ny"}, {"fig\nleaf", 1, true, ""}};
    for (const auto &row : rows) {
        DataRecord *record = card.newRecord();
        record->setStringValue(0, QString::fromLatin1(row.name));
        record->setIntValue(1, row.count);
        record->setIntValue(2, row.done);
        record->setStringValue(3, QString::fromLatin1(row.notes));
        card.add(record);
    }
    FilterDef done;
    done.title = QStringLiteral("Done");
    FilterCondition condition;
    condition.field = 2;
    condition.number = FilterCondition::Yes;
    done.conditions << condition;
    card.setFilters({done});
    ViewDef shortView;
    shortView.title = QStringLiteral("Short");
    shortView.columns = {1, 0};
    shortView.sort = 1;
    shortView.ascending = false;
    shortView.filter = done.uuidString();
    card.setViews({shortView});
    card.forceSave();
    return path;
}

void TestCliCommands::cellsFollowTheOptions_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("lines");   // the cells of each line, without the UID
    // A text field shows its first line; tabs and line feeds left in a cell become blanks.
    const QStringList pear{"pear", "3", "<on>", "a b"}, apple{"apple", "10", "<off>", "x"},
        fig{"fig leaf", "1", "<on>", ""};
    auto joined = [](const QList<QStringList> &rows) {
        QStringList lines;
        for (const QStringList &row : rows)
            lines << row.join('\t');
        return lines;
    };
    QTest::newRow("store order, all fields") << QStringList() << joined({pear, apple, fig});
    QTest::newRow("store order reversed") << QStringList{"--descending"} << joined({fig, apple, pear});
    QTest::newRow("sort by text") << QStringList{"--sort", "0"} << joined({apple, fig, pear});
    QTest::newRow("sort by number") << QStringList{"--sort", "1"} << joined({fig, pear, apple});
    QTest::newRow("filter") << QStringList{"--filter", "0"} << joined({pear, fig});
    QTest::newRow("view: its columns, sort and filter")
        << QStringList{"--view", "0"} << QStringList{"3\tpear", "1\tfig leaf"};
    QTest::newRow("view without its filter") << QStringList{"--view", "0", "--filter", "-1"}
                                             << QStringList{"10\tapple", "3\tpear", "1\tfig leaf"};
    // Find: "contains" on every text field, case-insensitive, in place of any filter.
    QTest::newRow("find folds case") << QStringList{"--find", "PE"} << joined({pear});
    QTest::newRow("find looks in every text field") << QStringList{"--find", "y"} << joined({apple});
    QTest::newRow("find reads past a line feed") << QStringList{"--find", "LEAF"} << joined({fig});
    QTest::newRow("empty find passes all") << QStringList{"--find", ""} << joined({pear, apple, fig});
    QTest::newRow("find matching nothing") << QStringList{"--find", "\u00e9"} << QStringList();
    QTest::newRow("find in place of the view's filter")
        << QStringList{"--view", "0", "--find", "a"} << QStringList{"10\tapple", "3\tpear", "1\tfig leaf"};
    QTest::newRow("find after the sort") << QStringList{"--sort", "0", "--descending", "--find", "p"}
                                         << joined({pear, apple});
}

void TestCliCommands::cellsFollowTheOptions()
{
    QFETCH(QStringList, options);
    QFETCH(QStringList, lines);
    TestHome home;
    const QString card = fruitCard(home);
    const QByteArray before = fileHash(card);

    const CliResult result = runCli(home.path(), QStringList{"cells", card} + options);
    QCOMPARE(result.status, 0);
    QStringList cells;
    for (const QByteArray &line : result.out.split('\n')) {
        if (line.isEmpty())
            continue;
        const int tab = line.indexOf('\t');
        QCOMPARE(QUuid::fromString(QLatin1String(line.left(tab))).isNull(), false);
        cells << QString::fromUtf8(line.mid(tab + 1));
    }
    QCOMPARE(cells, lines);
    QCOMPARE(fileHash(card), before);   // the options are for this run only
}

QTEST_GUILESS_MAIN(TestCliCommands)
#include "testclicommands.moc"
