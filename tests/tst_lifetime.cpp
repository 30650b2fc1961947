// Widgets that come and go while a thread of the engine's sends events: none of them reaches one that
// is gone, and nothing of it stays. PLAYWIDGET_CYCLES sets how many, where 200 are not enough.
// Not here: the order in which a host takes things apart (tst_destruction.cpp).
#include "heap.h"
#include "widgetfixture.h"

#include <atomic>
#include <thread>

namespace {

constexpr int warmUp = 50;          // cycles
constexpr int cacheLimit = 200000;  // bytes that Qt and the allocator keep, however many widgets

int cycleCount()
{
    const int asked = qEnvironmentVariableIntValue("PLAYWIDGET_CYCLES");
    return asked > warmUp ? asked : 200;
}

/// Sends events of the open edit from a thread of its own, for as long as it lives.
class EventSource
{
public:
    explicit EventSource(FakeKest &engine)
        : m_thread([this, &engine] {
            for (unsigned time = 0; !m_over; ++time) {
                engine.sendEvent(0, 1, time);
                std::this_thread::sleep_for(std::chrono::microseconds(50));
            }
        })
    { }
    ~EventSource()
    {
        m_over = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_over{false};
    std::thread m_thread;
};

}  // namespace

class tst_Lifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aWidgetLeavesNothingBehind()
    {
        for (int i = 0; i < warmUp; ++i)
            cycle();
        const qint64 before = bytesInUse();
        for (int i = warmUp; i < cycleCount(); ++i)
            cycle();
        const qint64 growth = bytesInUse() - before;
        qInfo("%d widgets add %lld bytes", cycleCount() - warmUp, growth);
        if (before == 0)
            QSKIP("this sanitizer does not tell how much memory is in use");
        QVERIFY2(growth <= cacheLimit + 16 * cycleCount(), qPrintable(QString::number(growth)));
    }

private:
    static void cycle()
    {
        Player player;
        player.play();
        {
            const EventSource source(player.engine);
            while (player.impl.position == 0)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        player.report(1, 2);  // is on its way when the widget goes
    }
};

QTEST_MAIN(tst_Lifetime)
#include "tst_lifetime.moc"
