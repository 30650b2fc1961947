// Reading a film whose pictures take long to decode: each is taken when it comes.
// Not here: slow disks (tst_kest_slow_disk.cpp), what is read (tst_kest_reader.cpp).
#include "clips.h"
#include "engine/mpv/kest_host.h"

#include <mpv/client.h>

#include <QtTest>

#include <atomic>

#include <dlfcn.h>
#include <unistd.h>

namespace {

std::atomic<int> decodingTime{0};  // ms for each picture
std::atomic<int> waits{0};         // for the output, to give up a picture that nobody took

template <typename Function> Function *original(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

}  // namespace

struct AVCodecContext;
struct AVFrame;

// These take the place of the libraries' for everything in this process.

extern "C" __attribute__((visibility("default"))) int avcodec_receive_frame(AVCodecContext *codec,
                                                                            AVFrame *frame)
{
    static auto *const receive
        = original<int(AVCodecContext *, AVFrame *)>("avcodec_receive_frame");
    const int code = receive(codec, frame);
    if (code >= 0)
        usleep(useconds_t(decodingTime) * 1000);
    return code;
}

extern "C" __attribute__((visibility("default"))) char *mpv_get_property_string(mpv_handle *player,
                                                                                const char *name)
{
    static auto *const get
        = original<char *(mpv_handle *, const char *)>("mpv_get_property_string");
    ++waits;
    return get(player, name);
}

class tst_KestSlowDecoder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noPictureIsGivenUpBecauseItIsLate()
    {
        const Clips clips;
        const QString film = clips.make("film.mkv",
                                        "-f lavfi -i testsrc2=s=160x90:r=25:d=0.8 "
                                        "-c:v ffv1 -threads 1");
        QVERIFY(!film.isEmpty());
        void *const engine = KestOpen("null");
        KestAddFile(engine, 1, film.toUtf8().constData());
        decodingTime = 30;
        void *reader = nullptr;
        QCOMPARE(KestReaderOpen(engine, 1, &reader), int(KestOk));
        waits = 0;
        int count = 0;
        for (KestPicture picture = {}; KestReaderNext(reader, &picture) == KestOk;)
            ++count;
        KestReaderClose(reader);
        KestClose(engine);
        QCOMPARE(count, 20);
        QVERIFY2(waits < 10,
                 qPrintable(QString::number(waits)));  // none, unless the machine stalls
    }
};

QTEST_GUILESS_MAIN(tst_KestSlowDecoder)
#include "tst_kest_slow_decoder.moc"
