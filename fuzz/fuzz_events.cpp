// Any events of the engine, from a thread of its own, while the user does what moves the position.
// Not here: the calls of a host (fuzz_calls.cpp).
#include "fakekest/fakekest.h"
#include "fuzz/bytes.h"
#include "fuzz/offscreen.h"
#include "fuzz/playercheck.h"
#include "playwidget/playwidget.h"

#include <memory>
#include <thread>
#include <vector>

namespace {

class Stage
{
public:
    explicit Stage(Bytes bytes)
        : m_bytes(bytes)
    {
        m_engine.reset();
        m_widget->initialize(FakeKest::handle(), Kest3DTurnOff);
        for (int fileId = 0; fileId < 2; ++fileId) {
            m_engine.setDuration(fileId, m_bytes.take<long long>());
            m_widget->addPlayItem(fileId, QStringLiteral("film"), m_bytes.flag(), Kest3DRedCyan,
                                  0.01);
        }
        m_widget->setPlayIndex(0);
    }

    ~Stage()
    {
        // Events that are still on their way must not reach a widget that is gone.
        std::thread(&Stage::send, this, someEvents()).join();
        m_widget.reset();
        QApplication::processEvents();
    }

    void run()
    {
        while (!m_bytes.atEnd()) {
            std::thread engine(&Stage::send, this, someEvents());
            act();
            engine.join();
            changeEdit();
            if (m_bytes.flag())
                QApplication::processEvents();
            checkPlayer(player());
            m_engine.takeCalls();
        }
    }

private:
    std::vector<tagKestEvent> someEvents()
    {
        std::vector<tagKestEvent> events(std::size_t(m_bytes.below(16)));
        for (tagKestEvent &event : events) {
            event.eventType = m_bytes.below(4) == 0 ? m_bytes.take<int>() : 0;
            event.state = m_bytes.below(4) == 0 ? m_bytes.take<int>() : m_bytes.below(9);
            event.time = m_bytes.take<unsigned>();
        }
        return events;
    }

    /// On the engine's thread.
    void send(std::vector<tagKestEvent> events)
    {
        const EditBeginParams &edit = m_engine.editBeginParams();
        for (tagKestEvent &event : events)
            REQUIRE(edit.callback(&event, edit.userData) == 0);
        REQUIRE(edit.callback(nullptr, edit.userData) == 0);
        REQUIRE(edit.callback(nullptr, nullptr) == 0);
    }

    /// At the same time, on the GUI thread. Nothing that begins an edit: an engine sends none of the
    /// old edit's events then.
    void act()
    {
        static constexpr const char *const names[]
            = {"playUpdateTimerTimeOut", "mouseDetectTimerTimeOut", "playTrackerPressed",
               "playTrackerReleased",    "playPriorPart",           "playNextPart",
               "minimizeVolume",         "delaySetAgain",           "pauseVideo"};
        QMetaObject::invokeMethod(&player(), names[m_bytes.below(std::size(names))]);
        player().ui.playTracker->setValue(m_bytes.take<std::int16_t>());
    }

    void changeEdit()
    {
        static constexpr const char *const names[]
            = {"btnPlayClick", "playNextFile", "playPriorFile", "playVideo"};
        const int choice = m_bytes.below(16);
        if (choice < int(std::size(names)))
            QMetaObject::invokeMethod(&player(), names[choice]);
    }

    PlayWidget_Impl &player() { return *m_widget->m_impl; }

    Bytes m_bytes;
    FakeKest &m_engine = FakeKest::instance();
    std::unique_ptr<PlayWidget> m_widget = std::make_unique<PlayWidget>();
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    Stage stage(Bytes(bytes, size));
    stage.run();
    return 0;
}
