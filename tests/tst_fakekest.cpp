// What a test gets from the recording engine: the log, failures, delays, answers and events.
// Not here: the widget on top of it.
#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"
#include "fakekest/fakekest.h"

#include <QElapsedTimer>
#include <QTest>

#include <climits>
#include <thread>

namespace {

struct Heard
{
    QVector<tagKestEvent> events;
    std::thread::id thread;
};

int hear(tagKestEvent *event, void *user)
{
    auto *heard = static_cast<Heard *>(user);
    heard->events.append(*event);
    heard->thread = std::this_thread::get_id();
    return 3;
}

EditBeginParams editOf(int fileId, Heard *heard, CVideoWnd *window = nullptr)
{
    EditBeginParams params = {};
    params.fileId = fileId;
    params.firstWindow = window;
    params.callback = hear;
    params.userData = heard;
    return params;
}

}  // namespace

class tst_FakeKest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fake.reset(); }

    void writesEveryCallDownInOrder();
    void writesTheWindowsCallsDown();
    void writesNotesBetweenCalls();
    void opensTheHandle();
    void remembersRecordsAndHandle();
    void failsWhereToldTo_data();
    void failsWhereToldTo();
    void opensNothingWhenOpeningShallFail();
    void failsForOneFileAlone();
    void answersNullPointersByACode();
    void blocksTheCallerAsLongAsTold();
    void warnsOfAFunctionThatIsNotThere();
    void answersDurations();
    void leavesTheDurationAloneOnFailure();
    void answersFilters();
    void readsFilmsWithoutPictures();
    void hasATextForEveryCode();
    void sendsAnEventAtOnceOnTheCallingThread();
    void sendsNothingWithoutACallback();
    void sendsALateEventToTheEditOfThen();
    void dropsALateEventWhenTheWindowIsGone();
    void forgetsEverythingOnReset();

private:
    FakeKest &fake = FakeKest::instance();
    void *engine = FakeKest::handle();
};

void tst_FakeKest::writesEveryCallDownInOrder()
{
    long long duration = 0;
    void *records = nullptr;
    Heard heard;
    EditBeginParams edit = editOf(7, &heard);
    tagKestFilterInfo filter = {};
    filter.mode = Kest3DRedCyan;
    filter.depth = -0.012;

    KestOpen(nullptr);
    KestOpen("null");
    KestAddFile(engine, 7, "/films/\xc3\xa4.mkv");
    KestSetStereoLayout(engine, 7, KestLayoutTopBottom);
    KestGetMediaDuration(engine, 7, &duration);
    KestGetMediaInfo(engine, 7, &records);
    KestEditBegin(engine, &edit);
    KestGetFilter(engine, 9, &filter);
    KestGetFilter2(engine, 7, 9, &filter);
    KestAddFilter(engine, 9, &filter);
    KestAddFilter2(engine, 7, 9, &filter);
    KestChangeVolume(engine, 150);
    KestPlay(engine);
    KestSetCurPos(engine, UINT_MAX);
    KestPause(engine);
    KestEditEnd(engine, true);
    KestEditEnd(engine, false);
    KestRemoveFile(engine, 7);
    KestClose(engine);

    QCOMPARE(
        fake.takeCalls(),
        QStringList({"KestOpen(nullptr)", "KestOpen(\"null\")",
                     QString::fromUtf8("KestAddFile(7, \"/films/\xc3\xa4.mkv\")"),
                     "KestSetStereoLayout(7, 5)", "KestGetMediaDuration(7)", "KestGetMediaInfo(7)",
                     "KestEditBegin(7)", "KestGetFilter(9)", "KestGetFilter2(7, 9)",
                     "KestAddFilter(9, mode 4, depth -0.012)",
                     "KestAddFilter2(7, 9, mode 4, depth -0.012)", "KestChangeVolume(150)",
                     "KestPlay()", "KestSetCurPos(4294967295)", "KestPause()", "KestEditEnd(true)",
                     "KestEditEnd(false)", "KestRemoveFile(7)", "KestClose()"}));
    QCOMPARE(fake.takeCalls(), QStringList());
}

void tst_FakeKest::writesTheWindowsCallsDown()
{
    CVideoWnd window;
    CVideoWnd::tagMsgParams clear = {4, -1, nullptr, nullptr};
    window.resetSessionState();
    window.SendCommand(&clear);
    window.SendCommand(nullptr);
    window.UpdateView();
    QCOMPARE(fake.takeCalls(),
             QStringList({"CVideoWnd::resetSessionState()", "CVideoWnd::SendCommand(4, -1)",
                          "CVideoWnd::UpdateView()"}));
    QVERIFY(window.hasMouseTracking());
}

