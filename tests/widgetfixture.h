// Player: the facade, what is behind it and the recording engine, fresh for every test; and a note
// of what happens between the engine's calls. Not here: any test.
#pragma once

#include "fakekest/fakekest.h"
#include "playwidget/playwidget.h"
#include "playwidget/playwidget_impl.h"

#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

/// For init() of a test class: from here on, a warning that the test did not announce fails it. What
/// the offscreen platform says about itself does not count.
inline void failOnAnyWarning()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 3, 0)
    QTest::failOnWarning(QRegularExpression(
        QStringLiteral("^(?!This plugin does not support|QStandardPaths: XDG_RUNTIME_DIR)")));
#endif
}

struct Player
{
    /// With `count` items of 60 s: file ids 10, 20, 30 ... and names /films/10.avi, /films/20.avi
    /// ... Nothing is selected yet, and the log is empty.
    explicit Player(int count = 3, int mode = Kest3DTurnOff, double depth = 0.0)
        : widget(new PlayWidget)
        , impl(*widget->m_impl)
        , ui(impl.ui)
    {
        engine.reset();
        widget->initialize(FakeKest::handle(), Kest3DTurnOff);
        for (int fileId = 10; fileId <= 10 * count; fileId += 10) {
            engine.setDuration(fileId, 60000);
            widget->addPlayItem(fileId, QStringLiteral("/films/%1.avi").arg(fileId), false, mode,
                                depth);
        }
    }

    QStringList calls() { return engine.takeCalls(); }

    /// Starts an item and forgets the calls that this made.
    void play(int index = 0)
    {
        widget->setPlayIndex(index);
        QCOMPARE(impl.playState, int(PlayWidget_Impl::Playing));
        calls();
    }

    void pause()
    {
        QVERIFY(impl.pauseVideo());
        calls();
    }

    /// An event of the open edit, on this thread.
    void report(int state, unsigned int time) { engine.sendEvent(0, state, time); }

    /// One tick of a timer, without waiting for it.
    static void tick(QTimer *timer) { QMetaObject::invokeMethod(timer, "timeout"); }

    void pressPlayTracker() { Q_EMIT ui.playTracker->sliderPressed(); }

    void releasePlayTracker(int value)
    {
        ui.playTracker->setValue(value);
        Q_EMIT ui.playTracker->sliderReleased();
    }

    /// What starting a stopped item with 3D off calls, in its order, while the panel shows 3D off.
    static QStringList startCalls(int fileId)
    {
        return {QStringLiteral("KestGetMediaDuration(%1)").arg(fileId),
                QStringLiteral("KestEditBegin(%1)").arg(fileId),
                QStringLiteral("CVideoWnd::resetSessionState()"),
                QStringLiteral("KestGetFilter2(%1, 9)").arg(fileId),
                QStringLiteral("KestAddFilter2(%1, 9, mode 11, depth 0)").arg(fileId),
                QStringLiteral("KestAddFilter(9, mode 11, depth 0)"),
                QStringLiteral("KestChangeVolume(100)"),
                QStringLiteral("KestPlay()")};
    }

    /// What stopping calls, in its order.
    static QStringList stopCalls(bool save)
    {
        return {save ? QStringLiteral("KestEditEnd(true)") : QStringLiteral("KestEditEnd(false)"),
                QStringLiteral("CVideoWnd::SendCommand(4, -1)"),
                QStringLiteral("CVideoWnd::UpdateView()")};
    }

    FakeKest &engine = FakeKest::instance();
    std::unique_ptr<PlayWidget> widget;
    PlayWidget_Impl &impl;
    Ui_PlayWidget_Impl &ui;
};

/// Puts a line into the engine's log each time `widget` gets an event of the type, before the widget
/// itself sees it, so that a test reads what else holds at that moment.
class NoteOnEvent : public QObject
{
public:
    NoteOnEvent(QWidget *widget, QEvent::Type type, std::function<QString()> line)
        : m_type(type)
        , m_line(std::move(line))
    {
        widget->installEventFilter(this);
    }

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == m_type)
            FakeKest::instance().note(m_line());
        return false;
    }

    const QEvent::Type m_type;
    const std::function<QString()> m_line;
};
