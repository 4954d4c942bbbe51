#ifndef STOPSIGNALS_H
#define STOPSIGNALS_H

#include <QObject>

class QSocketNotifier;

// Turns SIGINT, SIGTERM and SIGHUP into stopRequested() on the event loop, so that a
// program stopped by its session or its terminal ends as a quit does and keeps what it
// holds. One instance at a time; its destruction gives the signals their default action.
class StopSignals : public QObject
{
    Q_OBJECT

public:
    explicit StopSignals(QObject *parent = nullptr);
    ~StopSignals() override;

Q_SIGNALS:
    void stopRequested();

private:
    void readSignal();

    QSocketNotifier *m_notifier = nullptr;
};

#endif
