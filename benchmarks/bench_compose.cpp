// How much longer than a plain copy of a picture does composing it take, and how much longer still
// does libavfilter? Not here: whether the pictures are right (tst_stereocomposer.cpp).
#include "engine/mpv/stereocomposer.h"
#ifdef HAVE_AVFILTER
#include "benchmarks/filterchain.h"
#endif

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int rounds = 151;
constexpr double columns = 6.0;  // that each view is moved by
constexpr double betweenColumns = 6.3;

struct Side
{
    std::string name;
    const char *aim;
    std::function<void()> run;
    std::vector<double> milliseconds = {};

    double median() const
    {
        std::vector<double> sorted = milliseconds;
        std::sort(sorted.begin(), sorted.end());
        return sorted[sorted.size() / 2];
    }
};

QImage noise(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    quint32 state = 1;
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<quint32 *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = 0xff000000 | (state = state * 1664525 + 1013904223);
    }
    return picture;
}

/// All sides take turns, so that a busy moment hits them alike. Each runs once before it is timed, so
/// that none pays for what the one before it left in the cache.
void measure(std::vector<Side> &sides)
{
    using namespace std::chrono;
    for (int round = 0; round < rounds; ++round) {
        for (Side &side : sides) {
            side.run();
            const auto begin = steady_clock::now();
            side.run();
            const duration<double, std::milli> taken = steady_clock::now() - begin;
            side.milliseconds.push_back(taken.count());
        }
    }
}

Frame composed(const QImage &picture, int mode, double columns)
{
    return compose({picture, 0, 0}, {mode, 2 * columns / picture.width()});
}

void addCopy(std::vector<Side> &sides, const QImage &picture)
{
    const auto copy = std::make_shared<QImage>(picture.size(), picture.format());
    sides.push_back(
        {"plain copy", "",
         [=] { std::memcpy(copy->bits(), picture.constBits(), size_t(picture.sizeInBytes())); }});
}

void addModes(std::vector<Side> &sides, const QImage &picture)
{
    const std::pair<int, const char *> modes[] = {
        {Kest3DRedGreen, "red/green"},      {Kest3DRedBlue, "red/blue"},
        {Kest3DRedCyan, "red/cyan"},        {Kest3DBlueYellow, "blue/yellow"},
        {Kest3DInterleaved, "interleaved"}, {Kest3DSlideBySlide, "side by side"},
    };
    for (const auto &[mode, name] : modes) {
        const int wanted = mode;
        sides.push_back({name, "<= 1.3", [=] { composed(picture, wanted, columns); }});
        sides.push_back({std::string(name) + ", between columns", "<= 2.0",
                         [=] { composed(picture, wanted, betweenColumns); }});
    }
}

void addFilters([[maybe_unused]] std::vector<Side> &sides, [[maybe_unused]] const QImage &picture)
{
#ifdef HAVE_AVFILTER
    // The usual way to red/cyan: two moved pictures side by side are made one. A single filter
    // comes close to it, but for repeating columns where black would come in.
    const std::pair<const char *, const char *> chains[] = {
        {"libavfilter, usual chain",
         "split[a][b];[a]crop=iw-6:ih:6:0,pad=iw+6:ih:0:0[l];"
         "[b]crop=iw-6:ih:0:0,pad=iw+6:ih:6:0[r];[l][r]hstack,stereo3d=sbsl:arcc,format=bgr0"},
        {"libavfilter, rgbashift", "format=rgb24,rgbashift=rh=-6:gh=6:bh=6,format=bgr0"},
    };
    for (const auto &[name, description] : chains) {
        const auto chain = std::make_shared<FilterChain>(picture, description);
        if (chain->run())
            sides.push_back({name, ">= 15 x red/cyan", [=] { chain->run(); }});
        else
            std::printf("%s: not in this libavfilter\n", name);
    }
#endif
}

/// Aims are for large pictures: small ones stay in the cache, where a copy costs next to nothing.
void report(QSize size, const std::vector<Side> &sides)
{
    const double copy = sides.front().median();
    const auto redCyan = std::find_if(sides.begin(), sides.end(),
                                      [](const Side &side) { return side.name == "red/cyan"; });
    const bool large = size.width() >= 1920;
    std::printf("\n%d x %d; a plain copy takes %.3f ms\n", size.width(), size.height(), copy);
    std::printf("%-30s%8s%12s  %s\n", "", "x copy", "x red/cyan", large ? "aim" : "");
    for (size_t i = 1; i < sides.size(); ++i) {
        const double median = sides[i].median();
        std::printf("%-30s%8.2f%12.2f  %s\n", sides[i].name.c_str(), median / copy,
                    median / redCyan->median(), large ? sides[i].aim : "");
    }
}

}  // namespace

int main()
{
    std::printf(
        "Composing on one thread, medians of %d turns; views moved by %g columns, and by %g\n"
        "where it says between columns.\n",
        rounds, columns, betweenColumns);
    for (const QSize size : {QSize(1920, 1080), QSize(702, 395)}) {
        const QImage picture = noise(size);
        std::vector<Side> sides;
        addCopy(sides, picture);
        addModes(sides, picture);
        addFilters(sides, picture);
        measure(sides);
        report(size, sides);
    }
}
