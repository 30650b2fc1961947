// The 3D filter: what is sent to the engine when, what it carries, and what an item remembers.
// Not here: the record's bytes (tst_records.cpp), the controls of the panel (tst_panel3d.cpp).
#include "widgetfixture.h"

#include <QElapsedTimer>

#include <cstring>
#include <functional>
#include <limits>

namespace {

using Int = std::numeric_limits<int>;
using Double = std::numeric_limits<double>;

const QStringList nothing;

bool holds(const Player &player, int index, int mode, double depth)
{
    const PlayItem &item = *player.impl.playItem(index);
    return item.mode == mode && item.depth == depth;
}

bool panelShows(const Player &player, int mode, int steps)
{
    return player.ui.cbx3DMode->currentData().toInt() == mode
        && player.ui.edt3DPos->value() == steps && player.ui.effectTracker->value() == steps + 50;
}

// Panel and items stand at red/cyan and -2 steps already, so that starting an item changes nothing.
struct RedCyanPlayer : Player
{
    RedCyanPlayer()
        : Player(3, Kest3DRedCyan, -0.012)
    {
        widget->initialize(nullptr, Kest3DTurnOff);
        ui.cbx3DMode->setCurrentIndex(1);
        widget->initialize(FakeKest::handle(), Kest3DTurnOff);
    }

    /// Starts the first item and waits until the panel has been sent for the second time.
    void playQuietly()
    {
        play();
        QTRY_VERIFY(!impl.reapplyPending);
        calls();
    }
};

struct Sent
{
    qint64 ms;  ///< since the change; the earliest allowed, or when it came
    QString call;
};

// Makes a change and collects what is sent until nothing can be under way any more: a re-apply
// follows within 100 ms, and every round takes one at least.
QVector<Sent> sentAfter(Player &player, const std::function<void()> &change)
{
    QVector<Sent> sent;
    QElapsedTimer time;
    time.start();
    change();
    for (int quietRounds = 0; quietRounds < 130; ++quietRounds) {
        for (const QString &call : player.calls()) {
            sent.append({time.elapsed(), call});
            quietRounds = 0;
        }
        QTest::qWait(1);
    }
    return sent;
}

void compare(const QVector<Sent> &sent, const QVector<Sent> &expected)
{
    QStringList calls;
    QStringList expectedCalls;
    for (const Sent &one : sent)
        calls += one.call;
    for (const Sent &one : expected)
        expectedCalls += one.call;
    QCOMPARE(calls, expectedCalls);
    for (int i = 0; i < sent.size(); ++i)
        QVERIFY2(sent[i].ms >= expected[i].ms, qPrintable(QString::number(sent[i].ms)));
}

}  // namespace

class tst_Filter3D : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void sendsToTheFileWhileStoppedAndToTheEditElse();
    void recordsARefusalUnderOneName();
    void theItemTakesTheValuesWhateverTheEngineReturns();
    void sendsForNoItemButTouchesNone_data();
    void sendsForNoItemButTouchesNone();
    void sendsNothingWithoutAnEngine();
    void passesEveryDepthOnUnchanged_data();
    void passesEveryDepthOnUnchanged();

    void appliesWhatThePanelShows();
    void applyingTogglesTheFlag();

    void theSliderIsSentAgainWithItsNewDepth();
    void theModeIsSentAgain();
    void aSpinStepIsSentFourTimes();
    void aSpinStepAfterAStartThatMovedTheSliderIsSentFourTimes();
    void switchingOnAtDepthZeroIsSentSixTimes();
    void twoChanges50MsApartAreSentFourTimes();
    void threeChangesLeaveTheLastOneSentAgain();
    void startingAnItemIsSentAgain();
    void aPendingSendingOutlivesTheEdit();
    void aPendingSendingSpeaksOfTheNextItem();
    void aPendingSendingWithoutAnEngineKeepsTheFlag();
    void aPendingSendingDiesWithTheWidget();

    void startingTakesWhatTheEngineKeeps();
    void startingFallsBackToTheItem();
    void startingPassesTheEnginesRecordBack();
    void startingWithAModeThatHasNoEntryKeepsTheShownMode();
    void startingReadsTheItemOfTheIndex();
    void startingRestoresTheWires();

    void loadingShowsTheOpenEdit();
    void loadingShowsOffWhereNothingIsSet();
    void loadingFollowsTheSlider();
    void loadingRestoresTheWires();
};

