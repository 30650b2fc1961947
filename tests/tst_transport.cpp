// Play, pause, stop and the engine's events; and that every control reaches its slot.
// Not here: selecting and stepping (tst_navigation.cpp), the 3D half (tst_filter3d.cpp).
#include "widgetfixture.h"

#include <QDesktopServices>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

#include <algorithm>
#include <limits>
#include <thread>
#include <vector>

namespace {

using Int = std::numeric_limits<int>;
using State = PlayWidget_Impl::PlayState;

const QStringList nothing;

bool shows(const Player &player, State state)
{
    const bool playing = state == PlayWidget_Impl::Playing;
    const QIcon &icon = playing ? player.impl.pauseIcon : player.impl.playIcon;
    return player.impl.playState == state && player.ui.btnPlay->icon().cacheKey() == icon.cacheKey()
        && player.ui.btnPlay->toolTip() == QLatin1String(playing ? "Pause it" : "Play it")
        && player.impl.playUpdateTimer->isActive() == playing;
}

// A player whose play button tells its state by the tool tip.
struct TippedPlayer : Player
{
    TippedPlayer()
    {
        widget->setTranslationText(PlayWidget::PlayTip, QStringLiteral("Play it"));
        widget->setTranslationText(PlayWidget::PauseTip, QStringLiteral("Pause it"));
    }
};

struct Wire
{
    const char *name;
    bool (*reaches)(Player &player);
};

class OpenedUrl : public QObject
{
    Q_OBJECT

public:
    OpenedUrl() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~OpenedUrl() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    QUrl url;

public Q_SLOTS:
    void open(const QUrl &opened) { url = opened; }
};

bool opensTheMenu(Player &player)
{
    player.ui.btnCaptureRight->click();
    const bool open = player.impl.snapShotPopup->isVisible();
    player.impl.snapShotPopup->close();
    return open;
}

bool opensTheFolder(Player &player)
{
    const OpenedUrl opened;
    player.impl.openSnapShotDirAction->trigger();
    return opened.url.isLocalFile();
}

bool asksForAFolder(Player &player)
{
    bool asked = false;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&asked] {
        if (QWidget *dialog = QApplication::activeModalWidget())
            asked = dialog->close();
    });
    closer.start(10);
    player.impl.changeSnapShotDirAction->trigger();
    return asked;
}

// The second of three items plays at 30 s; each row uses one control and sees what its slot does.
const Wire wires[] = {
    {"the player's updatePlayState",
     [](Player &player) {
         Q_EMIT player.impl.updatePlayState(3, 4500);
         return player.impl.position == 4500;
     }},
    {"btnPlay",
     [](Player &player) {
         player.ui.btnPlay->click();
         return player.calls() == QStringList{"KestPause()"};
     }},
    {"btnCapture",
     [](Player &player) {
         player.ui.btnCapture->click();
         return player.calls() == QStringList{"KestGetMediaInfo(20)"};
     }},
    {"btnCaptureRight", opensTheMenu},
    {"menu: Snapshot",
     [](Player &player) {
         player.impl.snapShotAction->trigger();
         return player.calls() == QStringList{"KestGetMediaInfo(20)"};
     }},
    {"menu: Open Snapshot Folder", opensTheFolder},
    {"menu: Change Snapshot Folder", asksForAFolder},
    {"playTracker pressed",
     [](Player &player) {
         player.pressPlayTracker();
         return player.impl.trackerPressed;
     }},
    {"playTracker released",
     [](Player &player) {
         player.impl.trackerPressed = true;
         player.releasePlayTracker(250);
         return player.calls() == QStringList{"KestSetCurPos(15000)"};
     }},
    {"volumeTracker",
     [](Player &player) {
         Q_EMIT player.ui.volumeTracker->valueChanged(70);
         return player.calls() == QStringList{"KestChangeVolume(70)"};
     }},
    {"btnVolumeLeft",
     [](Player &player) {
         player.ui.btnVolumeLeft->click();
         return player.calls() == QStringList{"KestChangeVolume(0)"};
     }},
    {"btnVolumeRight",
     [](Player &player) {
         player.ui.btnVolumeRight->click();
         return player.calls() == QStringList{"KestChangeVolume(200)"};
     }},
    {"btnPriorFile",
     [](Player &player) {
         player.ui.btnPriorFile->click();
         return player.impl.playIndex() == 0;
     }},
    {"btnNextFile",
     [](Player &player) {
         player.ui.btnNextFile->click();
         return player.impl.playIndex() == 2;
     }},
    {"btnPriorPart",
     [](Player &player) {
         player.ui.btnPriorPart->click();
         return player.calls() == QStringList{"KestSetCurPos(25000)"};
     }},
    {"btnNextPart",
     [](Player &player) {
         player.ui.btnNextPart->click();
         return player.calls() == QStringList{"KestSetCurPos(35000)"};
     }},
    {"mouseDetectTimer",
     [](Player &player) {
         player.impl.mouseInVideo = true;
         Player::tick(player.impl.mouseDetectTimer);
         return player.impl.idleTicks == 1;
     }},
    {"playUpdateTimer",
     [](Player &player) {
         Player::tick(player.impl.playUpdateTimer);
         return player.ui.lblElapsedTime->text() == QLatin1String("00:00:30");
     }},
    {"cbx3DMode",
     [](Player &player) {
         player.ui.cbx3DMode->setCurrentIndex(1);
         return player.ui.edt3DPos->value() == -2 && player.ui.edt3DPos->isEnabled();
     }},
    {"edt3DPos",
     [](Player &player) {
         player.ui.edt3DPos->setValue(7);
         return player.ui.effectTracker->value() == 57;
     }},
    {"effectTracker",
     [](Player &player) {
         player.ui.effectTracker->setValue(41);
         return player.ui.edt3DPos->value() == -9;
     }},
    {"buttonBox",
     [](Player &player) {
         player.ui.buttonBox->button(QDialogButtonBox::Ok)->click();
         return player.calls() == Player::stopCalls(true);
     }},
};

}  // namespace

