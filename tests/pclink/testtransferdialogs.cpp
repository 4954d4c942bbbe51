#include "../app/modaldriver.h"
#include "card/datamanager.h"
#include "lib/qt/mrllistviewitem.h"
#include "pclink/transferdata.h"
#include "store/dbmanager.h"
#include "store/pimrecord.h"
#include "support/testhome.h"
#include "views/dblistview.h"

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

// The get window against a real server (norvika-cli serve in its own home), driven by clicks.
class TestTransferDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The program's name names its settings, where the list finds its columns.
    void initTestCase() { qApp->setObjectName(QStringLiteral("norvika")); }
    void cleanup();
    void get_data();
    void get();
    void sendTwiceListsOnce();

private:
    static constexpr int NoServer = 0;
    static constexpr int Serving = 1;
    static constexpr int ServingWithoutCatalogue = 2;
    quint16 startServer(const QString &home);
    static QString makeCard(const QString &folder, const QString &name, const QString &text);
    static void click(QWidget *widget) { QTest::mouseClick(widget, Qt::LeftButton); }

    QProcess m_serve;
};

void TestTransferDialogs::cleanup()
{
    if (m_serve.state() != QProcess::NotRunning) {
        m_serve.terminate();
        m_serve.waitForFinished();
    }
}

quint16 TestTransferDialogs::startServer(const QString &home)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("NORVIKA_HOME"), home);
    m_serve.setProcessEnvironment(env);
    m_serve.start(QStringLiteral(NORVIKA_CLI_PATH), { "serve", "--port", "0" });
    if (!m_serve.waitForReadyRead(10000))
        return 0;
    return quint16(m_serve.readLine().trimmed().mid(18).toUInt());
}

QString TestTransferDialogs::makeCard(
    const QString &folder, const QString &name, const QString &text)
{
    const QString path = folder + QLatin1Char('/') + name;
    DataManager card(path);
    card.setDescription(text);
    card.forceSave();
    return path;
}

void TestTransferDialogs::get_data()
{
    QTest::addColumn<int>("server");
    QTest::addColumn<bool>("localCopy");
    QTest::addColumn<bool>("tick");
    QTest::addColumn<bool>("connectTwice");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QString>("localText");

    const QString ok = QStringLiteral("button1");
    const QString got = QStringLiteral("Get Data ... | Data get successful.");
    QTest::newRow("nothing ticked") << Serving << false << false << false
                                    << QStringList { "", "", ok } << QStringList { got } << "";
    QTest::newRow("one card fetched")
        << Serving << false << true << false << QStringList { "", "", ok } << QStringList { got }
        << "theirs";
    QTest::newRow("overwrite declined")
        << Serving << true << true << false << QStringList { "", "button2", "", ok }
        << QStringList { "Receive Data ...", got } << "mine";
    QTest::newRow("overwrite accepted")
        << Serving << true << true << false << QStringList { "", "button1", "", ok }
        << QStringList { "Receive Data ...", got } << "theirs";
    QTest::newRow("connect twice drops the ticks")
        << Serving << false << true << true << QStringList { "", "", "", ok } << QStringList { got }
        << "";
    QTest::newRow("no server") << NoServer << false << false << false << QStringList { "", ok }
                               << QStringList { "Connection error ... | Run server part first." }
                               << "";
    // Fetching the catalogue fails without a word of its own, and the list stays empty.
    QTest::newRow("catalogue unreadable")
        << ServingWithoutCatalogue << false << false << false << QStringList { "", "", ok }
        << QStringList { got } << "";
}