void tst_FakeKest::writesNotesBetweenCalls()
{
    KestPlay(engine);
    fake.note("the host beeps");
    KestPause(engine);
    const QStringList lines = {"KestPlay()", "the host beeps", "KestPause()"};
    QCOMPARE(fake.calls(), lines);
    QCOMPARE(fake.takeCalls(), lines);
    QCOMPARE(fake.calls(), QStringList());
}

void tst_FakeKest::opensTheHandle()
{
    QVERIFY(engine != nullptr);
    QCOMPARE(KestOpen(nullptr), engine);
    QCOMPARE(fake.lastEngine(), engine);
}

void tst_FakeKest::remembersRecordsAndHandle()
{
    Heard heard;
    EditBeginParams edit = editOf(5, &heard);
    edit.firstWidth = 640;
    tagKestFilterInfo filter = {};
    filter.type = 17;
    filter.mode = 6;
    int other = 0;

    KestEditBegin(engine, &edit);
    QCOMPARE(fake.editBeginParams().fileId, 5);
    QCOMPARE(fake.editBeginParams().firstWidth, 640);
    KestAddFilter(&other, 9, &filter);
    QCOMPARE(int(fake.addedFilter().type), 17);
    QCOMPARE(int(fake.addedFilter().mode), 6);
    QCOMPARE(fake.lastEngine(), static_cast<void *>(&other));
}

void tst_FakeKest::failsWhereToldTo_data()
{
    QTest::addColumn<QString>("function");
    for (const char *function :
         {"KestAddFile", "KestRemoveFile", "KestSetStereoLayout", "KestPlay", "KestPause",
          "KestSetCurPos", "KestChangeVolume", "KestGetMediaDuration", "KestGetMediaInfo",
          "KestEditBegin", "KestEditEnd", "KestAddFilter", "KestAddFilter2", "KestGetFilter",
          "KestGetFilter2"})
        QTest::newRow(function) << QString::fromLatin1(function);
}

void tst_FakeKest::failsWhereToldTo()
{
    QFETCH(QString, function);
    fake.setKeptFilter(7, 4, 0.0);
    fake.setEditFilter(4, 0.0);
    const auto codes = [this] {
        long long duration = 0;
        void *records = nullptr;
        EditBeginParams edit = {};
        tagKestFilterInfo filter = {};
        return QHash<QString, int>{
            {"KestAddFile", KestAddFile(engine, 7, "a")},
            {"KestRemoveFile", KestRemoveFile(engine, 7)},
            {"KestSetStereoLayout", KestSetStereoLayout(engine, 7, 0)},
            {"KestPlay", KestPlay(engine)},
            {"KestPause", KestPause(engine)},
            {"KestSetCurPos", KestSetCurPos(engine, 0)},
            {"KestChangeVolume", KestChangeVolume(engine, 0)},
            {"KestGetMediaDuration", KestGetMediaDuration(engine, 7, &duration)},
            {"KestGetMediaInfo", KestGetMediaInfo(engine, 7, &records)},
            {"KestEditBegin", KestEditBegin(engine, &edit)},
            {"KestEditEnd", KestEditEnd(engine, true)},
            {"KestAddFilter", KestAddFilter(engine, 9, &filter)},
            {"KestAddFilter2", KestAddFilter2(engine, 7, 9, &filter)},
            {"KestGetFilter", KestGetFilter(engine, 9, &filter)},
            {"KestGetFilter2", KestGetFilter2(engine, 7, 9, &filter)},
        };
    };
    QHash<QString, int> expected = codes();
    for (int code : expected)
        QCOMPARE(code, 0);

    fake.setResult(function, -13);
    expected[function] = -13;
    QCOMPARE(codes(), expected);

    fake.setResult(function, 0);
    QCOMPARE(codes()[function], 0);
}

void tst_FakeKest::opensNothingWhenOpeningShallFail()
{
    fake.setResult("KestOpen", KestErrorPlayer);
    QCOMPARE(KestOpen(nullptr), nullptr);
    QCOMPARE(fake.takeCalls(), QStringList({"KestOpen(nullptr)"}));
}

void tst_FakeKest::failsForOneFileAlone()
{
    tagKestFilterInfo filter = {};
    fake.setFileResult(2, KestErrorFileId);
    QCOMPARE(KestAddFilter2(engine, 1, 9, &filter), 0);
    QCOMPARE(KestAddFilter2(engine, 2, 9, &filter), int(KestErrorFileId));
}

