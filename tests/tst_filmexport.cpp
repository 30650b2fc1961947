// The preview program's export, from outside: pictures to the bit, sound to the packet, no remains.
// Not here: reading the pictures (tst_kest_reader.cpp).
#include "clips.h"
#include "engine/mpv/kest_host.h"
#include "engine/mpv/stereosetting.h"

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
        m_film = m_clips.make("film.mkv",
                              "-f lavfi -i testsrc2=s=160x90:r=25:d=1 -f lavfi -i "
                              "sine=d=1 -c:v libx264 -pix_fmt yuv420p -c:a libvorbis");
        m_long = m_clips.make("long.mkv",
                              "-f lavfi -i testsrc2=s=640x360:r=25:d=60 -c:v libx264 "
                              "-preset ultrafast -pix_fmt yuv420p");
        QVERIFY(!m_film.isEmpty() && !m_long.isEmpty());
    }

    void losslessPicturesAreTheComposedOnesToTheBit()
    {
        const QString folder = m_clips.path("lossless");
        run(m_film, folder, {"--export-lossless"});
        QCOMPARE(m_status, 0);
        const QByteArray composed = composedPixels(m_film, {Kest3DRedCyan, 0.02});
        QCOMPARE(composed.size(), 25 * 160 * 90 * 3);
        const QByteArray exported = outputOf("ffmpeg",
                                             {"-v", "error", "-i", folder + "/film.red-cyan.mkv",
                                              "-f", "rawvideo", "-pix_fmt", "bgr24", "-"});
        QVERIFY(exported == composed);
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

    void stoppedItLeavesNoHalfFile()
    {
        const QString folder = m_clips.path("stopped");
        QProcess program;
        start(program, PREVIEW, m_long, folder, {});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(folder + "/long.red-cyan.mkv.part"), 20000);
        program.terminate();
        QVERIFY(program.waitForFinished(20000));
        QCOMPARE(program.exitCode(), 3);
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

    /// Starts the export of one film in red/cyan; `before` are arguments in front of the program's.
    void start(QProcess &process, const QString &program, const QString &film,
               const QString &folder, const QStringList &before) const
    {
        const QString settings
            = m_clips.write("settings.json",
                            "[{\"path\":\"" + film.toUtf8()
                                + "\",\"mode\":\"red-cyan\",\"depth\":0.02,\"changed\":true}]");
        process.start(program,
                      before
                          + QStringList{"--no-window", "--settings", settings, "--export", folder});
    }

    void run(const QString &film, const QString &folder, const QStringList &more = {})
    {
        QProcess process;
        start(process, PREVIEW, film, folder, more);
        QVERIFY(process.waitForFinished(60000));
        m_status = process.exitCode();
        m_said = process.readAllStandardError();
    }

    Clips m_clips;
    QString m_film, m_long;
    int m_status = -1;
    QByteArray m_said;
};

QTEST_MAIN(tst_FilmExport)
#include "tst_filmexport.moc"
