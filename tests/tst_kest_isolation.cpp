// Opening a file reads that file and nothing else, and changes nothing of the process.
// Not here: what the file holds (tst_kest_files.cpp).
#include "clips.h"
#include "enginestage.h"

#include <QRegularExpression>
#include <QSet>

#include <clocale>
#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

extern char **environ;

namespace {

/// What a process has one of.
struct ProcessState
{
    QByteArray locale = std::setlocale(LC_ALL, nullptr);
    QString folder = QDir::currentPath();
    QByteArray environment;
    QList<quintptr> signalHandlers;
    mode_t mask = umask(0);

    ProcessState()
    {
        umask(mask);
        for (char **entry = environ; *entry; ++entry)
            environment += QByteArray(*entry) + '\n';
        for (int number = 1; number < NSIG; ++number) {
            struct sigaction action = {};
            sigaction(number, nullptr, &action);
            signalHandlers += quintptr(action.sa_handler);
        }
    }
};

/// Plays one file to its end, or finds that it cannot be played; runs under the trace.
int playInChild(const QString &path)
{
    EngineStage stage({64, 36});
    if (stage.open(path) != KestOk)
        return 1;
    if (KestPlay(stage.engine) != KestOk)
        return 0;
    return QTest::qWaitFor([&] { return stage.ended(); }, 20000) ? 0 : 2;
}

}  // namespace

class tst_KestIsolation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_film = m_clips.make("film.mkv",
                              "-f lavfi -i color=c=red:s=64x36:r=25:d=0.2 -f lavfi -i "
                              "sine=d=0.2 -c:v ffv1 -c:a libvorbis");
        QVERIFY(!m_film.isEmpty());
        layBait();
    }

    void aFileIsReadAlone_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("film with much beside it") << "film.mkv" << QByteArray();
        QTest::newRow("m3u") << "list.m3u" << QByteArray("#EXTM3U\nbait.mkv\n");
        QTest::newRow("m3u8") << "list.m3u8"
                              << QByteArray("#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n"
                                            "bait.mkv\n#EXT-X-ENDLIST\n");
        QTest::newRow("hls over the network")
            << "net.m3u8"
            << QByteArray("#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n"
                          "http://127.0.0.1:9/a.ts\n#EXT-X-ENDLIST\n");
        QTest::newRow("cue") << "disc.cue"
                             << QByteArray("FILE \"bait.mkv\" WAVE\n  TRACK 01 AUDIO\n"
                                           "    INDEX 01 00:00:00\n");
        QTest::newRow("edl") << "cuts.edl" << QByteArray("# mpv EDL v0\nbait.mkv,0,1\n");
        QTest::newRow("concat") << "concat.txt"
                                << QByteArray("ffconcat version 1.0\nfile bait.mkv\n");
        QTest::newRow("pls") << "list.pls"
                             << QByteArray("[playlist]\nFile1=bait.mkv\nNumberOfEntries=1\n");
        QTest::newRow("sdp") << "stream.sdp"
                             << QByteArray("v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\n"
                                           "c=IN IP4 127.0.0.1\nt=0 0\nm=audio 5004 RTP/AVP 0\n");
    }
    void aFileIsReadAlone()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        if (!content.isEmpty())
            QVERIFY(!m_clips.write(name, content).isEmpty());
        QByteArray trace;
        if (!playUnderTrace(m_clips.path(name), &trace))
            QSKIP("strace cannot trace here");
        QCOMPARE(openedInside(trace), QSet<QString>{name});
        QVERIFY2(!trace.contains("AF_INET"), trace.constData());
        QCOMPARE(trace.count("execve("), 1);
        QVERIFY2(!trace.contains("/mpv/"), trace.constData());
    }

    void nothingOfTheProcessChanges()
    {
        const ProcessState before;
        {
            EngineStage stage({64, 36});
            QCOMPARE(stage.open(m_film), int(KestOk));
            QCOMPARE(KestPlay(stage.engine), int(KestOk));
            QTRY_VERIFY(stage.ended());
        }
        const ProcessState after;
        QCOMPARE(after.locale, before.locale);
        QCOMPARE(after.folder, before.folder);
        QCOMPARE(after.environment, before.environment);
        QCOMPARE(after.signalHandlers, before.signalHandlers);
        QCOMPARE(after.mask, before.mask);
    }

private:
    /// Everything a player may be tempted to open besides the film.
    void layBait()
    {
        QVERIFY(QFile::copy(m_film, m_clips.path("bait.mkv")));
        for (const char *name : {"film.mka", "film.ogg", "film.en.mka"})
            QVERIFY(QFile::copy(m_film, m_clips.path(name)));
        for (const char *name : {"film.srt", "film.en.srt", "film.ass", "film.lrc", "cover.jpg",
                                 "folder.jpg", "film.jpg", "film.mkv.conf", "mpv.conf", "film.txt"})
            QVERIFY(!m_clips.write(name, "1\n00:00:00,000 --> 00:00:01,000\nBait\n").isEmpty());
        const QDir home(m_home.path());
        QVERIFY(QDir().mkpath(home.filePath(".config/mpv/scripts")));
        QFile conf(home.filePath(".config/mpv/mpv.conf"));
        QVERIFY(conf.open(QIODevice::WriteOnly) && conf.write("speed=0.01\n") > 0);
        QFile script(home.filePath(".config/mpv/scripts/bait.lua"));
        QVERIFY(script.open(QIODevice::WriteOnly) && script.write("mp.command('quit')\n") > 0);
    }

    bool playUnderTrace(const QString &path, QByteArray *trace) const
    {
        const QString log = QDir::temp().filePath(QString("kest-trace-%1").arg(getpid()));
        QProcess strace;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", m_home.path());
        environment.remove("XDG_CONFIG_HOME");
        environment.insert("LSAN_OPTIONS", "detect_leaks=0");  // it cannot look under a tracer
        strace.setProcessEnvironment(environment);
        strace.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        strace.start("strace",
                     {"-f", "-qq", "-s", "4096", "-o", log, "-e",
                      "trace=open,openat,openat2,creat,socket,connect,execve",
                      QCoreApplication::applicationFilePath(), "--play", path});
        const bool done = strace.waitForFinished(60000) && strace.exitCode() == 0;
        *trace = Clips::read(log);
        QFile::remove(log);
        return done;
    }

    /// Names, below the clips' folder, of all that was opened there.
    QSet<QString> openedInside(const QByteArray &trace) const
    {
        QSet<QString> names;
        static const QRegularExpression path("open(?:at2?)?\\([^\"]*\"([^\"]*)\"");
        auto matches = path.globalMatch(QString::fromUtf8(trace));
        const QString folder = m_clips.path("x").chopped(1);
        while (matches.hasNext()) {
            const QString opened = matches.next().captured(1);
            if (opened.startsWith(folder))
                names.insert(opened.mid(folder.size()));
        }
        return names;
    }

    Clips m_clips;
    QTemporaryDir m_home;
    QString m_film;
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (argc == 3 && !std::strcmp(argv[1], "--play"))
        return playInChild(QString::fromLocal8Bit(argv[2]));
    tst_KestIsolation test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_kest_isolation.moc"
