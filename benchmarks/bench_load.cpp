// What does opening the library take, next to opening only the player below it?
// Each time in a process of its own, which has Qt already, as a host has.
#include "benchmarks/figures.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QWidget>

#include <cstdio>

#include <dlfcn.h>

namespace {

constexpr int turns = 30;

int open(const char *library)
{
    QElapsedTimer time;
    time.start();
    if (!dlopen(library, RTLD_NOW)) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    std::printf("%lld\n", static_cast<long long>(time.nsecsElapsed()));
    return 0;
}

/// Milliseconds; ends the program where the library cannot be opened.
double openElsewhere(const QString &program, const QString &library)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, {library});
    if (!process.waitForFinished() || process.exitCode() != 0)
        std::exit(1);
    return process.readAllStandardOutput().trimmed().toDouble() / 1e6;
}

}  // namespace

int main(int, char **argv)
{
    if (argv[1])
        return open(argv[1]);
    (void)QWidget::staticMetaObject.className();  // keeps Qt's libraries linked
    std::vector<double> ours, player;
    for (int turn = 0; turn < turns; ++turn) {
        ours.push_back(openElsewhere(QString::fromLocal8Bit(argv[0]), PLAYWIDGET_LIBRARY));
        player.push_back(
            openElsewhere(QString::fromLocal8Bit(argv[0]), QStringLiteral("libmpv.so.2")));
    }
    std::printf("opening a library, medians of %d, milliseconds\n\n", turns);
    std::printf("libplaywidget%12.1f\nlibmpv alone%13.1f\nratio%20.2f\n", median(ours),
                median(player), median(ours) / median(player));
}