void tst_Filter3D::sendsToTheFileWhileStoppedAndToTheEditElse()
{
    Player player;
    player.play(1);
    player.impl.addFilter(1, 4, 0.12);
    QCOMPARE(player.calls(), QStringList{"KestAddFilter(9, mode 4, depth 0.12)"});
    player.pause();
    player.impl.addFilter(1, 1, -0.3);
    QCOMPARE(player.calls(), QStringList{"KestAddFilter(9, mode 1, depth -0.3)"});
    QVERIFY(holds(player, 1, 1, -0.3));
    player.impl.stopVideo(true);
    player.calls();
    player.impl.addFilter(2, 6, 0.3);  // the file is that of the selected item all the same
    QCOMPARE(player.calls(), QStringList{"KestAddFilter2(20, 9, mode 6, depth 0.3)"});
    QVERIFY(holds(player, 1, 1, -0.3));
    QVERIFY(holds(player, 2, 6, 0.3));
}

void tst_Filter3D::recordsARefusalUnderOneName()
{
    Player player;
    player.engine.setResult("KestAddFilter2", 8);
    player.impl.addFilter(0, 4, 0.12);
    QCOMPARE(player.widget->errorString(),
             QString("ERROR: KestAddFilter function failed. [Code: 8]"));
    player.engine.reset();
    player.play();
    player.engine.setResult("KestAddFilter", -8);
    player.impl.addFilter(0, 4, 0.12);
    QCOMPARE(player.widget->errorString(),
             QString("ERROR: KestAddFilter function failed. [Code: 8]\r\n"
                     "ERROR: KestAddFilter function failed. [Code: -8]"));
}

void tst_Filter3D::theItemTakesTheValuesWhateverTheEngineReturns()
{
    Player player;
    player.engine.setResult("KestAddFilter2", 8);
    player.impl.addFilter(0, 4, 0.12);
    QVERIFY(holds(player, 0, 4, 0.12));
    player.engine.setResult("KestAddFilter", 8);
    player.impl.playState = PlayWidget_Impl::Paused;
    player.impl.addFilter(2, 6, -0.12);
    QVERIFY(holds(player, 2, 6, -0.12));
    QVERIFY(holds(player, 1, 11, 0.0));
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(player.impl.playItem(i)->savedMode, 11);
        QCOMPARE(player.impl.playItem(i)->savedDepth, 0.0);
    }
}

void tst_Filter3D::sendsForNoItemButTouchesNone_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("none selected") << -1;
    QTest::newRow("count") << 3;
    QTest::newRow("largest") << Int::max();
    QTest::newRow("smallest") << Int::min();
}

void tst_Filter3D::sendsForNoItemButTouchesNone()
{
    QFETCH(int, index);
    Player player;
    player.impl.addFilter(index, 4, 0.12);
    QCOMPARE(player.calls(), QStringList{"KestAddFilter2(0, 9, mode 4, depth 0.12)"});
    for (int i = 0; i < 3; ++i)
        QVERIFY(holds(player, i, 11, 0.0));
}

void tst_Filter3D::sendsNothingWithoutAnEngine()
{
    Player player;
    player.widget->initialize(nullptr, Kest3DTurnOff);
    player.impl.addFilter(0, 4, 0.12);
    QCOMPARE(player.calls(), nothing);
    QVERIFY(holds(player, 0, 11, 0.0));
}

void tst_Filter3D::passesEveryDepthOnUnchanged_data()
{
    QTest::addColumn<double>("depth");
    QTest::newRow("no step of the panel") << 0.1;
    QTest::newRow("largest") << Double::max();
    QTest::newRow("smallest") << Double::denorm_min();
    QTest::newRow("infinite") << -Double::infinity();
    QTest::newRow("no number") << Double::quiet_NaN();
}

