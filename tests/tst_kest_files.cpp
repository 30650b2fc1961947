// The engine with every kind of file: odd, broken, hostile. Each plays, or says why not.
// Not here: what a file is, without playing it (tst_mediaprobe.cpp).
#include "clips.h"
#include "enginestage.h"
#include "watchdog.h"

#include <random>

#include <sys/stat.h>

namespace {

constexpr int heldUpLimit = 100;  // ms

constexpr QRgb red = 0xffff0000;
constexpr QRgb lime = 0xff00ff00;
constexpr QRgb blue = 0xff0000ff;
constexpr QRgb yellow = 0xffffff00;
constexpr QRgb black = 0xff000000;

/// A picture whose four quarters are red, lime (above), blue, yellow (below).
QString quarters(const QString &size)
{
    const int width = size.section('x', 0, 0).toInt();
    const int height = size.section('x', 1, 1).toInt();
    const auto box = [&](int x, int y, const char *colour) {
        return QStringLiteral(",drawbox=x=%1:y=%2:w=%3:h=%4:c=%5:t=fill")
            .arg(x * width / 2)
            .arg(y * height / 2)
            .arg(width / 2)
            .arg(height / 2)
            .arg(colour);
    };
    return QStringLiteral("-f lavfi -i color=c=red:s=%1:r=10:d=0.3").arg(size) + box(1, 0, "lime")
        + box(0, 1, "blue") + box(1, 1, "yellow");
}

}  // namespace

