#ifndef PCLINKSERVER_H
#define PCLINKSERVER_H

#include <QHostAddress>
#include <QTcpServer>

// Listens for PC Link clients and hands each accepted connection on by its descriptor.
class PCLinkServer : public QTcpServer
{
    Q_OBJECT

public:
    static constexpr quint16 defaultPort = 4240;

    // Listens at once; a port that cannot be bound leaves the server silent (isListening()).
    // Tests listen on the loopback address only.
    explicit PCLinkServer(
        quint16 port, QObject *parent = nullptr, const QHostAddress &address = QHostAddress::Any);

Q_SIGNALS:
    void connected(int socket);

protected:
    void incomingConnection(qintptr socket) override;
};

#endif
