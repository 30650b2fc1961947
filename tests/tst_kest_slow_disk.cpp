// The engine with a film on a slow disk, and where nothing can be written: the window stays awake.
// Not here: broken films (tst_kest_files.cpp).
#include "clips.h"
#include "enginestage.h"
#include "watchdog.h"

#include <atomic>
#include <climits>
#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int heldUpLimit = 100;  // ms
constexpr QRgb black = 0xff000000;
constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0000ff;

std::atomic<ino_t> slowFile{0};
std::atomic<int> delay{0};  // ms that each read from it takes
std::atomic<int> slowReads{0};
std::atomic<int> goodReads{INT_MAX};  // from it until none succeeds

}  // namespace

/// Takes the place of the system's for everything in this process.
extern "C" __attribute__((visibility("default"))) ssize_t read(int file, void *to, size_t size)
{
    struct stat status = {};
    if (slowFile && fstat(file, &status) == 0 && status.st_ino == slowFile) {
        ++slowReads;
        usleep(useconds_t(delay) * 1000);
        if (goodReads-- <= 0) {
            errno = EIO;
            return -1;
        }
    }
    return syscall(SYS_read, file, to, size);
}

class tst_KestSlowDisk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_film
            = m_clips.make("film.mkv", "-f lavfi -i mandelbrot=s=320x180:r=25 -t 2 -c:v ffv1 -g 5");
        QVERIFY(!m_film.isEmpty());
    }
    void init()
    {
        slow(m_film);
        goodReads = INT_MAX;
        delay = 0;
        slowReads = 0;
        (void)WatchedApplication::takeWorst();
    }
    void cleanup()
    {
        const qint64 worst = WatchedApplication::takeWorst();
        QVERIFY2(worst <= heldUpLimit, qPrintable(QString("held up for %1 ms").arg(worst)));
    }

    void aSlowDiskHoldsUpThePlayerOnly()
    {
        EngineStage stage;
        QCOMPARE(stage.add(1, m_film), int(KestOk));
        delay = 20;
        const qint64 opening = MachineTime::now();
        QCOMPARE(stage.begin(1), int(KestOk));
        QVERIFY(MachineTime::millisecondsSince(opening) <= KestProbeMilliseconds + heldUpLimit);
        QVERIFY(slowReads > 0);
        slowReads = 0;

        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestOk));
        QTRY_VERIFY_WITH_TIMEOUT(stage.centre() != black, 20000);
        for (const unsigned position : {1500u, 100u, 900u}) {
            QCOMPARE(watched([&] { return KestSetCurPos(stage.engine, position); }), int(KestOk));
            QTest::qWait(100);
        }
        QCOMPARE(watched([&] { return stage.setFilter(Kest3DRedCyan, 0.1); }), int(KestOk));
        QTRY_VERIFY_WITH_TIMEOUT(stage.position() > 900 && stage.position() != ~0u, 20000);
        QCOMPARE(watched([&] { return KestEditEnd(stage.engine, true); }), int(KestOk));
        QVERIFY(slowReads > 0);
    }

    void aClearedWindowWaitsForThePictureOfASlowSeek()
    {
        const QString film = m_clips.make("two.avi",
                                          "-f lavfi -i color=red:s=320x180:r=10:d=1 "
                                          "-f lavfi -i color=blue:s=320x180:r=10:d=1 "
                                          "-filter_complex concat -c:v rawvideo -pix_fmt bgr0");
        EngineStage stage;
        QCOMPARE(stage.open(film), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        stage.clearView();
        QCOMPARE(stage.centre(), black);
        slow(film);
        delay = 100;
        QCOMPARE(watched([&] { return KestSetCurPos(stage.engine, 1500); }), int(KestOk));
        QVERIFY(QTest::qWaitFor([&] { return stage.centre() != black; }, 20000));
        QVERIFY(stage.showsAtCentre(blue));
        QVERIFY(slowReads > 1);
    }

    void eachPictureIsReadHoweverSlowTheDisk()
    {
        EngineStage stage;
        QCOMPARE(stage.add(1, m_film), int(KestOk));
        void *reader = nullptr;
        QCOMPARE(KestReaderOpen(stage.engine, 1, &reader), int(KestOk));
        delay = 30;
        slowReads = 0;
        KestPicture picture = {};
        QVector<qint64> times;
        while (KestReaderNext(reader, &picture) == KestOk)
            times.push_back(picture.time);
        KestReaderClose(reader);
        QVector<qint64> wanted;
        for (qint64 time = 0; time < 2000000; time += 40000)
            wanted.push_back(time);
        QCOMPARE(times, wanted);
        QVERIFY(slowReads > 10);
    }

    void aDiskThatIsTooSlowIsToldInTime_data()
    {
        QTest::addColumn<QString>("film");
        QTest::newRow("one read tells enough") << m_film;
        QTest::newRow("the index is at the end")
            << m_clips.make("film.mp4", "-f lavfi -i mandelbrot=s=320x180:r=25 -t 2 -c:v libx264");
    }
    void aDiskThatIsTooSlowIsToldInTime()
    {
        QFETCH(const QString, film);
        EngineStage stage;
        QCOMPARE(stage.add(1, film), int(KestOk));
        slow(film);
        delay = KestProbeMilliseconds;
        const qint64 opening = MachineTime::now();
        QCOMPARE(stage.begin(1), int(KestOk));
        // A read that is under way when time is over is waited for.
        QVERIFY(MachineTime::millisecondsSince(opening)
                <= KestProbeMilliseconds + delay + heldUpLimit);
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestErrorTimeout));
    }

    void aDiskThatFailsIsTold()
    {
        EngineStage stage;
        QCOMPARE(stage.add(1, m_film), int(KestOk));
        goodReads = 0;
        QCOMPARE(stage.begin(1), int(KestOk));
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestErrorUnreadable));
    }

    void aDiskThatFailsBeforeTheFirstPictureIsTold()
    {
        const QByteArray film = Clips::read(m_clips.make(
            "film.ts", "-f lavfi -i color=s=160x90:r=25:d=0.2 -c:v mpeg2video -f mpegts"));
        constexpr int packet = 188, tables = 3 * packet;
        const QByteArray padding = QByteArray("\x47\x1f\xff\x10").leftJustified(packet, '\xff');
        const QString path = m_clips.write(
            "late.ts", film.left(tables) + padding.repeated(2000) + film.mid(tables));
        EngineStage stage;
        long long duration = -1;
        QCOMPARE(stage.add(1, path), int(KestOk));
        QCOMPARE(stage.add(2, path), int(KestOk));
        slow(path);
        QCOMPARE(KestGetMediaDuration(stage.engine, 1, &duration), int(KestOk));
        goodReads = 1;
        QCOMPARE(KestGetMediaDuration(stage.engine, 2, &duration), int(KestErrorUnreadable));
    }

    void aFailureThatMayPassIsRememberedForAWhileOnly()
    {
        enum { TooSlow = 1, Failing = 2 };
        EngineStage stage;
        QCOMPARE(stage.add(TooSlow, m_film), int(KestOk));
        QCOMPARE(stage.add(Failing, m_film), int(KestOk));
        long long duration = -1;
        delay = KestProbeMilliseconds;
        QCOMPARE(KestGetMediaDuration(stage.engine, TooSlow, &duration), int(KestErrorTimeout));
        QCOMPARE(int(slowReads), 1);
        delay = 0;
        goodReads = 0;
        QCOMPARE(KestGetMediaDuration(stage.engine, Failing, &duration), int(KestErrorUnreadable));
        goodReads = INT_MAX;
        slowReads = 0;

        // The calls that follow each other when an item is played wait no second time.
        QCOMPARE(stage.begin(TooSlow), int(KestOk));
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestErrorTimeout));
        QCOMPARE(stage.begin(Failing), int(KestOk));
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestErrorUnreadable));
        QCOMPARE(int(slowReads), 0);
        QCOMPARE(duration, -1LL);

        for (const int fileId : {TooSlow, Failing}) {
            QTRY_COMPARE_WITH_TIMEOUT(KestGetMediaDuration(stage.engine, fileId, &duration),
                                      int(KestOk), 2 * KestProbeMilliseconds);
            QCOMPARE(std::exchange(duration, -1), 2000LL);
        }
    }

    void playsWhereNothingCanBeWritten()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before = {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        const rlimit none = {0, before.rlim_max};
        EngineStage stage;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &none), 0);
        const int code = stage.open(m_film);
        const int played = watched([&] { return KestPlay(stage.engine); });
        const bool ended = QTest::qWaitFor([&] { return stage.ended(); }, 20000);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        QCOMPARE(code, int(KestOk));
        QCOMPARE(played, int(KestOk));
        QVERIFY(ended);
        QVERIFY(stage.centre() != black);
    }

private:
    static void slow(const QString &film)
    {
        struct stat status = {};
        QCOMPARE(stat(film.toLocal8Bit().constData(), &status), 0);
        slowFile = status.st_ino;
    }

    Clips m_clips;
    QString m_film;
};

WATCHED_TEST_MAIN(tst_KestSlowDisk)
#include "tst_kest_slow_disk.moc"