void tst_FakeKest::answersNullPointersByACode()
{
    const int code = KestErrorArgument;
    QCOMPARE(KestAddFile(engine, 1, nullptr), code);
    QCOMPARE(KestGetMediaDuration(engine, 1, nullptr), code);
    QCOMPARE(KestGetMediaInfo(engine, 1, nullptr), code);
    QCOMPARE(KestEditBegin(engine, nullptr), code);
    QCOMPARE(KestAddFilter(engine, 9, nullptr), code);
    QCOMPARE(KestAddFilter2(engine, 1, 9, nullptr), code);
    QCOMPARE(KestGetFilter(engine, 9, nullptr), code);
    QCOMPARE(KestGetFilter2(engine, 1, 9, nullptr), code);
    QCOMPARE(
        fake.takeCalls(),
        QStringList({"KestAddFile(1, nullptr)", "KestGetMediaDuration(1)", "KestGetMediaInfo(1)",
                     "KestEditBegin(nullptr)", "KestAddFilter(9, nullptr)",
                     "KestAddFilter2(1, 9, nullptr)", "KestGetFilter(9)", "KestGetFilter2(1, 9)"}));
}

void tst_FakeKest::blocksTheCallerAsLongAsTold()
{
    QElapsedTimer clock;
    fake.setDelay("KestPlay", 30);
    clock.start();
    KestPlay(engine);
    QVERIFY(clock.elapsed() >= 30);

    fake.setDelay("KestPlay", 60000);
    fake.setDelay("KestPlay", 0);
    KestPlay(engine);  // returns within the test's time
}

void tst_FakeKest::warnsOfAFunctionThatIsNotThere()
{
    QTest::ignoreMessage(QtWarningMsg, "FakeKest: there is no function KestPlai to prepare");
    fake.setResult("KestPlai", 1);
    QTest::ignoreMessage(QtWarningMsg, "FakeKest: there is no function KestErrorText to prepare");
    fake.setDelay("KestErrorText", 1);
}

void tst_FakeKest::answersDurations()
{
    long long duration = 5;
    QCOMPARE(KestGetMediaDuration(engine, 1, &duration), 0);
    QCOMPARE(duration, 5LL);
    fake.setDuration(1, 60000);
    QCOMPARE(KestGetMediaDuration(engine, 1, &duration), 0);
    QCOMPARE(duration, 60000LL);
}

void tst_FakeKest::leavesTheDurationAloneOnFailure()
{
    long long duration = 5;
    fake.setDuration(1, 60000);
    fake.setResult("KestGetMediaDuration", KestErrorTimeout);
    QCOMPARE(KestGetMediaDuration(engine, 1, &duration), int(KestErrorTimeout));
    QCOMPARE(duration, 5LL);
}

void tst_FakeKest::answersFilters()
{
    tagKestFilterInfo info = {};
    QCOMPARE(KestGetFilter(engine, 9, &info), int(KestErrorNoFilter));
    QCOMPARE(KestGetFilter2(engine, 1, 9, &info), int(KestErrorNoFilter));
    QCOMPARE(int(info.mode), 0);

    fake.setEditFilter(4, 0.25);
    fake.setKeptFilter(1, 8, -0.5);
    QCOMPARE(KestGetFilter(engine, 9, &info), 0);
    QCOMPARE(int(info.mode), 4);
    QCOMPARE(double(info.depth), 0.25);
    QCOMPARE(KestGetFilter2(engine, 1, 9, &info), 0);
    QCOMPARE(int(info.mode), 8);
    QCOMPARE(double(info.depth), -0.5);
    QCOMPARE(KestGetFilter2(engine, 2, 9, &info), int(KestErrorNoFilter));
}

void tst_FakeKest::readsFilmsWithoutPictures()
{
    void *reader = nullptr;
    KestPicture picture = {};
    QCOMPARE(KestReaderOpen(engine, 7, &reader), 0);
    QCOMPARE(reader, engine);
    QCOMPARE(KestReaderNext(reader, &picture), int(KestAtEnd));
    KestReaderClose(reader);
    QCOMPARE(fake.takeCalls(),
             QStringList({"KestReaderOpen(7)", "KestReaderNext()", "KestReaderClose()"}));

    fake.setResult("KestReaderOpen", KestErrorNotFound);
    fake.setResult("KestReaderNext", KestErrorPlayer);
    reader = nullptr;
    QCOMPARE(KestReaderOpen(engine, 7, &reader), int(KestErrorNotFound));
    QCOMPARE(reader, nullptr);
    QCOMPARE(KestReaderNext(engine, &picture), int(KestErrorPlayer));
    QCOMPARE(KestReaderOpen(engine, 7, nullptr), int(KestErrorArgument));
    QCOMPARE(KestReaderNext(engine, nullptr), int(KestErrorArgument));
}

