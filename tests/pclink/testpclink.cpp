#include "linkpeer.h"
#include "pclink/pclink.h"
#include "pclink/pclinkframe.h"
#include "pclink/transferserver.h"
#include "store/dbmanager.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>

#include <cctype>
#include <memory>

namespace
{
constexpr int stallMs = 400;

QByteArray frame(const QByteArray &tag, const QStringList &fields)
{
    return PCLinkFrame::message(tag, fields);
}

QByteArray offer(const QString &size, const QString &target)
{
    return frame("I", { QStringLiteral("/p/x.card"), size, target });
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}
} // namespace

class TestPCLink : public QObject
{
    Q_OBJECT

private:
    // "$D" stands for the documents folder, "$H" for the home.
    QString place(QString text) const
    {
        return text.replace(QLatin1String("$D"), m_home->documents())
            .replace(QLatin1String("$H"), m_home->path());
    }
    // A frame with placeholders in its fields is framed again once they are filled in.
    QByteArray place(const QByteArray &bytes) const
    {
        if (!bytes.contains('$') || !bytes.contains(' '))
            return bytes;
        const QByteArray payload = bytes.mid(bytes.indexOf(' ') + 1);
        qsizetype tagLength = 0;
        while (tagLength < payload.size() && !std::isdigit(uchar(payload.at(tagLength))))
            ++tagLength;
        PCLinkFrame::FieldReader reader(payload, tagLength);
        QStringList fields;
        QString field;
        while (reader.next(field) && !field.isNull())
            fields << place(field);
        return frame(payload.left(tagLength), fields);
    }

