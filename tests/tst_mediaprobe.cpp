// MediaProbe: what files are, by their content, and what is refused with which code.
// Not here: playing them (tst_kest_files.cpp).
#include "clips.h"
#include "engine/mpv/mediaprobe.h"

#include <QElapsedTimer>
#include <QtTest>

#include <random>

#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(StereoLayout)

namespace {

ProbedFile probe(const QString &path)
{
    return probeMedia(path.toStdString());
}

const KestStreamInfo *first(const ProbedFile &facts, int kind)
{
    for (const KestStreamInfo &info : facts.streams)
        if (info.kind == kind)
            return &info;
    return nullptr;
}

}  // namespace

class tst_MediaProbe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_film = m_clips.make("film.mp4",
                              "-f lavfi -i testsrc=s=64x48:r=25:d=2 -f lavfi -i sine=d=2:r=48000 "
                              "-ac 2 -c:v libx264 -pix_fmt yuv420p -c:a aac");
        QVERIFY(!m_film.isEmpty());
    }

    void tellsDurationAndStreamsOfAFilm()
    {
        const ProbedFile facts = probe(m_film);
        QCOMPARE(facts.code, int(KestOk));
        QVERIFY2(qAbs(facts.duration - 2000) <= 30, qPrintable(QString::number(facts.duration)));
        QCOMPARE(facts.streams.size(), std::size_t(2));
        const KestStreamInfo *picture = first(facts, KestStreamPicture);
        QCOMPARE(picture->width, 64);
        QCOMPARE(picture->height, 48);
        QCOMPARE(picture->rotation, 0);
        QCOMPARE(picture->aspectNumerator, picture->aspectDenominator);
        QCOMPARE(picture->frameRateNumerator, 25 * picture->frameRateDenominator);
        QCOMPARE(picture->duration, 2000LL);
        QCOMPARE(picture->codec, "h264");
        const KestStreamInfo *sound = first(facts, KestStreamSound);
        QCOMPARE(sound->sampleRate, 48000);
        QCOMPARE(sound->channels, 2);
        QCOMPARE(sound->width, 0);
        QCOMPARE(facts.shape.size, QSizeF(64, 48));
    }

    void theShapeIsThatOfTheDefaultPictureOrTheFirst_data()
    {
        QTest::addColumn<QString>("marks");
        QTest::addColumn<QSizeF>("shape");
        QTest::newRow("the first")
            << "-disposition:v:0 default -disposition:v:1 0" << QSizeF(64, 48);
        QTest::newRow("the second")
            << "-disposition:v:0 0 -disposition:v:1 default" << QSizeF(320, 180);
        QTest::newRow("both") << "-disposition:v default" << QSizeF(64, 48);
        QTest::newRow("none") << "-disposition:v 0 -default_mode passthrough" << QSizeF(64, 48);
    }
    void theShapeIsThatOfTheDefaultPictureOrTheFirst()
    {
        QFETCH(const QString, marks);
        QFETCH(const QSizeF, shape);
        const QString film = m_clips.make(
            "two.mkv",
            "-f lavfi -i color=s=64x48:r=2:d=0.5 -f lavfi -i testsrc2=s=320x180:r=25:d=0.3 "
            "-map 0 -map 1 -c:v libx264 "
                + marks);
        QCOMPARE(probe(film).shape.size, shape);
    }

    void tellsTheShapeOfTurnedAndAnamorphicPictures()
    {
        const QString wide = m_clips.make("wide.mkv",
                                          "-f lavfi -i testsrc=s=64x48:r=25:d=1 -vf "
                                          "setsar=2 -c:v ffv1");
        const ProbedFile anamorphic = probe(wide);
        QCOMPARE(anamorphic.shape.size, QSizeF(128, 48));
        QCOMPARE(first(anamorphic, KestStreamPicture)->aspectNumerator, 2);

        // ffmpeg counts this one the other way round.
        const QString turned
            = m_clips.make("turned.mp4", "-i film.mp4 -c copy -metadata:s:v:0 rotate=270");
        const ProbedFile facts = probe(turned);
        QCOMPARE(facts.shape.rotation, 90);
        QCOMPARE(facts.shape.upright(), QSizeF(48, 64));
        QCOMPARE(first(facts, KestStreamPicture)->rotation, 90);
    }

    void aMatrixWithoutADirectionIsNoTurn()
    {
        QByteArray film = Clips::read(m_clips.path("film.mp4"));
        const int header = film.indexOf("tkhd");
        QVERIFY(header > 0);
        film.replace(header + 44, 36, QByteArray(36, 0));
        const ProbedFile facts = probe(m_clips.write("nowhere.mp4", film));
        QCOMPARE(facts.code, int(KestOk));
        QCOMPARE(facts.shape.rotation, 0);
    }

    void tellsHowViewsArePacked_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<StereoLayout>("layout");
        using Layout = StereoLayout;
        QTest::newRow("none") << "mono" << Layout{};
        QTest::newRow("side by side") << "left_right" << Layout{Layout::SideBySide, true, false};
        QTest::newRow("right first") << "right_left" << Layout{Layout::SideBySide, true, true};
        QTest::newRow("top") << "top_bottom" << Layout{Layout::TopBottom, true, false};
        QTest::newRow("bottom") << "bottom_top" << Layout{Layout::TopBottom, true, true};
        for (const char *other : {"checkerboard_lr", "row_interleaved_lr", "col_interleaved_rl",
                                  "anaglyph_cyan_red", "block_lr"})
            QTest::newRow(other) << other << Layout{};
    }
    void tellsHowViewsArePacked()
    {
        QFETCH(const QString, tag);
        QFETCH(const StereoLayout, layout);
        const ProbedFile facts
            = probe(m_clips.make("packed.mkv",
                                 "-f lavfi -i color=s=160x90:r=25:d=0.2 -c:v ffv1 -metadata:s:v "
                                 "stereo_mode="
                                     + tag));
        QCOMPARE(facts.shape.layout, layout);
        QCOMPARE(facts.shape.stored, QSize(160, 90));
    }

    void tellsHowAStreamItselfSaysThatViewsArePacked_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("coding");
        QTest::addColumn<StereoLayout>("layout");
        using Layout = StereoLayout;
        const Layout beside = {Layout::SideBySide, true, false};
        const Layout above = {Layout::TopBottom, true, false};
        const QString h264 = "-c:v libx264 -x264-params frame-packing=";
        QTest::newRow("Matroska") << "packing.mkv" << h264 + "3" << beside;
        QTest::newRow("MP4, top") << "packing.mp4" << h264 + "4" << above;
        QTest::newRow("transport stream") << "packing.ts" << h264 + "3" << beside;
        QTest::newRow("raw") << "packing.h264" << h264 + "4" << above;
        QTest::newRow("checkerboard") << "packing.mkv" << h264 + "0" << Layout{};
        QTest::newRow("no packing") << "packing.mkv"
                                    << "-c:v libx264" << Layout{};
        QTest::newRow("the container knows better")
            << "packing.mkv" << h264 + "3 -metadata:s:v stereo_mode=top_bottom" << above;
    }
    void tellsHowAStreamItselfSaysThatViewsArePacked()
    {
        QFETCH(const QString, file);
        QFETCH(const QString, coding);
        QFETCH(const StereoLayout, layout);
        const QString clip
            = m_clips.make(file,
                           "-f lavfi -i color=s=160x90:r=25:d=0.2 -f lavfi -i sine=d=0.2 " + coding
                               + (file.endsWith(".h264") ? " -map 0" : " -c:a mp2"));
        QVERIFY(!clip.isEmpty());
        QCOMPARE(probe(clip).shape.layout, layout);
    }

    void soundWithACoverHasNoPicture()
    {
        QVERIFY(!m_clips.make("cover.png", "-f lavfi -i color=red:s=32x32 -frames:v 1").isEmpty());
        const QString song = m_clips.make("song.mp3",
                                          "-f lavfi -i sine=d=1 -i cover.png -map 0 "
                                          "-map 1 -c:v copy -disposition:v attached_pic");
        const ProbedFile facts = probe(song);
        QCOMPARE(facts.code, int(KestOk));
        QVERIFY(facts.shape.size.isEmpty());
        QCOMPARE(facts.streams.size(), size_t(2));
        QVERIFY(first(facts, KestStreamSound));
        QVERIFY(first(facts, KestStreamOther));
        QVERIFY(qAbs(facts.duration - 1000) < 60);
    }

    void aDurationThatTheFileDoesNotSayIsZero()
    {
        const QString raw
            = m_clips.make("raw.h264", "-f lavfi -i testsrc=s=64x48:r=25:d=1 -c:v libx264 -f h264");
        const ProbedFile facts = probe(raw);
        QCOMPARE(facts.code, int(KestOk));
        QCOMPARE(facts.duration, 0LL);
    }

    void refusesWhatIsNoFile()
    {
        QCOMPARE(probe(m_clips.path("missing.mp4")).code, int(KestErrorNotFound));
        QCOMPARE(probe(m_film + "/inside.mp4").code, int(KestErrorNotFound));
        QCOMPARE(probe("").code, int(KestErrorNotFound));
        QCOMPARE(probe(QString(5000, 'x')).code, int(KestErrorNotFound));
        QCOMPARE(probe(m_clips.path(".")).code, int(KestErrorNotAFile));
        QCOMPARE(probe("/dev/zero").code, int(KestErrorNotAFile));
        const QString pipe = m_clips.path("pipe");
        QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
        QElapsedTimer time;
        time.start();
        QCOMPARE(probe(pipe).code, int(KestErrorNotAFile));
        QVERIFY(time.elapsed() < 1000);
        QCOMPARE(probe(m_clips.write("empty.mp4", {})).code, int(KestErrorEmpty));
    }

    void refusesWhatMayNotBeRead()
    {
        const QString secret = m_clips.write("secret.mp4", Clips::read(m_film));
        QCOMPARE(chmod(secret.toLocal8Bit().constData(), 0), 0);
        if (geteuid() == 0)
            QSKIP("root may read everything");
        QCOMPARE(probe(secret).code, int(KestErrorUnreadable));
    }

    void refusesWhatIsNoMedia_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("text") << QByteArray("Not a film at all.\n").repeated(100);
        QTest::newRow("one byte") << QByteArray("x");
        QTest::newRow("zeros") << QByteArray(100000, 0);
        QTest::newRow("m3u") << QByteArray("#EXTM3U\n#EXTINF:1,a\nfilm.mp4\n");
        QTest::newRow("hls") << QByteArray("#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXT-X-VERSION:3\n"
                                           "#EXTINF:2,\nfilm.mp4\n#EXT-X-ENDLIST\n");
        QTest::newRow("concat") << QByteArray("ffconcat version 1.0\nfile film.mp4\n");
        QTest::newRow("edl") << QByteArray("# mpv EDL v0\nfilm.mp4\n");
        QTest::newRow("cue") << QByteArray("FILE \"film.mp4\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 "
                                           "00:00:00\n");
        QTest::newRow("pls") << QByteArray("[playlist]\nFile1=film.mp4\nNumberOfEntries=1\n");
        QTest::newRow("srt")
            << QByteArray("1\n00:00:01,000 --> 00:00:02,000\nHello\n\n").repeated(9);
        QTest::newRow("ass") << QByteArray("[Script Info]\nScriptType: v4.00+\n[Events]\n");
        QTest::newRow("webvtt") << QByteArray("WEBVTT\n\n00:01.000 --> 00:02.000\nHello\n");
        QTest::newRow("sdp") << QByteArray(
            "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\n"
            "t=0 0\nm=audio 5004 RTP/AVP 0\n");
        QTest::newRow("dash") << QByteArray("<?xml version=\"1.0\"?><MPD "
                                            "xmlns=\"urn:mpeg:dash:schema:mpd:2011\"></MPD>");
    }
    void refusesWhatIsNoMedia()
    {
        QFETCH(QByteArray, content);
        // The suffix of a film must not make one.
        const ProbedFile facts = probe(m_clips.write("text.mp4", content));
        QCOMPARE(facts.code, int(KestErrorNotMedia));
        QCOMPARE(facts.streams.size(), std::size_t(0));
    }

    void refusesStillPictures()
    {
        for (const char *name :
             {"still.png", "still.jpg", "still.bmp", "still.webp", "still.tiff"}) {
            const QString still = m_clips.make(name, "-f lavfi -i testsrc=s=32x32 -frames:v 1");
            if (!still.isEmpty())
                QCOMPARE(probe(still).code, int(KestErrorNotMedia));
        }
    }

    void refusesRandomBytes()
    {
        for (unsigned seed = 1; seed <= 20; ++seed) {
            std::mt19937 random(seed);
            QByteArray bytes(200000, Qt::Uninitialized);
            for (char &byte : bytes)
                byte = char(random());
            QCOMPARE(probe(m_clips.write("random.mp4", bytes)).code, int(KestErrorNotMedia));
        }
    }

    void aFilmWithoutItsIndexIsNoMedia()
    {
        const QByteArray whole = Clips::read(m_film);  // the index lies at its end
        QCOMPARE(probe(m_clips.write("cut.mp4", whole.left(whole.size() / 2))).code,
                 int(KestErrorNotMedia));
    }

    void examinesAFileAgainOnlyAfterItHasChanged()
    {
        MediaProbe probes;
        const std::string path = m_clips.write("changing.mp4", Clips::read(m_film)).toStdString();
        const KestStreamInfo *records = probes.facts(1, path).streams.data();
        QCOMPARE(probes.facts(1, path).streams.data(), records);
        QCOMPARE(probes.facts(1, path).code, int(KestOk));
        m_clips.write("changing.mp4", "no film any more");
        QCOMPARE(probes.facts(1, path).code, int(KestErrorNotMedia));
        QVERIFY(QFile::remove(m_clips.path("changing.mp4")));
        QCOMPARE(probes.facts(1, path).code, int(KestErrorNotFound));
        m_clips.write("changing.mp4", Clips::read(m_film));
        QCOMPARE(probes.facts(1, path).code, int(KestOk));
    }

private:
    Clips m_clips;
    QString m_film;
};

QTEST_GUILESS_MAIN(tst_MediaProbe)
#include "tst_mediaprobe.moc"
