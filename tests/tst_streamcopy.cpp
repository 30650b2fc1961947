// What an exported film has besides its pictures: sound, subtitles with their fonts, chapters.
// Not here: the pictures, and how films fail (tst_filmexport.cpp).
#include "clips.h"
#include "host/exportjob.h"
#include "host/mediaengine.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <atomic>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr off_t nowhere = -1;

std::atomic<ino_t> watchedFile{0};
std::atomic<off_t> badPlace{nowhere};  // in it; no read that takes it in succeeds
std::atomic<qint64> bytesRead{0};      // from it

const QByteArray spoken = "1\n00:00:00,200 --> 00:00:00,600\n<i>Hello</i>\nthere\n\n"
                          "2\n00:00:01,000 --> 00:00:01,400\nGood bye\n";

QByteArray chapter(const char *title, int start, int end)
{
    return QStringLiteral("[CHAPTER]\nTIMEBASE=1/1000\nSTART=%1\nEND=%2\ntitle=%3\n")
        .arg(start)
        .arg(end)
        .arg(QLatin1String(title))
        .toUtf8();
}

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(60000);
    return process.readAllStandardOutput();
}

/// The packets of a transport stream without those of one stream.
QByteArray withoutStream(const QByteArray &stream, int id)
{
    constexpr int size = 188;
    QByteArray rest;
    for (int at = 0; at + size <= stream.size(); at += size)
        if (((uchar(stream[at + 1]) & 0x1f) << 8 | uchar(stream[at + 2])) != id)
            rest += stream.mid(at, size);
    return rest;
}

}  // namespace

/// Takes the place of the system's for everything in this process.
extern "C" __attribute__((visibility("default"))) ssize_t read(int file, void *to, size_t size)
{
    struct stat status = {};
    const bool isWatched = watchedFile && fstat(file, &status) == 0 && status.st_ino == watchedFile;
    const off_t place = isWatched ? lseek(file, 0, SEEK_CUR) : 0;
    if (isWatched && badPlace >= place && badPlace < place + off_t(size)) {
        errno = EIO;
        return -1;
    }
    const ssize_t count = syscall(SYS_read, file, to, size);
    if (isWatched && count > 0)
        bytesRead += count;
    return count;
}