class tst_Transport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void everyControlReachesItsSlot_data();
    void everyControlReachesItsSlot();
    void isStoppedAtFirst();

    void startsAnItem();
    void showsOnlyTheFileName_data();
    void showsOnlyTheFileName();
    void startsWithTheVolumeOfTheSlider();
    void readsTheDurationOfEachItem();
    void keepsTheDurationThatTheEngineDoesNotKnow();
    void startsWhateverTheEngineReturns_data();
    void startsWhateverTheEngineReturns();
    void staysStoppedWhenTheEngineDoesNotPlay();
    void keepsPlayingWhenTheEngineDoesNotPlayAnother();
    void playWithoutASelectedItemDoesNothing();

    void pauses();
    void keepsPlayingWhenTheEngineDoesNotPause();
    void pausesOnlyWhatPlays();
    void resumesByPlayAlone();
    void resumesWhateverTheEngineReturns();
    void resumesBeforeItShowsSo();
    void thePlayButtonToggles();

    void stops_data();
    void stops();
    void stopsInItsOrder();
    void stoppingTwiceStopsOnce();
    void stopsAlsoWhenTheEngineDoesNotEnd();

    void anEventActsByItsState_data();
    void anEventActsByItsState();
    void anEndEventStopsWhatIsPaused();
    void aTickEventPastTheEndStopsWhatIsPaused();
    void eventsMoveThePositionWhileStoppedToo();
    void ignoresEventsOfOtherTypes();
    void toleratesAnEventForNobody();

    void anEventOfAnotherThreadIsQueued();
    void anEndOfAnotherThreadIsQueued();
    void eventsOfManyThreadsAllArrive();
    void anEventForADeadPlayerIsDropped();

    void withoutAnEngineNoEditBeginsOrEnds();
    void recordsWhatTheEngineRefuses_data();
    void recordsWhatTheEngineRefuses();
};

void tst_Transport::everyControlReachesItsSlot_data()
{
    QTest::addColumn<int>("row");
    int row = 0;
    for (const Wire &wire : wires)
        QTest::newRow(wire.name) << row++;
}

void tst_Transport::everyControlReachesItsSlot()
{
    QFETCH(int, row);
    Player player(3);
    player.play(1);
    player.report(3, 30000);
    QVERIFY(wires[row].reaches(player));
}

