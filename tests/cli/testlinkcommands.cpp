#include "card/datamanager.h"
#include "clirunner.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

// serve, send and get between two homes on the loopback address.
class TestLinkCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sendThenGet();
    void failures_data();
    void failures();

private:
    quint16 startServer();
    QString makeCard(const QString &home, const QString &name, const QString &description);
    static QString documents(const QString &home) { return home + QStringLiteral("/documents"); }

    QTemporaryDir m_server;
    QTemporaryDir m_client;
    QProcess m_serve;
};

void TestLinkCommands::init()
{
    QDir().mkpath(documents(m_server.path()));
    QDir().mkpath(documents(m_client.path()));
}

void TestLinkCommands::cleanup()
{
    if (m_serve.state() != QProcess::NotRunning) {
        m_serve.kill();
        m_serve.waitForFinished();
    }
}

quint16 TestLinkCommands::startServer()
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("NORVIKA_HOME"), m_server.path());
    m_serve.setProcessEnvironment(env);
    m_serve.start(QStringLiteral(NORVIKA_CLI_PATH), { "serve", "--port", "0" });
    if (!m_serve.waitForReadyRead(10000))
        return 0;
    const QByteArray line = m_serve.readLine().trimmed();
    if (!line.startsWith("listening on port "))
        return 0;
    return quint16(line.mid(18).toUInt());
}

QString TestLinkCommands::makeCard(
    const QString &home, const QString &name, const QString &description)
{
    const QString path = documents(home) + QLatin1Char('/') + name;
    DataManager card(path);
    card.setDescription(description);
    card.forceSave();
    return path;
}

void TestLinkCommands::sendThenGet()
{
    const QString sent
        = makeCard(m_client.path(), QStringLiteral("trip.card"), QStringLiteral("mine"));
    const QString kept
        = makeCard(m_server.path(), QStringLiteral("books.card"), QStringLiteral("theirs"));
    QCOMPARE(runCli(m_server.path(), { "list", "--add", kept }).status, 0);
    const quint16 port = startServer();
    QVERIFY(port != 0);
    const QString catalogue = m_server.path() + QStringLiteral("/data/norvika/norvikaIDX_EXT");
    QVERIFY(QFile::exists(catalogue));
    const QString p = QString::number(port);

    const CliResult send = runCli(m_client.path(), { "send", "127.0.0.1", sent, "--port", p });
    QCOMPARE(send.err, QByteArray());
    QCOMPARE(send.out, sent.toUtf8() + '\n');
    QCOMPARE(send.status, 0);
    const QString arrived = documents(m_server.path()) + QStringLiteral("/trip.card");
    QTRY_VERIFY(QFile::exists(arrived));
    // A card sent again is refreshed in the server's list, not listed twice.
    QCOMPARE(runCli(m_client.path(), { "send", "127.0.0.1", sent, "--port", p }).status, 0);

    // Fetched over the local card of the same name only when asked to.
    const CliResult refused = runCli(m_client.path(), { "get", "127.0.0.1", arrived, "--port", p });
    QCOMPARE(refused.err, "norvika-cli: Card " + sent.toUtf8() + " already exists.\n");
    QCOMPARE(refused.status, 1);
    const CliResult get = runCli(
        m_client.path(), { "get", "127.0.0.1", kept, arrived, "--port", p, "--overwrite" });
    QCOMPARE(get.err, QByteArray());
    const QString fetched = documents(m_client.path()) + QStringLiteral("/books.card");
    QCOMPARE(get.out, fetched.toUtf8() + '\n' + sent.toUtf8() + '\n');
    QCOMPARE(get.status, 0);

    DataManager card(fetched);
    QVERIFY(card.load());
    QCOMPARE(card.description(), QStringLiteral("theirs"));
    QCOMPARE(card.property(QStringLiteral("device_path")), documents(m_server.path()));
    const CliResult list = runCli(m_client.path(), { "list" });
    QVERIFY(list.out.contains(fetched.toUtf8()));

    m_serve.terminate();
    QVERIFY(m_serve.waitForFinished(10000));
    QCOMPARE(m_serve.exitCode(), 0);
    QVERIFY(!QFile::exists(catalogue));
    // The card the server received joined its list.
    QCOMPARE(runCli(m_server.path(), { "list" }).out.count(arrived.toUtf8()), 1);
}

void TestLinkCommands::failures_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("serving");
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("no server") << QStringList { "send", "127.0.0.1", "$C/a.card" } << false
                               << QByteArray("norvika-cli: Run server part first.\n");
    QTest::newRow("missing card") << QStringList { "send", "127.0.0.1", "$C/none.card" } << true
                                  << QByteArray("norvika-cli: Failed send file: $C/none.card.\n");
    QTest::newRow("file outside the served folders")
        << QStringList { "get", "127.0.0.1", "/etc/hostname" } << true
        << QByteArray("norvika-cli: Failed receive file: /etc/hostname.\n");
    QTest::newRow("port in use") << QStringList { "serve" } << true
                                 << QByteArray("norvika-cli: Failed to bind to port $P\n");
}

void TestLinkCommands::failures()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, serving);
    QFETCH(QByteArray, error);
    makeCard(m_client.path(), QStringLiteral("a.card"), QString());
    quint16 port = 0;
    if (serving) {
        port = startServer();
        QVERIFY(port != 0);
    } else {
        // A port that was free a moment ago.
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        port = probe.serverPort();
    }
    const QString docs = documents(m_client.path());
    for (QString &argument : arguments)
        argument.replace(QLatin1String("$C"), docs);
    arguments << "--port" << QString::number(port);
    const CliResult result = runCli(m_client.path(), arguments);
    QCOMPARE(
        result.err, error.replace("$C", docs.toUtf8()).replace("$P", QByteArray::number(port)));
    QCOMPARE(result.status, 1);
}

QTEST_GUILESS_MAIN(TestLinkCommands)
#include "testlinkcommands.moc"
