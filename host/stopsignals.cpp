// The handler, and the pipe that wakes the event loop.
// Not here: signals that mean something else.
#include "host/stopsignals.h"

#include <QCoreApplication>
#include <QEvent>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int stopping[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t hasArrived = 0;
int wakeUp[2] = {-1, -1};  // to read from, to write to

void take(int)
{
    const int before = errno;
    hasArrived = 1;
    (void)!write(wakeUp[1], "", 1);
    errno = before;
}

void handle(int number, void (*handler)(int))
{
    struct sigaction current = {};
    sigaction(number, nullptr, &current);
    if (current.sa_handler == SIG_IGN)
        return;
    current.sa_handler = handler;
    current.sa_flags = SA_RESTART;
    sigaction(number, &current, nullptr);
}

int openPipe()
{
    (void)!pipe2(wakeUp, O_CLOEXEC | O_NONBLOCK);
    return wakeUp[0];
}

}  // namespace

StopSignals::StopSignals()
    : QSocketNotifier(openPipe(), QSocketNotifier::Read)
{
    for (const int number : stopping)
        handle(number, take);
}

StopSignals::~StopSignals()
{
    for (const int number : stopping)
        handle(number, SIG_DFL);
    close(wakeUp[0]);
    close(wakeUp[1]);
}

bool StopSignals::event(QEvent *event)
{
    if (event->type() != QEvent::SockAct)
        return QSocketNotifier::event(event);
    setEnabled(false);
    QCoreApplication::exit(1);
    return true;
}

bool StopSignals::arrived()
{
    return hasArrived != 0;
}