void tst_Transport::isStoppedAtFirst()
{
    const TippedPlayer player;
    QVERIFY(shows(player, PlayWidget_Impl::Stopped));
    QCOMPARE(player.impl.duration, 0LL);
    QCOMPARE(player.impl.position, 0LL);
    QCOMPARE(player.impl.trackerPressed, false);
    QCOMPARE(player.impl.playUpdateTimer->parent(), &player.impl);
    QCOMPARE(player.impl.mouseDetectTimer->parent(), &player.impl);
    QVERIFY(!player.impl.mouseDetectTimer->isActive());
}

void tst_Transport::startsAnItem()
{
    TippedPlayer player;
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls(), Player::startCalls(10));
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
    QCOMPARE(player.impl.playUpdateTimer->interval(), 500);
    QVERIFY(!player.impl.playUpdateTimer->isSingleShot());
    QVERIFY(player.ui.playTracker->isEnabled());
    QCOMPARE(player.widget->errorString(), QString());

    player.impl.stopVideo(true);
    player.impl.reapplyPending = false;
    player.calls();
    QVERIFY(!player.ui.playTracker->isEnabled());
    QVERIFY(player.impl.playVideo());
    QCOMPARE(player.calls(), Player::startCalls(10));
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
    QVERIFY(player.ui.playTracker->isEnabled());
}

void tst_Transport::showsOnlyTheFileName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a path") << "/films/old/one.two.avi"
                            << "one.two.avi";
    QTest::newRow("a name") << "one.avi"
                            << "one.avi";
    QTest::newRow("a relative path") << "../one"
                                     << "one";
    QTest::newRow("a folder") << "/films/"
                              << "";
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("spaces and signs") << "/f/two <b>words&.avi"
                                      << "two <b>words&.avi";
    QTest::newRow("beyond latin") << QString::fromUtf8("/f/映画 é.avi")
                                  << QString::fromUtf8("映画 é.avi");
}

void tst_Transport::showsOnlyTheFileName()
{
    QFETCH(QString, path);
    QFETCH(QString, shown);
    Player player(0);
    player.widget->addPlayItem(1, path, false, Kest3DTurnOff, 0.0);
    player.ui.lblFileName->setText("before");
    player.widget->setPlayIndex(0);
    QCOMPARE(player.ui.lblFileName->text(), shown);
    QCOMPARE(player.impl.currentFileName, path);
}

void tst_Transport::startsWithTheVolumeOfTheSlider()
{
    Player player;
    player.ui.volumeTracker->setValue(37);
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls().at(6), QString("KestChangeVolume(37)"));
}

void tst_Transport::readsTheDurationOfEachItem()
{
    Player player;
    player.engine.setDuration(10, 5000000000);
    player.engine.setDuration(20, -1);
    player.engine.setDuration(30, 0);
    player.play(0);
    QCOMPARE(player.impl.duration, 5000000000LL);
    player.play(1);
    QCOMPARE(player.impl.duration, -1LL);
    player.play(2);
    QCOMPARE(player.impl.duration, 0LL);
}

void tst_Transport::keepsTheDurationThatTheEngineDoesNotKnow()
{
    Player player;
    player.play(0);
    player.widget->addPlayItem(99, "unknown", false, Kest3DTurnOff, 0.0);
    player.engine.setResult("KestGetMediaDuration", 5);
    player.play(3);
    QCOMPARE(player.impl.duration, 60000LL);
    QCOMPARE(player.widget->errorString(), QString());
}

void tst_Transport::startsWhateverTheEngineReturns_data()
{
    QTest::addColumn<QString>("function");
    for (const char *function :
         {"KestGetMediaDuration", "KestEditBegin", "KestAddFilter", "KestChangeVolume"})
        QTest::newRow(function) << function;
}

void tst_Transport::startsWhateverTheEngineReturns()
{
    QFETCH(QString, function);
    TippedPlayer player;
    player.engine.setResult(function, 6);
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls(), Player::startCalls(10));
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
    QVERIFY(player.ui.playTracker->isEnabled());
    QCOMPARE(player.widget->errorString(), QString());
}

