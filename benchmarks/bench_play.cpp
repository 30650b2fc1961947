// What does showing a film in 3D cost, next to decoding it only and to other players?
// Not here: how soon and how completely it is shown (bench_start.cpp, bench_frames.cpp).
#include "benchmarks/stage.h"

#include <QStandardPaths>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Side
{
    const char *name;
    QStringList command;
};

struct Cost
{
    double seconds;
    long switches;
};

struct Aim
{
    const char *peer;
    const char *cpu, *switches;
};

constexpr Aim aims[] = {
    {"ffmpeg, decoding only", "", ""},
    {"mpv --vo=null", "<= 1.15", ""},
    {"mpv --vo=x11", "< 1", ""},
    {"vlc --vout=xcb_x11", "<= 1", "<= 1.5"},
};

QStringList words(const char *line)
{
    return QString(line).split(' ');
}

std::vector<Side> sides(const QString &ourselves, const QString &clip)
{
    // vlc does not run as root; a namespace gives it another number with the same rights.
    const QStringList other = geteuid() ? QStringList() : words("unshare --user --map-user=1000");
    const QStringList vlc = words("vlc -I dummy --vout=xcb_x11 --aout=dummy --no-video-title-show "
                                  "--width=702 --height=395 --play-and-exit --quiet");
    return {
        {"ours, red/cyan", {ourselves, "--show", "4", clip}},
        {"ours, flat", {ourselves, "--show", "11", clip}},
        {aims[0].peer,
         words("ffmpeg -nostdin -v error -re -i") << clip << "-f"
                                                  << "null"
                                                  << "-"},
        {aims[1].peer, words("mpv --no-config --no-terminal --vo=null --ao=null") << clip},
        {aims[2].peer,
         words("mpv --no-config --no-terminal --vo=x11 --ao=null --geometry=702x395") << clip},
        {aims[3].peer, other + vlc + QStringList(clip)},
    };
}

/// Runs it to its end. What it and its children spent is the kernel's own account.
std::optional<Cost> run(const QStringList &command)
{
    const pid_t child = fork();
    if (child == 0) {
        std::vector<QByteArray> bytes;
        for (const QString &word : command)
            bytes.push_back(word.toLocal8Bit());
        std::vector<char *> arguments;
        for (QByteArray &word : bytes)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage = {};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status)
        return {};
    const auto seconds = [](timeval t) { return double(t.tv_sec) + double(t.tv_usec) / 1e6; };
    return Cost{seconds(usage.ru_utime) + seconds(usage.ru_stime),
                usage.ru_nvcsw + usage.ru_nivcsw};
}

/// One of our sides, in a process of its own.
int show(int argc, char **argv)
{
    Stage stage(argc, argv);
    stage.open(argv[3]);
    stage.set3D(QString(argv[2]).toInt(), -0.012);
    KestPlay(stage.engine);
    stage.runUntil([&] { return stage.ended; }, 3600);
    return 0;
}

void report(const std::map<QString, Cost> &costs)
{
    const Cost ours = costs.at("ours, red/cyan");
    std::printf("\nours, red/cyan, is so many times this%8s  %-10s%8s  %s\n", "CPU", "aim",
                "switches", "aim");
    for (const Aim &aim : aims) {
        const auto peer = costs.find(aim.peer);
        if (peer == costs.end())
            continue;
        std::printf("%-37s%8.2f  %-10s%8.2f  %s\n", aim.peer, ours.seconds / peer->second.seconds,
                    aim.cpu, double(ours.switches) / double(peer->second.switches), aim.switches);
    }
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc == 4 && QString(argv[1]) == "--show")
        return show(argc, argv);
    const int seconds = argc > 1 ? QString(argv[1]).toInt() : 20;
    const QString clip = barcodeClip(seconds, 30);
    std::printf("%d s of 1080p30 with sound, shown 702 wide; whole processes\n\n%-30s%10s%10s\n",
                seconds, "", "CPU s", "switches");
    std::map<QString, Cost> costs;
    for (const Side &side : sides(argv[0], clip)) {
        if (const auto cost = run(side.command)) {
            costs[side.name] = *cost;
            std::printf("%-30s%10.2f%10ld\n", side.name, cost->seconds, cost->switches);
        } else {
            std::printf("%-30s not measured: not installed, or it failed\n", side.name);
        }
        std::fflush(stdout);
    }
    report(costs);
}