void tst_Filter3D::passesEveryDepthOnUnchanged()
{
    QFETCH(double, depth);
    Player player;
    player.impl.addFilter(0, -1, depth);
    const double sent = player.engine.addedFilter().depth;
    QCOMPARE(std::memcmp(&sent, &depth, sizeof depth), 0);
    QCOMPARE(std::memcmp(&player.impl.playItem(0)->depth, &depth, sizeof depth), 0);
    QCOMPARE(int(player.engine.addedFilter().mode), -1);
    QCOMPARE(player.impl.playItem(0)->mode, -1);
}

void tst_Filter3D::appliesWhatThePanelShows()
{
    RedCyanPlayer player;
    player.play(1);
    player.impl.applyMovie3DProps();
    QCOMPARE(player.calls(), QStringList{"KestAddFilter(9, mode 4, depth -0.012)"});
    QCOMPARE(double(player.engine.addedFilter().depth), -2 * 0.006);
    QVERIFY(holds(player, 1, 4, -2 * 0.006));

    player.ui.cbx3DMode->setCurrentIndex(-1);
    QCOMPARE(player.calls().value(0), QString("KestAddFilter(9, mode 0, depth -0.012)"));
    QVERIFY(holds(player, 1, 0, -2 * 0.006));
}

void tst_Filter3D::applyingTogglesTheFlag()
{
    Player player;
    QCOMPARE(player.impl.reapplyPending, false);
    player.impl.applyMovie3DProps();
    QCOMPARE(player.impl.reapplyPending, true);
    player.widget->initialize(nullptr, Kest3DTurnOff);
    player.impl.applyMovie3DProps();
    player.impl.delaySetAgain();
    QCOMPARE(player.impl.reapplyPending, true);
    player.widget->initialize(FakeKest::handle(), Kest3DTurnOff);
    player.impl.delaySetAgain();
    QCOMPARE(player.impl.reapplyPending, false);
}

// The first sending still has the old depth: the spin box, which it is read from, follows after it.
void tst_Filter3D::theSliderIsSentAgainWithItsNewDepth()
{
    RedCyanPlayer player;
    player.playQuietly();
    const auto sent = sentAfter(player, [&] {
        player.ui.effectTracker->setValue(60);
        QVERIFY(holds(player, 0, 4, -2 * 0.006));
    });
    compare(sent,
            {{0, "KestAddFilter(9, mode 4, depth -0.012)"},
             {100, "KestAddFilter(9, mode 4, depth 0.06)"}});
    QVERIFY(panelShows(player, 4, 10));
    QVERIFY(holds(player, 0, 4, 10 * 0.006));
    QCOMPARE(player.impl.reapplyPending, false);
}

void tst_Filter3D::theModeIsSentAgain()
{
    RedCyanPlayer player;
    player.playQuietly();
    compare(sentAfter(player, [&] { player.ui.cbx3DMode->setCurrentIndex(5); }),
            {{0, "KestAddFilter(9, mode 8, depth -0.012)"},
             {100, "KestAddFilter(9, mode 8, depth -0.012)"}});
    compare(sentAfter(player, [&] { player.ui.cbx3DMode->setCurrentIndex(0); }),
            {{0, "KestAddFilter(9, mode 11, depth -0.012)"},
             {100, "KestAddFilter(9, mode 11, depth -0.012)"}});
}

// Twice at once, by the spin box and by the slider that follows it; the flag is then back where it
// was, and the pending call starts over.
void tst_Filter3D::aSpinStepIsSentFourTimes()
{
    RedCyanPlayer player;
    player.playQuietly();
    for (int steps : {10, 11}) {
        const QString call
            = QStringLiteral("KestAddFilter(9, mode 4, depth %1)").arg(steps * 0.006);
        compare(sentAfter(player, [&] { player.ui.edt3DPos->setValue(steps); }),
                {{0, call}, {0, call}, {100, call}, {200, call}});
    }
}