void tst_Transport::staysStoppedWhenTheEngineDoesNotPlay()
{
    TippedPlayer player;
    player.engine.setResult("KestPlay", 7);
    player.ui.playTracker->setEnabled(false);
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls(), Player::startCalls(10));  // the edit stays open
    QVERIFY(shows(player, PlayWidget_Impl::Stopped));
    QVERIFY(!player.ui.playTracker->isEnabled());
    QCOMPARE(player.ui.lblFileName->text(), QString("10.avi"));
    QCOMPARE(player.widget->errorString(), QString("ERROR: KestPlay function failed. [Code: 7]"));
    QCOMPARE(player.impl.playVideo(), false);
    player.calls();
    player.impl.stopVideo(true);
    QCOMPARE(player.calls(), nothing);
}

void tst_Transport::keepsPlayingWhenTheEngineDoesNotPlayAnother()
{
    TippedPlayer player;
    player.play(0);
    player.engine.setResult("KestPlay", 7);
    player.widget->setPlayIndex(1);
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
    QVERIFY(player.ui.playTracker->isEnabled());
    QCOMPARE(player.ui.lblFileName->text(), QString("20.avi"));
    QCOMPARE(player.widget->errorString(), QString("ERROR: KestPlay function failed. [Code: 7]"));
}

void tst_Transport::playWithoutASelectedItemDoesNothing()
{
    TippedPlayer player;
    player.ui.lblFileName->setText("before");
    player.ui.btnPlay->click();
    QCOMPARE(player.impl.playVideo(), false);
    QCOMPARE(player.calls(), nothing);
    QVERIFY(shows(player, PlayWidget_Impl::Stopped));
    QCOMPARE(player.ui.lblFileName->text(), QString("before"));
    player.impl.beginEdit(-1);
    player.impl.beginEdit(3);
    QCOMPARE(player.calls(), nothing);
}

void tst_Transport::pauses()
{
    TippedPlayer player;
    player.play();
    QCOMPARE(player.impl.pauseVideo(), true);
    QCOMPARE(player.calls(), QStringList{"KestPause()"});
    QVERIFY(shows(player, PlayWidget_Impl::Paused));
    QVERIFY(player.ui.playTracker->isEnabled());
    QCOMPARE(player.ui.lblFileName->text(), QString("10.avi"));
}

void tst_Transport::keepsPlayingWhenTheEngineDoesNotPause()
{
    TippedPlayer player;
    player.play();
    player.engine.setResult("KestPause", -2);
    QCOMPARE(player.impl.pauseVideo(), false);
    QCOMPARE(player.calls(), QStringList{"KestPause()"});
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
    QCOMPARE(player.widget->errorString(), QString("ERROR: KestPause function failed. [Code: -2]"));
}

void tst_Transport::pausesOnlyWhatPlays()
{
    Player player;
    QCOMPARE(player.impl.pauseVideo(), false);
    player.play();
    player.pause();
    QCOMPARE(player.impl.pauseVideo(), false);
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Paused));
    QCOMPARE(player.calls(), nothing);
}

void tst_Transport::resumesByPlayAlone()
{
    TippedPlayer player;
    player.play();
    player.pause();
    player.ui.lblFileName->setText("kept");
    QCOMPARE(player.impl.playVideo(), true);
    QCOMPARE(player.calls(), QStringList{"KestPlay()"});
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
    QCOMPARE(player.impl.playUpdateTimer->interval(), 500);
    QCOMPARE(player.ui.lblFileName->text(), QString("kept"));
}

void tst_Transport::resumesWhateverTheEngineReturns()
{
    TippedPlayer player;
    player.play();
    player.pause();
    player.engine.setResult("KestPlay", 7);
    QCOMPARE(player.impl.playVideo(), true);
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
    QCOMPARE(player.widget->errorString(), QString());
}

void tst_Transport::resumesBeforeItShowsSo()
{
    TippedPlayer player;
    player.play();
    player.pause();
    const NoteOnEvent tip(player.ui.btnPlay, QEvent::ToolTipChange,
                          [&] { return QStringLiteral("state %1").arg(player.impl.playState); });
    player.impl.playVideo();
    QCOMPARE(player.calls(), QStringList({"KestPlay()", "state 0"}));
}

void tst_Transport::thePlayButtonToggles()
{
    TippedPlayer player;
    player.play();
    player.ui.btnPlay->click();
    QVERIFY(shows(player, PlayWidget_Impl::Paused));
    player.ui.btnPlay->click();
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
    QCOMPARE(player.calls(), QStringList({"KestPause()", "KestPlay()"}));
    player.impl.stopVideo(false);
    player.impl.reapplyPending = false;
    player.calls();
    player.ui.btnPlay->click();
    QCOMPARE(player.calls(), Player::startCalls(10));
    QVERIFY(shows(player, PlayWidget_Impl::Playing));
}

