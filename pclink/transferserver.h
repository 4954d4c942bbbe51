#ifndef TRANSFERSERVER_H
#define TRANSFERSERVER_H

#include <QHostAddress>
#include <QObject>
#include <QPointer>

class DBManager;
class PCLink;
class PCLinkServer;

// The serving end: listens, keeps the newest connection only, serves the card list's cards
// and lists the cards it receives.
class TransferServer : public QObject
{
    Q_OBJECT

public:
    TransferServer(DBManager *cards, quint16 port, QObject *parent = nullptr,
        const QHostAddress &address = QHostAddress::Any);

    bool isListening() const;
    quint16 port() const;
    PCLink *link() const;
    void setStallTimeout(int ms) { m_stallMs = ms; }

Q_SIGNALS:
    // A new connection replaced any earlier one; its signals are there to be watched.
    void linkOpened(PCLink *link);
    void linkClosed();
    void cardListed(const QString &path);

private:
    void accept(int socket);
    void received(const QString &path);

    DBManager *m_cards;
    PCLinkServer *m_server;
    QPointer<PCLink> m_link;
    int m_stallMs;
};

#endif
