#include "linkpeer.h"

#include <QHostAddress>
#include <QTest>

LinkPeer::LinkPeer(QTcpSocket *socket)
    : m_socket(socket ? socket : new QTcpSocket(this))
{
    m_socket->setParent(this);
    connect(m_socket, &QTcpSocket::readyRead, this, [this] { received += m_socket->readAll(); });
    connect(m_socket, &QTcpSocket::disconnected, this, [this] { closed = true; });
}

void LinkPeer::connectTo(quint16 port)
{
    m_socket->connectToHost(QHostAddress::LocalHost, port);
}

void LinkPeer::send(const QByteArrayList &chunks, int gapMs)
{
    for (const QByteArray &chunk : chunks) {
        m_socket->write(chunk);
        QTest::qWait(gapMs);
    }
}