void tst_Transport::stops_data()
{
    QTest::addColumn<bool>("paused");
    QTest::addColumn<bool>("save");
    for (bool paused : {false, true}) {
        for (bool save : {false, true})
            QTest::addRow("%s, %s", paused ? "paused" : "playing", save ? "saving" : "not saving")
                << paused << save;
    }
}

void tst_Transport::stops()
{
    QFETCH(bool, paused);
    QFETCH(bool, save);
    TippedPlayer player;
    player.play();
    player.report(3, 30000);
    Player::tick(player.impl.playUpdateTimer);
    QCOMPARE(player.ui.playTracker->getValue(), 500);
    if (paused)
        player.pause();
    player.impl.stopVideo(save);
    QCOMPARE(player.calls(), Player::stopCalls(save));
    QVERIFY(shows(player, PlayWidget_Impl::Stopped));
    QCOMPARE(player.ui.lblFileName->text(), QString());
    QCOMPARE(player.ui.playTracker->getValue(), 0);
    QVERIFY(!player.ui.playTracker->isEnabled());
    QCOMPARE(player.ui.lblElapsedTime->text(), QString("00:00:30"));
    QCOMPARE(player.ui.lblRemainTime->text(), QString("-00:00:30"));
    QCOMPARE(player.impl.position, 30000LL);
    QCOMPARE(player.impl.playIndex(), 0);
}

void tst_Transport::stopsInItsOrder()
{
    TippedPlayer player;
    player.play();
    player.report(3, 30000);
    Player::tick(player.impl.playUpdateTimer);
    const auto standing = [&player] {
        return QStringLiteral("name '%1', state %2, slider at %3, clock %4")
            .arg(player.ui.lblFileName->text())
            .arg(player.impl.playState)
            .arg(player.ui.playTracker->getValue())
            .arg(player.impl.playUpdateTimer->isActive() ? "on" : "off");
    };
    const NoteOnEvent tip(player.ui.btnPlay, QEvent::ToolTipChange, standing);
    const NoteOnEvent disabled(player.ui.playTracker, QEvent::EnabledChange, standing);
    player.impl.stopVideo(true);
    QCOMPARE(player.calls(),
             QStringList({"KestEditEnd(true)", "name '', state 2, slider at 500, clock on",
                          "name '', state 2, slider at 0, clock off",
                          "CVideoWnd::SendCommand(4, -1)", "CVideoWnd::UpdateView()"}));
}

void tst_Transport::stoppingTwiceStopsOnce()
{
    Player player;
    player.impl.stopVideo(true);
    player.impl.stopVideo(false);
    QCOMPARE(player.calls(), nothing);
    player.play();
    player.impl.stopVideo(true);
    player.ui.lblFileName->setText("kept");
    player.impl.stopVideo(true);
    player.impl.stopVideo(false);
    QCOMPARE(player.calls(), Player::stopCalls(true));
    QCOMPARE(player.ui.lblFileName->text(), QString("kept"));
}

void tst_Transport::stopsAlsoWhenTheEngineDoesNotEnd()
{
    TippedPlayer player;
    player.play();
    player.engine.setResult("KestEditEnd", 12);
    player.impl.stopVideo(true);
    QCOMPARE(player.calls(), Player::stopCalls(true));
    QVERIFY(shows(player, PlayWidget_Impl::Stopped));
    QCOMPARE(player.widget->errorString(),
             QString("ERROR: KestEditEnd function failed. [Code: 12]"));
}