    std::unique_ptr<TestHome> m_home;

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        writeFile(m_home->documents() + QStringLiteral("/a.card"), "old");
        writeFile(m_home->file(QStringLiteral("outside.card")), "outside");
        QFile::link(m_home->file(QStringLiteral("outside.card")),
            m_home->documents() + QStringLiteral("/out.card"));
    }
    void cleanup() { m_home.reset(); }

    void exampleFrames_data()
    {
        QTest::addColumn<QByteArray>("tag");
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("request") << QByteArray("R")
                                 << QStringList { "[A]norvikaIDX_EXT", "/h/norvikaIDX_EXT" }
                                 << QByteArray("41 R17 [A]norvikaIDX_EXT17 /h/norvikaIDX_EXT");
        QTest::newRow("offer") << QByteArray("I")
                               << QStringList { "/h/a.card", "1234", "[A]a.card" }
                               << QByteArray("29 I9 /h/a.card4 12349 [A]a.card");
        QTest::newRow("accept") << QByteArray("AOK") << QStringList() << QByteArray("3 AOK");
        QTest::newRow("refuse") << QByteArray("ACANCEL") << QStringList()
                                << QByteArray("7 ACANCEL");
        QTest::newRow("failure") << QByteArray("FS") << QStringList() << QByteArray("2 FS");
        QTest::newRow("name beyond ASCII counts bytes")
            << QByteArray("R") << QStringList { QStringLiteral("B\u00fccher.card"), "x" }
            << QByteArray("19 R12 B\xc3\xbc"
                          "cher.card1 x");
    }
    void exampleFrames()
    {
        QFETCH(QByteArray, tag);
        QFETCH(QStringList, fields);
        QFETCH(QByteArray, bytes);
        QCOMPARE(frame(tag, fields), bytes);
        QString value;
        PCLinkFrame::FieldReader reader(bytes.mid(bytes.indexOf(' ') + 1), tag.size());
        for (const QString &field : fields) {
            QVERIFY(reader.next(value));
            QCOMPARE(value, field);
        }
    }

    // A peer talks to the real server; each row checks the reply, whether the server hung
    // up, the files, and that a normal transfer works on a new connection afterwards.
    void server_data()
    {
        QTest::addColumn<QByteArrayList>("chunks");
        QTest::addColumn<int>("gapMs");
        QTest::addColumn<bool>("closeEarly");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<bool>("dropped");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content");

        const QByteArray I5 = offer("5", "[A]c.card");
        QTest::newRow("split frame")
            << QByteArrayList { I5.left(4), I5.mid(4, 9), I5.mid(13), "hello" } << 30 << false
            << QByteArray("3 AOK") << false << "$D/c.card" << QByteArray("hello");
        QTest::newRow("digits cut from the blank")
            << QByteArrayList { I5.left(1), I5.mid(1), "hello" } << 30 << false
            << QByteArray("3 AOK") << false << "$D/c.card" << QByteArray("hello");
        QTest::newRow("merged frames")
            << QByteArrayList { "2 FS1 Q" + I5, "hello" } << 30 << false << QByteArray("3 AOK")
            << false << "$D/c.card" << QByteArray("hello");
        QTest::newRow("NUL cuts the chunk") << QByteArrayList { I5
                + QByteArray("\0"
                             "9 R",
                    4),
            "hello" } << 30 << false << QByteArray("3 AOK")
                                            << false << "$D/c.card" << QByteArray("hello");
        QTest::newRow("empty file") << QByteArrayList { offer("0", "[A]c.card") } << 30 << false
                                    << QByteArray("3 AOK") << false << "$D/c.card" << QByteArray();
        const QByteArray big(3 * PCLink::blockSize + 17, 'm');
        QTest::newRow("multi-block file")
            << QByteArrayList { offer(QString::number(big.size()), "[A]c.card"), big } << 30
            << false << QByteArray("3 AOK") << false << "$D/c.card" << big;
        QTest::newRow("surplus bytes")
            << QByteArrayList { I5, "helloEXTRA" } << 30 << false << QByteArray("3 AOK") << false
            << "$D/c.card" << QByteArray("hello");
        QTest::newRow("old file replaced")
            << QByteArrayList { offer("3", "[A]a.card"), "new" } << 30 << false
            << QByteArray("3 AOK") << false << "$D/a.card" << QByteArray("new");

        QTest::newRow("huge length") << QByteArrayList { "9999999999 I" } << 30 << false
                                     << QByteArray() << true << "" << QByteArray();
        QTest::newRow("20 digits") << QByteArrayList { "12345678901234567890 I" } << 30 << false
                                   << QByteArray() << true << "" << QByteArray();
        QTest::newRow("no blank") << QByteArrayList { "IIIIIIIIIIIIIIII" } << 30 << false
                                  << QByteArray() << true << "" << QByteArray();
        QTest::newRow("negative frame length") << QByteArrayList { "-5 I" } << 30 << false
                                               << QByteArray() << true << "" << QByteArray();
        QTest::newRow("negative field length") << QByteArrayList { "7 R-5 abc" } << 30 << false
                                               << QByteArray("2 FS") << false << "" << QByteArray();
        QTest::newRow("field past its frame") << QByteArrayList { "7 R99 abc" } << 30 << false
                                              << QByteArray("2 FS") << false << "" << QByteArray();
        QTest::newRow("negative size")
            << QByteArrayList { offer("-1", "[A]c.card") } << 30 << false << QByteArray("7 ACANCEL")
            << false << "$D/c.card" << QByteArray("<missing>");
        QTest::newRow("size of 2 GiB")
            << QByteArrayList { offer("2147483648", "[A]c.card") } << 30 << false
            << QByteArray("7 ACANCEL") << false << "$D/c.card" << QByteArray("<missing>");
        QTest::newRow("system file")
            << QByteArrayList { frame("R", { "/etc/passwd", "[A]p" }) } << 30 << false
            << QByteArray("2 FS") << false << "" << QByteArray();
        QTest::newRow("dot-dot target")
            << QByteArrayList { offer("1", "[A]../../x.card") } << 30 << false
            << QByteArray("7 ACANCEL") << false << "$H/../x.card" << QByteArray("<missing>");
        QTest::newRow("absolute target elsewhere")
            << QByteArrayList { offer("1", "$H/x.card") } << 30 << false << QByteArray("7 ACANCEL")
            << false << "$H/x.card" << QByteArray("<missing>");
        QTest::newRow("symlink out, writing")
            << QByteArrayList { offer("1", "$D/out.card") } << 30 << false
            << QByteArray("7 ACANCEL") << false << "$H/outside.card" << QByteArray("outside");
        QTest::newRow("symlink out, reading")
            << QByteArrayList { frame("R", { "$D/out.card", "x" }) } << 30 << false
            << QByteArray("2 FS") << false << "" << QByteArray();
        QTest::newRow("directory target") << QByteArrayList { offer("1", "$D") } << 30 << false
                                          << QByteArray("7 ACANCEL") << false << "" << QByteArray();
        QTest::newRow("early close mid-file")
            << QByteArrayList { offer("10", "[A]a.card"), "abcd" } << 30 << true
            << QByteArray("3 AOK") << true << "$D/a.card" << QByteArray("old");
        QTest::newRow("garbage frames") << QByteArrayList { "xyz 1 Q2 Zz3 AOK" } << 30 << false
                                        << QByteArray() << false << "" << QByteArray();
        QTest::newRow("stalled frame") << QByteArrayList { I5.left(10) } << stallMs * 2 << false
                                       << QByteArray() << true << "" << QByteArray();
        QTest::newRow("stalled file")
            << QByteArrayList { I5, "he" } << stallMs * 2 << false << QByteArray("3 AOK") << true
            << "$D/c.card" << QByteArray("<missing>");
        QByteArrayList slow;
        for (char byte : offer("0", "[A]c.card"))
            slow << QByteArray(1, byte);
        QTest::newRow("slow but steady peer") << slow << stallMs / 4 << false << QByteArray("3 AOK")
                                              << false << "$D/c.card" << QByteArray();
    }
    void server()
    {
        QFETCH(QByteArrayList, chunks);
        QFETCH(int, gapMs);
        QFETCH(bool, closeEarly);
        QFETCH(QByteArray, reply);
        QFETCH(bool, dropped);
        QFETCH(QString, file);
        QFETCH(QByteArray, content);

        DBManager cards(false);
        TransferServer server(&cards, 0, nullptr, QHostAddress::LocalHost);
        server.setStallTimeout(stallMs);
        QVERIFY(server.isListening());
        LinkPeer peer;
        peer.connectTo(server.port());
        QTRY_VERIFY(server.link());
        for (QByteArray &chunk : chunks)
            chunk = place(chunk);
        peer.send(chunks, gapMs);
        if (closeEarly)
            peer.socket()->disconnectFromHost();
        QTest::qWait(100);
        QCOMPARE(peer.received, reply);
        QCOMPARE(peer.closed, dropped);
        if (!file.isEmpty())
            QTRY_COMPARE(readFile(place(file)), content);
        QCOMPARE(readFile(m_home->file(QStringLiteral("outside.card"))), QByteArray("outside"));
        // Nothing half-received lingers beside the cards.
        for (const QString &name : QDir(m_home->documents()).entryList(QDir::Files | QDir::Hidden))
            QVERIFY2(name.endsWith(QLatin1String(".card")), qPrintable(name));

        LinkPeer next;
        next.connectTo(server.port());
        QTRY_COMPARE(next.socket()->state(), QAbstractSocket::ConnectedState);
        next.send({ offer("3", "[A]b.card"), "new" });
        QTRY_COMPARE(readFile(m_home->documents() + QStringLiteral("/b.card")), QByteArray("new"));
        QTRY_VERIFY(peer.closed); // the newest connection won
    }

    // This end as the client, the peer as a server answering.
    void client_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<int>("size");
        QTest::addColumn<QByteArray>("first");
        QTest::addColumn<QByteArrayList>("answer");
        QTest::addColumn<QByteArray>("then");
        QTest::addColumn<QString>("signal");
        QTest::addColumn<int>("progressCount");

        const QByteArray offerS = frame("I", { "$D/s.card", "1234", "[A]s.card" });
        QTest::newRow("offer accepted") << "send" << 1234 << offerS << QByteArrayList { "3 AOK" }
                                        << QByteArray(1234, 's') << "sendingFileFinished" << 1;
        QTest::newRow("offer refused") << "send" << 1234 << offerS << QByteArrayList { "7 ACANCEL" }
                                       << QByteArray() << "sendingFileFailed" << 0;
        QTest::newRow("AOKAY refuses") << "send" << 1234 << offerS << QByteArrayList { "5 AOKAY" }
                                       << QByteArray() << "sendingFileFailed" << 0;
        QTest::newRow("empty file")
            << "send" << 0 << frame("I", { "$D/s.card", "0", "[A]s.card" })
            << QByteArrayList { "3 AOK" } << QByteArray() << "sendingFileFinished" << 0;
        const int big = int(2 * PCLink::blockSize + 5);
        QTest::newRow("multi-block file")
            << "send" << big << frame("I", { "$D/s.card", QString::number(big), "[A]s.card" })
            << QByteArrayList { "3 AOK" } << QByteArray(big, 's') << "sendingFileFinished" << 3;
        QTest::newRow("missing file") << "send" << -1 << QByteArray("2 FS") << QByteArrayList()
                                      << QByteArray() << "sendingFileFailed" << 0;
        const QByteArray request("41 R17 [A]norvikaIDX_EXT17 /h/norvikaIDX_EXT");
        QTest::newRow("request failed") << "request" << 0 << request << QByteArrayList { "2 FS" }
                                        << QByteArray() << "receiveFileFailed" << 0;
        QTest::newRow("FSX counts as FS") << "request" << 0 << request << QByteArrayList { "3 FSX" }
                                          << QByteArray() << "receiveFileFailed" << 0;
        const QByteArray fetch = frame("R", { "/srv/g.card", "$D/g.card" });
        QTest::newRow("request answered")
            << "fetch" << 0 << fetch
            << QByteArrayList { frame("I", { "/srv/g.card", "5", "$D/g.card" }), "hello" }
            << QByteArray("3 AOK") << "receiveFileFinished" << 1;
        QTest::newRow("answer under another name")
            << "fetch" << 0 << fetch
            << QByteArrayList { frame("I", { "/srv/g.card", "5", "$D/other.card" }) }
            << QByteArray("7 ACANCEL") << "receiveFileFailed" << 0;
        QTest::newRow("unsolicited R")
            << "" << 0 << QByteArray() << QByteArrayList { frame("R", { "$D/a.card", "x" }) }
            << QByteArray("2 FS") << "" << 0;
        QTest::newRow("unsolicited I")
            << "" << 0 << QByteArray() << QByteArrayList { frame("I", { "/x", "1", "[A]a.card" }) }
            << QByteArray("7 ACANCEL") << "" << 0;
    }
    void client()
    {
        QFETCH(QString, action);
        QFETCH(int, size);
        QFETCH(QByteArray, first);
        QFETCH(QByteArrayList, answer);
        QFETCH(QByteArray, then);
        QFETCH(QString, signal);
        QFETCH(int, progressCount);

        QTcpServer listener;
        QVERIFY(listener.listen(QHostAddress::LocalHost, 0));
        PCLink link(PCLink::Client);
        link.connectToHost(QHostAddress::LocalHost, listener.serverPort());
        QTRY_VERIFY(listener.hasPendingConnections());
        LinkPeer peer(listener.nextPendingConnection());
        QTRY_COMPARE(link.state(), QAbstractSocket::ConnectedState);

        QSignalSpy progress(&link, &PCLink::progress);
        QMap<QString, std::shared_ptr<QSignalSpy>> spies {
            { "sendingFileFinished",
                std::make_shared<QSignalSpy>(&link, &PCLink::sendingFileFinished) },
            { "sendingFileFailed",
                std::make_shared<QSignalSpy>(&link, &PCLink::sendingFileFailed) },
            { "receiveFileFinished",
                std::make_shared<QSignalSpy>(&link, &PCLink::receiveFileFinished) },
            { "receiveFileFailed", std::make_shared<QSignalSpy>(&link, &PCLink::receiveFileFailed) }
        };
        const QString card = m_home->documents() + QStringLiteral("/s.card");
        if (size >= 0)
            writeFile(card, QByteArray(size, 's'));
        if (action == QLatin1String("send"))
            link.sendFile(card, QStringLiteral("[A]s.card"));
        else if (action == QLatin1String("request"))
            link.requestFile(
                QStringLiteral("[A]norvikaIDX_EXT"), QStringLiteral("/h/norvikaIDX_EXT"));
        else if (action == QLatin1String("fetch"))
            link.requestFile(QStringLiteral("/srv/g.card"), place(QStringLiteral("$D/g.card")));
        QTRY_COMPARE(peer.received, place(first));
        peer.received.clear();
        for (QByteArray &chunk : answer)
            chunk = place(chunk);
        peer.send(answer);
        QTRY_COMPARE(peer.received, then);
        for (auto it = spies.cbegin(); it != spies.cend(); ++it)
            QTRY_COMPARE(it.value()->count(), it.key() == signal ? 1 : 0);
        if (signal == QLatin1String("receiveFileFinished"))
            QCOMPARE(readFile(place(QStringLiteral("$D/g.card"))), QByteArray("hello"));
        QCOMPARE(readFile(place(QStringLiteral("$D/other.card"))), QByteArray("<missing>"));
        QCOMPARE(readFile(place(QStringLiteral("$D/a.card"))), QByteArray("old"));
        QCOMPARE(progress.count() >= progressCount, true);
        QCOMPARE(progress.isEmpty(), progressCount == 0);
        QCOMPARE(link.transferState(), int(PCLink::Idle));
    }
};

QTEST_GUILESS_MAIN(TestPCLink)
#include "testpclink.moc"
