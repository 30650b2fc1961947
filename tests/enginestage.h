// EngineStage: an engine without sound, a window on screen, and the events that came.
// Not here: what is played.
#pragma once

#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QtTest>

#include <functional>
#include <memory>

class EngineStage
{
public:
    struct Event
    {
        tagKestEvent event;
        qint64 at;  ///< ns since the stage was made
    };

    explicit EngineStage(QSize size = {320, 180})
    {
        m_clock.start();
        engine = KestOpen("null");
        window = std::make_unique<CVideoWnd>();
        window->resize(size);
        window->show();
    }
    ~EngineStage() { KestClose(engine); }

    int begin(int fileId)
    {
        EditBeginParams params = {1,
                                  fileId,
                                  1.0,
                                  window ? window->height() : 0,
                                  window ? window->width() : 0,
                                  window ? window->height() : 0,
                                  window ? window->width() : 0,
                                  window.get(),
                                  window.get(),
                                  &EngineStage::receive,
                                  this};
        const int code = KestEditBegin(engine, &params);
        if (window)
            window->resetSessionState();
        return code;
    }

    int add(int fileId, const QString &path)
    {
        return KestAddFile(engine, fileId, path.toUtf8().constData());
    }

    /// Adds the file and begins an edit of it.
    int open(const QString &path, int fileId = 1)
    {
        const int code = add(fileId, path);
        return code == KestOk ? begin(fileId) : code;
    }

    void clearView()
    {
        CVideoWnd::tagMsgParams params = {4, -1, nullptr, nullptr};
        window->SendCommand(&params);
        window->UpdateView();
    }

    int setFilter(int mode, double depth)
    {
        tagKestFilterInfo info = {};
        info.type = 17;
        info.mode = mode;
        info.depth = depth;
        return KestAddFilter(engine, 9, &info);
    }

    QImage grab() const { return window->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    /// Whether the window shows exactly this, now or soon. Looks five times as often as QTRY_COMPARE,
    /// for tests that wait for hundreds of pictures.
    bool comesToShow(const QImage &picture) const
    {
        return QTest::qWaitFor([&] { return grab() == picture; });
    }

    QRgb pixel(int x, int y) const { return grab().pixel(x, y); }

    QRgb centre() const { return pixel(window->width() / 2, window->height() / 2); }

    /// Whether two colours agree but for what a codec does to them.
    static bool near(QRgb one, QRgb other, int tolerance = 10)
    {
        return qAbs(qRed(one) - qRed(other)) <= tolerance
            && qAbs(qGreen(one) - qGreen(other)) <= tolerance
            && qAbs(qBlue(one) - qBlue(other)) <= tolerance;
    }

    bool showsAtCentre(QRgb colour) const { return near(centre(), colour); }

    int count(int state) const
    {
        return int(std::count_if(events.begin(), events.end(),
                                 [state](const Event &e) { return e.event.state == state; }));
    }

    bool ended() const { return count(5) > 0; }

    unsigned int position() const { return events.empty() ? ~0u : events.back().event.time; }

    void *engine = nullptr;
    std::unique_ptr<CVideoWnd> window;
    std::vector<Event> events;
    std::function<void(const tagKestEvent &)> onEvent;  ///< called inside the callback

private:
    static int receive(tagKestEvent *event, void *user)
    {
        auto *self = static_cast<EngineStage *>(user);
        self->events.push_back({*event, self->m_clock.nsecsElapsed()});
        if (const auto react = self->onEvent)
            react(*event);
        return 0;
    }

    QElapsedTimer m_clock;
};