void tst_Transport::anEventActsByItsState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<quint32>("time");
    QTest::addColumn<qint64>("before");
    QTest::addColumn<qint64>("after");
    QTest::addColumn<bool>("stops");
    const qint64 duration = 9000;
    const auto row
        = [](const char *name, int state, quint32 time, qint64 before, qint64 after, bool stops) {
              QTest::newRow(name) << state << time << before << after << stops;
          };
    row("the end", 5, 4500, 0, 0, true);
    row("a tick past the end", 7, 4500, 10000, 10000, true);
    row("a tick just past the end", 7, 4500, duration + 1, duration + 1, true);
    row("a tick at the end", 7, 4500, duration, duration, false);
    row("a tick does not move", 7, 4500, 20, 20, false);
    row("a tick that says it is past the end", 7, 99999, 20, 20, false);
    row("a place", 3, 4500, 20, 4500, false);
    row("a place past the end", 3, 99999, 20, 99999, false);
    row("a place past 31 bits", 3, 4294967295U, 20, 4294967295LL, false);
    for (int state : {-1, 0, 1, 2, 4, 6, 8, Int::max(), Int::min()})
        row(qPrintable(QString::number(state)), state, 4500, 20, 4500, false);
}

void tst_Transport::anEventActsByItsState()
{
    QFETCH(int, state);
    QFETCH(quint32, time);
    QFETCH(qint64, before);
    QFETCH(bool, stops);
    TippedPlayer player;
    player.engine.setDuration(10, 9000);
    player.play();
    player.impl.position = before;
    player.report(state, time);
    QTEST(player.impl.position, "after");
    QCOMPARE(player.calls(), stops ? Player::stopCalls(true) : nothing);
    QVERIFY(shows(player, stops ? PlayWidget_Impl::Stopped : PlayWidget_Impl::Playing));
    QCOMPARE(player.impl.duration, 9000LL);
    QCOMPARE(player.ui.lblElapsedTime->text(), QString("00:00:00"));
    QCOMPARE(player.ui.playTracker->getValue(), 0);
}

void tst_Transport::anEndEventStopsWhatIsPaused()
{
    Player player;
    player.play();
    player.pause();
    player.report(5, 0);
    QCOMPARE(player.calls(), Player::stopCalls(true));
    player.report(5, 0);
    QCOMPARE(player.calls(), nothing);
}

void tst_Transport::aTickEventPastTheEndStopsWhatIsPaused()
{
    Player player;
    player.play();
    player.pause();
    player.report(3, 60001);
    QCOMPARE(player.calls(), nothing);
    player.report(7, 0);
    QCOMPARE(player.calls(), Player::stopCalls(true));
}

void tst_Transport::eventsMoveThePositionWhileStoppedToo()
{
    Player player;
    player.play();
    player.impl.stopVideo(true);
    player.calls();
    player.report(3, 70000);
    QCOMPARE(player.impl.position, 70000LL);
    player.report(7, 0);
    QCOMPARE(player.calls(), nothing);
}

void tst_Transport::ignoresEventsOfOtherTypes()
{
    Player player;
    player.play();
    QSignalSpy updates(&player.impl, &PlayWidget_Impl::updatePlayState);
    for (int type : {1, -1, 5, Int::max(), Int::min()})
        QCOMPARE(player.engine.sendEvent(type, 5, 4500), 0);
    QCOMPARE(updates.count(), 0);
    QCOMPARE(player.engine.sendEvent(0, -3, 4294967295U), 0);
    QCOMPARE(updates, QList<QVariantList>({{-3, 4294967295U}}));
}

void tst_Transport::toleratesAnEventForNobody()
{
    tagKestEvent event = {0, 5, 0};
    QCOMPARE(CallbackVelmoEvent(&event, nullptr), 0);
    QCOMPARE(CallbackVelmoEvent(nullptr, nullptr), 0);
}

void tst_Transport::anEventOfAnotherThreadIsQueued()
{
    Player player;
    player.play();
    int result = -1;
    std::thread([&] { result = player.engine.sendEvent(0, 3, 4500); }).join();
    QCOMPARE(result, 0);
    QCOMPARE(player.impl.position, 0LL);
    QTRY_COMPARE(player.impl.position, 4500LL);
}

void tst_Transport::anEndOfAnotherThreadIsQueued()
{
    Player player;
    player.play();
    std::thread([&] { player.engine.sendEvent(0, 5, 0); }).join();
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Playing));
    QCOMPARE(player.calls(), nothing);
    QTRY_COMPARE(player.impl.playState, int(PlayWidget_Impl::Stopped));
    QCOMPARE(player.calls(), Player::stopCalls(true));
}

