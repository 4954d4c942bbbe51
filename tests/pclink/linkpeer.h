#ifndef LINKPEER_H
#define LINKPEER_H

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>

// The far end of a link in a test: a plain socket on the loopback address that writes
// exactly the bytes it is given and keeps everything it receives.
class LinkPeer : public QObject
{
    Q_OBJECT

public:
    explicit LinkPeer(QTcpSocket *socket = nullptr);

    void connectTo(quint16 port);
    // Writes the chunks one by one, letting gapMs of events run after each.
    void send(const QByteArrayList &chunks, int gapMs = 30);
    QTcpSocket *socket() const { return m_socket; }

    QByteArray received;
    bool closed = false;

private:
    QTcpSocket *m_socket;
};

#endif
