#include "card/datamanager.h"
#include "clirunner.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

class TestListCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyList();
    void addPrintsEntry();
    void removeKeepsFile();
    void unavailableCard();
    void displayOrderFollowsStoredSort();
    void errors_data();
    void errors();
};

namespace
{
QString makeCard(const TestHome &home, const QString &name, const QString &icon = QString())
{
    const QString path = home.documents() + QLatin1Char('/') + name + QStringLiteral(".card");
    DataManager card(path);
    card.setIcon(icon);
    card.forceSave();
    return path;
}

QByteArray line(const QString &title, const char *state, const QString &path)
{
    return title.toUtf8() + '\t' + state + '\t' + path.toUtf8() + '\n';
}

QByteArray listFile(const TestHome &home)
{
    QFile file(home.file(QStringLiteral("data/norvika/norvikaIDX")));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}
} // namespace

void TestListCommand::emptyList()
{
    TestHome home;
    const CliResult result = runCli(home.path(), { "list" });
    QCOMPARE(result.status, 0);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err, QByteArray());
}

void TestListCommand::addPrintsEntry()
{
    TestHome home;
    const QString path = makeCard(home, QStringLiteral("Bücher"));
    const CliResult result = runCli(home.path(), { "list", "--add", path });
    QCOMPARE(result.status, 0);
    QCOMPARE(result.out, line(QStringLiteral("Bücher"), "available", path));
    QVERIFY(listFile(home).contains("I=" + path.toUtf8() + "\nEND\n"));
    // The entry stays: a plain listing shows it again.
    QCOMPARE(runCli(home.path(), { "list" }).out, result.out);
}

void TestListCommand::removeKeepsFile()
{
    TestHome home;
    const QString kept = makeCard(home, QStringLiteral("Kept"));
    const QString gone = makeCard(home, QStringLiteral("Gone"));
    runCli(home.path(), { "list", "--add", gone });
    runCli(home.path(), { "list", "--add", kept });
    const CliResult result = runCli(home.path(), { "list", "--remove", gone });
    QCOMPARE(result.status, 0);
    QCOMPARE(result.out, line(QStringLiteral("Kept"), "available", kept));
    QVERIFY(QFileInfo::exists(gone));
    QVERIFY(!listFile(home).contains("Gone"));
}

void TestListCommand::unavailableCard()
{
    TestHome home;
    const QString path = makeCard(home, QStringLiteral("Away"));
    runCli(home.path(), { "list", "--add", path });
    QVERIFY(QFile::remove(path));
    const CliResult result = runCli(home.path(), { "list" });
    QCOMPARE(result.status, 0);
    QCOMPARE(result.out, line(QStringLiteral("Away"), "unavailable", path));
}

void TestListCommand::displayOrderFollowsStoredSort()
{
    TestHome home;
    const QString b = makeCard(home, QStringLiteral("b"));
    const QString a = makeCard(home, QStringLiteral("a"));
    QDir().mkpath(home.file(QStringLiteral("data/norvika")));
    QFile file(home.file(QStringLiteral("data/norvika/norvikaIDX")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("FOLDER\nSORT=1\nSORTORDER=1\nPERPAGE=15\nTOTAL=-1\nI=" + b.toUtf8()
        + "\nI=" + a.toUtf8() + "\nEND\n");
    file.close();
    const CliResult result = runCli(home.path(), { "list" });
    QCOMPARE(result.out,
        line(QStringLiteral("a"), "available", a) + line(QStringLiteral("b"), "available", b));
}

void TestListCommand::errors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("error");

    QTest::newRow("missing card") << QStringList { "list", "--add", "/no/such.card" } << 1
                                  << QByteArray("norvika-cli: no such card file: /no/such.card\n");
    QTest::newRow("not listed") << QStringList { "list", "--remove", "/no/such.card" } << 1
                                << QByteArray("norvika-cli: not in the card list: /no/such.card\n");
    QTest::newRow("positional") << QStringList { "list", "extra" } << 2
                                << QByteArray("norvika-cli: too many arguments\n");
    QTest::newRow("no value") << QStringList { "list", "--add" } << 2
                              << QByteArray("norvika-cli: option --add needs a value\n");
}

void TestListCommand::errors()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QByteArray, error);
    TestHome home;
    const CliResult result = runCli(home.path(), arguments);
    QCOMPARE(result.status, status);
    QVERIFY2(result.err.startsWith(error), result.err.constData());
    QCOMPARE(result.out, QByteArray());
}

QTEST_GUILESS_MAIN(TestListCommand)
#include "testlistcommand.moc"