// Such a start connects the spin box twice; a step must not be sent more often for it.
void tst_Filter3D::aSpinStepAfterAStartThatMovedTheSliderIsSentFourTimes()
{
    Player player(3, Kest3DRedCyan, 0.06);
    compare(sentAfter(player, [&] { player.play(); }),
            {{100, "KestAddFilter(9, mode 4, depth 0.06)"},
             {200, "KestAddFilter(9, mode 4, depth 0.06)"}});
    for (int steps : {11, 12}) {
        const QString call
            = QStringLiteral("KestAddFilter(9, mode 4, depth %1)").arg(steps * 0.006);
        compare(sentAfter(player, [&] { player.ui.edt3DPos->setValue(steps); }),
                {{0, call}, {0, call}, {100, call}, {200, call}});
    }
}

void tst_Filter3D::switchingOnAtDepthZeroIsSentSixTimes()
{
    Player player;
    player.play();
    QTRY_VERIFY(!player.impl.reapplyPending);
    player.calls();
    compare(sentAfter(player, [&] { player.ui.cbx3DMode->setCurrentIndex(1); }),
            {{0, "KestAddFilter(9, mode 4, depth 0)"},
             {0, "KestAddFilter(9, mode 4, depth -0.012)"},
             {0, "KestAddFilter(9, mode 4, depth -0.012)"},
             {100, "KestAddFilter(9, mode 4, depth -0.012)"},
             {100, "KestAddFilter(9, mode 4, depth -0.012)"},
             {200, "KestAddFilter(9, mode 4, depth -0.012)"}});
    QVERIFY(panelShows(player, 4, -2));
}

void tst_Filter3D::twoChanges50MsApartAreSentFourTimes()
{
    RedCyanPlayer player;
    player.playQuietly();
    const auto sent = sentAfter(player, [&] {
        player.ui.effectTracker->setValue(60);
        QTimer::singleShot(50, player.widget.get(), [&] { player.ui.effectTracker->setValue(70); });
    });
    compare(sent,
            {{0, "KestAddFilter(9, mode 4, depth -0.012)"},
             {50, "KestAddFilter(9, mode 4, depth 0.06)"},
             {100, "KestAddFilter(9, mode 4, depth 0.12)"},
             {200, "KestAddFilter(9, mode 4, depth 0.12)"}});
}

// At 0, 1 and 2 the flag goes up, down and up again; so two calls are pending: the first finds it
// up and takes it down, the second starts over.
void tst_Filter3D::threeChangesLeaveTheLastOneSentAgain()
{
    RedCyanPlayer player;
    player.playQuietly();
    const auto sent = sentAfter(player, [&] {
        for (int value : {60, 70, 80})
            player.ui.effectTracker->setValue(value);
    });
    compare(sent,
            {{0, "KestAddFilter(9, mode 4, depth -0.012)"},
             {0, "KestAddFilter(9, mode 4, depth 0.06)"},
             {0, "KestAddFilter(9, mode 4, depth 0.12)"},
             {100, "KestAddFilter(9, mode 4, depth 0.18)"},
             {100, "KestAddFilter(9, mode 4, depth 0.18)"},
             {200, "KestAddFilter(9, mode 4, depth 0.18)"}});
}

void tst_Filter3D::startingAnItemIsSentAgain()
{
    Player player;
    compare(sentAfter(player, [&] { player.play(); }),
            {{100, "KestAddFilter(9, mode 11, depth 0)"}});
}

void tst_Filter3D::aPendingSendingOutlivesTheEdit()
{
    RedCyanPlayer player;
    player.playQuietly();
    const auto sent = sentAfter(player, [&] {
        player.ui.effectTracker->setValue(60);
        player.impl.stopVideo(false);
        player.calls();
        QCOMPARE(player.impl.reapplyPending, true);
    });
    compare(sent, {{100, "KestAddFilter2(10, 9, mode 4, depth 0.06)"}});
}

