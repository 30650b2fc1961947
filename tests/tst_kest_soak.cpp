// Begin, play, seek, 3D change, end, over and over: memory stays, and an edit that is over is silent.
// KEST_SOAK_CYCLES sets how often, where 100 are not enough.
// Not here: threads and descriptors (tst_kest_process.cpp).
#include "clips.h"
#include "engine/mpv/mpvcore.h"
#include "enginestage.h"
#include "heap.h"

#include <mpv/render.h>

namespace {

constexpr int warmUp = 20;  // cycles
constexpr int playMilliseconds = 40;

int cycleCount()
{
    const int asked = qEnvironmentVariableIntValue("KEST_SOAK_CYCLES");
    return asked > warmUp ? asked : 100;
}

/// What is in use once the player has let go of its last film, which it does in its own time.
qint64 settledBytes()
{
    qint64 bytes = -1;
    for (int i = 0; i < 100 && bytes != bytesInUse(); ++i) {
        bytes = bytesInUse();
        QTest::qWait(100);
    }
    return bytes;
}

/// Bytes that a cycle adds, once everything that is made once has been made.
template <typename Cycle> double growth(Cycle cycle)
{
    for (int i = 0; i < warmUp; ++i)
        cycle(i);
    const qint64 before = settledBytes();
    for (int i = warmUp; i < cycleCount(); ++i)
        cycle(i);
    return double(settledBytes() - before) / (cycleCount() - warmUp);
}

/// The player by itself, doing what the engine makes it do.
class PlainPlayer
{
public:
    PlainPlayer()
        : m_core(MpvCore::open("null"))
    {
        char api[] = MPV_RENDER_API_TYPE_SW;
        mpv_render_param params[]
            = {{MPV_RENDER_PARAM_API_TYPE, api}, {MPV_RENDER_PARAM_INVALID, nullptr}};
        mpv_render_context_create(&m_render, m_core->handle(), params);
    }
    ~PlainPlayer() { mpv_render_context_free(m_render); }

    void cycle(const std::string &film)
    {
        m_core->setPaused(false);
        m_core->load(film);
        waitFor(MPV_EVENT_PLAYBACK_RESTART);
        drawFor(playMilliseconds);
        m_core->seek(2.5);
        waitFor(MPV_EVENT_PLAYBACK_RESTART);
        m_core->stop();
        waitFor(MPV_EVENT_IDLE);
    }

private:
    void waitFor(mpv_event_id wanted)
    {
        QElapsedTimer time;
        time.start();
        while (nextEvent() != wanted) {
            draw();
            if (time.elapsed() > 5000)
                qFatal("the player does not answer");
        }
    }

    void drawFor(int milliseconds)
    {
        QElapsedTimer time;
        for (time.start(); time.elapsed() < milliseconds; nextEvent())
            draw();
    }

    mpv_event_id nextEvent()
    {
        const mpv_event_id event = m_core->nextEvent().event_id;
        if (event == MPV_EVENT_NONE)
            QThread::msleep(1);
        return event;
    }