class tst_KestFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_clips.valid()); }
    void init() { (void)WatchedApplication::takeWorst(); }
    void cleanup()
    {
        const qint64 worst = WatchedApplication::takeWorst();
        QVERIFY2(worst <= heldUpLimit, qPrintable(QString("held up for %1 ms").arg(worst)));
    }

    void picturesStandUprightInTheirShape_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("coding");
        QTest::addColumn<QSize>("shown");  // in a window of 200 x 200
        const char *const h264 = " -c:v libx264 -qp 1 -pix_fmt yuv420p";
        QTest::newRow("plain") << "plain.mp4"
                               << "160x80" << h264 << QSize(200, 100);
        QTest::newRow("10 bit") << "ten.mkv"
                                << "160x80"
                                << " -c:v libx264 -qp 1 -pix_fmt yuv420p10le" << QSize(200, 100);
        QTest::newRow("wide pixels") << "anamorphic.mkv"
                                     << "80x80"
                                     << " -vf setsar=2 -c:v ffv1" << QSize(200, 100);
        QTest::newRow("narrow pixels") << "narrow.mkv"
                                       << "160x80"
                                       << " -vf setsar=1/4 -c:v ffv1" << QSize(100, 200);
        QTest::newRow("alpha") << "alpha.mkv"
                               << "160x80"
                               << " -pix_fmt yuva420p -c:v ffv1" << QSize(200, 100);
        QTest::newRow("grey levels") << "full.mkv"
                                     << "160x80"
                                     << " -c:v mjpeg -q:v 1 -pix_fmt yuvj444p" << QSize(200, 100);
        QTest::newRow("odd size") << "odd.mkv"
                                  << "161x83"
                                  << " -c:v ffv1 -pix_fmt yuv420p" << QSize(200, 103);
    }
    void picturesStandUprightInTheirShape()
    {
        QFETCH(QString, name);
        QFETCH(QString, size);
        QFETCH(QString, coding);
        QFETCH(QSize, shown);
        const QString clip = m_clips.make(name, quarters(size) + coding);
        QVERIFY(!clip.isEmpty());
        EngineStage stage({200, 200});
        QCOMPARE(stage.open(clip), int(KestOk));
        QTRY_VERIFY(quartersAre(stage, shown, {red, lime, blue, yellow}));
        QVERIFY(barsAreBlack(stage, shown));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.ended());
    }

    void turnedPicturesAreTurnedBack_data()
    {
        QTest::addColumn<int>("degrees");
        QTest::addColumn<QSize>("shown");
        QTest::addColumn<QVector<QRgb>>("colours");
        QTest::newRow("0") << 0 << QSize(200, 100) << QVector<QRgb>{red, lime, blue, yellow};
        QTest::newRow("90") << 90 << QSize(100, 200) << QVector<QRgb>{blue, red, yellow, lime};
        QTest::newRow("180") << 180 << QSize(200, 100) << QVector<QRgb>{yellow, blue, lime, red};
        QTest::newRow("270") << 270 << QSize(100, 200) << QVector<QRgb>{lime, yellow, red, blue};
    }
    void turnedPicturesAreTurnedBack()
    {
        QFETCH(int, degrees);
        QFETCH(QSize, shown);
        QFETCH(QVector<QRgb>, colours);
        if (!QFile::exists(m_clips.path("lying.mp4")))
            QVERIFY(
                !m_clips.make("lying.mp4", quarters("160x80") + " -c:v libx264 -qp 1").isEmpty());
        const QString clip = m_clips.make(
            "turned.mp4",
            QString("-i lying.mp4 -c copy -metadata:s:v:0 rotate=%1").arg(360 - degrees));
        EngineStage stage({200, 200});
        QCOMPARE(stage.open(clip), int(KestOk));
        QTRY_VERIFY(quartersAre(stage, shown, colours));
        QVERIFY(barsAreBlack(stage, shown));
        QCOMPARE(stage.setFilter(Kest3DRedCyan, 0.0), int(KestOk));
        QTest::qWait(50);
        QVERIFY(quartersAre(stage, shown, colours));
    }

    void extremePicturesPlay_data()
    {
        QTest::addColumn<QString>("clip");
        QTest::newRow("1x1")
            << "-f lavfi -i color=c=red:s=64x64:r=10:d=0.2 -vf scale=1:1,format=yuv444p -c:v ffv1";
        QTest::newRow("1x1, subsampled")
            << "-f lavfi -i color=c=red:s=64x64:r=10:d=0.2 -vf scale=1:1,format=yuv420p -c:v ffv1";
        QTest::newRow("3x1")
            << "-f lavfi -i color=c=red:s=64x64:r=10:d=0.2 -vf scale=3:1,format=yuv420p -c:v ffv1";
        QTest::newRow("1x999") << "-f lavfi -i color=c=red:s=64x64:r=10:d=0.2 -vf "
                                  "scale=1:999,format=yuv420p -c:v ffv1";
        QTest::newRow("8192x4320")
            << "-f lavfi -i color=c=red:s=8192x4320:r=5:d=0.4 -c:v libx264 -preset ultrafast";
        QTest::newRow("variable frame rate")
            << "-f lavfi -i color=c=red:s=64x36:r=50:d=1 -vf select=not(mod(n\\,7))+gt(n\\,30) "
               "-fps_mode vfr -c:v libx264";
        QTest::newRow("one picture") << "-f lavfi -i color=c=red:s=64x36 -frames:v 1 -c:v ffv1";
        QTest::newRow("animated gif") << "-f lavfi -i color=c=red:s=64x36:r=10:d=0.2 -f gif";
        QTest::newRow("transport stream")
            << "-f lavfi -i color=c=red:s=64x36:r=25:d=0.2 -c:v libx264 -f mpegts";
        QTest::newRow("no duration")
            << "-f lavfi -i color=c=red:s=64x36:r=25:d=0.2 -c:v libx264 -f h264";
        QTest::newRow("one picture, no duration")
            << "-f lavfi -i color=c=red:s=64x36:r=25 -frames:v 1 -c:v libx264 -f h264";
    }
    void extremePicturesPlay()
    {
        QFETCH(QString, clip);
        const bool named
            = clip.contains("-f gif") || clip.contains("-f mpegts") || clip.contains("-f h264");
        const QString path = m_clips.make("extreme.mkv", clip + (named ? "" : " -f matroska"));
        QVERIFY(!path.isEmpty());
        EngineStage stage({201, 201});  // even a picture one pixel wide has the centre
        QCOMPARE(stage.open(path), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        // Broad, as a player takes large pictures for another kind of colours.
        QTRY_VERIFY_WITH_TIMEOUT(EngineStage::near(stage.centre(), red, 30), 20000);
        QCOMPARE(watched([&] { return stage.setFilter(Kest3DRedCyan, 0.1); }), int(KestOk));
        QTRY_VERIFY_WITH_TIMEOUT(stage.ended(), 20000);
        QCOMPARE(stage.count(5), 1);
        QVERIFY(EngineStage::near(stage.centre(), red, 30));
    }

    void aFilmOfNoDurationShowsItsPictureAndEnds()
    {
        QByteArray film = Clips::read(m_clips.make(
            "timed.mp4", "-f lavfi -i color=c=red:s=64x36:r=25:d=0.2 -c:v libx264 -bf 0"));
        const struct
        {
            const char *box;
            int place;
        } durations[] = {{"mvhd", 20}, {"tkhd", 24}, {"elst", 12}, {"mdhd", 20}, {"stts", 16}};
        for (const auto &duration : durations) {
            QVERIFY(film.indexOf(duration.box) > 0);
            film.replace(film.indexOf(duration.box) + duration.place, 4, QByteArray(4, 0));
        }
        EngineStage stage;
        QCOMPARE(stage.open(m_clips.write("timeless.mp4", film)), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        QCOMPARE(watched([&] { return KestPlay(stage.engine); }), int(KestOk));
        QTRY_VERIFY(stage.ended());
        QCOMPARE(stage.count(5), 1);
        QVERIFY(stage.showsAtCentre(red));
    }

    void coverArtIsNoPicture()
    {
        QVERIFY(!m_clips.make("cover.png", "-f lavfi -i color=red:s=32x32 -frames:v 1").isEmpty());
        const QString song
            = m_clips.make("song.mp3",
                           "-f lavfi -i sine=d=1 -i cover.png -map 0 -map 1 -c:v copy "
                           "-disposition:v attached_pic");
        EngineStage stage;
        QCOMPARE(stage.open(song), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() > 300 && stage.position() != ~0u);
        QVERIFY(stage.showsAtCentre(black));
        QTRY_VERIFY(stage.ended());
    }

    void aFileThatCannotBePlayedStillHasAnEdit_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("code");
        const QString pipe = m_clips.path("pipe");
        QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
        QTest::newRow("missing") << m_clips.path("missing.mp4") << int(KestErrorNotFound);
        QTest::newRow("folder") << m_clips.path(".") << int(KestErrorNotAFile);
        QTest::newRow("pipe") << pipe << int(KestErrorNotAFile);
        QTest::newRow("empty") << m_clips.write("empty.mp4", {}) << int(KestErrorEmpty);
        QTest::newRow("text") << m_clips.write("text.mp4", "no film") << int(KestErrorNotMedia);
        QTest::newRow("noise") << m_clips.write("noise.mp4", Clips::noise(100000))
                               << int(KestErrorNotMedia);
        QTest::newRow("url") << "http://127.0.0.1:9/film.mp4" << int(KestErrorNotFound);
    }
    void aFileThatCannotBePlayedStillHasAnEdit()
    {
        QFETCH(QString, path);
        QFETCH(int, code);
        EngineStage stage;
        QCOMPARE(stage.open(path), int(KestOk));
        QCOMPARE(stage.events.size(), std::size_t(1));
        QCOMPARE(KestPlay(stage.engine), code);
        QCOMPARE(KestPause(stage.engine), code);
        QCOMPARE(KestSetCurPos(stage.engine, 10), code);
        QCOMPARE(stage.setFilter(Kest3DRedCyan, 0.1), int(KestOk));
        QTest::qWait(50);
        QCOMPARE(stage.events.size(), std::size_t(1));
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestOk));
        tagKestFilterInfo info = {};
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestOk));
    }

    void truncatedFilmsPlayOrSayNo()
    {
        const QByteArray whole = Clips::read(
            m_clips.make("whole.mkv",
                         "-f lavfi -i testsrc=s=64x36:r=25:d=0.4 -f lavfi -i sine=d=0.4 "
                         "-c:v libx264 -c:a libvorbis"));
        QVERIFY(whole.size() > 1000);
        EngineStage stage;
        for (int i = 1; i < 20; ++i) {
            playOrRefuse(stage, m_clips.write("cut.mkv", whole.left(int(whole.size() * i / 20))));
            QVERIFY2(!QTest::currentTestFailed(), "part " + QByteArray::number(i));
        }
        showsAWholeFilm(stage);
    }

    void filmsWithFlippedBitsPlayOrSayNo()
    {
        const QByteArray whole
            = Clips::read(m_clips.make("flip.mp4",
                                       "-f lavfi -i testsrc=s=64x36:r=25:d=0.2 -f lavfi "
                                       "-i sine=d=0.2 -c:v libx264 -c:a aac"));
        QVERIFY(whole.size() > 1000);
        EngineStage stage;
        for (unsigned seed = 1; seed <= 25; ++seed) {
            std::mt19937 random(seed);
            QByteArray flipped = whole;
            for (int i = 0; i < 20; ++i) {
                const auto at = int(random() % unsigned(flipped.size()));
                flipped[at] = char(flipped[at] ^ (1 << random() % 8));
            }
            playOrRefuse(stage, m_clips.write("flipped.mp4", flipped));
            QVERIFY2(!QTest::currentTestFailed(), "seed " + QByteArray::number(seed));
        }
        showsAWholeFilm(stage);
    }

    void aFilmThatIsDeletedWhilePlayingGoesOn()
    {
        const QString film
            = m_clips.make("gone.mkv", "-f lavfi -i testsrc=s=64x36:r=25:d=1 -c:v ffv1");
        EngineStage stage;
        QCOMPARE(stage.open(film), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() > 200 && stage.position() != ~0u);
        QVERIFY(QFile::remove(film));
        QTRY_VERIFY(stage.ended());
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestOk));
        QCOMPARE(stage.begin(1), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestErrorNotFound));
    }

    void aFilmThatIsCutShortWhilePlayingEnds()
    {
        const QString film = m_clips.make("shrinks.mkv",
                                          "-f lavfi -i mandelbrot=s=320x180:r=25 -t 4 "
                                          "-c:v ffv1");
        EngineStage stage;
        QCOMPARE(stage.open(film), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() > 100 && stage.position() != ~0u);
        QVERIFY(QFile::resize(film, 20000));
        QTRY_VERIFY(stage.ended());
        QCOMPARE(stage.count(5), 1);
    }

