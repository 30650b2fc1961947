// What does a drag of a thousand moves take, next to a QSlider's, and what does each allocate?
// Not here: painting (bench_sliderpaint.cpp).
#include "benchmarks/figures.h"
#include "controls/imagetracker.h"
#include "playwidget/playwidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QSlider>

#include <cstdio>
#include <cstdlib>

namespace {

long allocations = 0;

}  // namespace

// In place of the library's, for the whole process: counts, and hands on.
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}
void *realloc(void *memory, std::size_t size)
{
    ++allocations;
    return __libc_realloc(memory, size);
}
}

namespace {

constexpr int moves = 1000;
constexpr int turns = 50;
constexpr QSize sliderSize(400, 20);

struct Drag
{
    std::vector<double> nanoseconds;  ///< of its moves, each turn
    long allocated = 0;               ///< by the moves of the last turn
};

/// To the slider itself, past the application: what that allocates on the way is not the slider's.
void send(QObject &slider, QEvent::Type type, int x, Drag &result)
{
    const QPointF place(x, sliderSize.height() / 2);
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, place, button, Qt::LeftButton, Qt::NoModifier);
    const long before = allocations;
    QElapsedTimer time;
    time.start();
    slider.event(&event);
    result.nanoseconds.back() += double(time.nsecsElapsed());
    result.allocated += allocations - before;
}

/// From the left end to the right one and back, on the handle all the time.
void drag(QWidget &slider, Drag &result)
{
    Drag ends = {{0}, 0};
    send(slider, QEvent::MouseButtonPress, 5, ends);
    result.nanoseconds.push_back(0);
    result.allocated = 0;
    for (int i = 0; i < moves; ++i)
        send(slider, QEvent::MouseMove, 5 + qMin(i, moves - i) * 390 / (moves / 2), result);
    send(slider, QEvent::MouseButtonRelease, 5, ends);
    QApplication::processEvents();
}

}  // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const PlayWidget skin;  // the images come with the library
    ImageTracker ours;
    ours.setSkin(QStringLiteral(":/skin/playslider.png"));
    QSlider plain(Qt::Horizontal);
    plain.setRange(0, 10000);
    Drag our, other;
    for (QWidget *slider : std::initializer_list<QWidget *>{&ours, &plain}) {
        slider->resize(sliderSize);
        slider->show();
    }
    ours.setValue(0);
    for (int turn = 0; turn < turns; ++turn) {
        drag(ours, our);
        drag(plain, other);
    }
    std::printf("a drag of %d moves, medians of %d, for each move\n\n", moves, turns);
    std::printf("%-14s%14s%26s\n", "", "nanoseconds", "allocations in one drag");
    std::printf("%-14s%14.0f%26ld\n", "ImageTracker", median(our.nanoseconds) / moves,
                our.allocated);
    std::printf("%-14s%14.0f%26ld\n", "QSlider", median(other.nanoseconds) / moves,
                other.allocated);
    std::printf("%-14s%14.2f\n", "ratio", median(our.nanoseconds) / median(other.nanoseconds));
}
