// norvika-linkbench [MB]: moves one file of MB megabytes (default 100) over the loopback
// address through the PC Link classes and, in the same run, the same bytes through a plain
// socket pair that copies socket to file, and prints both rates, their ratio and the peak
// memory of the process (both ends run in it, as they share one event loop).
#include "pclink/pclink.h"
#include "pclink/pclinkserver.h"
#include "platform/platformpaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTextStream>

#include <sys/resource.h>

namespace
{
constexpr qint64 rawBlock = 1024 * 1024;

long peakKilobytes()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void writeSource(const QString &path, qint64 size)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    QByteArray block(rawBlock, '\0');
    for (qint64 i = 0; i < block.size(); ++i)
        block[i] = char(i * 7919 % 251);
    for (qint64 written = 0; written < size; written += block.size())
        file.write(block.left(qMin<qint64>(block.size(), size - written)));
}

// Seconds to move source to target through PCLink, or -1 when it failed.
double throughLink(const QString &source, const QString &target)
{
    PCLinkServer server(0, nullptr, QHostAddress::LocalHost);
    PCLink client(PCLink::Client);
    PCLink *receiver = nullptr;
    QEventLoop loop;
    bool finished = false;
    QObject::connect(&server, &PCLinkServer::connected, [&](int socket) {
        receiver = new PCLink(PCLink::Server, &server);
        receiver->setSocketDescriptor(socket);
        QObject::connect(receiver, &PCLink::receiveFileFinished, [&] {
            finished = true;
            loop.quit();
        });
        QObject::connect(receiver, &PCLink::receiveFileFailed, &loop, &QEventLoop::quit);
    });
    QElapsedTimer clock;
    QObject::connect(&client, &PCLink::connected, [&] {
        clock.start();
        client.sendFile(source, target);
    });
    QObject::connect(&client, &PCLink::sendingFileFailed, &loop, &QEventLoop::quit);
    client.connectToHost(QHostAddress::LocalHost, server.serverPort());
    loop.exec();
    return finished ? clock.nsecsElapsed() / 1e9 : -1;
}

// Seconds to move source to target through a plain socket pair.
double throughSockets(const QString &source, const QString &target)
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, 0);
    QTcpSocket sender;
    QFile in(source);
    QFile out(target);
    in.open(QIODevice::ReadOnly);
    out.open(QIODevice::WriteOnly);
    const qint64 size = in.size();
    QEventLoop loop;
    QElapsedTimer clock;
    QObject::connect(&server, &QTcpServer::newConnection, [&] {
        QTcpSocket *receiver = server.nextPendingConnection();
        QObject::connect(receiver, &QTcpSocket::readyRead, [&, receiver] {
            out.write(receiver->readAll());
            if (out.size() >= size)
                loop.quit();
        });
    });
    auto pump = [&] {
        if (!in.atEnd() && sender.bytesToWrite() < rawBlock)
            sender.write(in.read(rawBlock));
    };
    QObject::connect(&sender, &QTcpSocket::connected, [&] {
        clock.start();
        pump();
    });
    QObject::connect(&sender, &QTcpSocket::bytesWritten, pump);
    sender.connectToHost(QHostAddress::LocalHost, server.serverPort());
    loop.exec();
    out.close();
    return clock.nsecsElapsed() / 1e9;
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    app.setObjectName(QStringLiteral("norvika"));
    const qint64 megabytes = argc > 1 ? QByteArray(argv[1]).toLongLong() : 100;
    QTemporaryDir home;
    PlatformPaths::setHomeRoot(home.path());
    QDir().mkpath(PlatformPaths::documentsDir());
    const QString source = PlatformPaths::documentsDir() + QStringLiteral("/source.card");
    writeSource(source, megabytes * 1024 * 1024);
    const long before = peakKilobytes();

    const double link
        = throughLink(source, PlatformPaths::documentsDir() + QStringLiteral("/link.card"));
    const long afterLink = peakKilobytes();
    const double raw = throughSockets(source, home.filePath(QStringLiteral("raw.card")));
    const long afterRaw = peakKilobytes();

    QTextStream out(stdout);
    const double mb = double(megabytes);
    out << "file            " << megabytes << " MB over 127.0.0.1\n";
    out << "PCLink          " << QString::number(mb / link, 'f', 1) << " MB/s\n";
    out << "plain sockets   " << QString::number(mb / raw, 'f', 1) << " MB/s\n";
    out << "ratio           " << QString::number(raw / link, 'f', 2) << " x raw\n";
    out << "peak memory     " << before / 1024 << " MB before, " << afterLink / 1024
        << " MB after PCLink, " << afterRaw / 1024 << " MB after plain sockets\n";
    return link < 0 ? 1 : 0;
}
