// The preview program's export, from outside: pictures to the bit, sound to the packet, no remains.
// Not here: reading the pictures (tst_kest_reader.cpp).
#include "clips.h"
#include "engine/mpv/kest_host.h"
#include "engine/mpv/stereocomposer.h"

#include <QtTest>

#include <csignal>

namespace {

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(60000);
    return process.readAllStandardOutput();
}

QByteArray decodedPixels(const QString &film)
{
    return outputOf("ffmpeg",
                    {"-v", "error", "-i", film, "-f", "rawvideo", "-pix_fmt", "bgr24", "-"});
}

QImage imageOf(const QByteArray &pixels, QSize size, int number)
{
    const int bytes = size.width() * size.height() * 3;
    const auto *first = reinterpret_cast<const uchar *>(pixels.constData()) + number * bytes;
    return QImage(first, size.width(), size.height(), size.width() * 3, QImage::Format_BGR888)
        .convertToFormat(QImage::Format_RGB32);
}

/// Where films of 160 x 90 are not the same; empty when they are.
QString differences(const QByteArray &film, const QByteArray &other)
{
    constexpr int bytes = 160 * 90 * 3;
    QStringList pictures;
    for (int i = 0; i < qMax(film.size(), other.size()) / bytes; ++i)
        if (film.mid(i * bytes, bytes) != other.mid(i * bytes, bytes))
            pictures << QString::number(i);
    if (film == other)
        return {};
    return QStringLiteral("%1 bytes, %2 bytes; pictures %3")
        .arg(film.size())
        .arg(other.size())
        .arg(pictures.join(' '));
}

/// The first picture without 3D, of a film whose views lie in it as told.
QImage firstPicture(const QString &film, KestStereoLayout layout)
{
    void *const engine = KestOpen("null");
    void *reader = nullptr;
    KestPicture picture = {};
    KestAddFile(engine, 1, film.toUtf8().constData());
    KestSetStereoLayout(engine, 1, layout);
    KestReaderOpen(engine, 1, &reader);
    KestReaderNext(reader, &picture);
    const QImage copy = QImage(picture.pixels, picture.width, picture.height, picture.stride,
                               QImage::Format_RGB32)
                            .copy();
    KestReaderClose(reader);
    KestClose(engine);
    return copy;
}

/// All pictures as the engine composes them, alpha left out of account as 0.
QByteArray composedPixels(const QString &film, StereoSetting setting)
{
    QByteArray all;
    void *const engine = KestOpen("null");
    tagKestFilterInfo info = filterInfoFrom(setting);
    void *reader = nullptr;
    KestPicture picture = {};
    KestAddFile(engine, 1, film.toUtf8().constData());
    KestAddFilter2(engine, 1, 9, &info);
    KestReaderOpen(engine, 1, &reader);
    while (KestReaderNext(reader, &picture) == KestOk)
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
                all.append(
                    reinterpret_cast<const char *>(picture.pixels) + y * picture.stride + x * 4, 3);
    KestReaderClose(reader);
    KestClose(engine);
    return all;
}

}  // namespace