private:
    static bool quartersAre(const EngineStage &stage, QSize shown, const QVector<QRgb> &colours)
    {
        const QImage picture = stage.grab();
        const QPoint middle(picture.width() / 2, picture.height() / 2);
        const int x = shown.width() / 4;
        const int y = shown.height() / 4;
        const QPoint points[] = {{-x, -y}, {x, -y}, {-x, y}, {x, y}};
        for (int i = 0; i < 4; ++i)
            if (!EngineStage::near(picture.pixel(middle + points[i]), colours[i], 16))
                return false;
        return true;
    }

    static bool barsAreBlack(const EngineStage &stage, QSize shown)
    {
        const QImage picture = stage.grab();
        const QRect inside(
            QPoint((picture.width() - shown.width()) / 2, (picture.height() - shown.height()) / 2),
            shown);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (inside.contains(x, y) == (picture.pixel(x, y) == black))
                    return false;
        return true;
    }

    /// What came before has done the engine no harm.
    void showsAWholeFilm(EngineStage &stage) const
    {
        const QString film
            = m_clips.make("sane.mkv", "-f lavfi -i color=c=red:s=64x36:r=25:d=0.2 -c:v ffv1");
        stage.events.clear();
        QCOMPARE(stage.open(film), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(red));
        QTRY_VERIFY(stage.ended());
    }

    /// A broken film may be long, or end at once; it must not be more than that, nor hang.
    static void playOrRefuse(EngineStage &stage, const QString &path)
    {
        stage.events.clear();
        QCOMPARE(stage.open(path), int(KestOk));
        QCOMPARE(stage.centre(), black);
        const int code = watched([&] { return KestPlay(stage.engine); });
        if (code == KestOk) {
            (void)QTest::qWaitFor([&] { return stage.ended(); }, 700);
            const auto plays = [&] { return stage.events.size() > 1 || stage.centre() != black; };
            QTRY_VERIFY_WITH_TIMEOUT(plays(), 10000);
        } else {
            QCOMPARE(code, int(KestErrorNotMedia));
        }
        QCOMPARE(watched([&] { return KestEditEnd(stage.engine, true); }), int(KestOk));
    }

    Clips m_clips;
};

WATCHED_TEST_MAIN(tst_KestFiles)
#include "tst_kest_files.moc"
