// A media file of any bytes: examined, begun, played for a moment, sought in and ended.
// Not here: what its name may be (fuzz_records.cpp).
#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"
#include "fuzz/bytes.h"
#include "fuzz/offscreen.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

namespace {

constexpr int momentMilliseconds = 30;
constexpr int filterKind = 9;

struct Watch
{
    bool open = true;
    bool ended = false;

    static int receive(tagKestEvent *event, void *user)
    {
        auto *self = static_cast<Watch *>(user);
        REQUIRE(self->open);
        self->ended = event->state == 5;
        return 0;
    }
};

void wait(const Watch &watch)
{
    QElapsedTimer time;
    for (time.start(); !watch.ended && time.elapsed() < momentMilliseconds;)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
}

QString fileOf(const std::uint8_t *bytes, std::size_t size)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("film")));
    REQUIRE(file.open(QIODevice::WriteOnly));
    REQUIRE(file.write(reinterpret_cast<const char *>(bytes), qint64(size)) == qint64(size));
    return file.fileName();
}

void examine(void *engine)
{
    long long duration = 0;
    const int code = KestGetMediaDuration(engine, 1, &duration);
    REQUIRE(code != KestOk || duration >= 0);
    void *records = nullptr;
    const int count = KestGetMediaInfo(engine, 1, &records);
    const auto *const streams = static_cast<const KestStreamInfo *>(records);
    for (int i = 0; i < count; ++i)
        REQUIRE(std::memchr(streams[i].codec, 0, sizeof streams[i].codec));
}

void play(void *engine, CVideoWnd &window, unsigned seed)
{
    Watch watch;
    EditBeginParams params = {1, 1, 1.0, 36, 64, 36, 64, &window, &window, &Watch::receive, &watch};
    REQUIRE(KestEditBegin(engine, &params) == KestOk);
    tagKestFilterInfo info = {};
    info.mode = int(seed % 12);
    info.depth = 0.02;
    KestAddFilter(engine, filterKind, &info);
    KestPlay(engine);
    wait(watch);
    KestSetCurPos(engine, seed);
    wait(watch);
    window.grab();
    REQUIRE(KestEditEnd(engine, false) == KestOk);
    watch.open = false;
    QApplication::processEvents();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    static CVideoWnd window;
    window.resize(64, 36);
    window.show();
    static void *const engine = KestOpen("null");
    KestAddFile(engine, 1, fileOf(bytes, size).toUtf8().constData());
    examine(engine);
    play(engine, window, size > 0 ? bytes[size / 2] : 0u);
    KestRemoveFile(engine, 1);
    return 0;
}
