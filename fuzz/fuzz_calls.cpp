// A host and its user do anything in any order with a PlayWidget, over the recording engine.
// Not here: events from a thread of the engine's (fuzz_events.cpp), a real engine (fuzz_media.cpp).
#include "fakekest/fakekest.h"
#include "fuzz/bytes.h"
#include "fuzz/offscreen.h"
#include "fuzz/playercheck.h"
#include "playwidget/playwidget.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int idCount = 6;

QString utf16(const std::string &bytes)
{
    QString text(int(bytes.size() / sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), std::size_t(text.size()) * sizeof(QChar));
    return text;
}

class Host
{
public:
    explicit Host(Bytes bytes)
        : m_bytes(bytes)
    {
        create();
    }
    ~Host() { delete m_widget; }

    void run()
    {
        using Step = void (Host::*)();
        static constexpr Step steps[]
            = {&Host::create,       &Host::initialize, &Host::addItem,   &Host::select,
               &Host::clear,        &Host::hideMode,   &Host::translate, &Host::setDirectly,
               &Host::readItem,     &Host::click,      &Host::click,     &Host::chooseMode,
               &Host::changeDepth,  &Host::pressKey,   &Host::useMouse,  &Host::crossBorder,
               &Host::showOrHide,   &Host::paint,      &Host::tick,      &Host::sendEvent,
               &Host::changeEngine, &Host::keepFilter, &Host::decideFate};
        while (!m_bytes.atEnd()) {
            (this->*steps[m_bytes.below(std::size(steps))])();
            if (!m_widget)
                create();
            check();
        }
    }

private:
    enum Fate { Stays, DiesAtOnce, DiesLater };

    void create()
    {
        delete m_widget;
        m_engine.reset();
        m_fileIds.clear();
        m_mayRead = true;
        m_widget = new PlayWidget;
        m_widget->resize(m_widget->actualSize());
        const auto ended = [this] {
            if (m_fate == DiesAtOnce)
                delete m_widget;
            else if (m_fate == DiesLater && m_widget)
                m_widget->deleteLater();
        };
        QObject::connect(m_widget, &PlayWidget::accepted, m_widget, ended);
        QObject::connect(m_widget, &PlayWidget::rejected, m_widget, [this, ended] {
            checkTakenBack();
            ended();
        });
        if (m_bytes.flag())
            m_widget->initialize(FakeKest::handle(), Kest3DTurnOff);
    }

    void initialize()
    {
        m_widget->initialize(m_bytes.flag() ? FakeKest::handle() : nullptr,
                             tagKest3DMode(m_bytes.below(14)));
    }

    void addItem()
    {
        const int fileId = m_bytes.below(idCount);
        const QString name = utf16(m_bytes.text());
        const bool audioOnly = m_bytes.flag();
        const int mode = m_bytes.flag() ? m_bytes.below(14) : m_bytes.take<int>();
        const auto depth = m_bytes.take<double>();
        m_widget->addPlayItem(fileId, name, audioOnly, mode, depth);
        m_fileIds.push_back(fileId);
        m_mayRead = m_mayRead && !std::isnan(depth);  // a NaN differs from itself
    }

    void select()
    {
        const int index = m_bytes.take<std::int8_t>();
        const int count = int(m_fileIds.size());
        m_widget->setPlayIndex(index);
        const int first = count > 0 ? 0 : -1;
        REQUIRE(m_widget->playIndex() == (index >= 0 && index < count ? index : first));
    }

    void clear()
    {
        m_widget->clear();
        m_fileIds.clear();
        REQUIRE(m_widget->playIndex() == 0);
    }

    void hideMode() { m_widget->set3DModeVisible(tagKest3DMode(m_bytes.below(14))); }

    void translate()
    {
        const int id = m_bytes.flag() ? m_bytes.below(20) : m_bytes.take<int>();
        m_widget->setTranslationText(PlayWidget::TranslationTextID(id), utf16(m_bytes.text()));
    }

    void setDirectly()
    {
        const int fileId = m_bytes.below(idCount);
        const int mode = m_bytes.take<int>();
        PlayWidget::setMovie3DPropsDirect(FakeKest::handle(), fileId, mode, m_bytes.take<double>());
        REQUIRE(m_engine.addedFilter().mode == mode);
    }

    void readItem()
    {
        bool changed = true;
        int mode = 77;
        double depth = 77;
        const int index = m_bytes.take<std::int8_t>();
        const bool there = index >= 0 && index < int(m_fileIds.size());
        REQUIRE(m_widget->movie3DPropsByIndex(index, changed, mode, depth) == there);
        REQUIRE(there || (changed && mode == 77 && depth == 77));
        const int fileId = m_bytes.below(idCount + 1);
        REQUIRE(m_widget->movie3DPropsByFileID(fileId, changed, mode, depth)
                == (std::count(m_fileIds.begin(), m_fileIds.end(), fileId) > 0));
        m_widget->errorString();
    }

    /// All but the two that leave the program: for a folder dialog and for a file browser.
    void click()
    {
        Ui_PlayWidget_Impl &ui = impl().ui;
        QAbstractButton *const buttons[] = {ui.btnPlay,
                                            ui.btnCapture,
                                            ui.btnCaptureRight,
                                            ui.btnVolumeLeft,
                                            ui.btnVolumeRight,
                                            ui.btnPriorFile,
                                            ui.btnNextFile,
                                            ui.btnPriorPart,
                                            ui.btnNextPart,
                                            ui.chxApplyToAll,
                                            ui.buttonBox->button(QDialogButtonBox::Ok),
                                            ui.buttonBox->button(QDialogButtonBox::Cancel)};
        buttons[m_bytes.below(std::size(buttons))]->click();
        if (m_widget)
            impl().snapShotPopup->hide();
    }