    void draw()
    {
        if (!(mpv_render_context_update(m_render) & MPV_RENDER_UPDATE_FRAME))
            return;
        int size[2] = {64, 36};
        char format[] = "bgra";
        std::size_t stride = 256;
        int wait = 0;
        mpv_render_param params[] = {{MPV_RENDER_PARAM_SW_SIZE, size},
                                     {MPV_RENDER_PARAM_SW_FORMAT, format},
                                     {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                     {MPV_RENDER_PARAM_SW_POINTER, m_picture},
                                     {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
        mpv_render_context_render(m_render, params);
    }

    const std::shared_ptr<MpvCore> m_core;
    mpv_render_context *m_render = nullptr;
    alignas(64) unsigned char m_picture[256 * 36];
};

bool showsItsFirstPicture(const EngineStage &stage)
{
    return QTest::qWaitFor([&] { return stage.showsAtCentre(0xffff0000); });
}

/// What an edit that has just begun may be at.
struct Business
{
    const char *name;
    void (*doFor)(EngineStage &, int milliseconds);
};

const Business businesses[] = {
    {"opens", [](EngineStage &, int milliseconds) { QTest::qWait(milliseconds); }},
    {"opens unheard", [](EngineStage &, int milliseconds) { QThread::msleep(milliseconds); }},
    {"plays",
     [](EngineStage &stage, int milliseconds) {
         QVERIFY(showsItsFirstPicture(stage));
         QCOMPARE(KestPlay(stage.engine), int(KestOk));
         QTest::qWait(milliseconds);
     }},
    {"seeks",
     [](EngineStage &stage, int milliseconds) {
         QVERIFY(showsItsFirstPicture(stage));
         QCOMPARE(KestPlay(stage.engine), int(KestOk));
         QCOMPARE(KestSetCurPos(stage.engine, 2500), int(KestOk));
         QTest::qWait(milliseconds);
     }},
};

}  // namespace

class tst_KestSoak : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_film = m_clips.fourColours("film.mkv", "64x36");
        QVERIFY(!m_film.isEmpty());
    }

    void aCycleLeavesNothingBehind()
    {
        double plain = 0;
        {
            PlainPlayer player;
            plain = growth([&](int) { player.cycle(m_film.toStdString()); });
        }
        EngineStage stage({64, 36});
        QCOMPARE(stage.add(1, m_film), int(KestOk));
        stage.onEvent = [&](const tagKestEvent &) { m_eventsTooLate += m_over; };
        const double whole = growth([&](int i) { cycle(stage, i); });
        qInfo("a cycle adds %.0f bytes, of which %.0f are the player's own", whole, plain);
        QCOMPARE(m_eventsTooLate, 0);
        if (bytesInUse() == 0)
            QSKIP("this sanitizer does not tell how much memory is in use");
        QVERIFY2(whole - plain <= 4096, qPrintable(QString::number(whole - plain)));
    }

    void noEventComesOnceWindowOrEngineHasGone_data()
    {
        QTest::addColumn<int>("business");
        for (int i = 0; i < int(std::size(businesses)); ++i)
            QTest::newRow(businesses[i].name) << i;
    }
    void noEventComesOnceWindowOrEngineHasGone()
    {
        QFETCH(const int, business);
        for (int i = 0; i < 20; ++i) {
            EngineStage stage({64, 36});
            QCOMPARE(stage.open(m_film), int(KestOk));
            businesses[business].doFor(stage, i);  // so that the player is met at another moment
            const bool windowGoes = i % 2;
            if (windowGoes)
                stage.window.reset();
            else
                KestClose(stage.engine);
            const std::size_t events = stage.events.size();
            const int code = windowGoes ? KestErrorNoEdit : KestErrorHandle;
            QCOMPARE(KestPlay(stage.engine), code);
            QCOMPARE(KestEditEnd(stage.engine, true), code);
            QTest::qWait(5);
            QCOMPARE(stage.events.size(), events);
        }
    }

private:
    void cycle(EngineStage &stage, int i)
    {
        m_over = false;
        stage.events.clear();
        QCOMPARE(stage.begin(1), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QVERIFY(showsItsFirstPicture(stage));
        QCOMPARE(KestSetCurPos(stage.engine, 2500), int(KestOk));
        QCOMPARE(stage.setFilter(i % 2 ? Kest3DRedCyan : Kest3DInterleaved, 0.01), int(KestOk));
        QVERIFY(
            QTest::qWaitFor([&] { return stage.position() >= 2480 && stage.position() != ~0u; }));
        QCOMPARE(KestEditEnd(stage.engine, i % 3 == 0), int(KestOk));
        m_over = true;
        QTest::qWait(5);
    }

    Clips m_clips;
    QString m_film;
    bool m_over = false;
    int m_eventsTooLate = 0;
};

QTEST_MAIN(tst_KestSoak)
#include "tst_kest_soak.moc"