void tst_Filter3D::aPendingSendingSpeaksOfTheNextItem()
{
    RedCyanPlayer player;
    player.playQuietly();
    player.engine.setKeptFilter(20, Kest3DInterleaved, -0.012);
    const auto sent = sentAfter(player, [&] {
        player.ui.cbx3DMode->setCurrentIndex(2);
        player.impl.playNextFile();
        player.calls();
    });
    // The new edit's own sending took the flag down; the pending one starts over.
    compare(sent,
            {{100, "KestAddFilter(9, mode 8, depth -0.012)"},
             {200, "KestAddFilter(9, mode 8, depth -0.012)"}});
    QVERIFY(holds(player, 0, 1, -2 * 0.006));
    QVERIFY(holds(player, 1, 8, -2 * 0.006));
}

void tst_Filter3D::aPendingSendingWithoutAnEngineKeepsTheFlag()
{
    RedCyanPlayer player;
    player.playQuietly();
    player.ui.cbx3DMode->setCurrentIndex(2);
    player.calls();
    compare(sentAfter(player, [&] { player.widget->initialize(nullptr, Kest3DTurnOff); }), {});
    QCOMPARE(player.impl.reapplyPending, true);
    player.widget->initialize(FakeKest::handle(), Kest3DTurnOff);
    compare(sentAfter(player, [&] { player.ui.cbx3DMode->setCurrentIndex(3); }),
            {{0, "KestAddFilter(9, mode 2, depth -0.012)"}});
}

void tst_Filter3D::aPendingSendingDiesWithTheWidget()
{
    RedCyanPlayer player;
    player.playQuietly();
    const auto sent = sentAfter(player, [&] {
        player.ui.cbx3DMode->setCurrentIndex(2);
        player.widget.reset();
        player.calls();
    });
    compare(sent, {});
}

void tst_Filter3D::startingTakesWhatTheEngineKeeps()
{
    Player player;
    player.engine.setKeptFilter(20, Kest3DBlueYellow, 0.1);
    player.widget->setPlayIndex(1);
    QCOMPARE(player.calls(),
             QStringList({"KestGetMediaDuration(20)", "KestEditBegin(20)",
                          "CVideoWnd::resetSessionState()", "KestGetFilter2(20, 9)",
                          "KestAddFilter2(20, 9, mode 6, depth 0.102)",  // the slider moved
                          "KestAddFilter2(20, 9, mode 6, depth 0.102)",  // the panel
                          "KestAddFilter(9, mode 6, depth 0.1)",         // the filter itself
                          "KestChangeVolume(100)", "KestPlay()"}));
    QVERIFY(panelShows(player, 6, 17));
    QVERIFY(holds(player, 1, 6, 17 * 0.006));
    QCOMPARE(player.impl.playItem(1)->savedMode, 11);
    QCOMPARE(player.impl.playItem(1)->savedDepth, 0.0);
    QVERIFY(player.ui.edt3DPos->isEnabled());
}

void tst_Filter3D::startingFallsBackToTheItem()
{
    Player player(3, Kest3DRedGreen, -0.3);
    player.engine.setKeptFilter(10, Kest3DBlueYellow, 0.1);
    player.engine.setResult("KestGetFilter2", 4);
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls().mid(3, 4),
             QStringList({"KestGetFilter2(10, 9)", "KestAddFilter2(10, 9, mode 1, depth -0.3)",
                          "KestAddFilter2(10, 9, mode 1, depth -0.3)",
                          "KestAddFilter(9, mode 1, depth -0.3)"}));
    QVERIFY(panelShows(player, 1, -50));
    QCOMPARE(player.widget->errorString(), QString());
}

void tst_Filter3D::startingPassesTheEnginesRecordBack()
{
    Player player(2, Kest3DRedCyan, 0.06);
    player.engine.setKeptFilter(10, Kest3DRedCyan, 0.06);
    player.play(0);
    QCOMPARE(int(player.engine.addedFilter().type), 0);  // as the engine left it
    player.impl.stopVideo(true);
    player.play(1);
    QCOMPARE(int(player.engine.addedFilter().type), 17);
}