void tst_Transport::eventsOfManyThreadsAllArrive()
{
    constexpr int threadCount = 4;
    constexpr int eventCount = 250;
    Player player;
    player.play();
    QVector<quint32> seen;
    connect(&player.impl, &PlayWidget_Impl::updatePlayState, &player.impl,
            [&seen](int, uint t) { seen.append(t); });
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&, i] {
            for (int n = 0; n < eventCount; ++n)
                player.engine.sendEvent(0, 3, i * eventCount + n);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QVERIFY(seen.isEmpty());
    QTRY_COMPARE(seen.size(), threadCount * eventCount);
    QCOMPARE(player.impl.position, qint64(seen.last()));
    std::sort(seen.begin(), seen.end());
    for (int i = 0; i < seen.size(); ++i)
        QCOMPARE(seen.at(i), quint32(i));
}

void tst_Transport::anEventForADeadPlayerIsDropped()
{
    Player player;
    player.play();
    std::thread([&] { player.engine.sendEvent(0, 5, 0); }).join();
    player.widget.reset();
    player.calls();
    QCoreApplication::processEvents();
    QCOMPARE(player.calls(), nothing);
}

void tst_Transport::withoutAnEngineNoEditBeginsOrEnds()
{
    Player player;
    player.widget->initialize(nullptr, Kest3DTurnOff);
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls(),
             QStringList({"KestGetMediaDuration(10)", "KestChangeVolume(100)", "KestPlay()"}));
    QCOMPARE(player.engine.lastEngine(), nullptr);
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Playing));
    player.ui.cbx3DMode->setCurrentIndex(1);
    player.ui.effectTracker->setValue(70);
    QCOMPARE(player.impl.reapplyPending, false);
    player.ui.btnPlay->click();
    player.ui.btnPlay->click();
    player.ui.btnVolumeLeft->click();
    player.ui.btnNextPart->click();
    QCOMPARE(
        player.calls(),
        QStringList({"KestPause()", "KestPlay()", "KestChangeVolume(0)", "KestSetCurPos(5000)"}));
    player.impl.stopVideo(true);
    QCOMPARE(player.calls(),
             QStringList({"CVideoWnd::SendCommand(4, -1)", "CVideoWnd::UpdateView()"}));
    player.impl.beginEdit(0);
    player.impl.endEdit(true);
    QCOMPARE(player.calls(), nothing);
}

void tst_Transport::recordsWhatTheEngineRefuses_data()
{
    QTest::addColumn<QString>("function");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("KestPlay") << "KestPlay" << QStringList{"KestPlay"};
    QTest::newRow("KestPause") << "KestPause" << QStringList{"KestPause"};
    QTest::newRow("KestEditEnd") << "KestEditEnd" << QStringList{"KestEditEnd"};
    // The panel is sent while the edit begins and once more while it plays.
    QTest::newRow("KestAddFilter") << "KestAddFilter" << QStringList{"KestAddFilter"};
    QTest::newRow("KestAddFilter2") << "KestAddFilter2" << QStringList{"KestAddFilter"};
    for (const char *ignored :
         {"KestSetCurPos", "KestChangeVolume", "KestGetMediaDuration", "KestGetMediaInfo",
          "KestEditBegin", "KestGetFilter", "KestGetFilter2"})
        QTest::newRow(ignored) << ignored << QStringList();
}

void tst_Transport::recordsWhatTheEngineRefuses()
{
    QFETCH(QString, function);
    QFETCH(QStringList, names);
    QStringList lines;
    for (const QString &name : names)
        lines += QStringLiteral("ERROR: %1 function failed. [Code: 6]").arg(name);

    Player player;
    player.engine.setResult(function, 6);
    player.widget->setPlayIndex(0);
    if (function != QLatin1String("KestPlay")) {
        player.impl.loadMovie3DProps();
        player.impl.applyMovie3DProps();
        player.impl.snapShotVideo();
        player.impl.playNextPart();
        player.pressPlayTracker();
        player.releasePlayTracker(0);
        player.impl.maximizeVolume();
        player.impl.pauseVideo();
        player.impl.playVideo();
        player.impl.stopVideo(true);
        QVERIFY(player.calls().join(' ').contains(function + '('));
    }
    QCOMPARE(player.widget->errorString(), lines.join("\r\n"));
}

QTEST_MAIN(tst_Transport)
#include "tst_transport.moc"
