#include "platform/stopsignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace
{
// A handler may do little more than write(); the socket carries the signal to the loop.
int signalSocket[2] = { -1, -1 };
constexpr int stopSignals[] = { SIGINT, SIGTERM, SIGHUP };

void onStopSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalSocket[0], &byte, 1);
}

void setHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int number : stopSignals)
        sigaction(number, &action, nullptr);
}
} // namespace

StopSignals::StopSignals(QObject *parent)
    : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalSocket) != 0) {
        qWarning("Stop signals are not caught: no socket pair");
        return;
    }
    m_notifier = new QSocketNotifier(signalSocket[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &StopSignals::readSignal);
    setHandler(onStopSignal);
}

StopSignals::~StopSignals()
{
    if (!m_notifier)
        return;
    setHandler(SIG_DFL);
    delete m_notifier;
    ::close(signalSocket[0]);
    ::close(signalSocket[1]);
    signalSocket[0] = signalSocket[1] = -1;
}

void StopSignals::readSignal()
{
    char byte;
    if (::read(signalSocket[1], &byte, 1) == 1)
        emit stopRequested();
}
