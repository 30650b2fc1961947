// The engine with a film: which picture at which position, which event when, 3D on top.
// Not here: broken files (tst_kest_files.cpp), wrong calls (tst_kest_calls.cpp).
#include "clips.h"
#include "engine/mpv/stereocomposer.h"
#include "enginestage.h"
#include "likeness.h"

namespace {

constexpr QRgb red = 0xffff0000;
constexpr QRgb lime = 0xff00ff00;
constexpr QRgb blue = 0xff0000ff;
constexpr QRgb white = 0xffffffff;
constexpr QRgb black = 0xff000000;

}  // namespace

class tst_KestPlaying : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_colours = m_clips.fourColours("colours.mkv", "320x180");
        m_song = m_clips.make("song.ogg", "-f lavfi -i sine=d=2 -c:a libvorbis");
        m_pattern = m_clips.make("pattern.mkv",
                                 "-f lavfi -i testsrc=s=320x180:r=25:d=1 -c:v ffv1 -pix_fmt bgr0");
        m_short = m_clips.make("short.mkv", "-f lavfi -i testsrc=s=64x36:r=25:d=0.4 -c:v ffv1");
        QVERIFY(!m_colours.isEmpty() && !m_song.isEmpty() && !m_pattern.isEmpty()
                && !m_short.isEmpty());
    }

    void theFirstPictureComesBeforePlaying()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(stage.events.size(), std::size_t(1));
        QCOMPARE(stage.events[0].event.eventType, 0);
        QCOMPARE(stage.events[0].event.time, 0u);
        QVERIFY(stage.events[0].event.state != 5 && stage.events[0].event.state != 7);
        QTRY_VERIFY(stage.showsAtCentre(red));
        QTest::qWait(150);
        QCOMPARE(stage.events.size(), std::size_t(1));
    }

    void playsToTheEndAndTellsItOnce()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        for (const QRgb colour : {red, lime, blue, white})
            QTRY_VERIFY(stage.showsAtCentre(colour));
        QTRY_VERIFY(stage.ended());
        QCOMPARE(stage.position(), 4000u);
        const std::size_t events = stage.events.size();
        QTest::qWait(200);
        QCOMPARE(stage.events.size(), events);
        QCOMPARE(stage.count(5), 1);
        QVERIFY(stage.showsAtCentre(white));
    }

    void positionsGrowAndComeNoFasterThanAllowed()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() > 1500 && stage.position() != ~0u);
        QVERIFY(stage.events.size() > 12);
        for (std::size_t i = 2; i < stage.events.size(); ++i) {
            QVERIFY(stage.events[i].event.time > stage.events[i - 1].event.time);
            QVERIFY(stage.events[i].at - stage.events[i - 1].at >= 40 * 1000000);
        }
    }

    void pausingStopsPictureAndEvents()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() >= 200 && stage.position() != ~0u);
        QCOMPARE(KestPause(stage.engine), int(KestOk));
        QTest::qWait(150);
        const std::size_t events = stage.events.size();
        QTest::qWait(200);
        QCOMPARE(stage.events.size(), events);
        QVERIFY(stage.showsAtCentre(red));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(lime));
    }

    void aPausedFilmTellsThePositionOfThePictureThatItShows()
    {
        const QString film = m_clips.make(
            "fast.mkv", "-f lavfi -i testsrc2=s=320x180:r=60:d=4 -c:v libx264 -preset ultrafast");
        EngineStage stage;
        QCOMPARE(stage.open(film), int(KestOk));
        for (int i = 1; i <= 4; ++i) {
            QCOMPARE(KestPlay(stage.engine), int(KestOk));
            QTRY_VERIFY(stage.position() > i * 300u && stage.position() != ~0u);
            QCOMPARE(KestPause(stage.engine), int(KestOk));
            QImage shown;
            while (shown != stage.grab()) {
                shown = stage.grab();
                QTest::qWait(150);
            }
            const unsigned int position = stage.position();
            QCOMPARE(KestSetCurPos(stage.engine, 3500), int(KestOk));
            QTRY_COMPARE(stage.position(), 3500u);
            QCOMPARE(KestSetCurPos(stage.engine, position), int(KestOk));
            QTRY_COMPARE(stage.position(), position);
            QVERIFY(stage.comesToShow(shown));
        }
    }

    void seeksToTheExactPicture_data()
    {
        QTest::addColumn<unsigned int>("position");
        QTest::addColumn<QRgb>("colour");
        QTest::newRow("start") << 0u << red;
        QTest::newRow("last red") << 960u << red;
        QTest::newRow("first lime") << 1000u << lime;
        QTest::newRow("middle of blue") << 2480u << blue;
        QTest::newRow("last blue") << 2960u << blue;
        QTest::newRow("first white") << 3000u << white;
        QTest::newRow("last picture") << 3960u << white;
    }
    void seeksToTheExactPicture()
    {
        QFETCH(unsigned int, position);
        QFETCH(QRgb, colour);
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        // From somewhere else, so that the seek has to show.
        QCOMPARE(KestSetCurPos(stage.engine, position < 2000 ? 3520 : 520), int(KestOk));
        QTRY_COMPARE(stage.events.size(), std::size_t(2));
        QCOMPARE(KestSetCurPos(stage.engine, position), int(KestOk));
        QTRY_COMPARE(stage.events.size(), std::size_t(3));
        QCOMPARE(stage.position(), position);
        QTRY_VERIFY(stage.showsAtCentre(colour));
        QTest::qWait(60);
        QVERIFY(stage.showsAtCentre(colour));
    }

    void aSeekIsToldAtOnceAndPlayingGoesOnFromThere()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() >= 200 && stage.position() != ~0u);
        QCOMPARE(KestSetCurPos(stage.engine, 2000), int(KestOk));
        const std::size_t before = stage.events.size();
        QTRY_VERIFY(stage.events.size() > before);
        // No position from before the seek comes after it.
        QVERIFY(stage.events[before].event.time >= 2000 && stage.events[before].event.time < 2200);
        QTRY_VERIFY(stage.showsAtCentre(white));
    }

    void aSeekBeforeAnythingIsLoadedCounts()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestSetCurPos(stage.engine, 2200), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(blue));
        QTRY_COMPARE(stage.position(), 2200u);
    }

    void ofManySeeksTheLastCounts()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        for (unsigned int position = 0; position <= 3520; position += 80)
            QCOMPARE(KestSetCurPos(stage.engine, position), int(KestOk));
        QTRY_COMPARE(stage.position(), 3520u);
        QTRY_VERIFY(stage.showsAtCentre(white));
        QTest::qWait(150);
        QCOMPARE(stage.position(), 3520u);
    }

    void aFilmComesAfterAnyNumberOfCallsInOneGo()
    {
        EngineStage stage;
        for (int i = 0; i < 1500; ++i)
            QCOMPARE(KestChangeVolume(stage.engine, i % 201), int(KestOk));
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
    }

    void ofAnyNumberOfCallsInOneGoTheLastCount()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        for (int i = 0; i < 500; ++i) {
            QCOMPARE(KestChangeVolume(stage.engine, i % 201), int(KestOk));
            QCOMPARE(KestPlay(stage.engine), int(KestOk));
            QCOMPARE(KestPause(stage.engine), int(KestOk));
        }
        QCOMPARE(KestSetCurPos(stage.engine, 2480), int(KestOk));
        QTRY_COMPARE(stage.position(), 2480u);
        QTRY_VERIFY(stage.showsAtCentre(blue));
        QTest::qWait(100);
        QCOMPARE(stage.position(), 2480u);
    }

    void aSeekBeyondTheEndWhilePausedShowsTheLastPicture()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        for (const unsigned int position : {4000u, 4001u, 0xffffffffu}) {
            QCOMPARE(KestSetCurPos(stage.engine, position), int(KestOk));
            QTRY_VERIFY(stage.showsAtCentre(white));
            QTRY_VERIFY(stage.position() >= 3900 && stage.position() <= 4000);
            QTest::qWait(100);
            QVERIFY(!stage.ended());
            QCOMPARE(KestSetCurPos(stage.engine, 0), int(KestOk));
            QTRY_VERIFY(stage.showsAtCentre(red));
            QTRY_COMPARE(stage.position(), 0u);
        }
    }

    void playingFromBeyondTheEndIsTheEnd()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestSetCurPos(stage.engine, 4000), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(white));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.ended());
        QTest::qWait(100);
        QCOMPARE(stage.count(5), 1);
    }

    void aSeekToTheEndWhilePlayingIsTheEnd()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() >= 200 && stage.position() != ~0u);
        QCOMPARE(KestSetCurPos(stage.engine, 4000), int(KestOk));
        QTRY_VERIFY(stage.ended());
        QCOMPARE(stage.count(5), 1);
    }

    void aSeekLeavesTheEndAndTheEndComesAgain()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_short), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_COMPARE(stage.count(5), 1);
        QCOMPARE(KestSetCurPos(stage.engine, 200), int(KestOk));
        QTRY_COMPARE(stage.position(), 200u);
        QTest::qWait(100);
        QCOMPARE(stage.position(), 200u);
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_COMPARE(stage.count(5), 2);
    }

    void playingAgainAfterTheEndStartsOver()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_short), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_COMPARE(stage.count(5), 1);
        const std::size_t before = stage.events.size();
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_COMPARE(stage.count(5), 2);
        QVERIFY(stage.events[before].event.time < 200);
        QTest::qWait(100);
        QCOMPARE(stage.count(5), 2);
    }

    void playsSoundAlone()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_song), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() >= 300 && stage.position() != ~0u);
        QVERIFY(stage.showsAtCentre(black));
        QCOMPARE(KestSetCurPos(stage.engine, 1500), int(KestOk));
        QTRY_VERIFY(stage.position() >= 1500);
        QTRY_VERIFY(stage.ended());
        QCOMPARE(stage.count(5), 1);
    }

    void plays3DLikeTheComposer_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<double>("depth");
        QTest::newRow("red/cyan") << int(Kest3DRedCyan) << 0.05;
        QTest::newRow("red/green, out of the screen") << int(Kest3DRedGreen) << -0.1;
        QTest::newRow("blue/yellow, between pixels") << int(Kest3DBlueYellow) << 0.006;
        QTest::newRow("interleaved") << int(Kest3DInterleaved) << 0.3;
        QTest::newRow("side by side") << int(Kest3DSlideBySlide) << 0.012;
        QTest::newRow("unknown mode") << 5 << 0.1;
    }
    void plays3DLikeTheComposer()
    {
        QFETCH(int, mode);
        QFETCH(double, depth);
        EngineStage stage;
        QCOMPARE(stage.open(m_pattern), int(KestOk));
        QTRY_VERIFY(!stage.showsAtCentre(black));
        const QImage plain = stage.grab();
        const QImage expected = compose({plain, 0, 0}, {mode, depth}).picture;

        // Paused all the while: no seek, no event, just another picture.
        QCOMPARE(stage.setFilter(mode, depth), int(KestOk));
        QTRY_COMPARE(stage.grab(), expected);
        QCOMPARE(stage.setFilter(Kest3DTurnOff, depth), int(KestOk));
        QTRY_COMPARE(stage.grab(), plain);
        QCOMPARE(stage.events.size(), std::size_t(1));
    }

    void aKeptFilterShowsFromTheFirstPicture()
    {
        EngineStage stage;
        tagKestFilterInfo info = {};
        info.mode = Kest3DRedCyan;
        QCOMPARE(stage.add(1, m_pattern), int(KestOk));
        QCOMPARE(stage.begin(1), int(KestOk));
        QTRY_VERIFY(!stage.showsAtCentre(black));
        const QImage plain = stage.grab();
        info.depth = 0.05;
        QCOMPARE(KestEditEnd(stage.engine, false), int(KestOk));
        QCOMPARE(KestAddFilter2(stage.engine, 1, 9, &info), int(KestOk));
        QCOMPARE(stage.begin(1), int(KestOk));
        QTRY_COMPARE(stage.grab(), compose({plain, 0, 0}, {Kest3DRedCyan, 0.05}).picture);
        info.depth = 0.1;
        QCOMPARE(KestAddFilter2(stage.engine, 1, 9, &info), int(KestOk));
        QTRY_COMPARE(stage.grab(), compose({plain, 0, 0}, {Kest3DRedCyan, 0.1}).picture);
    }

    void aNewSizeShowsTheSamePictureInIt()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        stage.window->resize(200, 200);
        QTRY_VERIFY(EngineStage::near(stage.pixel(0, 43), red));
        QTRY_COMPARE(stage.pixel(100, 42), black);
        QVERIFY(EngineStage::near(stage.pixel(0, 43), red));
        QVERIFY(EngineStage::near(stage.pixel(199, 155), red));
        QCOMPARE(stage.pixel(100, 156), black);
    }

    void picturesFarFromAKeyFrameAreThoseOfAFullDecode()
    {
        const QString starved = m_clips.make(
            "starved.mkv",
            "-f lavfi -i testsrc2=s=320x180:r=25:d=4 -vf noise=alls=20:allf=t "
            "-c:v libx264 -preset veryfast -crf 42 -g 250 -threads 1 -pix_fmt yuv420p");
        const QString full = m_clips.make("full.mkv", "-i " + starved + " -c:v ffv1");
        EngineStage stage, reference;
        QCOMPARE(stage.open(starved), int(KestOk));
        QCOMPARE(reference.open(full), int(KestOk));
        QTRY_VERIFY(!stage.showsAtCentre(black) && !reference.showsAtCentre(black));
        const QImage first = reference.grab();
        for (EngineStage *one : {&stage, &reference})
            QCOMPARE(KestSetCurPos(one->engine, 3600), int(KestOk));
        QTRY_VERIFY(meanDifference(reference.grab(), first) > 3);
        QTRY_VERIFY2(meanDifference(stage.grab(), reference.grab()) < 1,
                     qPrintable(QString::number(meanDifference(stage.grab(), reference.grab()))));
    }

    void windowsOfAnySizeShowThePicture()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        for (const QSize size : {QSize(1, 1), QSize(1, 201), QSize(201, 1), QSize(3, 2),
                                 QSize(1999, 3), QSize(7, 1501), QSize(2047, 1151)}) {
            stage.window->resize(size);
            stage.clearView();
            QCOMPARE(KestSetCurPos(stage.engine, 1480), int(KestOk));
            QTRY_VERIFY(EngineStage::near(stage.centre(), lime, 30));
        }
    }

    void aHiddenWindowShowsTheRightPictureWhenItComesBack()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        stage.window->hide();
        QCOMPARE(KestSetCurPos(stage.engine, 2480), int(KestOk));
        QTRY_COMPARE(stage.position(), 2480u);
        stage.window->show();
        QTRY_VERIFY(stage.showsAtCentre(blue));
    }

    void nothingOfAnEndedEditAppears()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() >= 200 && stage.position() != ~0u);
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestOk));
        stage.clearView();
        const std::size_t events = stage.events.size();
        QVERIFY(stage.showsAtCentre(black));
        QTest::qWait(150);
        QVERIFY(stage.showsAtCentre(black));
        QCOMPARE(stage.events.size(), events);
    }

    void theNextEditStartsWithItsOwnPicture()
    {
        EngineStage stage;
        const QString other
            = m_clips.make("other.mkv", "-f lavfi -i color=c=aqua:s=180x180:r=25:d=2 -c:v ffv1");
        QCOMPARE(stage.add(2, other), int(KestOk));
        QCOMPARE(stage.open(m_colours), int(KestOk));
        for (int round = 0; round < 10; ++round) {
            QTRY_VERIFY(stage.showsAtCentre(red));
            QCOMPARE(KestPlay(stage.engine), int(KestOk));
            QCOMPARE(KestEditEnd(stage.engine, true), int(KestOk));
            QCOMPARE(stage.begin(2), int(KestOk));
            // Black or its own, never the film before.
            QTRY_VERIFY(!stage.showsAtCentre(black));
            QVERIFY(!stage.showsAtCentre(red));
            QCOMPARE(stage.begin(1), int(KestOk));
            QTRY_VERIFY(!stage.showsAtCentre(black));
        }
    }

    void theClearCommandBlackensAnOpenEditUntilASeek()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        stage.clearView();
        QVERIFY(stage.showsAtCentre(black));
        QCOMPARE(stage.setFilter(Kest3DRedCyan, 0.0), int(KestOk));
        QTest::qWait(100);
        QVERIFY(stage.showsAtCentre(black));
        QCOMPARE(KestSetCurPos(stage.engine, 2500), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(blue));
    }

private:
    Clips m_clips;
    QString m_colours;
    QString m_song;
    QString m_pattern;
    QString m_short;
};

QTEST_MAIN(tst_KestPlaying)
#include "tst_kest_playing.moc"
