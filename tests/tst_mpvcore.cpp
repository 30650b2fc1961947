// MpvCore: the volume curve, a player under any locale, and one step after the other.
// Not here: playing (tst_kest_playing.cpp).
#include "clips.h"
#include "engine/mpv/mpvcore.h"
#include "engine/mpv/rendercontext.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

namespace {

/// What libmpv makes of its volume.
double gainOf(int volume)
{
    return std::pow(playerVolume(volume) / 100.0, 3);
}

bool near(double one, double other)
{
    return std::fabs(one - other) < 1e-9;
}

/// A paused player whose pictures nobody looks at.
class Stepping
{
public:
    explicit Stepping(const QString &film)
        : core(MpvCore::open("null"))
        , m_context(RenderContext::make(
              core, [](void *) {}, nullptr))
    {
        core->setPicturesOnly();
        core->setPaused(true);
        core->load(film.toStdString());
    }

    bool waitForFirstPicture()
    {
        return QTest::qWaitFor([this] {
            letGoOn();
            return core->nextEvent().event_id == MPV_EVENT_PLAYBACK_RESTART;
        });
    }

    bool waitForPause()
    {
        return QTest::qWaitFor([this] {
            letGoOn();
            return core->isPaused();
        });
    }

    const std::shared_ptr<MpvCore> core;

private:
    void letGoOn()
    {
        if (m_context->frameWaits())
            m_context->skip();
    }

    const std::unique_ptr<RenderContext> m_context;
};

/// Adds the tags of the replies that are there.
void takeReplies(MpvCore &core, std::vector<std::uint64_t> &tags)
{
    for (;;) {
        const mpv_event &event = core.nextEvent();
        if (event.event_id == MPV_EVENT_NONE)
            return;
        if (event.event_id == MPV_EVENT_SET_PROPERTY_REPLY
            || event.event_id == MPV_EVENT_GET_PROPERTY_REPLY)
            tags.push_back(event.reply_userdata);
    }
}

}  // namespace

class tst_MpvCore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void volumeIsLinearInAmplitude()
    {
        QCOMPARE(playerVolume(0), 0.0);
        QCOMPARE(playerVolume(100), 100.0);
        QVERIFY(near(gainOf(50), 0.5));
        QVERIFY(near(gainOf(200), 2.0));
        for (int volume = 1; volume <= 200; ++volume)
            QVERIFY(near(gainOf(volume) - gainOf(volume - 1), 0.01));
    }

    void volumesOutsideAreClamped()
    {
        QCOMPARE(playerVolume(-1), 0.0);
        QCOMPARE(playerVolume(-2147483647 - 1), 0.0);
        QCOMPARE(playerVolume(2147483647), playerVolume(200));
        QVERIFY(playerVolume(200) < 130);  // the player's own limit
    }

    void opensWithAnySoundOutput()
    {
        QVERIFY(MpvCore::open("null"));
        // Found to be missing only when a sound is to be played, and then there is none.
        QVERIFY(MpvCore::open("no-such-output"));
    }

    void isNotPausedUntilAStepIsDone()
    {
        const Clips clips;
        Stepping film(clips.pattern("film.mkv", "160x90", 1));
        QVERIFY(film.waitForFirstPicture());
        for (int i = 1; i < 25; ++i) {
            film.core->step();
            QVERIFY(film.waitForPause());
            QCOMPARE(film.core->position(), i / 25.0);
        }
    }

    void answersAnyNumberOfRequestsInTheirOrder()
    {
        const auto core = MpvCore::open("null");
        std::vector<std::uint64_t> asked, answered;
        for (int i = 0; i < 1500; ++i) {
            core->setVolume(i % 2 ? 0 : 100);
            core->askPosition();
            core->setPaused(i % 2);
            core->askAtEnd();
            for (const auto tag :
                 {MpvCore::NoTag, MpvCore::Position, MpvCore::NoTag, MpvCore::AtEnd})
                asked.push_back(tag);
        }
        QVERIFY(QTest::qWaitFor([&] {
            takeReplies(*core, answered);
            return answered.size() >= asked.size();
        }));
        QCOMPARE(answered, asked);
        QVERIFY(core->isPaused());
        double volume = 0;
        mpv_get_property(core->handle(), "volume", MPV_FORMAT_DOUBLE, &volume);
        QCOMPARE(volume, 0.0);
    }

    void opensUnderADecimalComma_data()
    {
        QTest::addColumn<QString>("threads");
        QTest::newRow("alone") << "1";
        QTest::newRow("in four threads at once") << "4";
    }
    void opensUnderADecimalComma()
    {
        QFETCH(QString, threads);
        // A locale of our own, as few machines have one installed.
        QTemporaryDir folder;
        QProcess localedef;
        localedef.start("localedef",
                        {"-i", "de_DE", "-f", "ISO-8859-1", folder.filePath("de_DE.ISO-8859-1")});
        if (!localedef.waitForFinished() || localedef.exitCode() > 1)
            QSKIP("localedef cannot make de_DE.ISO-8859-1 here");
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LOCPATH", folder.path());
        environment.insert("LC_ALL", "de_DE.ISO-8859-1");
        environment.insert("LSAN_OPTIONS", "detect_leaks=0");  // setlocale() itself leaks
        child.setProcessEnvironment(environment);
        child.setProcessChannelMode(QProcess::MergedChannels);
        child.start(QCoreApplication::applicationFilePath(),
                    {"open-under-a-decimal-comma", threads});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.readAll(), QByteArray("opened\n"));
    }
};

/// Whether as many players open, all in the same moment.
static bool opensInThreads(int threadCount)
{
    std::atomic<int> waiting{threadCount};
    std::atomic<int> opened{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            for (--waiting; waiting > 0;)
                std::this_thread::yield();
            opened += MpvCore::open("null") != nullptr;
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    return opened == threadCount;
}

/// The part of opensUnderADecimalComma() that needs a process of its own.
static void openUnderADecimalComma(int threadCount)
{
    const char *const name = std::setlocale(LC_ALL, "");
    const std::string before = name ? name : "";
    const bool comma = *std::localeconv()->decimal_point == ',';
    bool opened = true;
    for (int round = 0; round < 10; ++round)
        opened = opensInThreads(threadCount) && opened;
    const bool kept
        = before == std::setlocale(LC_NUMERIC, nullptr) && *std::localeconv()->decimal_point == ',';
    std::puts(!comma ? "no comma" : !opened ? "not opened" : !kept ? "locale changed" : "opened");
}

int main(int argc, char *argv[])
{
    if (argc == 3 && !std::strcmp(argv[1], "open-under-a-decimal-comma")) {
        openUnderADecimalComma(std::atoi(argv[2]));
        return 0;
    }
    QCoreApplication application(argc, argv);
    tst_MpvCore test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_mpvcore.moc"