class tst_StreamCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        QVERIFY(!m_clips.write("spoken.srt", spoken).isEmpty());
        QVERIFY(!m_clips
                     .write("chapters",
                            ";FFMETADATA1\n" + chapter("Beginning", 0, 1000)
                                + chapter("End", 1000, 2000))
                     .isEmpty());
    }
    void init()
    {
        watchedFile = 0;
        badPlace = nowhere;
        bytesRead = 0;
    }

    void chaptersComeAlong_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"chapters.mkv", "chapters.mp4"})
            QTest::newRow(name) << QString(name);
    }
    void chaptersComeAlong()
    {
        QFETCH(QString, name);
        const QString file = exported(film(name, "-f ffmetadata -i chapters -map_chapters 1"));
        QCOMPARE(chaptersOf(file),
                 QStringList({"0.000000 1.000000 Beginning", "1.000000 2.000000 End"}));
    }

    void aChapterThatBeginsBeforeTheFilmBeginsWithIt()
    {
        // What a WMV file counts its times from is written into the chapter's own instead.
        const QByteArray preroll = QByteArray::fromHex("c005d90100000000");
        QByteArray bytes
            = Clips::read(film("chapters.wmv", "-f ffmetadata -i chapters -map_chapters 1"));
        QCOMPARE(bytes.count(preroll), 1);
        const QString source = m_clips.write("early.wmv", bytes.replace(preroll, QByteArray(8, 0)));
        QCOMPARE(chaptersOf(source).first(), QString("-3.100000 1.000000 Beginning"));
        QCOMPARE(chaptersOf(exported(source)).value(0), QString("0.000000 1.000000 Beginning"));
    }

    void subtitlesThatMatroskaHoldsAreCopied()
    {
        const QString source = film("held.mkv", "-i spoken.srt -c:s ass");
        const QString file = exported(source);
        QCOMPARE(subtitlesOf(file), subtitlesOf(source));
        QVERIFY(subtitlesOf(file).contains("Dialogue: 0,0:00:00.20,0:00:00.60,Default,,0,0,0,,"));
    }

    void theFontsOfSubtitlesComeAlong()
    {
        QVERIFY(!m_clips.write("some.ttf", "a font").isEmpty());
        const QString source = film("fonts.mkv",
                                    "-i spoken.srt -c:s ass -attach some.ttf "
                                    "-metadata:s:t:0 mimetype=application/x-truetype-font");
        const QJsonObject font = streamOf(exported(source), "attachment");
        QCOMPARE(font["tags"].toObject()["filename"].toString(), QString("some.ttf"));
        QCOMPARE(font["extradata_size"].toInt(), 6);
    }

    void subtitlesOfMp4BecomeSubRip()
    {
        const QString source
            = film("spoken.mp4", "-i spoken.srt -c:s mov_text -metadata:s:s:0 language=fra");
        const QString file = exported(source);
        QCOMPARE(m_summary.leftOut.size(), 0);
        const QJsonObject stream = streamOf(file, "subtitle");
        QCOMPARE(stream["codec_name"].toString(), QString("subrip"));
        QCOMPARE(stream["tags"].toObject()["language"].toString(), QString("fra"));
        const QByteArray text = outputOf("ffmpeg", {"-v", "error", "-i", file, "-f", "srt", "-"});
        QCOMPARE(text.trimmed().replace('\r', ""), spoken.trimmed());
    }

    void subtitlesThatNothingHoldsAreToldAndLeftOut()
    {
        const QByteArray captions
            = "Scenarist_SCC V1.0\n\n00:00:00:05\t9420 9420 c8e5 ecec ef80 942f 942f\n";
        QVERIFY(!m_clips.write("captions.scc", captions).isEmpty());
        const QString source = film("captions.mov", "-i captions.scc -c:s copy");
        const QString file = exported(source);
        QCOMPARE(
            leftOutLines(m_summary),
            QStringList(source + ": without its subtitles in eia_608, which Matroska cannot hold"));
        QVERIFY(streamOf(file, "subtitle").isEmpty());
        QVERIFY(!streamOf(file, "video").isEmpty());
    }

    void soundOfAnOlderKindIsCopied_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("codec");
        QTest::newRow("Windows Media") << "sound.wmv"
                                       << "wmav2";
        QTest::newRow("camera") << "sound.avi"
                                << "adpcm_ima_wav";
        QTest::newRow("telephone") << "sound.mov"
                                   << "pcm_mulaw";
    }
    void soundOfAnOlderKindIsCopied()
    {
        QFETCH(QString, name);
        QFETCH(QString, codec);
        const QString source = film(name, "-f lavfi -i sine=d=2 -c:a " + codec);
        const QString file = exported(source);
        QCOMPARE(failureLines(m_summary), QStringList());
        QCOMPARE(streamOf(file, "audio")["codec_name"].toString(), codec);
        QVERIFY(soundOf(source).size() > 1000);
        QVERIFY(soundOf(file) == soundOf(source));
    }

    void soundThatIsOnlyNamedIsToldAndLeftOut()
    {
        const QByteArray both = Clips::read(
            film("both.ts", "-f lavfi -i sine=d=2 -map 0 -map 1 -map 1 -c:a ac3 -c:v mpeg2video"));
        const QString source = m_clips.write("named.ts", withoutStream(both, 0x102));
        const QString file = exported(source);
        QCOMPARE(failureLines(m_summary), QStringList());
        QCOMPARE(
            leftOutLines(m_summary),
            QStringList(source + ": without its sound in ac3, of which the file tells too little"));
        QVERIFY(!streamOf(file, "audio").isEmpty());
    }

    void aFilmThatBeginsLateBeginsAtOnce()
    {
        const int start = 36000000;
        const int lead = 311;  // of the sound
        const QByteArray chapters = chapter("Beginning", start, start + 1000)
            + chapter("End", start + 1000, start + 2000);
        QVERIFY(!m_clips.write("late", ";FFMETADATA1\n" + chapters).isEmpty());
        const QString source
            = film("late.mkv",
                   "-itsoffset -0.3 -f lavfi -i sine=d=2 -f ffmetadata -i late -map_chapters 2 "
                   "-c:a mp2 -c:v mpeg2video -output_ts_offset 36000");
        QCOMPARE(timesOf(source, "v").value(0), start);
        QCOMPARE(timesOf(source, "a").value(0), start - lead);
        const QString file = exported(source);
        QCOMPARE(timesOf(file, "v").value(0), lead);
        QCOMPARE(timesOf(file, "a").value(0), 0);
        QCOMPARE(chaptersOf(file),
                 QStringList({"0.311000 1.311000 Beginning", "1.311000 2.311000 End"}));
    }

    void recordingsThatWereJoinedGoOnOneAfterTheOther()
    {
        // The second counts from where the first did, and begins with two packets of sound.
        const QByteArray piece = Clips::read(film("piece.ts",
                                                  "-f lavfi -i sine=d=2 -c:a mp2 -c:v libx264 "
                                                  "-preset ultrafast -pix_fmt yuv420p"));
        const QString file = exported(m_clips.write("joined.ts", piece + piece));
        QCOMPARE(failureLines(m_summary), QStringList());
        QVector<int> pictures = timesOf(file, "v");
        std::sort(pictures.begin(), pictures.end());
        QCOMPARE(pictures.size(), 100);
        for (int i = 0; i < 100; ++i)
            QCOMPARE(pictures[i] - pictures[0], i * 40);
        const QVector<int> sound = timesOf(file, "a");
        QCOMPARE(sound.size(), 2 * 77);
        for (int i = 2; i < 77; ++i)
            QCOMPARE(sound[77 + i] - sound[i], 2000);
        QVERIFY(std::is_sorted(sound.begin(), sound.end()));
    }

    void soundThatPausesWhereRecordingsWereJoinedKeepsItsPlace()
    {
        const QByteArray first
            = Clips::read(film("first.ts", "-f lavfi -i sine=d=0.5 -c:a mp2 -c:v mpeg2video"));
        const QByteArray second = Clips::read(
            film("second.ts", "-itsoffset 1 -f lavfi -i sine=d=1 -c:a mp2 -c:v mpeg2video"));
        const QString file = exported(m_clips.write("pause.ts", first + second));
        QVector<int> pictures = timesOf(file, "v");
        std::sort(pictures.begin(), pictures.end());
        QCOMPARE(pictures.size(), 100);
        const QVector<int> sound = timesOf(file, "a");
        QCOMPARE(sound.size(), 20 + 39);
        const int packet = 26;  // ms
        QVERIFY2(qAbs(sound[20] - pictures[75]) < packet, qPrintable(QString::number(sound[20])));
    }

    void soundFollowsThePicturesThatAreShown()
    {
        // The others are more, but in the first recording only.
        const QByteArray both = Clips::read(
            film("angles.ts",
                 "-f lavfi -i testsrc2=s=128x72:r=50:d=2 -f lavfi -i sine=d=2 -map 0 -map 1 "
                 "-map 2 -c:a mp2 -c:v mpeg2video"));
        const QString file
            = exported(m_clips.write("angles.joined.ts", both + withoutStream(both, 0x101)));
        QCOMPARE(streamOf(file, "video")["width"].toInt(), 64);
        QCOMPARE(timesOf(file, "v").size(), 100);
        const QVector<int> sound = timesOf(file, "a");
        QCOMPARE(sound.size(), 2 * 77);
        QCOMPARE(sound.last() - sound[76], 2000);
    }

    void aDiskThatFailsIsTold_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("sound");
        QTest::newRow("with sound") << "sound.avi"
                                    << "-f lavfi -i sine=d=10 -c:a pcm_s16le ";
        QTest::newRow("without") << "silent.avi"
                                 << "";
    }
    void aDiskThatFailsIsTold()
    {
        QFETCH(QString, name);
        QFETCH(QString, sound);
        const QString source = largeFilm(name, sound);
        watch(source);
        badPlace = QFileInfo(source).size() / 2;
        exported(source);
        QCOMPARE(failureLines(m_summary), QStringList(source + ": Input/output error"));
        QCOMPARE(m_summary.files, QStringList());
    }

    void aFilmWithoutSoundIsReadAlongWithItsPictures()
    {
        const QString source = largeFilm("along.avi");
        watch(source);
        int asked = 0;  // twice before the first picture, and after it
        MediaEngine engine("null");
        const ExportSummary summary = exportFilms(
            engine, {{source, Kest3DRedCyan, 0.0, true}}, {m_clips.path("silent"), false},
            [](const ExportState &) {}, [&asked] { return ++asked == 3; });
        QVERIFY(summary.stopped);
        QVERIFY2(bytesRead < QFileInfo(source).size(),
                 qPrintable(QString::number(qint64(bytesRead))));
    }

    void soundBeyondTheLastPictureIsStoppedToo()
    {
        const QString source = m_clips.make("sound.mkv",
                                            "-f lavfi -i testsrc2=s=64x36:r=25:d=0.4 -f lavfi -i "
                                            "sine=d=20 -c:a libvorbis");
        int asked = 0;  // twice before the first picture, and after each of the ten
        MediaEngine engine("null");
        const ExportSummary summary = exportFilms(
            engine, {{source, Kest3DRedCyan, 0.0, true}}, {m_clips.path("stopped"), false},
            [](const ExportState &) {}, [&asked] { return ++asked > 20; });
        QVERIFY(summary.stopped);
        QCOMPARE(summary.files, QStringList());
        QCOMPARE(QDir(m_clips.path("stopped")).entryList(QDir::Files), QStringList());
    }

