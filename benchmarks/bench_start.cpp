// How soon after the beginning of an edit is its first picture on the screen?
// Not here: seeking (bench_seek.cpp).
#include "benchmarks/figures.h"
#include "benchmarks/plainplayer.h"
#include "benchmarks/stage.h"

namespace {

constexpr int turns = 31;

double ours(Stage &stage, const QString &clip)
{
    QElapsedTimer clock;
    clock.start();
    stage.show(clip);
    const double taken = double(clock.nsecsElapsed()) / 1e6;
    stage.leave();
    stage.runFor(100);  // the player lets go of the file
    return taken;
}

double plain(const QString &clip)
{
    QElapsedTimer clock;
    clock.start();
    PlainPlayer player(clip);
    player.waitForPicture();
    return double(clock.nsecsElapsed()) / 1e6;
}

}  // namespace

int main(int argc, char **argv)
{
    Stage stage(argc, argv);
    const QString clip = barcodeClip(20, 30);
    std::vector<double> our, other;
    for (int turn = 0; turn < turns; ++turn) {
        our.push_back(ours(stage, clip));
        other.push_back(plain(clip));
    }
    std::printf("Medians of %d turns, ms\n\n", turns);
    std::printf("KestEditBegin to first picture painted   %7.1f\n", median(our));
    std::printf("mpv_create to first picture ready        %7.1f\n", median(other));
    std::printf("ratio                                    %7.2f  aim <= 1.2\n",
                median(our) / median(other));
}
