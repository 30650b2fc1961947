// The engine on crafted files, watched by a system-call trace: it opens that one file, no other, no
// socket, and runs no program. libmpv by itself, on some of them, shows that the trace would tell.
// Not here: what such files are to the engine (tst_mediaprobe.cpp).
#include "clips.h"
#include "engine/mpv/kest_host.h"

#include <QRegularExpression>
#include <QtTest>

namespace {

/// A Matroska element with a length of four bytes.
QByteArray element(const char *id, const QByteArray &content)
{
    const auto size = quint32(content.size());
    const char length[] = {char(0x10 | size >> 24), char(size >> 16), char(size >> 8), char(size)};
    return QByteArray::fromHex(id) + QByteArray(length, 4) + content;
}

const QByteArray siblingId("sixteen bytes id");

/// A chapter of 0.1 s; `segment` says that its film lies in another file.
QByteArray chapter(char id, const QByteArray &segment = {})
{
    const QByteArray end = QByteArray::fromHex("0000000005f5e100");
    return element("b6",
                   element("73c4", QByteArray(1, id)) + element("91", QByteArray(8, 0))
                       + element("92", end)
                       + (segment.isEmpty() ? segment : element("6e67", segment)));
}

/// The film made to be played as its chapters say, the second of which is the sibling's.
QByteArray withOrderedChapters(QByteArray film)
{
    const QByteArray yes(1, 1);
    const QByteArray edition = element(
        "45b9", element("45bc", yes) + element("45dd", yes) + chapter(1) + chapter(2, siblingId));
    return film.insert(film.indexOf(QByteArray::fromHex("1f43b675")), element("1043a770", edition));
}

/// The film under the id that the chapters name.
QByteArray asSibling(QByteArray film)
{
    return film.replace(film.indexOf(QByteArray::fromHex("73a490")) + 3, 16, siblingId);
}

/// A number of four bytes.
QByteArray number(quint32 value)
{
    return {QByteArray(1, char(value >> 24)) + char(value >> 16) + char(value >> 8) + char(value)};
}

quint32 numberAt(const QByteArray &bytes, int place)
{
    quint32 value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | quint8(bytes[place + i]);
    return value;
}

/// The reference of a movie's track to another file, by its name and by its path.
QByteArray alias(const QByteArray &name, const QByteArray &path)
{
    const QByteArray levels = QByteArray::fromHex("00010001");
    QByteArray entry = QByteArray("alis") + QByteArray(4, 0) + QByteArray(10, 0) + char(4) + "Disk"
        + QByteArray(23, 0) + QByteArray(12, 0) + char(name.size()) + name.leftJustified(63, '\0')
        + QByteArray(16, 0) + levels + QByteArray(16, 0) + QByteArray::fromHex("0002") + char(0)
        + char(path.size()) + path + QByteArray(path.size() % 2, 0)
        + QByteArray::fromHex("ffff0000");
    return number(quint32(entry.size()) + 4) + entry;
}

/// The movie, whose index lies at its end, with its first track's film in another file.
QByteArray withReference(QByteArray movie, const QByteArray &reference)
{
    const int place = movie.indexOf("dref");
    const QByteArray own = movie.mid(place + 12, int(numberAt(movie, place + 12)));
    movie.replace(place + 12, own.size(), reference);
    for (const char *box : {"moov", "trak", "mdia", "minf", "dinf", "dref"}) {
        const int size = movie.lastIndexOf(box, place) - 4;
        movie.replace(size, 4, number(numberAt(movie, size) + reference.size() - own.size()));
    }
    return movie;
}

struct Text
{
    const char *name;
    const char *content;
};

/// Texts that make some player or other open other.mkv or other.ts. Each is tried by itself and
/// with a film after it that makes it pass for one.
constexpr Text texts[] = {
    {"list.m3u", "#EXTM3U\nother.mkv\n"},
    {"bare.m3u", "other.mkv\n"},
    {"list.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nother.ts\n#EXT-X-ENDLIST\n"},
    {"list.pls", "[playlist]\nFile1=other.mkv\nNumberOfEntries=1\n"},
    {"list.asx", "[Reference]\nRef1=other.mkv\n"},
    {"list.cue", "FILE \"other.mkv\" WAVE\n TRACK 01 AUDIO\n  INDEX 01 00:00:00\n"},
    {"list.edl", "# mpv EDL v0\nother.mkv\n"},
    {"list.txt", "mplayer EDL file, version 2\n< other.mkv\n"},
    {"list.concat", "ffconcat version 1.0\nfile other.mkv\n"},
    {"list.sdp",
     "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nt=0 0\n"
     "m=video 5004 RTP/AVP 33\n"},
    {"list.mpd",
     "<?xml version=\"1.0\"?><MPD><Period><AdaptationSet mimeType=\"video/mp4\">"
     "<Representation><BaseURL>other.mkv</BaseURL></Representation>"
     "</AdaptationSet></Period></MPD>\n"},
    {"VIDEO_TS.IFO", "DVDVIDEO-VMG"},
    {"index.bdmv", "INDX0200"},
};

/// What a film may have beside it for a player to pick up.
constexpr const char *neighbours[]
    = {"film.srt",  "film.ass",      "film.idx", "film.sub",   "film.mka",    "film.jpg",
       "cover.jpg", "film.mkv.conf", "mpv.conf", "input.conf", "film.en.srt", "film.lua"};

/// What may be opened beside the file.
constexpr const char *harmless[] = {
    "^/sys/devices/system/cpu/",  // the C library counts processors for the decoder's threads
    "^/proc/(stat|cpuinfo)$",     // where there is no /sys
    "^/proc/sys/vm/overcommit_memory$",  // and asks whether it may give memory back
    "^/usr/lib.*/gconv/",                // its tables, for the names in a transport stream
};

bool isHarmless(const QString &path)
{
    return std::any_of(std::begin(harmless), std::end(harmless), [&](const char *pattern) {
        return path.contains(QRegularExpression(pattern));
    });
}

}  // namespace

