// The engine's calls in any order, with any handle, from anywhere: what each returns.
// Not here: what is seen and heard (tst_kest_playing.cpp).
#include "clips.h"
#include "enginestage.h"

#include <optional>
#include <thread>

namespace {

struct Call
{
    const char *name;
    std::function<int(void *)> make;
    int ofAFreshEngine;  ///< without files or edits
};

std::vector<Call> allCalls()
{
    static tagKestFilterInfo info;
    static long long duration;
    static void *records;
    static void *reader;
    static EditBeginParams params = {};
    params.fileId = 12345;
    return {
        {"Play", [](void *e) { return KestPlay(e); }, KestErrorNoEdit},
        {"Pause", [](void *e) { return KestPause(e); }, KestErrorNoEdit},
        {"SetCurPos", [](void *e) { return KestSetCurPos(e, 10); }, KestErrorNoEdit},
        {"ChangeVolume", [](void *e) { return KestChangeVolume(e, 100); }, KestOk},
        {"GetMediaDuration", [](void *e) { return KestGetMediaDuration(e, 12345, &duration); },
         KestErrorFileId},
        {"GetMediaDuration, null", [](void *e) { return KestGetMediaDuration(e, 1, nullptr); },
         KestErrorArgument},
        {"GetMediaInfo", [](void *e) { return KestGetMediaInfo(e, 12345, &records); },
         KestErrorFileId},
        {"GetMediaInfo, null", [](void *e) { return KestGetMediaInfo(e, 12345, nullptr); },
         KestErrorArgument},
        {"EditBegin", [](void *e) { return KestEditBegin(e, &params); }, KestErrorFileId},
        {"EditBegin, null", [](void *e) { return KestEditBegin(e, nullptr); }, KestErrorArgument},
        {"EditEnd", [](void *e) { return KestEditEnd(e, true); }, KestErrorNoEdit},
        {"EditEnd, no save", [](void *e) { return KestEditEnd(e, false); }, KestErrorNoEdit},
        {"AddFilter", [](void *e) { return KestAddFilter(e, 9, &info); }, KestErrorNoEdit},
        {"AddFilter, null", [](void *e) { return KestAddFilter(e, 9, nullptr); },
         KestErrorArgument},
        {"AddFilter, kind", [](void *e) { return KestAddFilter(e, 8, &info); },
         KestErrorFilterKind},
        {"AddFilter2", [](void *e) { return KestAddFilter2(e, 12345, 9, &info); }, KestErrorFileId},
        {"AddFilter2, null", [](void *e) { return KestAddFilter2(e, 1, 9, nullptr); },
         KestErrorArgument},
        {"AddFilter2, kind", [](void *e) { return KestAddFilter2(e, 1, 10, &info); },
         KestErrorFilterKind},
        {"GetFilter", [](void *e) { return KestGetFilter(e, 9, &info); }, KestErrorNoEdit},
        {"GetFilter, null", [](void *e) { return KestGetFilter(e, 9, nullptr); },
         KestErrorArgument},
        {"GetFilter, kind", [](void *e) { return KestGetFilter(e, -9, &info); },
         KestErrorFilterKind},
        {"GetFilter2", [](void *e) { return KestGetFilter2(e, 12345, 9, &info); }, KestErrorFileId},
        {"GetFilter2, null", [](void *e) { return KestGetFilter2(e, 1, 9, nullptr); },
         KestErrorArgument},
        {"GetFilter2, kind", [](void *e) { return KestGetFilter2(e, 1, 0, &info); },
         KestErrorFilterKind},
        {"RemoveFile", [](void *e) { return KestRemoveFile(e, 12345); }, KestErrorFileId},
        {"SetStereoLayout", [](void *e) { return KestSetStereoLayout(e, 12345, 0); },
         KestErrorFileId},
        {"AddFile, null", [](void *e) { return KestAddFile(e, 1, nullptr); }, KestErrorArgument},
        {"AddFile, empty", [](void *e) { return KestAddFile(e, 1, ""); }, KestErrorArgument},
        {"ReaderOpen", [](void *e) { return KestReaderOpen(e, 12345, &reader); }, KestErrorFileId},
        {"ReaderOpen, null", [](void *e) { return KestReaderOpen(e, 1, nullptr); },
         KestErrorArgument},
    };
}

/// An event that a callback answers with an ending.
struct Occasion
{
    const char *name;
    bool (*is)(const tagKestEvent &);
};

const Occasion occasions[] = {
    {"at the first event", [](const tagKestEvent &) { return true; }},
    {"as it plays", [](const tagKestEvent &event) { return event.time > 3880; }},
    {"at the end", [](const tagKestEvent &event) { return event.state == 5; }},
};

/// A way for an edit to be over.
struct Ending
{
    const char *name;
    void (*make)(EngineStage &);
    int code;  ///< of all that is asked of the edit afterwards
};

const Ending endings[] = {
    {"edit ended", [](EngineStage &stage) { KestEditEnd(stage.engine, true); }, KestErrorNoEdit},
    {"window destroyed", [](EngineStage &stage) { stage.window.reset(); }, KestErrorNoEdit},
    {"engine closed", [](EngineStage &stage) { KestClose(stage.engine); }, KestErrorHandle},
};

}  // namespace

