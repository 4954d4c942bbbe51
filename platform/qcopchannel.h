#ifndef QCOPCHANNEL_H
#define QCOPCHANNEL_H

#include <QByteArray>
#include <QObject>

// A named channel of messages between the parts of a program and between its processes.
// Every channel object of a name receives what is sent on that name. Messages are posted
// through the event loop, so a receiver never runs inside the sender's call.
// Main thread only.
class QCopChannel : public QObject
{
    Q_OBJECT

public:
    explicit QCopChannel(const QByteArray &channel, QObject *parent = nullptr);
    ~QCopChannel() override;

    QByteArray channel() const { return m_channel; }

    // Whether this process or the running program has a receiver on the channel.
    static bool isRegistered(const QByteArray &channel);
    // Queues the message to this process's receivers of the channel; with none here, hands
    // it to the running program (QCopBridge). False when it reached no receiver.
    static bool send(const QByteArray &channel, const QByteArray &message,
        const QByteArray &data = QByteArray());

    // The same, limited to this process: what the bridge uses for messages it takes in.
    static bool isRegisteredLocally(const QByteArray &channel);
    static bool sendLocally(
        const QByteArray &channel, const QByteArray &message, const QByteArray &data);

protected:
    // Called for each message from the event loop; emits received().
    virtual void receive(const QByteArray &message, const QByteArray &data);

Q_SIGNALS:
    void received(const QByteArray &message, const QByteArray &data);

private:
    QByteArray m_channel;
};

#endif
