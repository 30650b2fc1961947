// Does each picture of a fast film come to the screen, whole and in its turn?
// Not here: what that costs (bench_play.cpp).
#include "benchmarks/stage.h"

int main(int argc, char **argv)
{
    Stage stage(argc, argv);
    const int seconds = argc > 1 ? QString(argv[1]).toInt() : 60;
    constexpr int rate = 60;
    int painted = 0, torn = 0, early = 0, last = -1;
    stage.show(barcodeClip(seconds, rate));
    stage.set3D(Kest3DRedCyan, -0.012);
    stage.runFor(500);
    last = stage.shown;
    painted = 1;
    stage.painted = [&] {
        torn += stage.shown == -2;
        early += stage.shown >= 0 && stage.shown < last;
        painted += stage.shown > last;
        last = std::max(last, stage.shown);
    };
    KestPlay(stage.engine);
    stage.runUntil([&] { return stage.ended; }, 3600);
    const int all = seconds * rate;
    std::printf("%d s of 1080p%d in red/cyan, 702 wide\n\n", seconds, rate);
    std::printf("pictures in the film   %6d\n", all);
    std::printf("painted                %6d\n", painted);
    std::printf("ratio                  %6.3f  aim >= 0.99\n", double(painted) / all);
    std::printf("torn                   %6d  aim 0\n", torn);
    std::printf("out of order           %6d  aim 0\n", early);
}