void tst_Filter3D::startingWithAModeThatHasNoEntryKeepsTheShownMode()
{
    Player player(1, 3, 0.5);
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls().mid(4, 3),
             QStringList({"KestAddFilter2(10, 9, mode 11, depth 0.3)",
                          "KestAddFilter2(10, 9, mode 11, depth 0.3)",
                          "KestAddFilter(9, mode 3, depth 0.5)"}));
    QVERIFY(panelShows(player, 11, 50));
    QVERIFY(holds(player, 0, 11, 50 * 0.006));
}

void tst_Filter3D::startingReadsTheItemOfTheIndex()
{
    Player player;
    player.play(0);
    player.impl.stopVideo(true);
    player.calls();
    player.engine.setKeptFilter(30, Kest3DBlueYellow, 0.1);
    player.impl.beginEdit(2);
    QCOMPARE(player.calls(),
             QStringList({"KestEditBegin(30)", "CVideoWnd::resetSessionState()",
                          "KestGetFilter2(30, 9)", "KestAddFilter2(10, 9, mode 6, depth 0.102)",
                          "KestAddFilter2(10, 9, mode 6, depth 0.102)",
                          "KestAddFilter(9, mode 6, depth 0.1)"}));
    QVERIFY(holds(player, 2, 6, 0.1));         // as read
    QVERIFY(holds(player, 0, 6, 17 * 0.006));  // the selected one, as the panel was sent
}

void tst_Filter3D::startingRestoresTheWires()
{
    RedCyanPlayer player;
    player.play();
    player.ui.cbx3DMode->setCurrentIndex(2);
    QCOMPARE(player.calls(), QStringList{"KestAddFilter(9, mode 1, depth -0.012)"});
    player.ui.edt3DPos->setValue(5);
    QCOMPARE(player.ui.effectTracker->value(), 55);
}

void tst_Filter3D::loadingShowsTheOpenEdit()
{
    RedCyanPlayer player;
    player.playQuietly();
    player.engine.setEditFilter(Kest3DBlueYellow, -0.0121);
    player.impl.loadMovie3DProps();
    QCOMPARE(player.calls(), QStringList{"KestGetFilter(9)"});
    QVERIFY(panelShows(player, 6, -2));
    QVERIFY(holds(player, 0, 4, -2 * 0.006));
    QCOMPARE(player.impl.reapplyPending, false);
}

void tst_Filter3D::loadingShowsOffWhereNothingIsSet()
{
    Player player;
    player.play();
    player.widget->initialize(nullptr, Kest3DTurnOff);
    player.ui.cbx3DMode->setCurrentIndex(1);
    player.widget->initialize(FakeKest::handle(), Kest3DTurnOff);
    player.engine.setEditFilter(Kest3DBlueYellow, 0.3);
    player.engine.setResult("KestGetFilter", 4);
    player.impl.loadMovie3DProps();
    QCOMPARE(player.calls().value(0), QString("KestGetFilter(9)"));
    QVERIFY(panelShows(player, 11, 0));
    QVERIFY(!player.ui.effectTracker->isEnabled());
    QCOMPARE(player.widget->errorString(), QString());
}

// The slider's signal is never cut: where it moves on the way, it is sent as any other change is.
void tst_Filter3D::loadingFollowsTheSlider()
{
    RedCyanPlayer player;
    player.playQuietly();
    player.engine.setEditFilter(Kest3DRedCyan, 0.06);
    player.impl.loadMovie3DProps();
    QCOMPARE(player.calls(),
             QStringList({"KestGetFilter(9)", "KestAddFilter(9, mode 4, depth 0.06)"}));
    QVERIFY(panelShows(player, 4, 10));
}

void tst_Filter3D::loadingRestoresTheWires()
{
    RedCyanPlayer player;
    player.playQuietly();
    player.engine.setEditFilter(Kest3DRedCyan, -0.012);
    player.impl.loadMovie3DProps();
    player.calls();
    player.ui.cbx3DMode->setCurrentIndex(2);
    QCOMPARE(player.calls(), QStringList{"KestAddFilter(9, mode 1, depth -0.012)"});
    player.ui.edt3DPos->setValue(5);
    QCOMPARE(player.ui.effectTracker->value(), 55);
}

QTEST_MAIN(tst_Filter3D)
#include "tst_filter3d.moc"
