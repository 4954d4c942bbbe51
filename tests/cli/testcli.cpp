#include "clirunner.h"
#include "support/testhome.h"

#include <QTest>

class TestCli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandLine_data();
    void commandLine();
};

void TestCli::commandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("stdoutStart");
    QTest::addColumn<QByteArray>("stderrStart");

    QTest::newRow("help") << QStringList{"--help"} << 0 << QByteArray("usage: norvika-cli") << QByteArray();
    QTest::newRow("version") << QStringList{"--version"} << 0 << QByteArray("norvika-cli " NORVIKA_VERSION "\n") << QByteArray();
    QTest::newRow("no command") << QStringList{} << 2 << QByteArray() << QByteArray("norvika-cli: no command given");
    QTest::newRow("unknown command") << QStringList{"frobnicate"} << 2 << QByteArray()
                                     << QByteArray("norvika-cli: unknown command frobnicate");
    QTest::newRow("home without value") << QStringList{"--home"} << 2 << QByteArray()
                                        << QByteArray("norvika-cli: option --home needs a value");
    QTest::newRow("unknown global option") << QStringList{"--colour"} << 2 << QByteArray()
                                           << QByteArray("norvika-cli: unknown option --colour");
}

void TestCli::commandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QByteArray, stdoutStart);
    QFETCH(QByteArray, stderrStart);
    TestHome home;
    const CliResult result = runCli(home.path(), arguments);
    QCOMPARE(result.status, status);
    QVERIFY2(result.out.startsWith(stdoutStart), result.out.constData());
    QVERIFY2(result.err.startsWith(stderrStart), result.err.constData());
    if (status == 2)
        QVERIFY(result.err.contains("usage: norvika-cli"));
}

QTEST_GUILESS_MAIN(TestCli)
#include "testcli.moc"