void tst_FakeKest::hasATextForEveryCode()
{
    QCOMPARE(KestErrorText(0), "No error");
    QCOMPARE(KestErrorText(KestErrorEmpty), "The recording engine was told to fail");
    QCOMPARE(fake.takeCalls(), QStringList());
}

void tst_FakeKest::sendsAnEventAtOnceOnTheCallingThread()
{
    Heard heard;
    EditBeginParams edit = editOf(1, &heard);
    KestEditBegin(engine, &edit);
    QCOMPARE(fake.sendEvent(0, 7, 1234), 3);
    QCOMPARE(heard.events.size(), 1);
    QCOMPARE(heard.events[0].eventType, 0);
    QCOMPARE(heard.events[0].state, 7);
    QCOMPARE(heard.events[0].time, 1234u);
    QVERIFY(heard.thread == std::this_thread::get_id());

    std::thread other([this] { fake.sendEvent(0, 5, 0); });
    const std::thread::id otherId = other.get_id();
    other.join();
    QCOMPARE(heard.events.size(), 2);
    QVERIFY(heard.thread == otherId);
}

void tst_FakeKest::sendsNothingWithoutACallback()
{
    QCOMPARE(fake.sendEvent(0, 7, 0), int(KestErrorNoEdit));
    EditBeginParams edit = {};
    KestEditBegin(engine, &edit);
    QCOMPARE(fake.sendEvent(0, 7, 0), int(KestErrorNoEdit));
}

void tst_FakeKest::sendsALateEventToTheEditOfThen()
{
    Heard first;
    Heard second;
    EditBeginParams edit = editOf(1, &first);
    KestEditBegin(engine, &edit);
    fake.sendEventLater(5, 0, 5, 77);
    KestEditEnd(engine, false);
    edit = editOf(2, &second);
    KestEditBegin(engine, &edit);
    QCOMPARE(first.events.size(), 0);
    QTRY_COMPARE(first.events.size(), 1);
    QCOMPARE(first.events[0].state, 5);
    QCOMPARE(first.events[0].time, 77u);
    QCOMPARE(second.events.size(), 0);
}

void tst_FakeKest::dropsALateEventWhenTheWindowIsGone()
{
    Heard kept;
    Heard dropped;
    {
        CVideoWnd window;
        EditBeginParams edit = editOf(1, &dropped, &window);
        KestEditBegin(engine, &edit);
        fake.sendEventLater(0, 0, 7, 1);
    }
    fake.sendEventLater(0, 0, 7, 1);
    EditBeginParams edit = editOf(2, &kept);
    KestEditBegin(engine, &edit);
    fake.sendEventLater(1, 0, 7, 2);
    QTRY_COMPARE(kept.events.size(), 1);
    QCOMPARE(dropped.events.size(), 0);
}

void tst_FakeKest::forgetsEverythingOnReset()
{
    Heard heard;
    EditBeginParams edit = editOf(1, &heard);
    tagKestFilterInfo info = {};
    info.mode = 4;
    KestEditBegin(engine, &edit);
    KestAddFilter(engine, 9, &info);
    fake.setResult("KestPlay", 1);
    fake.setDelay("KestPlay", 60000);
    fake.setFileResult(1, 1);
    fake.setDuration(1, 1);
    fake.setKeptFilter(1, 4, 0);
    fake.setEditFilter(4, 0);
    fake.reset();

    QCOMPARE(fake.takeCalls(), QStringList());
    QCOMPARE(fake.lastEngine(), nullptr);
    QCOMPARE(fake.editBeginParams().fileId, 0);
    QCOMPARE(int(fake.addedFilter().mode), 0);
    QCOMPARE(fake.sendEvent(0, 7, 0), int(KestErrorNoEdit));
    QCOMPARE(KestPlay(engine), 0);
    QCOMPARE(KestAddFilter2(engine, 1, 9, &info), 0);
    QCOMPARE(KestGetFilter(engine, 9, &info), int(KestErrorNoFilter));
    QCOMPARE(KestGetFilter2(engine, 1, 9, &info), int(KestErrorNoFilter));
    long long duration = 5;
    QCOMPARE(KestGetMediaDuration(engine, 1, &duration), 0);
    QCOMPARE(duration, 5LL);
}

QTEST_MAIN(tst_FakeKest)
#include "tst_fakekest.moc"
