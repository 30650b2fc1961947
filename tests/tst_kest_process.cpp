// What belongs to the whole process, before and after an engine has played and read: nothing of it
// changes.
// Not here: files that the engine opens (tst_kest_opens_one_file.cpp).
#include "clips.h"
#include "enginestage.h"

#include <array>
#include <clocale>
#include <csignal>
#include <cstring>

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" {
#include <libavutil/log.h>
}

namespace {

constexpr int signalCount = 64;

int entriesIn(const char *folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

QByteArray environment()
{
    QByteArray all;
    for (char **entry = environ; *entry; ++entry)
        all += QByteArray(*entry) + '\n';
    return all;
}

mode_t maskOfTheMoment()
{
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

using Handlers = std::array<void (*)(int), signalCount + 1>;

Handlers signalHandlers()
{
    Handlers handlers = {};
    for (int signal = 1; signal <= signalCount; ++signal) {
        struct sigaction action = {};
        if (sigaction(signal, nullptr, &action) == 0)
            handlers[std::size_t(signal)] = action.sa_handler;
    }
    return handlers;
}

QByteArray blockedSignals()
{
    sigset_t blocked;
    sigemptyset(&blocked);
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    QByteArray bits;
    for (int signal = 1; signal <= signalCount; ++signal)
        bits += sigismember(&blocked, signal) == 1 ? '1' : '0';
    return bits;
}

/// The handler of X errors, null only where there is no libX11; asking for it means to set it.
void *xErrorHandler()
{
    using Handler = void *(*)(void *);
    static void *const library = dlopen("libX11.so.6", RTLD_NOW | RTLD_GLOBAL);
    if (!library)
        return nullptr;
    const auto set = reinterpret_cast<Handler>(dlsym(library, "XSetErrorHandler"));
    void *const handler = set(nullptr);
    set(handler);
    return handler;
}

struct Process
{
    QByteArray locale = std::setlocale(LC_ALL, nullptr);
    locale_t threadLocale = uselocale(nullptr);
    Handlers handlers = signalHandlers();
    QByteArray blocked = blockedSignals();
    QString folder = QDir::currentPath();
    QByteArray variables = environment();
    mode_t mask = maskOfTheMoment();
    void *xHandler = xErrorHandler();
    int logLevel = av_log_get_level();
};

void compare(const Process &now, const Process &before)
{
    QCOMPARE(now.locale, before.locale);
    QVERIFY(now.threadLocale == before.threadLocale);
    for (int signal = 1; signal <= signalCount; ++signal)
        QVERIFY2(now.handlers[std::size_t(signal)] == before.handlers[std::size_t(signal)],
                 qPrintable(QString("signal %1").arg(signal)));
    QCOMPARE(now.blocked, before.blocked);
    QCOMPARE(now.folder, before.folder);
    QCOMPARE(now.variables, before.variables);
    QCOMPARE(now.mask, before.mask);
    QCOMPARE(now.xHandler, before.xHandler);
    QCOMPARE(now.logLevel, before.logLevel);
}

}  // namespace

class tst_KestProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_film = m_clips.fourColours("film.mkv", "64x36");
        QVERIFY(!m_film.isEmpty());
    }

    void playingAndReadingChangeNothing()
    {
        const Process before;
        QVERIFY(before.xHandler);
        EngineStage stage;
        compare({}, before);
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() > 100 && stage.position() != ~0u);
        compare({}, before);
        QCOMPARE(KestSetCurPos(stage.engine, 2500), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(0xff0000ff));
        compare({}, before);
        readSome(stage.engine, [&] { compare({}, before); });
        KestClose(stage.engine);
        compare({}, before);
    }

    void aDecimalCommaStaysAndDoesNoHarm()
    {
        const QByteArray before = std::setlocale(LC_ALL, nullptr);
        if (!setCommaLocale())
            QSKIP("no locale with a decimal comma is installed, and none can be made");
        QCOMPARE(std::localeconv()->decimal_point, ",");
        {
            const Process comma;
            EngineStage stage;
            QCOMPARE(stage.open(m_film), int(KestOk));
            QCOMPARE(KestSetCurPos(stage.engine, 1520), int(KestOk));
            QTRY_VERIFY(stage.showsAtCentre(0xff00ff00));
            QTRY_COMPARE(stage.position(), 1520u);
            compare({}, comma);
            readSome(stage.engine, [&] { compare({}, comma); });
            KestClose(stage.engine);
            compare({}, comma);
        }
        std::setlocale(LC_ALL, before.constData());
    }

    void closingGivesThreadsAndDescriptorsBack()
    {
        playOnce();  // what libraries keep from their first use on is theirs
        const int threads = entriesIn("/proc/self/task");
        const int descriptors = entriesIn("/proc/self/fd");
        for (int round = 0; round < 5; ++round)
            playOnce();
        QTRY_COMPARE(entriesIn("/proc/self/task"), threads);
        QCOMPARE(entriesIn("/proc/self/fd"), descriptors);
    }

private:
    void playOnce() const
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(0xffff0000));
        readSome(stage.engine, [] {});
    }

    /// Reads two pictures of the stage's film, and looks after each step.
    template <typename Look> static void readSome(void *engine, Look look)
    {
        void *reader = nullptr;
        QCOMPARE(KestReaderOpen(engine, 1, &reader), int(KestOk));
        look();
        for (const long long time : {0, 40000}) {
            KestPicture picture = {};
            QCOMPARE(KestReaderNext(reader, &picture), int(KestOk));
            QCOMPARE(picture.time, time);
            look();
        }
        KestReaderClose(reader);
        look();
    }

    /// Takes an installed one, or makes one for this process, of few characters as that takes less long.
    bool setCommaLocale() const
    {
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") || std::setlocale(LC_ALL, "fr_FR.UTF-8"))
            return true;
        QProcess localedef;
        localedef.start(
            "localedef",
            {"-i", "de_DE", "-f", "ISO-8859-1", "--no-archive", m_clips.path("de_DE.ISO-8859-1")});
        if (!localedef.waitForFinished(60000))
            return false;
        qputenv("LOCPATH", QFile::encodeName(m_clips.path(".")));
        return std::setlocale(LC_ALL, "de_DE.ISO-8859-1");
    }

    Clips m_clips;
    QString m_film;
};

QTEST_MAIN(tst_KestProcess)
#include "tst_kest_process.moc"