    void chooseMode() { impl().ui.cbx3DMode->setCurrentIndex(m_bytes.below(8)); }

    void changeDepth()
    {
        const int steps = m_bytes.take<std::int8_t>();
        if (m_bytes.flag())
            impl().ui.edt3DPos->setValue(steps);
        else
            impl().ui.effectTracker->setValue(steps);
    }

    void pressKey()
    {
        static constexpr int keys[] = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space,
                                       Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,  Qt::Key_Tab,
                                       Qt::Key_Minus,  Qt::Key_5,      Qt::Key_PageUp};
        QWidget *const targets[] = {m_widget,
                                    &impl(),
                                    impl().ui.edt3DPos,
                                    impl().ui.cbx3DMode,
                                    impl().ui.effectTracker,
                                    impl().ui.playTracker};
        const int key = keys[m_bytes.below(std::size(keys))];
        QWidget *const target = targets[m_bytes.below(std::size(targets))];
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(target, &press);
    }

    void useMouse()
    {
        Ui_PlayWidget_Impl &ui = impl().ui;
        QWidget *const targets[] = {ui.playTracker,    ui.volumeTracker, ui.videoWnd,
                                    ui.panPlayControl, ui.effectTracker, ui.btnPlay};
        static constexpr QEvent::Type types[]
            = {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease,
               QEvent::MouseButtonDblClick};
        static constexpr Qt::MouseButton buttons[]
            = {Qt::LeftButton, Qt::RightButton, Qt::NoButton};
        QWidget *const target = targets[m_bytes.below(std::size(targets))];
        const QEvent::Type type = types[m_bytes.below(std::size(types))];
        const Qt::MouseButton button = buttons[m_bytes.below(std::size(buttons))];
        const int x = m_bytes.take<std::int16_t>();
        const QPointF place(x, m_bytes.take<std::int8_t>());
        QMouseEvent event(type, place, target->mapToGlobal(place.toPoint()), button, button,
                          Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    }

    void crossBorder()
    {
        QWidget *const targets[]
            = {impl().ui.videoWnd, impl().ui.panPlayControl, impl().ui.playTracker};
        QWidget *const target = targets[m_bytes.below(std::size(targets))];
        QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(target, m_bytes.flag() ? &enter : &leave);
    }

    void showOrHide()
    {
        if (m_bytes.flag())
            m_widget->setVisible(!m_widget->isVisible());
        else
            m_widget->resize(m_bytes.take<std::uint8_t>() * 4, m_bytes.take<std::uint8_t>() * 4);
    }

    void paint() { m_widget->grab(); }

    void tick()
    {
        static constexpr const char *const names[]
            = {"playUpdateTimerTimeOut", "mouseDetectTimerTimeOut", "delaySetAgain"};
        QMetaObject::invokeMethod(&impl(), names[m_bytes.below(std::size(names))]);
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void sendEvent()
    {
        if (!m_engine.editBeginParams().callback)
            return;
        const int type = m_bytes.below(2);
        const int state = m_bytes.below(9);
        m_engine.sendEvent(type, state, m_bytes.take<unsigned>());
    }

    void changeEngine()
    {
        static constexpr const char *functions[]
            = {"KestPlay",         "KestPause",           "KestEditBegin",  "KestEditEnd",
               "KestChangeVolume", "KestAddFilter",       "KestAddFilter2", "KestGetFilter",
               "KestGetMediaInfo", "KestGetMediaDuration"};
        if (m_bytes.flag()) {
            m_engine.setDuration(m_bytes.below(idCount), m_bytes.take<long long>());
            return;
        }
        m_mayRead = false;  // what the engine refuses is not taken back
        m_engine.setResult(functions[m_bytes.below(std::size(functions))],
                           m_bytes.take<std::int8_t>());
    }

    void keepFilter()
    {
        const int fileId = m_bytes.below(idCount);
        const int mode = m_bytes.flag() ? m_bytes.below(14) : m_bytes.take<int>();
        const auto depth = m_bytes.take<double>();
        m_engine.setKeptFilter(fileId, mode, depth);
        m_engine.setEditFilter(mode, depth);
    }

    void decideFate() { m_fate = Fate(m_bytes.below(3)); }

    /// On rejected() every item has got back what the host gave it.
    void checkTakenBack()
    {
        for (int index = 0; m_mayRead && index < int(m_fileIds.size()); ++index) {
            bool changed = true;
            int mode = 0;
            double depth = 0;
            m_widget->movie3DPropsByIndex(index, changed, mode, depth);
            REQUIRE(!changed);
        }
    }

    void check()
    {
        REQUIRE(m_widget->playItemCount() == int(m_fileIds.size()));
        checkPlayer(impl());
        m_engine.takeCalls();
    }

    PlayWidget_Impl &impl() { return *m_widget->m_impl; }

    Bytes m_bytes;
    FakeKest &m_engine = FakeKest::instance();
    std::vector<int> m_fileIds;
    bool m_mayRead = true;  ///< the engine refused nothing, and every depth equals itself
    Fate m_fate = Stays;
    QPointer<PlayWidget> m_widget;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    Host host(Bytes(bytes, size));
    host.run();
    return 0;
}
