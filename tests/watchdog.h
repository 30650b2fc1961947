// Watchdog: how long the GUI thread was held up by one call or one event, load of the machine aside.
// Not here: what a test takes for too long.
#pragma once

#include "machinetime.h"

#include <QApplication>
#include <QFile>

#include <utility>

/// Counts the time that the thread worked or slept, not the time that it was ready to work but the
/// processors were with others or stood: a busy machine makes nobody guilty.
class Watchdog
{
public:
    explicit Watchdog(qint64 &worst)
        : m_worst(worst)
        , m_queuedBefore(queued())
        , m_begin(MachineTime::now())
    { }
    ~Watchdog()
    {
        const qint64 held = MachineTime::now() - m_begin - (queued() - m_queuedBefore);
        m_worst = qMax(m_worst, held / 1000000);
    }
    Watchdog(const Watchdog &) = delete;
    Watchdog &operator=(const Watchdog &) = delete;

private:
    /// ns that this thread has waited for a processor; 0 where the system does not tell.
    static qint64 queued()
    {
        QFile statistics("/proc/thread-self/schedstat");
        if (!statistics.open(QIODevice::ReadOnly))
            return 0;
        return statistics.readLine().split(' ').value(1).toLongLong();
    }

    qint64 &m_worst;
    const qint64 m_queuedBefore;
    const qint64 m_begin;
};

/// Watches each event that it hands out, and each call made through watched().
class WatchedApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        const Watchdog watchdog(worst());
        return QApplication::notify(receiver, event);
    }

    /// ms that the longest took since the last time that this was asked.
    static qint64 takeWorst() { return std::exchange(worst(), 0); }

    static qint64 &worst()
    {
        static qint64 milliseconds = 0;
        return milliseconds;
    }
};

template <typename Call> auto watched(Call call)
{
    const Watchdog watchdog(WatchedApplication::worst());
    return call();
}

/// Like QTEST_MAIN, with a WatchedApplication.
#define WATCHED_TEST_MAIN(TestClass)                                                               \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        WatchedApplication application(argc, argv);                                                \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
