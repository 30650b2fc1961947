// MachineTime: a clock that stands while the machine stands.
// Not here: who was held up in that time (watchdog.h).
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

/// A virtual machine may get no processor for half a second, and then all its clocks jump. This one
/// is driven by a thread that looks every millisecond and takes no gap for more than ten.
class MachineTime
{
public:
    /// ns since the first call.
    static qint64 now()
    {
        static MachineTime time;
        return time.m_passed;
    }

    static qint64 millisecondsSince(qint64 begin) { return (now() - begin) / 1000000; }

private:
    MachineTime()
        : m_thread([this] { run(); })
    { }
    ~MachineTime()
    {
        m_over = true;
        m_thread.join();
    }

    void run()
    {
        using namespace std::chrono;
        for (auto last = steady_clock::now(); !m_over;) {
            std::this_thread::sleep_for(milliseconds(1));
            const auto look = steady_clock::now();
            m_passed += std::min<nanoseconds>(look - last, milliseconds(10)).count();
            last = look;
        }
    }

    std::atomic<qint64> m_passed{0};
    std::atomic<bool> m_over{false};
    std::thread m_thread;
};
