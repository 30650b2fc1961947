// Reading a film picture by picture: all of them, at their times, with the preview's pixels.
// Not here: making a film of them (tst_filmexport.cpp).
#include "clips.h"
#include "engine/mpv/stereocomposer.h"
#include "enginestage.h"
#include "likeness.h"

#include <csignal>
#include <thread>

namespace {

constexpr QRgb red = 0xffff0000;
constexpr QRgb lime = 0xff00ff00;
constexpr QRgb blue = 0xff0000ff;
constexpr QRgb white = 0xffffffff;

QImage imageOf(const KestPicture &picture)
{
    return QImage(picture.pixels, picture.width, picture.height, picture.stride,
                  QImage::Format_RGB32)
        .copy();
}

/// An engine with one file, and a reader of it.
class Reading
{
public:
    explicit Reading(const QString &path, StereoSetting setting = {})
        : engine(KestOpen("null"))
    {
        KestAddFile(engine, 1, path.toUtf8().constData());
        tagKestFilterInfo info = filterInfoFrom(setting);
        KestAddFilter2(engine, 1, 9, &info);
        code = KestReaderOpen(engine, 1, &reader);
    }
    ~Reading()
    {
        KestReaderClose(reader);
        KestClose(engine);
    }

    bool next()
    {
        code = KestReaderNext(reader, &picture);
        if (code == KestOk)
            m_told += QByteArray::number(picture.time) + ' ';
        return code == KestOk;
    }

    /// The times of what was read, and how it ended.
    QByteArray told() const { return m_told + "code " + QByteArray::number(code); }

    QVector<QImage> images()
    {
        QVector<QImage> all;
        while (next())
            all << imageOf(picture);
        return all;
    }

    QVector<qint64> times()
    {
        QVector<qint64> all;
        while (next())
            all << picture.time;
        return all;
    }

    void *engine;
    void *reader = nullptr;
    KestPicture picture = {};
    int code;

private:
    QByteArray m_told;
};

QVector<qint64> every(qint64 interval, int count, qint64 first = 0)
{
    QVector<qint64> times;
    for (int i = 0; i < count; ++i)
        times << first + i * interval;
    return times;
}

}  // namespace

