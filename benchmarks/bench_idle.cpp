// Does a player that has nothing to show leave the processor alone?
// Not here: what playing costs (bench_play.cpp).
#include "benchmarks/stage.h"
#include "playwidget/playwidget.h"

#include <QAbstractButton>
#include <QCursor>
#include <QDir>
#include <QFile>

#include <map>

#include <sys/resource.h>

namespace {

struct Sum
{
    double milliseconds = 0;
    std::map<QString, long> switches;  // by the thread's name
};

long switchesIn(const QByteArray &status)
{
    long sum = 0;
    for (const QByteArray &line : status.split('\n'))
        if (line.contains("voluntary_ctxt_switches:"))
            sum += line.mid(line.indexOf(':') + 1).trimmed().toLong();
    return sum;
}

Sum now()
{
    Sum sum;
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    for (const timeval &t : {usage.ru_utime, usage.ru_stime})
        sum.milliseconds += double(t.tv_sec) * 1e3 + double(t.tv_usec) / 1e3;
    for (const QString &task :
         QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status("/proc/self/task/" + task + "/status");
        QFile name("/proc/self/task/" + task + "/comm");
        if (status.open(QIODevice::ReadOnly) && name.open(QIODevice::ReadOnly))
            sum.switches[name.readAll().trimmed()] += switchesIn(status.readAll());
    }
    return sum;
}

/// Our threads, GUI and render thread, go by the program's name; the player names its own.
void measure(Stage &stage, const char *state, int seconds)
{
    stage.runFor(1000);
    const Sum before = now();
    stage.runFor(seconds * 1000);
    const Sum after = now();
    long ours = -1, all = -1;  // the end of the measurement is itself one
    QString who;
    for (const auto &[name, switches] : after.switches) {
        const auto known = before.switches.find(name);
        const long more = switches - (known == before.switches.end() ? 0 : known->second);
        all += more;
        if (name == "bench_idle")
            ours += more;
        else if (more)
            who += QString(" %1 %2").arg(name).arg(more);
    }
    std::printf("%-28s%8ld%8ld%10.1f %s\n", state, ours, all,
                after.milliseconds - before.milliseconds, qPrintable(who));
    std::fflush(stdout);
}

/// The widget with the stage's film. While the pointer is on the video the bar counts the seconds.
void measureWidget(Stage &stage, int seconds)
{
    PlayWidget widget;
    widget.initialize(stage.engine, Kest3DTurnOff);
    widget.addPlayItem(1, QString(), false, Kest3DRedCyan, -0.012);
    widget.show();
    widget.setPlayIndex(0);
    stage.runFor(500);
    widget.findChild<QAbstractButton *>("btnPlay")->click();
    const auto *bar = widget.findChild<QWidget *>("panPlayControl");
    QCursor::setPos(widget.mapToGlobal(QPoint(50, 50)));
    stage.runUntil([bar] { return bar->isVisible(); });
    measure(stage, "paused, pointer on the video", seconds);
    QCursor::setPos(widget.mapToGlobal(widget.rect().bottomRight() + QPoint(50, 50)));
    measure(stage, "paused, pointer elsewhere", seconds);
}

}  // namespace

int main(int argc, char **argv)
{
    Stage stage(argc, argv);
    const int seconds = argc > 1 ? QString(argv[1]).toInt() : 10;
    const QString clip = barcodeClip(20, 30);
    std::printf("Wake-ups and CPU in %d s; aim: no wake-ups of ours, no CPU\n\n", seconds);
    std::printf("%-28s%8s%8s%10s  %s\n", "", "ours", "all", "CPU ms", "others");
    measure(stage, "no edit", seconds);
    stage.show(clip);
    stage.set3D(Kest3DRedCyan, -0.012);
    measure(stage, "opened, not played yet", seconds);
    KestPlay(stage.engine);
    stage.runFor(500);
    KestPause(stage.engine);
    measure(stage, "paused", seconds);
    stage.window.hide();
    measure(stage, "paused and hidden", seconds);
    KestPlay(stage.engine);
    measure(stage, "hidden, the film going on", seconds);
    KestEditEnd(stage.engine, false);  // as the player does when it is hidden
    measure(stage, "player hidden", seconds);
    measureWidget(stage, seconds);
}
