// PaintWatch: an application that tells when a widget has been painted, screen and all.
// Not here: what is painted.
#pragma once

#include <QApplication>
#include <QBackingStore>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <utility>

class PaintWatch : public QApplication
{
public:
    using QApplication::QApplication;

    /// Calls `painted` each time that the window's new pixels have gone to the screen.
    void watch(const QWidget *window, std::function<void()> painted)
    {
        m_window = window;
        m_painted = std::move(painted);
    }

    // A paint event comes inside the event that asks for it, which ends with the pixels' way to the
    // screen.
    bool notify(QObject *receiver, QEvent *event) override
    {
        ++m_depth;
        if (event->type() == QEvent::Paint && receiver == m_window)
            m_painting = true;
        const bool result = QApplication::notify(receiver, event);
        if (--m_depth == 0 && std::exchange(m_painting, false) && m_painted)
            m_painted();
        return result;
    }

    /// Runs the event loop until `done`; ends the program where that takes too long.
    void runUntil(const std::function<bool()> &done, int seconds = 20)
    {
        bool late = false;
        QTimer timer;
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, [&late] { late = true; });
        timer.start(seconds * 1000);
        while (!done() && !late)
            processEvents(QEventLoop::WaitForMoreEvents);
        if (!late)
            return;
        std::fprintf(stderr, "nothing came of it within %d s\n", seconds);
        std::_Exit(1);
    }

    void runFor(int milliseconds)
    {
        QEventLoop loop;
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
    }

    /// What stands on the screen, without a copy; null where the platform does not show its memory.
    static QImage pixelsOf(const QWidget &window)
    {
        QBackingStore *store = window.backingStore();
        QPaintDevice *device = store ? store->paintDevice() : nullptr;
        return device && device->devType() == QInternal::Image ? *static_cast<QImage *>(device)
                                                               : QImage();
    }

private:
    const QWidget *m_window = nullptr;
    std::function<void()> m_painted;
    int m_depth = 0;
    bool m_painting = false;
};
