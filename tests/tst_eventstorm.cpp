// Ten thousand engine events a second, sent from a thread of the engine's: the window stays awake.
// Not here: what a single event does (tst_position.cpp).
#include "machinetime.h"
#include "widgetfixture.h"

#include <atomic>
#include <thread>

class tst_EventStorm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWindowStaysAwake()
    {
        Player player;
        player.widget->show();
        player.play();
        qint64 worst = 0, lastTick = MachineTime::now(), sending = 0;
        std::atomic<bool> sent{false};
        std::thread storm([&, begin = lastTick] {
            sendEvents(player.engine);
            sending = MachineTime::millisecondsSince(begin);
            sent = true;
        });
        const auto tick = [&] {
            worst = qMax(worst, MachineTime::millisecondsSince(lastTick));
            lastTick = MachineTime::now();
        };
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        connect(&timer, &QTimer::timeout, &timer, tick);
        timer.start(10);
        const bool done = QTest::qWaitFor([&] { return sent.load(); }, 20000);
        tick();
        storm.join();
        QVERIFY(done);
        QVERIFY2(sending <= 1500, qPrintable(QString("sent within %1 ms").arg(sending)));
        QVERIFY2(worst <= 100, qPrintable(QString("asleep for %1 ms").arg(worst)));
        QTRY_COMPARE(player.ui.playTracker->getValue(), lastShare);
    }

private:
    static constexpr int lastShare = 20000 * 1000 / 60000;  // of 60 s, in thousandths

    /// A second of them, ten each millisecond.
    static void sendEvents(FakeKest &engine)
    {
        auto due = std::chrono::steady_clock::now();
        for (int i = 1; i <= 10000; ++i) {
            engine.sendEvent(0, 1, unsigned(i * 2));
            if (i % 10 == 0)
                std::this_thread::sleep_until(due += std::chrono::milliseconds(1));
        }
    }
};

QTEST_MAIN(tst_EventStorm)
#include "tst_eventstorm.moc"