class tst_KestCalls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_film = m_clips.fourColours("film.mkv", "64x36");
        QVERIFY(!m_film.isEmpty());
    }

    void everyCallKnowsItsHandle()
    {
        void *const closed = KestOpen("null");
        QVERIFY(closed);
        KestClose(closed);
        void *const live = KestOpen("null");
        QVERIFY(live);
        QVERIFY(live != closed);
        int local = 0;
        for (const Call &call : allCalls()) {
            for (void *handle : {static_cast<void *>(nullptr), closed, static_cast<void *>(&local),
                                 reinterpret_cast<void *>(1), static_cast<void *>(this)})
                QVERIFY2(call.make(handle) == KestErrorHandle, call.name);
            QVERIFY2(call.make(live) == call.ofAFreshEngine, call.name);
        }
        KestClose(nullptr);
        KestClose(&local);
        KestClose(closed);
        QCOMPARE(KestChangeVolume(live, 50), int(KestOk));
        KestClose(live);
        QCOMPARE(KestChangeVolume(live, 50), int(KestErrorHandle));
    }

    void aHandleBelongsToItsThread()
    {
        EngineStage stage;
        QStringList answered;
        std::thread([&] {
            for (const Call &call : allCalls())
                if (call.make(stage.engine) != KestErrorHandle)
                    answered << call.name;
            KestClose(stage.engine);
        }).join();
        QCOMPARE(answered, QStringList());
        QCOMPARE(KestChangeVolume(stage.engine, 50), int(KestOk));
    }

    void aWindowOfAnotherThreadIsRefused()
    {
        CVideoWnd window;
        int code = KestOk;
        std::thread([&] {
            void *const engine = KestOpen("null");
            KestAddFile(engine, 1, m_film.toUtf8().constData());
            EditBeginParams params = {};
            params.fileId = 1;
            params.firstWindow = &window;
            code = KestEditBegin(engine, &params);
            KestClose(engine);
        }).join();
        QCOMPARE(code, int(KestErrorArgument));
    }

    void aMisspeltOutputOpensNothing()
    {
        for (const char *output : {"null:x=y", ",,", "%n%"})
            QCOMPARE(KestOpen(output), static_cast<void *>(nullptr));
    }

    void anEngineThatIsNeverClosedGoesWithItsThread()
    {
        int code = KestErrorPlayer;
        std::thread([&] {
            void *const engine = KestOpen("null");
            KestAddFile(engine, 1, m_film.toUtf8().constData());
            EditBeginParams params = {};
            params.fileId = 1;
            code = KestEditBegin(engine, &params);
        }).join();
        QCOMPARE(code, int(KestOk));
    }

    void outputsStayAsTheyAreOnFailure()
    {
        EngineStage stage;
        QCOMPARE(stage.add(1, m_clips.path("missing.mkv")), int(KestOk));
        long long duration = 77;
        void *records = this;
        tagKestFilterInfo info = {};
        info.mode = 77;
        QCOMPARE(KestGetMediaDuration(stage.engine, 1, &duration), int(KestErrorNotFound));
        QCOMPARE(KestGetMediaInfo(stage.engine, 1, &records), int(KestErrorNotFound));
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestErrorNoFilter));
        QCOMPARE(stage.begin(1), int(KestOk));
        QCOMPARE(KestGetFilter(stage.engine, 9, &info), int(KestErrorNoFilter));
        QCOMPARE(duration, 77LL);
        QCOMPARE(records, static_cast<void *>(this));
        QCOMPARE(info.mode, 77);
    }

    void everyCodeHasAText()
    {
        QSet<QString> texts;
        for (int code = KestErrorNoPicture; code <= KestAtEnd; ++code)
            texts.insert(KestErrorText(code));
        QCOMPARE(texts.size(), KestAtEnd - KestErrorNoPicture + 1);
        QCOMPARE(KestErrorText(2), "Unknown error");
        QCOMPARE(KestErrorText(KestErrorNoPicture - 1), "Unknown error");
    }

    void tellsDurationAndStreams()
    {
        EngineStage stage;
        QCOMPARE(stage.add(5, m_film), int(KestOk));
        long long duration = 0;
        QCOMPARE(KestGetMediaDuration(stage.engine, 5, &duration), int(KestOk));
        QCOMPARE(duration, 4000LL);
        void *records = nullptr;
        QCOMPARE(KestGetMediaInfo(stage.engine, 5, &records), 1);
        QCOMPARE(static_cast<KestStreamInfo *>(records)->width, 64);
    }

    void aFilterIsDraftedCommittedAndDropped()
    {
        EngineStage stage;
        tagKestFilterInfo info = {};
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(stage.setFilter(Kest3DRedCyan, 0.12), int(KestOk));
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestErrorNoFilter));
        QCOMPARE(KestGetFilter(stage.engine, 9, &info), int(KestOk));
        QCOMPARE(info.reserved0, 0);
        QCOMPARE(info.type, 17);
        QCOMPARE(info.mode, int(Kest3DRedCyan));
        QCOMPARE(double(info.depth), 0.12);  // a copy: the record's own is not aligned
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestOk));
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestOk));
        QCOMPARE(double(info.depth), 0.12);  // a copy: the record's own is not aligned

        QCOMPARE(stage.begin(1), int(KestOk));
        QCOMPARE(stage.setFilter(Kest3DInterleaved, 0.3), int(KestOk));
        QCOMPARE(KestEditEnd(stage.engine, false), int(KestOk));
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestOk));
        QCOMPARE(info.mode, int(Kest3DRedCyan));
    }

    void anEditThatBeginsEndsTheOneBeforeWithSave()
    {
        EngineStage stage;
        tagKestFilterInfo info = {};
        QCOMPARE(stage.add(2, m_film), int(KestOk));
        QCOMPARE(stage.open(m_film, 1), int(KestOk));
        QCOMPARE(stage.setFilter(Kest3DRedBlue, 0.06), int(KestOk));
        QCOMPARE(stage.begin(2), int(KestOk));
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestOk));
        QCOMPARE(info.mode, int(Kest3DRedBlue));
        QCOMPARE(KestGetFilter(stage.engine, 9, &info), int(KestErrorNoFilter));
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestOk));
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestErrorNoEdit));
    }

    void aBeginThatFailsLeavesTheOpenEdit()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(stage.setFilter(Kest3DRedBlue, 0.06), int(KestOk));
        QCOMPARE(stage.begin(99), int(KestErrorFileId));
        QCOMPARE(KestEditBegin(stage.engine, nullptr), int(KestErrorArgument));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() > 100 && stage.position() != ~0u);
    }

    void aRemovedFileEndsItsEditWithoutSave()
    {
        EngineStage stage;
        QCOMPARE(stage.add(2, m_film), int(KestOk));
        QCOMPARE(stage.open(m_film, 1), int(KestOk));
        QCOMPARE(KestRemoveFile(stage.engine, 2), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QCOMPARE(KestRemoveFile(stage.engine, 1), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestErrorNoEdit));
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestErrorNoEdit));
    }

    void aPathGivenAnewLosesWhatWasKept()
    {
        EngineStage stage;
        tagKestFilterInfo info = {};
        QCOMPARE(stage.add(1, m_film), int(KestOk));
        QCOMPARE(KestAddFilter2(stage.engine, 1, 9, &info), int(KestOk));
        QCOMPARE(stage.add(1, m_clips.path("missing.mkv")), int(KestOk));
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestErrorNoFilter));
        long long duration = 0;
        QCOMPARE(KestGetMediaDuration(stage.engine, 1, &duration), int(KestErrorNotFound));
    }

    void worksWithoutWindowAndCallback()
    {
        EngineStage stage;
        EditBeginParams params = {};
        params.fileId = 1;
        QCOMPARE(stage.add(1, m_film), int(KestOk));
        QCOMPARE(KestEditBegin(stage.engine, &params), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTest::qWait(200);
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestOk));
        QVERIFY(stage.events.empty());
    }

    void aDestroyedWindowEndsItsEditWithoutSave()
    {
        EngineStage stage;
        tagKestFilterInfo info = {};
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(stage.setFilter(Kest3DRedCyan, 0.1), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() > 100 && stage.position() != ~0u);
        stage.window.reset();
        const std::size_t events = stage.events.size();
        QCOMPARE(KestPlay(stage.engine), int(KestErrorNoEdit));
        QCOMPARE(KestEditEnd(stage.engine, true), int(KestErrorNoEdit));
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestErrorNoFilter));
        QTest::qWait(100);
        QCOMPARE(stage.events.size(), events);
        QCOMPARE(stage.begin(1), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.events.size() > events + 2);
    }

    void theWindowOfAnEditBeforeMayGo()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_film), int(KestOk));
        const auto old = std::move(stage.window);
        stage.window = std::make_unique<CVideoWnd>();
        stage.window->resize(64, 36);
        stage.window->show();
        QCOMPARE(stage.begin(1), int(KestOk));
        const_cast<std::unique_ptr<CVideoWnd> &>(old).reset();
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(0xffff0000));
    }

    void theEngineMayGoBeforeTheWindow()
    {
        EngineStage stage;
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() > 100 && stage.position() != ~0u);
        const std::size_t events = stage.events.size();
        QElapsedTimer time;
        time.start();
        KestClose(stage.engine);
        // Far from the film's end, and far from what its threads may wait for a busy processor.
        QVERIFY2(time.elapsed() < 1000, qPrintable(QString::number(time.elapsed())));
        stage.clearView();
        QVERIFY(stage.showsAtCentre(0xff000000));
        QTest::qWait(100);
        QCOMPARE(stage.events.size(), events);
        stage.window->resize(100, 100);
        QVERIFY(stage.showsAtCentre(0xff000000));
    }

    void twoEnginesPlaySideBySide()
    {
        EngineStage one;
        EngineStage two;
        QCOMPARE(one.open(m_film), int(KestOk));
        QCOMPARE(two.open(m_film), int(KestOk));
        QCOMPARE(KestPlay(one.engine), int(KestOk));
        QCOMPARE(KestSetCurPos(two.engine, 2500), int(KestOk));
        QTRY_VERIFY(two.showsAtCentre(0xff0000ff));
        QTRY_VERIFY(one.showsAtCentre(0xff00ff00));
        KestClose(one.engine);
        QCOMPARE(KestSetCurPos(two.engine, 3500), int(KestOk));
        QTRY_VERIFY(two.showsAtCentre(0xffffffff));
    }

    void theCallbackMayEndItAll_data()
    {
        QTest::addColumn<int>("occasion");
        QTest::addColumn<int>("ending");
        QTest::addColumn<bool>("later");
        for (int occasion = 0; occasion < int(std::size(occasions)); ++occasion)
            for (int ending = 0; ending < int(std::size(endings)); ++ending)
                for (const bool later : {false, true})
                    QTest::addRow("%s %s%s", endings[ending].name, occasions[occasion].name,
                                  later ? ", by what it queued" : "")
                        << occasion << ending << later;
    }
    void theCallbackMayEndItAll()
    {
        QFETCH(const int, occasion);
        QFETCH(const int, ending);
        QFETCH(const bool, later);
        EngineStage stage;
        QObject receiver;
        std::optional<std::size_t> events;  // when it was over
        const auto end = [&] {
            endings[ending].make(stage);
            events = stage.events.size();
        };
        stage.onEvent = [&](const tagKestEvent &event) {
            if (!occasions[occasion].is(event))
                return;
            stage.onEvent = {};
            if (later)
                QMetaObject::invokeMethod(&receiver, end, Qt::QueuedConnection);
            else
                end();
        };
        QCOMPARE(stage.open(m_film), int(KestOk));
        (void)KestSetCurPos(stage.engine, 3880);
        (void)KestPlay(stage.engine);
        QTRY_VERIFY(events);
        for (const int code : {KestPlay(stage.engine), KestSetCurPos(stage.engine, 0),
                               KestEditEnd(stage.engine, true)})
            QCOMPARE(code, endings[ending].code);
        QTest::qWait(50);
        QCOMPARE(stage.events.size(), *events);
    }

    void anEditMayBeginOnceTheCallbackHasDestroyedTheWindow()
    {
        EngineStage stage;
        tagKestFilterInfo info = {};
        stage.onEvent = [&](const tagKestEvent &event) {
            if (event.time > 3500)
                stage.window.reset();
        };
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(stage.setFilter(Kest3DRedCyan, 0.1), int(KestOk));
        QCOMPARE(KestSetCurPos(stage.engine, 3600), int(KestOk));
        QTRY_VERIFY(!stage.window);
        QCOMPARE(KestGetFilter2(stage.engine, 1, 9, &info), int(KestErrorNoFilter));
        stage.window = std::make_unique<CVideoWnd>();
        stage.window->resize(64, 36);
        stage.window->show();
        QCOMPARE(stage.begin(1), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(0xffff0000));
    }

    void theCallbackMayBeginAnEdit()
    {
        EngineStage stage;
        bool again = true;
        stage.onEvent = [&](const tagKestEvent &event) {
            if (event.time > 100 && std::exchange(again, false)) {
                QCOMPARE(stage.begin(1), int(KestOk));
                QCOMPARE(KestPlay(stage.engine), int(KestOk));
            }
        };
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(!again);
        QCOMPARE(stage.position(), 0u);
        QTRY_VERIFY(stage.position() > 200);
    }

    void theEndMayBeAnsweredByTheNextFile()
    {
        EngineStage stage;
        int rounds = 0;
        stage.onEvent = [&](const tagKestEvent &event) {
            if (event.state != 5 || ++rounds == 3)
                return;
            KestEditEnd(stage.engine, true);
            stage.begin(1);
            KestPlay(stage.engine);
            KestSetCurPos(stage.engine, 3900);
        };
        QCOMPARE(stage.open(m_film), int(KestOk));
        QCOMPARE(KestSetCurPos(stage.engine, 3900), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_COMPARE(rounds, 3);
    }

    void namesAreTakenAsTheyAre_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"two words.mkv", "\"quoted\" 'name'.mkv", "-dash.mkv",
                                 "--dash.mkv", "100%.mkv", "%20.mkv", "a:b.mkv", "edl:x.mkv",
                                 "#1.mkv", "~.mkv", "na\xc3\xafve \xe6\x98\xa0\xe7\x94\xbb.mkv",
                                 "${path}.mkv", "a,b.mkv", "back\\slash.mkv"})
            QTest::newRow(name) << QString::fromUtf8(name);
    }
    void namesAreTakenAsTheyAre()
    {
        QFETCH(QString, name);
        const QString path = m_clips.path(name);
        QVERIFY(QFile::copy(m_film, path));
        EngineStage stage;
        QCOMPARE(stage.open(path), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.showsAtCentre(0xffff0000));
    }

    void aRelativeNameMeansTheFolderOfTheMoment()
    {
        const QString before = QDir::currentPath();
        EngineStage stage;
        QVERIFY(QDir().mkpath(m_clips.path("edl:")));
        QVERIFY(QFile::copy(m_film, m_clips.path("edl:/x.mkv")));
        QVERIFY(QDir::setCurrent(m_clips.path(".")));
        QCOMPARE(stage.add(1, "film.mkv"), int(KestOk));
        QCOMPARE(stage.add(2, "edl://x.mkv"), int(KestOk));
        QVERIFY(QDir::setCurrent(before));
        for (const int fileId : {1, 2}) {
            QCOMPARE(stage.begin(fileId), int(KestOk));
            QCOMPARE(KestPlay(stage.engine), int(KestOk));
            QTRY_VERIFY(stage.showsAtCentre(0xffff0000));
        }
    }

private:
    Clips m_clips;
    QString m_film;
};

QTEST_MAIN(tst_KestCalls)
#include "tst_kest_calls.moc"