class tst_FilmExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_film = m_clips.pattern("film.mkv", "160x90", 1, "-f lavfi -i sine=d=1 -c:a libvorbis");
        m_long = m_clips.longPattern("long.mkv");
        m_stereo = m_clips.make("stereo.mkv",
                                "-f lavfi -i testsrc2=s=160x90:r=25:d=0.4 -f lavfi -i "
                                "mandelbrot=s=160x90:r=25 -filter_complex hstack=shortest=1 "
                                "-c:v ffv1 -pix_fmt bgr0 -metadata:s:v:0 stereo_mode=left_right");
        QVERIFY(!m_film.isEmpty() && !m_long.isEmpty() && !m_stereo.isEmpty());
    }

    void losslessPicturesAreTheComposedOnesToTheBit()
    {
        const QString folder = m_clips.path("lossless");
        run(m_film, folder, {"--export-lossless"});
        QCOMPARE(m_status, 0);
        const QByteArray composed = composedPixels(m_film, {Kest3DRedCyan, 0.018});
        QCOMPARE(composed.size(), 25 * 160 * 90 * 3);
        const QString file = folder + "/film.red-cyan.mkv";
        QCOMPARE(differences(decodedPixels(file), composed), QString());
    }

    void losslessPicturesOfAStereoFilmAreThoseOfBothViews_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("mode");
        QTest::newRow("red/cyan") << "red-cyan" << int(Kest3DRedCyan);
        QTest::newRow("interleaved") << "interleaved" << int(Kest3DInterleaved);
        QTest::newRow("side by side") << "side-by-side" << int(Kest3DSlideBySlide);
    }
    void losslessPicturesOfAStereoFilmAreThoseOfBothViews()
    {
        QFETCH(QString, name);
        QFETCH(int, mode);
        const QString folder = m_clips.path("stereo");
        run(m_stereo, folder, {"--export-lossless"}, name);
        QCOMPARE(m_status, 0);
        const QByteArray source = decodedPixels(m_stereo);
        const QByteArray exported = decodedPixels(folder + "/stereo." + name + ".mkv");
        QCOMPARE(exported.size(), 10 * 160 * 90 * 3);
        for (int i = 0; i < 10; ++i) {
            const QImage both = imageOf(source, {320, 90}, i);
            const Frame frame = {both.copy(0, 0, 160, 90), 0, 0, both.copy(160, 0, 160, 90)};
            QCOMPARE(imageOf(exported, {160, 90}, i), compose(frame, {mode, 0.018}).picture);
        }
    }

    void readBackItHasTheFilmsShape_data()
    {
        QTest::addColumn<QString>("mode");
        for (const char *mode : {"red-cyan", "interleaved", "side-by-side"})
            QTest::newRow(mode) << QString(mode);
    }
    void readBackItHasTheFilmsShape()
    {
        QFETCH(QString, mode);
        const QString folder = m_clips.path("shape");
        run(m_film, folder, {"--export-lossless"}, mode);
        QCOMPARE(m_status, 0);
        const QString file = folder + "/film." + mode + ".mkv";
        const QImage whole = imageOf(decodedPixels(file), {160, 90}, 0);
        QCOMPARE(firstPicture(file, KestLayoutFlat), whole);
        const bool isPacked = mode == "side-by-side";
        const QImage seen = firstPicture(file, KestLayoutAsTagged);
        QCOMPARE(seen.size(), QSize(160, 90));
        QCOMPARE(seen, isPacked ? firstPicture(file, KestLayoutSideBySideHalf) : whole);
        QCOMPARE(seen == whole, !isPacked);
    }

    void theDepthIsTheNearestThatThePlayerShows()
    {
        const QString folder = m_clips.path("depth");
        run(m_film, folder, {"--export-lossless"}, "red-cyan", 0.01);
        QCOMPARE(m_status, 0);
        const QString file = folder + "/film.red-cyan.mkv";
        const QByteArray wanted = composedPixels(m_film, {Kest3DRedCyan, 0.012});
        QCOMPARE(differences(decodedPixels(file), wanted), QString());
    }

    void itLastsAsLongAsTheFilm()
    {
        const QString folder = m_clips.path("length");
        run(m_stereo, folder);
        QCOMPARE(m_status, 0);
        QCOMPARE(outputOf("ffprobe",
                          {"-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0",
                           folder + "/stereo.red-cyan.mkv"})
                     .trimmed(),
                 QByteArray("0.400000"));
    }

    void thePicturesAreOfTheLowestLevelThatTheyFitIn_data()
    {
        QTest::addColumn<int>("rate");
        QTest::addColumn<QByteArray>("level");
        // 60 macroblocks each: level 1 takes 1485 a second, 1.1 takes 3000, 1.2 takes 6000.
        QTest::newRow("25 per second") << 25 << QByteArray("11");
        QTest::newRow("60 per second") << 60 << QByteArray("12");
    }
    void thePicturesAreOfTheLowestLevelThatTheyFitIn()
    {
        QFETCH(int, rate);
        QFETCH(QByteArray, level);
        const QString film = m_clips.make(
            "rate.mkv", QString("-f lavfi -i testsrc2=s=160x90:r=%1:d=0.4 -c:v ffv1").arg(rate));
        const QString folder = m_clips.path(QString("rate%1").arg(rate));
        run(film, folder);
        QCOMPARE(m_status, 0);
        QCOMPARE(outputOf("ffprobe",
                          {"-v", "error", "-show_entries", "stream=level", "-of", "csv=p=0",
                           folder + "/rate.red-cyan.mkv"})
                     .trimmed(),
                 level);
    }

    void soundIsCopiedPacketByPacket()
    {
        const QString folder = m_clips.path("sound");
        run(m_film, folder);
        QCOMPARE(m_status, 0);
        QCOMPARE(soundOf(folder + "/film.red-cyan.mkv"), soundOf(m_film));
        QVERIFY(soundOf(m_film).startsWith("MD5="));
    }

    void anExistingFileIsNeverOverwritten()
    {
        const QString folder = m_clips.path("twice");
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(!m_clips.write("twice/film.red-cyan.mkv", "mine").isEmpty());
        run(m_film, folder);
        QCOMPARE(m_status, 0);
        QCOMPARE(Clips::read(folder + "/film.red-cyan.mkv"), QByteArray("mine"));
        QCOMPARE(QDir(folder).entryList(QDir::Files),
                 QStringList({"film.red-cyan (2).mkv", "film.red-cyan.mkv"}));
    }

    void stoppedItLeavesNoHalfFile_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("interrupt") << SIGINT;
        QTest::newRow("hang-up") << SIGHUP;
        QTest::newRow("terminate") << SIGTERM;
    }
    void stoppedItLeavesNoHalfFile()
    {
        QFETCH(int, signal);
        const QString folder = m_clips.path("stopped");
        QProcess program;
        start(program, PREVIEW, m_long, folder, {});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(folder + "/long.red-cyan.mkv.part"), 20000);
        QCOMPARE(kill(pid_t(program.processId()), signal), 0);
        QVERIFY(program.waitForFinished(20000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 3);
        QVERIFY(program.readAllStandardError().contains("the export was stopped"));
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList());
    }

    void aDiskThatIsFullIsToldAndNothingIsLeft()
    {
        const QString folder = m_clips.path("full");
        QProcess program;
        start(program, "sh", m_long, folder, {"-c", "ulimit -f 64; exec \"$0\" \"$@\"", PREVIEW});
        QVERIFY(program.waitForFinished(60000));
        QCOMPARE(program.exitCode(), 3);
        const QByteArray said = program.readAllStandardError();
        QVERIFY2(said.contains("long.mkv: File too large"), said.constData());
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList());
    }

    void aFilmThatIsMissingIsToldAndExitsWith3()
    {
        run("/no/such/film.mkv", m_clips.path("missing"));
        QCOMPARE(m_status, 3);
        QVERIFY(m_said.contains("/no/such/film.mkv: The file does not exist"));
    }

