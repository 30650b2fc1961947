// How soon after a new 3D mode or depth is it on the screen, while paused?
// Not here: how long composing takes by itself (bench_compose.cpp).
#include "benchmarks/figures.h"
#include "benchmarks/stage.h"

namespace {

constexpr int turns = 400;

double change(Stage &stage, int mode, double depth)
{
    const int before = stage.paints;
    QElapsedTimer clock;
    clock.start();
    stage.set3D(mode, depth);
    stage.runUntil([&] { return stage.paints > before; });
    return double(clock.nsecsElapsed()) / 1e6;
}

void measure(Stage &stage, QSize size)
{
    constexpr int modes[] = {4, 1, 2, 6, 8, 9, 11};
    stage.window.resize(size);
    stage.runFor(300);
    std::vector<double> taken;
    for (int turn = 0; turn < turns; ++turn) {
        taken.push_back(change(stage, modes[turn % std::size(modes)], turn % 41 * 0.001 - 0.02));
        stage.runFor(2);
    }
    std::printf("%4d x %-4d%10.2f%10.2f%10.2f  <= 16\n", size.width(), size.height(), median(taken),
                percentile(taken, 0.99), percentile(taken, 1.0));
}

}  // namespace

int main(int argc, char **argv)
{
    Stage stage(argc, argv);
    stage.show(barcodeClip(20, 30));
    std::printf("A new mode and depth to painted while paused, %d changes, ms\n\n", turns);
    std::printf("%-11s%10s%10s%10s  aim for p99\n", "", "p50", "p99", "most");
    for (const QSize size : {shownSize, QSize(1280, 720)})
        measure(stage, size);
}
