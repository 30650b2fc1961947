// The samples, cut short and with flipped bits in many ways: a code or a film, soon, and no harm; and
// a film that is overwritten under the player. KEST_PLAY_EVERY=1 plays all of them, where one in ten
// is not enough.
// Not here: clips that are odd but whole (tst_kest_files.cpp).
#include "clips.h"
#include "engine/mpv/mediaprobe.h"
#include "enginestage.h"
#include "watchdog.h"

#include <random>

namespace {

constexpr int cuts = 50;
constexpr int flips = 200;
constexpr int heldUpLimit = 100;    // ms, by anything that does not open a file
constexpr int answerLimit = 10000;  // ms

/// All are examined, and one in so many is played.
int playEvery()
{
    const int asked = qEnvironmentVariableIntValue("KEST_PLAY_EVERY");
    return asked > 0 ? asked : 10;
}

/// A variant of the sample: first the cuts, then those with flipped bits, each by its own seed.
QByteArray variant(const QByteArray &whole, int number)
{
    if (number < cuts)
        return whole.left(int(qint64(whole.size()) * (number + 1) / (cuts + 1)));
    std::mt19937 random{unsigned(number)};
    QByteArray flipped = whole;
    for (int i = 0; i < 100; ++i) {
        // Half of them near the start, where what a film is stands.
        const auto range = unsigned(i % 2 ? flipped.size() : 4096);
        const auto at = int(random() % range);
        flipped[at] = char(flipped[at] ^ (1 << random() % 8));
    }
    return flipped;
}

}  // namespace

class tst_KestBrokenSamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_clips.valid()); }
    void init() { (void)WatchedApplication::takeWorst(); }
    void cleanup() { nothingWasHeldUp(); }

    void brokenSamplesPlayOrSayNo_data()
    {
        QTest::addColumn<QString>("sample");
        QTest::newRow("film") << SAMPLES "/depth.mkv";
        QTest::newRow("sound") << SAMPLES "/tone.ogg";
    }
    void brokenSamplesPlayOrSayNo()
    {
        QFETCH(QString, sample);
        const QByteArray whole = Clips::read(sample);
        QVERIFY(whole.size() > 4096);
        EngineStage stage({64, 36});
        for (int number = 0; number < cuts + flips; ++number) {
            const QString path = m_clips.write("broken", variant(whole, number));
            const int code = examine(path);
            const QByteArray name = "variant " + QByteArray::number(number);
            QVERIFY2(code == KestOk || code == KestErrorNotMedia,
                     name + " tells " + QByteArray::number(code));
            if (number % playEvery() == 0)
                play(stage, path, code);
            QVERIFY2(!QTest::currentTestFailed(), name);
        }
        QCOMPARE(stage.open(SAMPLES "/depth.mkv", 2), int(KestOk));
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestOk));
        QTRY_VERIFY(stage.position() > 100 && stage.position() != ~0u);
    }

    void aFilmThatIsOverwrittenWhilePlayingEnds()
    {
        const QString film = m_clips.make("overwritten.mkv",
                                          "-f lavfi -i mandelbrot=s=320x180:r=25 -t 2 -c:v ffv1");
        EngineStage stage;
        QCOMPARE(stage.open(film), int(KestOk));
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestOk));
        QTRY_VERIFY(stage.position() > 100 && stage.position() != ~0u);
        QFile file(film);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QCOMPARE(file.write(Clips::noise(int(file.size()))), file.size());
        file.close();
        QTRY_VERIFY_WITH_TIMEOUT(stage.ended(), 10000);
        QCOMPARE(stage.count(5), 1);
        QCOMPARE(stage.begin(1), int(KestOk));
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestErrorNotMedia));
    }

    void transparentFilmsAreShownOpaque()
    {
        const QString film = m_clips.make(
            "clear.mkv",
            "-f lavfi -i color=c=red@0.0:s=64x36:r=25:d=0.2,format=yuva420p -c:v ffv1");
        EngineStage stage({64, 36});
        QCOMPARE(stage.open(film), int(KestOk));
        const auto anyLight = [&] { return qRed(stage.centre()) > 0 || stage.ended(); };
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestOk));
        QTRY_VERIFY(anyLight());
        const QImage shown = stage.window->grab().toImage();
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                QCOMPARE(qAlpha(shown.pixel(x, y)), 0xff);
    }

private:
    /// The code, told within the limit.
    static int examine(const QString &path)
    {
        QElapsedTimer time;
        time.start();
        const int code = probeMedia(path.toStdString()).code;
        return time.elapsed() <= KestProbeMilliseconds ? code : int(KestErrorTimeout);
    }

    /// Seeks at once, as each seek is answered: by the position that was reached, or the end.
    static void play(EngineStage &stage, const QString &path, int code)
    {
        stage.events.clear();
        QCOMPARE(stage.open(path), int(KestOk));
        QCOMPARE(stage.events.size(), std::size_t(1));
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), code);
        QCOMPARE(watched([&] { return KestSetCurPos(stage.engine, 1000); }), code);
        QTest::qWait(60);
        if (code == KestOk)
            QTRY_VERIFY_WITH_TIMEOUT(stage.events.size() > 1, answerLimit);
        else
            QCOMPARE(stage.events.size(), std::size_t(1));
        QCOMPARE(watched([&] { return KestEditEnd(stage.engine, true); }), int(KestOk));
        nothingWasHeldUp();
    }

    static void nothingWasHeldUp()
    {
        const qint64 worst = WatchedApplication::takeWorst();
        QVERIFY2(worst <= heldUpLimit, qPrintable(QString("held up for %1 ms").arg(worst)));
    }

    Clips m_clips;
};

WATCHED_TEST_MAIN(tst_KestBrokenSamples)
#include "tst_kest_broken_samples.moc"
