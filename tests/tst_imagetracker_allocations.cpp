// A drag of a slider allocates no memory, from the press to the release; in the player neither, but for
// what the engine writes down. Not here: what the moves do (tst_imagetracker.cpp, tst_position.cpp), how
// long they take (bench_drag.cpp).
#include "controls/imagetracker.h"
#include "widgetfixture.h"

#include <QMouseEvent>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <vector>

namespace {

long allocations = 0;

}  // namespace

// In place of the library's, for the whole process: counts, and hands on. A sanitizer has its own.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define COUNTS
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void *malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}
void *calloc(std::size_t count, std::size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}
void *realloc(void *memory, std::size_t size)
{
    ++allocations;
    return __libc_realloc(memory, size);
}
void *memalign(std::size_t alignment, std::size_t size)
{
    ++allocations;
    return __libc_memalign(alignment, size);
}
void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    ++allocations;
    return __libc_memalign(alignment, size);
}
int posix_memalign(void **memory, std::size_t alignment, std::size_t size)
{
    ++allocations;
    *memory = __libc_memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}
}
#endif

namespace {

constexpr int moves = 1000;

struct Way
{
    const char *name;
    void (*go)();
};

const Way ways[] = {
    {"malloc", [] { std::free(std::malloc(64)); }},
    {"calloc", [] { std::free(std::calloc(8, 8)); }},
    {"realloc", [] { std::free(std::realloc(nullptr, 64)); }},
    {"aligned_alloc", [] { std::free(std::aligned_alloc(64, 64)); }},
    {"posix_memalign",
     [] {
         void *memory = nullptr;
         if (posix_memalign(&memory, 64, 64) == 0)
             std::free(memory);
     }},
    {"new", [] { delete new char; }},
    {"new of many", [] { delete[] new char[64]; }},
    {"new, aligned",
     [] {
         constexpr std::align_val_t line{64};
         ::operator delete(::operator new(64, line), line);
     }},
    {"inside Qt", [] { QByteArray(64, 'a'); }},
};

/// How many moves of a drag changed the value, and what its parts allocated.
struct Drag
{
    int changes;
    long atPress;
    long atMoves;
    long atRelease;
};

constexpr Drag freeOfCharge = {moves, 0, 0, 0};

bool operator==(const Drag &a, const Drag &b)
{
    return a.changes == b.changes && a.atPress == b.atPress && a.atMoves == b.atMoves
        && a.atRelease == b.atRelease;
}

char *toString(const Drag &drag)
{
    return QTest::toString(QStringLiteral("%1 changes, allocated %2 + %3 + %4")
                               .arg(drag.changes)
                               .arg(drag.atPress)
                               .arg(drag.atMoves)
                               .arg(drag.atRelease));
}

/// To the slider itself, past the application: what that allocates on the way is not the slider's.
long send(QObject &slider, QEvent::Type type, const QPointF &place)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, place, button, Qt::LeftButton, Qt::NoModifier);
    const long before = allocations;
    slider.event(&event);
    return allocations - before;
}

/// Takes the handle from its left end to the right one and back and so on, a pixel with each move.
Drag drag(ImageTracker &tracker)
{
    const QPointF left(5, tracker.height() / 2);
    const int way = tracker.width() - 20;  // the handle is narrower
    tracker.setValue(0);
    Drag drag = {};
    drag.atPress = send(tracker, QEvent::MouseButtonPress, left);
    for (int i = 1; i <= moves; ++i) {
        const int turn = i % (2 * way);
        const QPointF place = left + QPointF(qMin(turn, 2 * way - turn), 0);
        const int before = tracker.getValue();
        drag.atMoves += send(tracker, QEvent::MouseMove, place);
        drag.changes += tracker.getValue() != before;
    }
    drag.atRelease = send(tracker, QEvent::MouseButtonRelease, left);
    QCoreApplication::processEvents();
    return drag;
}

/// A film plays, and the bar is there to be dragged.
struct OpenPlayer : Player
{
    OpenPlayer()
    {
        widget->show();
        impl.showOverlay();
        play();
        QCoreApplication::processEvents();
    }
};

}  // namespace

class tst_ImageTrackerAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void countsEachWay_data();
    void countsEachWay();
    void aDragAllocatesNothing();
    void aDragInThePlayerAllocatesNothing_data();
    void aDragInThePlayerAllocatesNothing();
    void movingThePositionAllocatesNothingInThePlayer();
    void movingTheVolumeAllocatesWhatTheEngineWritesDown();
};

void tst_ImageTrackerAllocations::initTestCase()
{
#ifndef COUNTS
    QSKIP("the sanitizer allocates");
#endif
}

void tst_ImageTrackerAllocations::countsEachWay_data()
{
    QTest::addColumn<int>("row");
    int row = 0;
    for (const Way &way : ways)
        QTest::newRow(way.name) << row++;
}

void tst_ImageTrackerAllocations::countsEachWay()
{
    QFETCH(int, row);
    const long before = allocations;
    ways[row].go();
    QCOMPARE(allocations - before, 1L);
}

void tst_ImageTrackerAllocations::aDragAllocatesNothing()
{
    const PlayWidget skin;  // images, and the words for assistive technology
    ImageTracker tracker;
    tracker.setSkin(QStringLiteral(":/skin/playslider.png"));
    tracker.resize(400, 20);
    tracker.show();
    drag(tracker);  // what is allocated once
    QCOMPARE(drag(tracker), freeOfCharge);
}

void tst_ImageTrackerAllocations::aDragInThePlayerAllocatesNothing_data()
{
    QTest::addColumn<bool>("ofVolume");
    QTest::newRow("the position") << false;
    QTest::newRow("the volume") << true;
}

// The slider alone: what the player does at its signals is kept out.
void tst_ImageTrackerAllocations::aDragInThePlayerAllocatesNothing()
{
    QFETCH(bool, ofVolume);
    OpenPlayer player;
    ImageTracker &tracker = ofVolume ? *player.ui.volumeTracker : *player.ui.playTracker;
    const QSignalBlocker blocker(tracker);
    drag(tracker);
    QCOMPARE(drag(tracker), freeOfCharge);
    QCOMPARE(player.calls(), QStringList());
}

void tst_ImageTrackerAllocations::movingThePositionAllocatesNothingInThePlayer()
{
    OpenPlayer player;
    drag(*player.ui.playTracker);
    player.calls();
    Drag moving = drag(*player.ui.playTracker);
    QCOMPARE(player.calls().size(), 1);  // the release seeks
    moving.atRelease = 0;
    QCOMPARE(moving, freeOfCharge);
}

void tst_ImageTrackerAllocations::movingTheVolumeAllocatesWhatTheEngineWritesDown()
{
    OpenPlayer player;
    std::vector<int> volumes;
    volumes.reserve(2 * moves);
    connect(player.ui.volumeTracker, &ImageTracker::valueChanged,
            [&](int volume) { volumes.push_back(volume); });
    drag(*player.ui.volumeTracker);
    player.calls();
    volumes.clear();
    const Drag moving = drag(*player.ui.volumeTracker);
    const QStringList calls = player.calls();

    const long before = allocations;
    for (const int volume : volumes)
        KestChangeVolume(FakeKest::handle(), volume);
    const long written = allocations - before;
    QCOMPARE(player.calls(), calls);
    QCOMPARE(calls.size(), moves);
    QVERIFY(written >= moves);
    QCOMPARE(moving, (Drag{moves, 0, written, 0}));
}

QTEST_MAIN(tst_ImageTrackerAllocations)
#include "tst_imagetracker_allocations.moc"