class tst_KestReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_colours = m_clips.fourColours("colours.mkv", "64x36");
        m_pattern = make("pattern.mkv", "");
        m_wide = make("wide.mkv", "-vf setsar=2/1");
        m_lying = m_clips.make("lying.mp4", "-i pattern.mkv -c copy -metadata:s:v:0 rotate=90");
        QVERIFY(!m_colours.isEmpty() && !m_pattern.isEmpty() && !m_wide.isEmpty()
                && !m_lying.isEmpty());
    }

    void handsOutEveryPictureOnceAndInOrder()
    {
        Reading film(m_colours);
        QCOMPARE(film.code, int(KestOk));
        for (int i = 0; i < 100; ++i) {
            QVERIFY2(film.next(), qPrintable(QString::number(i)));
            QCOMPARE(film.picture.time, i * 40000LL);
            const QRgb colour = std::array{red, lime, blue, white}[std::size_t(i / 25)];
            QVERIFY(EngineStage::near(imageOf(film.picture).pixel(32, 18), colour));
        }
        for (int i = 0; i < 3; ++i) {
            QVERIFY(!film.next());
            QCOMPARE(film.code, int(KestAtEnd));
        }
    }

    void pixelsAreThoseOfThePreview_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("mode");
        QTest::addColumn<double>("depth");
        const QSize size(160, 90);
        QTest::newRow("off") << m_pattern << size << int(Kest3DTurnOff) << 0.1;
        QTest::newRow("red/cyan") << m_pattern << size << int(Kest3DRedCyan) << -0.03;
        QTest::newRow("blue/yellow") << m_pattern << size << int(Kest3DBlueYellow) << 0.07;
        QTest::newRow("interleaved") << m_pattern << size << int(Kest3DInterleaved) << 0.02;
        QTest::newRow("side by side") << m_pattern << size << int(Kest3DSlideBySlide) << -0.1;
        QTest::newRow("wide pixels") << m_wide << QSize(320, 90) << int(Kest3DRedCyan) << 0.01;
        QTest::newRow("lying") << m_lying << QSize(90, 160) << int(Kest3DRedCyan) << 0.05;
    }
    void pixelsAreThoseOfThePreview()
    {
        QFETCH(QString, file);
        QFETCH(QSize, size);
        QFETCH(int, mode);
        QFETCH(double, depth);
        const QVector<QImage> read = Reading(file, {mode, depth}).images();
        QCOMPARE(read.size(), 10);
        QVERIFY(read[0] != read[1]);

        EngineStage preview(size);
        QCOMPARE(preview.open(file), int(KestOk));
        QCOMPARE(preview.setFilter(mode, depth), int(KestOk));
        for (int i = 9; i >= 0; --i) {
            QCOMPARE(KestSetCurPos(preview.engine, unsigned(i * 40)), int(KestOk));
            QVERIFY(preview.comesToShow(read[i]));
        }
    }

    /// The preview leaves out some of the loop filter, which a starved film shows most.
    void readsEachPictureAsItsCodecMeansIt()
    {
        const QString film = makeStarved("starved.mkv");
        const QString decoded = m_clips.make("decoded.mkv", "-i starved.mkv -c:v ffv1");
        QVERIFY(!film.isEmpty() && !decoded.isEmpty());
        Reading one(film), other(decoded);
        const QVector<QImage> read = one.images();
        const QVector<QImage> wanted = other.images();
        QCOMPARE(read.size(), 20);
        QCOMPARE(other.told(), one.told());
        QVERIFY(read == wanted);
    }

    void previewIsHardlyToldFromWhatIsRead()
    {
        const QString film = makeStarved("starved-too.mkv");
        QVERIFY(!film.isEmpty());
        const QVector<QImage> read = Reading(film).images();
        EngineStage preview(read.value(0).size());
        QCOMPARE(preview.open(film), int(KestOk));
        int different = 0;
        for (int i = 0; i < read.size(); ++i) {
            QCOMPARE(KestSetCurPos(preview.engine, unsigned(i * 40)), int(KestOk));
            QTRY_VERIFY(meanDifference(preview.grab(), read[i]) < 2.0);
            different += preview.grab() != read[i];
        }
        QVERIFY(different > 5);  // or nothing is saved
    }

    void composesWithTheFilterKeptWhenItWasOpened()
    {
        Reading plain(m_pattern, {Kest3DTurnOff, 0.0});
        Reading film(m_pattern, {Kest3DRedCyan, 0.1});
        tagKestFilterInfo later = filterInfoFrom({Kest3DInterleaved, -0.1});
        QCOMPARE(KestAddFilter2(film.engine, 1, 9, &later), int(KestOk));
        QVERIFY(plain.next() && film.next());
        QCOMPARE(imageOf(film.picture),
                 compose({imageOf(plain.picture), 0, 0}, {Kest3DRedCyan, 0.1}).picture);
    }

    void keepsTheTimesOfTheFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QVector<qint64>>("times");
        const QString source = "-f lavfi -i testsrc=s=64x36:r=25:d=0.4 ";
        QTest::newRow("variable rate") << "variable.mkv"
                                       << source
                + "-vf settb=1/1000,setpts=N*N*10 -vsync passthrough -enc_time_base 1/1000 -c:v "
                  "libx264" << QVector<qint64>{0,      10000,  40000,  90000,  160000,
                                               250000, 360000, 490000, 640000, 810000};
        QTest::newRow("starts late") << "late.mkv" << source + "-vf setpts=PTS+3/TB -c:v libx264"
                                     << every(40000, 10, 3000000);
        QTest::newRow("transport stream")
            << "stream.ts" << source + "-c:v libx264 -bf 0" << every(40000, 10, 1400000);
        QTest::newRow("reordered pictures")
            << "reordered.mp4" << source + "-c:v libx264 -bf 3" << every(40000, 10);
        QTest::newRow("one picture")
            << "one.mkv" << source + "-frames:v 1 -c:v libx264" << every(40000, 1);
        QTest::newRow("sound begins first")
            << "sound.mkv"
            << "-itsoffset 0.4 " + source + "-f lavfi -i sine=d=1 -c:v libx264 -c:a flac"
            << every(40000, 10, 400000);
    }
    void keepsTheTimesOfTheFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, arguments);
        QFETCH(QVector<qint64>, times);
        const QString file = m_clips.make(name, arguments);
        QVERIFY(!file.isEmpty());
        Reading film(file);
        QCOMPARE(film.times(), times);
        QCOMPARE(film.code, int(KestAtEnd));
    }

    void doesNotWaitWhileTheLastPictureLasts()
    {
        const QString file
            = m_clips.make("slides.mp4", "-f lavfi -i testsrc2=s=160x90:r=1/20:d=40 -c:v libx264");
        QVERIFY(!file.isEmpty());
        QElapsedTimer watch;
        watch.start();
        Reading film(file);
        QCOMPARE(film.times(), every(20000000, 2));
        QCOMPARE(film.code, int(KestAtEnd));
        QVERIFY(watch.elapsed() < 10000);
    }

    void losesNoPictureWhenTheMachineStandsStill()
    {
        const QByteArray undisturbed = readInAnotherProcess([](QProcess &) {});
        QCOMPARE(undisturbed.count('\n'), 10);
        const auto stopNowAndThen = [](QProcess &process) {
            while (process.waitForReadyRead(20000)) {
                // Longer than the player waits for whoever renders.
                kill(pid_t(process.processId()), SIGSTOP);
                QTest::qWait(300);
                kill(pid_t(process.processId()), SIGCONT);
            }
        };
        QCOMPARE(readInAnotherProcess(stopNowAndThen), undisturbed);
    }

    void isReadInAnyThreadAndOutlivesTheEngine()
    {
        Reading film(m_colours);
        QVERIFY(film.next());
        KestClose(film.engine);
        int count = 1;
        std::thread([&] {
            while (film.next())
                ++count;
        }).join();
        QCOMPARE(count, 100);
        QCOMPARE(film.code, int(KestAtEnd));
    }

    void leavesAnOpenEditAlone()
    {
        EngineStage stage({64, 36});
        QCOMPARE(stage.open(m_colours), int(KestOk));
        QCOMPARE(KestSetCurPos(stage.engine, 1520), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(lime));
        QTRY_COMPARE(stage.position(), 1520u);  // told after it is shown, now and then
        const std::size_t events = stage.events.size();
        void *reader = nullptr;
        QCOMPARE(KestReaderOpen(stage.engine, 1, &reader), int(KestOk));
        KestPicture picture = {};
        while (KestReaderNext(reader, &picture) == KestOk) { }
        KestReaderClose(reader);
        QTest::qWait(50);
        QCOMPARE(stage.events.size(), events);
        QVERIFY(stage.showsAtCentre(lime));
    }

    void aTaggedFilmThatTheHostCallsFlatIsReadAtItsFullSize()
    {
        const QString film = m_clips.make("tagged.mkv",
                                          "-f lavfi -i testsrc2=s=320x90:r=25:d=0.1 -c:v ffv1 "
                                          "-metadata:s:v stereo_mode=left_right");
        void *const engine = KestOpen("null");
        QCOMPARE(KestAddFile(engine, 1, film.toUtf8().constData()), int(KestOk));
        QCOMPARE(KestSetStereoLayout(engine, 1, KestLayoutFlat), int(KestOk));
        void *reader = nullptr;
        QCOMPARE(KestReaderOpen(engine, 1, &reader), int(KestOk));
        KestPicture picture = {};
        QCOMPARE(KestReaderNext(reader, &picture), int(KestOk));
        QCOMPARE(QSize(picture.width, picture.height), QSize(320, 90));
        KestReaderClose(reader);
        KestClose(engine);
    }

    void isClosedAtAnyPicture()
    {
        for (int pictures = 0; pictures < 4; ++pictures) {
            Reading film(m_colours);
            for (int i = 0; i < pictures; ++i)
                QVERIFY(film.next());
        }
    }

    void tellsWhyAFileCannotBeRead_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("code");
        QTest::newRow("missing") << "/no/such/film.mkv" << int(KestErrorNotFound);
        QTest::newRow("folder") << m_clips.path("") << int(KestErrorNotAFile);
        QTest::newRow("empty") << m_clips.write("empty.mkv", "") << int(KestErrorEmpty);
        QTest::newRow("text") << m_clips.write("text.mkv", "no film") << int(KestErrorNotMedia);
        QTest::newRow("sound") << m_clips.make("song.ogg", "-f lavfi -i sine=d=0.2 -c:a libvorbis")
                               << int(KestErrorNoPicture);
    }
    void tellsWhyAFileCannotBeRead()
    {
        QFETCH(QString, file);
        QFETCH(int, code);
        Reading film(file);
        QCOMPARE(film.code, code);
        QVERIFY(!film.reader);
    }

    void aFilmOfAbsurdShapeIsNotRead_data()
    {
        QTest::addColumn<QString>("options");
        QTest::newRow("flat") << "";
        QTest::newRow("two views") << "-metadata:s:v:0 stereo_mode=left_right";
    }
    void aFilmOfAbsurdShapeIsNotRead()
    {
        QFETCH(QString, options);
        // Of pixels as wide as half a thousand.
        const QString file = make(QStringLiteral("%1.mkv").arg(QTest::currentDataTag()),
                                  "-vf setsar=512/1:max=512 " + options);
        Reading film(file);
        QCOMPARE(film.code, int(KestOk));
        QVERIFY(!film.next());
        QCOMPARE(film.code, int(KestErrorPlayer));
    }

    void endsWhereATruncatedFileEnds()
    {
        const QByteArray whole = Clips::read(m_colours);
        Reading film(m_clips.write("cut.mkv", whole.left(whole.size() / 2)));
        const int count = film.times().size();
        QVERIFY2(count > 10 && count < 100, qPrintable(QString::number(count)));
        QCOMPARE(film.code, int(KestAtEnd));
    }

    void refusesWhatIsNoReader()
    {
        KestPicture picture = {};
        QCOMPARE(KestReaderNext(nullptr, &picture), int(KestErrorHandle));
        QCOMPARE(KestReaderNext(&picture, &picture), int(KestErrorHandle));
        KestReaderClose(nullptr);

        Reading film(m_colours);
        QCOMPARE(KestReaderNext(film.reader, nullptr), int(KestErrorArgument));
        QCOMPARE(KestReaderNext(film.engine, &picture), int(KestErrorHandle));
        QCOMPARE(KestReaderOpen(film.reader, 1, &film.reader), int(KestErrorHandle));
        QCOMPARE(KestReaderOpen(film.engine, 1, nullptr), int(KestErrorArgument));
        void *other = nullptr;
        QCOMPARE(KestReaderOpen(film.engine, 2, &other), int(KestErrorFileId));
        QVERIFY(!other);
        KestReaderClose(film.reader);
        QCOMPARE(KestReaderNext(film.reader, &picture), int(KestErrorHandle));
    }

private:
    /// Ten pictures with sharp edges in all colours, 160 x 90.
    QString make(const QString &name, const QString &more) const
    {
        return m_clips.make(name,
                            "-f lavfi -i testsrc2=s=160x90:r=25:d=0.4 -c:v libx264 -qp 1 "
                            "-pix_fmt yuv420p "
                                + more);
    }

    /// Twenty pictures with too few bits, most of them B pictures, 320 x 180.
    QString makeStarved(const QString &name) const
    {
        return m_clips.make(name,
                            "-f lavfi -i mandelbrot=s=320x180:r=25,trim=duration=0.8 -c:v libx264 "
                            "-qp 38 -bf 3 -b_strategy 0 -pix_fmt yuv420p");
    }

    template <typename Disturb> QByteArray readInAnotherProcess(Disturb disturb) const
    {
        QProcess process;
        process.start(READONEFILM, {m_pattern});
        disturb(process);
        if (process.state() != QProcess::NotRunning)
            process.waitForFinished(60000);
        return process.exitCode() == 0 ? process.readAll() : QByteArray();
    }

    Clips m_clips;
    QString m_colours, m_pattern, m_wide, m_lying;
};

QTEST_MAIN(tst_KestReader)
#include "tst_kest_reader.moc"