void TestTransferDialogs::get()
{
    QFETCH(int, server);
    const bool serving = server != NoServer;
    QFETCH(bool, localCopy);
    QFETCH(bool, tick);
    QFETCH(bool, connectTwice);
    QFETCH(QStringList, steps);
    QFETCH(QStringList, messages);
    QFETCH(QString, localText);

    QTemporaryDir serverHome;
    QDir().mkpath(serverHome.filePath(QStringLiteral("documents")));
    const QString remote = makeCard(serverHome.filePath(QStringLiteral("documents")),
        QStringLiteral("books.card"), QStringLiteral("theirs"));
    TestHome home;
    DBManager cards(false);
    const QString local = home.documents() + QStringLiteral("/books.card");
    if (localCopy)
        cards.addCard(
            makeCard(home.documents(), QStringLiteral("books.card"), QStringLiteral("mine")));
    quint16 port = 0;
    if (serving) {
        QProcess list;
        list.setProcessEnvironment([&] {
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert(QStringLiteral("NORVIKA_HOME"), serverHome.path());
            return env;
        }());
        list.start(QStringLiteral(NORVIKA_CLI_PATH), { "list", "--add", remote });
        QVERIFY(list.waitForFinished());
        port = startServer(serverHome.path());
        if (server == ServingWithoutCatalogue)
            QFile::remove(serverHome.filePath(QStringLiteral("data/norvika/norvikaIDX_EXT")));
    } else {
        QTcpServer probe; // a port that was free a moment ago
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        port = probe.serverPort();
    }
    QVERIFY(port != 0);

    TransferData dialog(false, &cards, QString(), nullptr, port);
    dialog.show();
    auto *addr = dialog.findChild<QLineEdit *>(QStringLiteral("addr"));
    QCOMPARE(addr->text(), TransferData::defaultAddress());
    addr->clear();
    QTest::keyClicks(addr, QStringLiteral("127.0.0.1"));
    auto *start = dialog.findChild<QPushButton *>(QStringLiteral("btnOk"));
    auto *connectButton = dialog.findChild<QPushButton *>(QStringLiteral("btnConnect"));
    auto *list = dialog.findChild<DBListView *>(QStringLiteral("dbs"));
    QVERIFY(!start->isEnabled());

    ModalDriver driver(steps);
    click(connectButton);
    QCOMPARE(start->isEnabled(), serving);
    if (serving) {
        QTRY_COMPARE(list->itemCount(), server == Serving ? 1 : 0);
        if (tick) {
            QTRY_VERIFY(!list->visualItemRect(list->itemAtRow(0)).isEmpty());
            const QRect row = list->visualItemRect(list->itemAtRow(0));
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
            QVERIFY(list->manager()->records().first()->hasProperty(QStringLiteral("transfer")));
        }
        if (connectTwice)
            click(connectButton);
        click(start);
    }
    QStringList shown;
    for (const QString &seen : driver.seen()) {
        if (seen.contains(QLatin1String(" ...")))
            shown << (seen.startsWith(QLatin1String("Receive Data")) ? seen.section(" | ", 0, 0)
                                                                     : seen);
    }
    QCOMPARE(shown, messages);
    QCOMPARE(driver.remaining(), 0);
    QCOMPARE(dialog.result() == QDialog::Accepted, serving);
    DataManager card(local);
    if (localText.isEmpty()) {
        QVERIFY(!QFile::exists(local));
        return;
    }
    QVERIFY(card.load());
    QCOMPARE(card.description(), localText);
    if (localText == QLatin1String("theirs")) {
        QCOMPARE(card.property(QStringLiteral("device_path")), QFileInfo(remote).path());
        QVERIFY(cards.findByPath(local));
    }
}

// The current card comes ticked; a card sent again is refreshed on the server, not doubled.
void TestTransferDialogs::sendTwiceListsOnce()
{
    QTemporaryDir serverHome;
    QDir().mkpath(serverHome.filePath(QStringLiteral("documents")));
    TestHome home;
    DBManager cards(false);
    const QString trip
        = makeCard(home.documents(), QStringLiteral("trip.card"), QStringLiteral("mine"));
    cards.addCard(trip);
    const quint16 port = startServer(serverHome.path());
    QVERIFY(port != 0);
    for (int run = 0; run < 2; ++run) {
        TransferData dialog(true, &cards, trip, nullptr, port);
        dialog.show();
        auto *addr = dialog.findChild<QLineEdit *>(QStringLiteral("addr"));
        QVERIFY(!dialog.findChild<QPushButton *>(QStringLiteral("btnConnect"))->isVisible());
        addr->clear();
        QTest::keyClicks(addr, QStringLiteral("127.0.0.1"));
        QVERIFY(cards.records().first()->hasProperty(QStringLiteral("transfer")));
        ModalDriver driver(QStringList { QString(), QStringLiteral("button1") });
        click(dialog.findChild<QPushButton *>(QStringLiteral("btnOk")));
        QCOMPARE(driver.seen().last(), QStringLiteral("Sending Data ... | Data send successful."));
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(!cards.records().first()->hasProperty(QStringLiteral("transfer")));
    }
    m_serve.terminate();
    QVERIFY(m_serve.waitForFinished());
    QProcess list;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("NORVIKA_HOME"), serverHome.path());
    list.setProcessEnvironment(env);
    list.start(QStringLiteral(NORVIKA_CLI_PATH), { "list" });
    QVERIFY(list.waitForFinished());
    QCOMPARE(list.readAllStandardOutput().count("trip.card"), 1);
}

QTEST_MAIN(TestTransferDialogs)
#include "testtransferdialogs.moc"
