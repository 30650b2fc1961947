// A drag allocates no memory, from the press to the release.
// Not here: what the moves do (tst_imagetracker.cpp), how long they take (bench_drag.cpp).
#include "controls/imagetracker.h"
#include "playwidget/playwidget.h"

#include <QMouseEvent>
#include <QTest>

#include <cstdlib>

namespace {

long allocations = 0;

}  // namespace

// In place of the library's, for the whole process: counts, and hands on. A sanitizer has its own.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define COUNTS
extern "C" {
void *__libc_malloc(std::size_t size);
void *malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}
}
#endif

class tst_ImageTrackerAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDragAllocatesNothing()
    {
#ifndef COUNTS
        QSKIP("the sanitizer allocates");
#endif
        const PlayWidget skin;  // images, and the words for assistive technology
        ImageTracker tracker;
        tracker.setSkin(QStringLiteral(":/skin/playslider.png"));
        tracker.resize(400, 20);
        tracker.show();
        drag(tracker);  // what is allocated once
        QVERIFY(allocations > 0);
        QCOMPARE(drag(tracker), 0L);
        QVERIFY(tracker.getValue() > 9000);  // of 10,000
    }

private:
    /// From the left to the right; what its events allocate.
    static long drag(ImageTracker &tracker)
    {
        tracker.setValue(0);
        long allocated = send(tracker, QEvent::MouseButtonPress, 5);
        for (int x = 5; x < 395; ++x)
            allocated += send(tracker, QEvent::MouseMove, x);
        allocated += send(tracker, QEvent::MouseButtonRelease, 395);
        QCoreApplication::processEvents();
        return allocated;
    }

    /// To the slider itself, past the application: what that allocates on the way is not the slider's.
    static long send(QObject &slider, QEvent::Type type, int x)
    {
        const QPointF place(x, 10);
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, place, button, Qt::LeftButton, Qt::NoModifier);
        const long before = allocations;
        slider.event(&event);
        return allocations - before;
    }
};

QTEST_MAIN(tst_ImageTrackerAllocations)
#include "tst_imagetracker_allocations.moc"
