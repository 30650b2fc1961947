// How soon after an exact seek is the right picture on the screen?
// Not here: whether the position is told (tst_kest_playing.cpp).
#include "benchmarks/figures.h"
#include "benchmarks/plainplayer.h"
#include "benchmarks/stage.h"

namespace {

constexpr int turns = 21;
constexpr int seconds = 20, rate = 30;

/// While playing, the right picture may be gone by the time that a busy machine shows one.
bool arrived(int number, int target, bool playing)
{
    return number >= target && number <= target + (playing ? 30 : 0);
}

double ours(Stage &stage, int target, bool playing)
{
    if (playing)
        KestPlay(stage.engine);
    stage.runFor(100);
    QElapsedTimer clock;
    clock.start();
    KestSetCurPos(stage.engine, unsigned(target * 1000 / rate));
    stage.runUntil([&] { return arrived(stage.shown, target, playing); });
    const double taken = double(clock.nsecsElapsed()) / 1e6;
    KestPause(stage.engine);
    stage.runFor(50);
    return taken;
}

double plain(Stage &stage, PlainPlayer &player, int target, bool playing)
{
    player.setPaused(!playing);
    stage.runFor(100);
    QElapsedTimer clock;
    clock.start();
    player.seek(double(target * 1000 / rate) / 1000);
    player.waitForPicture(shownSize, [&](const QImage &picture) {
        return arrived(barcodeOf(picture), target, playing);
    });
    const double taken = double(clock.nsecsElapsed()) / 1e6;
    player.setPaused(true);
    stage.runFor(50);
    return taken;
}

void measure(Stage &stage, PlainPlayer &player, bool playing)
{
    std::vector<double> our, other;
    for (int turn = 0; turn < turns; ++turn) {
        const int target = 10 + turn * 383 % (rate * (seconds - 2));
        our.push_back(ours(stage, target, playing));
        other.push_back(plain(stage, player, target, playing));
    }
    std::printf("%-10s%10.1f%10.1f%10.2f  <= 1.1\n", playing ? "playing" : "paused", median(our),
                median(other), median(our) / median(other));
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char **argv)
{
    Stage stage(argc, argv);
    const QString clip = barcodeClip(seconds, rate);
    stage.show(clip);
    stage.set3D(Kest3DRedCyan, -0.012);
    PlainPlayer player(clip);
    player.waitForPicture();
    std::printf(
        "Exact seek to the picture: ours painted, plain libmpv's rendered; medians of %d, ms\n\n",
        turns);
    std::printf("%-10s%10s%10s%10s  aim\n", "", "ours", "libmpv", "ratio");
    measure(stage, player, false);
    measure(stage, player, true);
}