class tst_KestOpensOneFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        QVERIFY(QDir().mkpath(m_clips.path("clips")));
        QVERIFY(QDir().mkpath(m_clips.path("home/.config/mpv/scripts")));
        QVERIFY(!m_clips.write("home/.config/mpv/mpv.conf", "speed=2\n").isEmpty());
        QVERIFY(!m_clips.write("home/.config/mpv/scripts/a.lua", "print(1)\n").isEmpty());
        const QString film = m_clips.make(
            "clips/film.mkv",
            "-f lavfi -i testsrc=s=64x36:r=25:d=0.2 -f lavfi -i sine=d=0.2 -c:v libx264 -c:a aac "
            "-live 1");
        QVERIFY(!film.isEmpty());
        m_film = Clips::read(film);
        QVERIFY(!m_clips.make("clips/other.ts", "-i clips/film.mkv -c copy").isEmpty());
        m_stream = Clips::read(m_clips.path("clips/other.ts"));
        QVERIFY(!m_clips.write("clips/other.mkv", asSibling(m_film)).isEmpty());
        QVERIFY(!m_clips.write("clips/chapters.mkv", withOrderedChapters(m_film)).isEmpty());
        const QString movie = m_clips.make(
            "movie.mov", "-f lavfi -i testsrc=s=64x36:r=25:d=0.3 -c:v libx264 -pix_fmt yuv420p");
        const QByteArray path = m_clips.path("clips/other.mkv").toLocal8Bit();
        QVERIFY(!m_clips
                     .write("clips/movie.mov",
                            withReference(Clips::read(movie), alias("other.mkv", path)))
                     .isEmpty());
        for (const char *name : neighbours)
            QVERIFY(!m_clips.write(QString("clips/") + name, "1\n00:00:00,0 --> 00:00:01,0\nx\n")
                         .isEmpty());
        if (!trace({m_clips.path("clips/film.mkv")}))
            QSKIP("strace is missing or may not trace here, so nothing can be said about it");
    }

    void theTraceTellsWhatAPlayerOpens_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("list") << "control.m3u";
        QTest::newRow("ordered chapters") << "chapters.mkv";
    }
    void theTraceTellsWhatAPlayerOpens()
    {
        QFETCH(QString, name);
        QVERIFY(!m_clips.write("clips/control.m3u", texts[0].content).isEmpty());
        const QString path = m_clips.path("clips/" + name);
        QVERIFY(trace({"plain", path}));
        QVERIFY(opened().contains(path));
        QVERIFY(opened().contains(m_clips.path("clips/other.mkv")));
    }

    void opensNothingElse_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("code");
        QTest::newRow("film with neighbours") << "film.mkv" << int(KestOk);
        QTest::newRow("ordered chapters") << "chapters.mkv" << int(KestOk);
        QTest::newRow("movie in another file") << "movie.mov" << anyCode;
        for (const char *name :
             {"edl:film.mkv", "concat:other.mkv|film.mkv", "-film.mkv",
              "subfile,,start,0,end,0,,:other.mkv", "film%03d.mkv", "film*.mkv"}) {
            QVERIFY(!m_clips.write(QString("clips/") + name, m_film).isEmpty());
            QTest::newRow(name) << name << int(KestOk);
        }
        for (const Text &text : texts) {
            QVERIFY(!m_clips.write(QString("clips/") + text.name, text.content).isEmpty());
            QTest::newRow(text.name) << text.name << int(KestErrorNotMedia);
            const QString both = QString("film ") + text.name;
            QVERIFY(!m_clips.write("clips/" + both, text.content + m_stream).isEmpty());
            QTest::newRow(qPrintable(both)) << both << anyCode;
        }
    }
    void opensNothingElse()
    {
        QFETCH(QString, name);
        QFETCH(int, code);
        const QString path = m_clips.path("clips/" + name);
        QVERIFY(trace({path}));
        if (code != anyCode)
            QCOMPARE(m_said, QString("%1 %1").arg(code));
        QCOMPARE(opened().join('\n'), path);
        QCOMPARE(m_calls.filter(QRegularExpression("^(socket|connect|execve|creat|fork)")),
                 QStringList());
        QCOMPARE(m_calls.filter(QRegularExpression("^open.*O_(WRONLY|RDWR|CREAT)")), QStringList());
    }

