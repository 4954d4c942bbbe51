#include "clirunner.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"

#include <QDir>
#include <QTest>

// "import mobiledb" and "import jfile" through the real binary: output, status, the card
// in the documents folder and the card list afterwards.
class TestImportCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void imports_data();
    void imports();
    void secondImportIsACopy();
    void commandLineErrors_data();
    void commandLineErrors();
};

namespace
{
QString sample(const QString &name)
{
    return TestHome::dataFile(QStringLiteral("palm/") + name);
}

QStringList listedPaths()
{
    DBManager list(false);
    list.load();
    QStringList paths;
    for (const PIMRecord *record : list.records())
        paths.append(static_cast<const DBRecord *>(record)->path());
    return paths;
}
} // namespace

void TestImportCommand::imports_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("card"); // empty when refused
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("mobiledb") << QStringList { "mobiledb", "mobiledb-good.pdb" } << 0
                              << "Garden.card" << QByteArray();
    QTest::newRow("mobiledb with a codec")
        << QStringList { "mobiledb", "mobiledb-good.pdb", "--codec", "UTF-8" } << 0 << "Garden.card"
        << QByteArray();
    QTest::newRow("jfile, values, D.M.Y")
        << QStringList { "jfile", "jfile-good.pdb", "--value", "--date-format", "D.M.Y" } << 0
        << "Tools.card" << QByteArray();
    QTest::newRow("jfile as mobiledb")
        << QStringList { "mobiledb", "jfile-good.pdb" } << 1 << ""
        << QByteArray("norvika-cli: Import failed. Wrong MobileDB file format.\n");
    QTest::newRow("broken jfile") << QStringList {
        "jfile", "jfile-51-fields.pdb"
    } << 1 << "" << QByteArray("norvika-cli: Import failed. Wrong JFile 5.x file format.\n");
    QTest::newRow("missing file") << QStringList {
        "jfile", "no-such.pdb"
    } << 1 << "" << QByteArray("norvika-cli: Import failed. Wrong JFile 5.x file format.\n");
}

void TestImportCommand::imports()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, card);
    TestHome home;
    arguments[1] = sample(arguments.at(1));
    const CliResult result = runCli(home.path(), QStringList { "import" } + arguments);
    QTEST(result.status, "status");
    QTEST(result.err, "error");
    const QString path = card.isEmpty() ? QString() : home.documents() + u'/' + card;
    QCOMPARE(result.out, card.isEmpty() ? QByteArray() : path.toUtf8() + '\n');
    QCOMPARE(QDir(home.documents()).entryList(QDir::Files | QDir::Hidden),
        card.isEmpty() ? QStringList() : QStringList { card });
    QCOMPARE(listedPaths(), card.isEmpty() ? QStringList() : QStringList { path });
}

void TestImportCommand::secondImportIsACopy()
{
    TestHome home;
    const QStringList arguments { "import", "mobiledb",
        sample(QStringLiteral("mobiledb-good.pdb")) };
    QCOMPARE(runCli(home.path(), arguments).status, 0);
    const CliResult second = runCli(home.path(), arguments);
    QCOMPARE(second.status, 0);
    const QString copy = home.documents() + QStringLiteral("/Garden_Copy_1.card");
    QCOMPARE(second.out, copy.toUtf8() + '\n');
    QCOMPARE(listedPaths().size(), 2);
    QVERIFY(listedPaths().contains(copy));
}

void TestImportCommand::commandLineErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("unknown kind") << QStringList { "palm", "x.pdb" };
    QTest::newRow("unknown codec") << QStringList { "mobiledb", "x.pdb", "--codec", "NoSuch" };
    QTest::newRow("formula and value") << QStringList { "jfile", "x.pdb", "--formula", "--value" };
    QTest::newRow("unknown date format")
        << QStringList { "jfile", "x.pdb", "--date-format", "D M Y" };
    QTest::newRow("jfile option on mobiledb") << QStringList { "mobiledb", "x.pdb", "--value" };
    QTest::newRow("no file") << QStringList { "jfile" };
}

void TestImportCommand::commandLineErrors()
{
    QFETCH(QStringList, arguments);
    TestHome home;
    const CliResult result = runCli(home.path(), QStringList { "import" } + arguments);
    QCOMPARE(result.status, 2);
    QVERIFY(result.err.contains("usage: norvika-cli"));
}

QTEST_GUILESS_MAIN(TestImportCommand)
#include "testimportcommand.moc"
