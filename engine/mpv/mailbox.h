// Mailbox: what GUI thread and render thread say to each other about one engine's picture.
// Not here: rendering (renderthread.h), painting (videownd.cpp), playing (session.h).
#pragma once

#include "engine/mpv/fitting.h"
#include "engine/mpv/frame.h"
#include "engine/mpv/stereolayout.h"
#include "engine/mpv/stereosetting.h"

#include <QCoreApplication>
#include <QEvent>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

/// How a film's picture is shown: its size in the right aspect before it is turned, the turn, and
/// where in the film's frames it lies.
struct PictureShape
{
    QSizeF size;
    int rotation = 0;          ///< degrees clockwise: 0, 90, 180, 270
    StereoLayout layout = {};  ///< of the two pictures in a frame before they are turned
    QSize stored = {};         ///< pixels of a whole frame in the file; empty: unknown

    QSizeF upright() const { return rotation % 180 ? size.transposed() : size; }
    bool operator==(const PictureShape &other) const
    {
        return size == other.size && rotation == other.rotation && layout == other.layout
            && stored == other.stored;
    }
};

/// What the render thread has to do, and how the picture has to look by now.
struct RenderOrder
{
    bool stop = false;
    bool frameDue = false;  ///< the player may have a new picture
    bool settingNew = false;
    quint64 settled = 0;    ///< epoch that the player has a picture of now, perhaps a missed one
    quint64 epoch = 0;      ///< 0: no edit is open
    quint64 editEpoch = 0;  ///< pictures of an earlier epoch belong to an edit that is over
    QSize size;  ///< of the picture on screen, turned, in device pixels; empty: nobody sees it
    PictureShape shape;
    StereoSetting setting;
};

/// One slot for a frame, where the latest wins, and the wake-up that the render thread sleeps on.
///
/// Time is cut into epochs, counted up by every film and every seek. A frame carries the epoch it
/// was ordered in, so that one of an edit that has ended is never taken for one of the next.
///
/// Any thread may call anything. The lock is a leaf but for posting an event to the receiver; the
/// render thread waits for nobody else, and nobody waits for it here.
class Mailbox
{
public:
    struct Letter
    {
        Frame frame;
        quint64 epoch = 0;
    };

    /// The event that tells the receiver to take().
    static QEvent::Type frameEvent()
    {
        static const auto type = QEvent::Type(QEvent::registerEventType());
        return type;
    }

    // --- session

    void beginEdit(StereoSetting setting, const PictureShape &shape)
    {
        const std::lock_guard lock(m_lock);
        m_receiver = nullptr;
        m_area = {};
        m_letter.reset();
        m_setting = setting;
        m_shape = shape;
        m_editEpoch = 0;
    }

    /// The player has let go of the film before: from here on its pictures are this edit's.
    void filmBegun()
    {
        const std::lock_guard lock(m_lock);
        m_editEpoch = ++m_epoch;
    }

    /// From here on no frame is handed over, not even one that is being rendered.
    void endEdit()
    {
        const std::lock_guard lock(m_lock);
        m_receiver = nullptr;
        m_area = {};
        m_letter.reset();
        m_editEpoch = 0;
    }

    void seekBegun()
    {
        const std::lock_guard lock(m_lock);
        ++m_epoch;
    }

    void setSetting(StereoSetting setting)
    {
        change([&] {
            m_setting = setting;
            return m_settingNew = true;
        });
    }

    void setShape(const PictureShape &shape)
    {
        change([&] {
            const bool other = !(m_shape == shape);
            m_shape = shape;
            return other;
        });
    }

    /// The player has a picture to show. It gives up waiting for a renderer that comes late and then
    /// tells of no new picture; this makes good for it.
    void settle()
    {
        change([&] {
            m_settled = m_epoch;
            return true;
        });
    }

    void stop()
    {
        change([&] { return m_stop = true; });
    }

    // --- view

    /// `receiver` gets frameEvent() from now on, instead of the one before.
    void attach(QObject *receiver)
    {
        const std::lock_guard lock(m_lock);
        m_receiver = receiver;
        m_rung = false;
    }

    void detach(const QObject *receiver)
    {
        const std::lock_guard lock(m_lock);
        if (receiver != m_receiver)
            return;
        m_receiver = nullptr;
        m_area = {};
    }

    /// The room there is for the picture in device pixels; empty while the view is hidden.
    void setArea(const QObject *receiver, QSize area)
    {
        change([&] {
            if (receiver != m_receiver || area == m_area)
                return false;
            m_area = area;
            return true;
        });
    }

    std::optional<Letter> take(const QObject *receiver)
    {
        const std::lock_guard lock(m_lock);
        if (receiver != m_receiver)
            return {};
        m_rung = false;
        return std::exchange(m_letter, std::nullopt);
    }

    quint64 epoch() const
    {
        const std::lock_guard lock(m_lock);
        return m_epoch;
    }

    quint64 editEpoch() const
    {
        const std::lock_guard lock(m_lock);
        return m_editEpoch;
    }

    // --- player's own threads

    void frameDue()
    {
        change([&] { return m_frameDue = true; });
    }

    // --- render thread

    /// Sleeps until there is something to do.
    RenderOrder wait()
    {
        std::unique_lock lock(m_lock);
        m_wake.wait(lock, [this] { return m_changed; });
        m_changed = false;
        RenderOrder order;
        order.stop = m_stop;
        order.frameDue = std::exchange(m_frameDue, false);
        order.settled = std::exchange(m_settled, 0);
        order.settingNew = std::exchange(m_settingNew, false);
        order.epoch = m_editEpoch ? m_epoch : 0;
        order.editEpoch = m_editEpoch;
        order.size = fitted(m_area, m_shape.upright());
        order.shape = m_shape;
        order.setting = m_setting;
        return order;
    }

    void post(const Frame &frame, quint64 epoch)
    {
        const std::lock_guard lock(m_lock);
        if (!m_editEpoch || epoch < m_editEpoch || !m_receiver)
            return;
        m_letter = Letter{frame, epoch};
        if (!std::exchange(m_rung, true))
            QCoreApplication::postEvent(m_receiver, new QEvent(frameEvent()));
    }

private:
    /// Wakes the render thread when `apply` says that there is something new for it.
    template <typename Change> void change(Change apply)
    {
        {
            const std::lock_guard lock(m_lock);
            if (!apply())
                return;
            m_changed = true;
        }
        m_wake.notify_one();
    }

    mutable std::mutex m_lock;
    std::condition_variable m_wake;

    // --- guarded by m_lock
    bool m_changed = false;
    bool m_stop = false;
    bool m_frameDue = false;
    bool m_settingNew = false;
    bool m_rung = false;    // a frameEvent is on its way
    quint64 m_settled = 0;  // the epoch that settle() spoke of; 0: nothing new
    quint64 m_epoch = 0;
    quint64 m_editEpoch = 0;  // the epoch that the open edit's film began in; 0: there is none yet
    QSize m_area;
    PictureShape m_shape;
    StereoSetting m_setting;
    QObject *m_receiver = nullptr;
    std::optional<Letter> m_letter;
};