private:
    static constexpr int anyCode = 1;

    /// Runs playonefile under strace; the calls between its words for the trace are in m_calls.
    bool trace(const QStringList &arguments)
    {
        QProcess child;
        child.setProcessEnvironment(quietEnvironment());
        child.setWorkingDirectory(m_clips.path("clips"));
        const QString log = m_clips.path("log");
        const QStringList strace
            = {"--seccomp-bpf",
               "-f",
               "-s",
               "4096",
               "-o",
               log,
               "-e",
               "trace=?open,openat,?openat2,?creat,socket,connect,execve,?execveat,?fork",
               PLAYONEFILE};
        child.start("strace", strace + arguments);
        if (!child.waitForFinished(30000) || child.exitCode() != 0) {
            qWarning("%s", child.readAllStandardError().constData());
            return false;
        }
        m_said = child.readAllStandardOutput().trimmed();
        QString calls = QString::fromLocal8Bit(Clips::read(log));
        calls = calls.section("/engine-begins", 1).section("/engine-ended", 0, 0);
        calls.remove(QRegularExpression("^\\d+ +", QRegularExpression::MultilineOption));
        m_calls = calls.split('\n', Qt::SkipEmptyParts);
        return !m_calls.isEmpty();
    }

    /// Without what Qt, a sound server or a sanitizer would open by itself.
    QProcessEnvironment quietEnvironment() const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
            environment.remove(name);
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("HOME", m_clips.path("home"));
        environment.insert("XDG_CONFIG_HOME", m_clips.path("home/.config"));
        environment.insert("XDG_CACHE_HOME", m_clips.path("cache"));
        environment.insert("ASAN_OPTIONS", "detect_leaks=0");  // it cannot under a trace
        return environment;
    }

    /// The paths that were asked for, each once, but for the harmless ones.
    QStringList opened() const
    {
        QStringList paths;
        const QRegularExpression path("^open[^\"]*\"([^\"]*)\"");
        for (const QString &call : m_calls) {
            const QString found = QDir::cleanPath(
                QDir(m_clips.path("clips")).absoluteFilePath(path.match(call).captured(1)));
            if (path.match(call).hasMatch() && !isHarmless(found))
                paths << found;
        }
        paths.removeDuplicates();
        return paths;
    }

    Clips m_clips;
    QByteArray m_film;
    QByteArray m_stream;
    QStringList m_calls;
    QString m_said;  // the codes of playing and of reading
};

QTEST_GUILESS_MAIN(tst_KestOpensOneFile)
#include "tst_kest_opens_one_file.moc"