private:
    static QByteArray soundOf(const QString &file)
    {
        return outputOf("ffmpeg",
                        {"-v", "error", "-i", file, "-map", "0:a", "-c", "copy", "-f", "md5", "-"});
    }

    /// Starts the export of one film; `before` are arguments in front of the program's.
    void start(QProcess &process, const QString &program, const QString &film,
               const QString &folder, const QStringList &before, const QString &mode = "red-cyan",
               double depth = 0.018) const
    {
        const QString settings
            = m_clips.write("settings.json",
                            QString(R"([{"path": "%1", "mode": "%2", "depth": %3}])")
                                .arg(film, mode, QString::number(depth))
                                .toUtf8());
        process.start(program,
                      before
                          + QStringList{"--no-window", "--settings", settings, "--export", folder});
    }

    void run(const QString &film, const QString &folder, const QStringList &more = {},
             const QString &mode = "red-cyan", double depth = 0.018)
    {
        QProcess process;
        start(process, PREVIEW, film, folder, more, mode, depth);
        QVERIFY(process.waitForFinished(60000));
        m_status = process.exitCode();
        m_said = process.readAllStandardError();
    }

    Clips m_clips;
    QString m_film, m_long, m_stereo;
    int m_status = -1;
    QByteArray m_said;
};

QTEST_MAIN(tst_FilmExport)
#include "tst_filmexport.moc"