private:
    static void watch(const QString &film)
    {
        struct stat status = {};
        QCOMPARE(stat(film.toLocal8Bit().constData(), &status), 0);
        watchedFile = status.st_ino;
    }

    QString film(const QString &name, const QString &more)
    {
        return m_clips.make(name, "-f lavfi -i testsrc2=s=64x36:r=25:d=2 " + more);
    }

    /// 11 MB, so that whoever looks into it has not read it all.
    QString largeFilm(const QString &name, const QString &more = {})
    {
        return m_clips.make(name,
                            "-f lavfi -i testsrc2=s=160x90:r=25:d=10 " + more
                                + "-c:v rawvideo -pix_fmt bgr24");
    }

    QString exported(const QString &film)
    {
        MediaEngine engine("null");
        m_summary = exportFilms(
            engine, {{film, Kest3DRedCyan, 0.02, true}}, {m_clips.path("exported"), false},
            [](const ExportState &) {}, [] { return false; });
        return m_summary.files.value(0);
    }

    static QJsonObject probe(const QString &file, const char *section)
    {
        return QJsonDocument::fromJson(
                   outputOf("ffprobe", {"-v", "error", "-of", "json", section, file}))
            .object();
    }

    static QStringList chaptersOf(const QString &file)
    {
        QStringList lines;
        const QJsonArray chapters = probe(file, "-show_chapters")["chapters"].toArray();
        for (const QJsonValue &one : chapters)
            lines << QString("%1 %2 %3")
                         .arg(one["start_time"].toString(), one["end_time"].toString(),
                              one["tags"].toObject()["title"].toString());
        return lines;
    }

    static QJsonObject streamOf(const QString &file, const QString &type)
    {
        const QJsonArray streams = probe(file, "-show_streams")["streams"].toArray();
        for (const QJsonValue &stream : streams)
            if (stream["codec_type"].toString() == type)
                return stream.toObject();
        return {};
    }

    /// In ms, as they lie in the file.
    static QVector<int> timesOf(const QString &file, const QString &streams)
    {
        QVector<int> times;
        const QByteArray lines = outputOf("ffprobe",
                                          {"-v", "error", "-select_streams", streams,
                                           "-show_entries", "packet=pts", "-of", "csv=p=0", file});
        for (const QByteArray &line : lines.split('\n'))
            if (!line.isEmpty())
                times << line.split(',').first().toInt();
        return times;
    }

    /// Its packets, one after the other.
    static QByteArray soundOf(const QString &file)
    {
        return outputOf(
            "ffmpeg", {"-v", "error", "-i", file, "-map", "0:a", "-c", "copy", "-f", "data", "-"});
    }

    static QByteArray subtitlesOf(const QString &file)
    {
        return outputOf("ffmpeg", {"-v", "error", "-i", file, "-f", "ass", "-"});
    }

    Clips m_clips;
    ExportSummary m_summary;
};

QTEST_MAIN(tst_StreamCopy)
#include "tst_streamcopy.moc"
