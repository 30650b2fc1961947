// The settings panel: modes and depths as the controls show them, how one control moves the others,
// and the ways out, with the calls that reach the engine.
// Not here: what is sent again 100 ms later (tst_filter3d).
#include "widgetfixture.h"

#include <QPushButton>
#include <QSignalSpy>

#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// Three items; the second plays in red/cyan, five steps deep.
struct Previewing : Player
{
    Previewing()
        : Player(3, Kest3DRedCyan, 0.03)
    {
        play(1);
        QObject::connect(&impl, &PlayWidget_Impl::accepted, [this] { engine.note("accepted"); });
        QObject::connect(&impl, &PlayWidget_Impl::rejected, [this] { engine.note("rejected"); });
    }

    void press(QDialogButtonBox::StandardButton button) { ui.buttonBox->button(button)->click(); }
    void change(int index, int mode, double depth)
    {
        impl.playItem(index)->mode = mode;
        impl.playItem(index)->depth = depth;
    }
};

// Where the widget stands in a host: keys that the player does not take arrive here.
class Host : public QWidget
{
protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        FakeKest::instance().note("host has key " + QString::number(event->key(), 16));
    }
};

const QStringList stoppedWithSave
    = {"KestEditEnd(true)", "CVideoWnd::SendCommand(4, -1)", "CVideoWnd::UpdateView()"};
const QStringList stoppedWithoutSave
    = {"KestEditEnd(false)", "CVideoWnd::SendCommand(4, -1)", "CVideoWnd::UpdateView()"};

// Mode, steps in the spin box, steps on the slider, whether the depth controls are enabled.
QString shown(const Player &player)
{
    const bool enabled = player.ui.edt3DPos->isEnabled();
    if (player.ui.effectTracker->isEnabled() != enabled
        || player.ui.lbl3DDepth->isEnabled() != enabled)
        return QStringLiteral("enabled in part");
    return QStringLiteral("%1, %2, %3%4")
        .arg(player.ui.cbx3DMode->currentText())
        .arg(player.ui.edt3DPos->value())
        .arg(player.ui.effectTracker->value())
        .arg(enabled ? QString() : QStringLiteral(", depth disabled"));
}

QStringList entries(const Player &player)
{
    QStringList texts;
    for (int i = 0; i < player.ui.cbx3DMode->count(); ++i)
        texts += player.ui.cbx3DMode->itemText(i);
    return texts;
}

QString settings(const Player &player, int index)
{
    const PlayItem *item = player.impl.playItem(index);
    return QStringLiteral("%1 at %2").arg(item->mode).arg(item->depth);
}

const QStringList sevenEntries = {"Turn off 3D", "Red/Cyan",    "Red/Green",     "Red/Blue",
                                  "Blue/Yellow", "Interleaved", "Slide By Slide"};

}  // namespace

class tst_Panel3D : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void startsAtDepthZero();
    void readsModesFromEntries();
    void readsModesByDataAfterARemoval();
    void showsTheFirstEntryOfAMode();
    void showsModes_data();
    void showsModes();
    void ignoresModesWithoutEntry_data();
    void ignoresModesWithoutEntry();
    void enablesTheDepthAlsoWhenTheModeStays();
    void readsDepths();
    void showsDepths_data();
    void showsDepths();
    void movesTheSliderOnlyAfterTheSpinBox();
    void choosingAModeGivesTheDefaultDepth_data();
    void choosingAModeGivesTheDefaultDepth();
    void choosingAModeKeepsADepth();
    void choosingOffKeepsTheDepthAndDisablesIt();
    void aSpinStepMovesTheSlider();
    void everySpinStepIsHeardOnce();
    void aSliderStepMovesTheSpinBox();
    void sendsToTheFileWhileStopped();
    void asksNothingWithoutAnEngine();
    void goesOnWhenTheEngineRefusesASetting();
    void removesAMode_data();
    void removesAMode();
    void removesNothingForOtherModes_data();
    void removesNothingForOtherModes();
    void removesByPlaceASecondTime();
    void removesNothingPastTheEnd();
    void removesAModeBeforeItHasTheEngine();
    void resetsChangedItemsOnly();
    void resetsTheSelectedItemLikeAnother();
    void resetLeavesThePanel();
    void resetsItemsWhoseDepthIsNoNumber();
    void resetGoesOnPastFailures();
    void resetRecordsEachFailureWithItsOwnCode();
    void resetsWithoutAnEngine();
    void appliesToAllButTheSelected();
    void appliesToAllWithoutASelection();
    void applyGoesOnPastFailures();
    void appliesWithoutAnEngine();
    void tellsWhetherToApplyToAll();
    void okStopsAndAccepts();
    void okAppliesToAllBeforeItAccepts();
    void okWhileStoppedOnlyAccepts();
    void okTakesTheMouse();
    void cancelStopsResetsAndRejects();
    void cancelResetsTheOneChangedItem();
    void cancelDoesNotApplyToAll();
    void anyOtherButtonCancels();
    void cancelRejectsDespiteFailures();
    void escapeCancelsAndReachesTheHost();
    void escapeCancelsWhateverIsHeldWithIt();
    void escapeInTheSpinBoxCancels();
    void otherKeysReachTheHostOnly_data();
    void otherKeysReachTheHostOnly();
    void hidingStopsAndRestoresNothing();
    void hidingWhileStoppedDoesNothing();
};

void tst_Panel3D::startsAtDepthZero()
{
    const Player player;
    QCOMPARE(shown(player), "Turn off 3D, 0, 50");
    QCOMPARE(player.ui.edt3DPos->minimum(), -50);
    QCOMPARE(player.ui.edt3DPos->maximum(), 50);
    QCOMPARE(player.ui.effectTracker->minimum(), 0);
    QCOMPARE(player.ui.effectTracker->maximum(), 100);
    QVERIFY(!player.widget->getApplyToAll());
    QCOMPARE(player.impl.hiddenModeTextId, 19);
}

void tst_Panel3D::readsModesFromEntries()
{
    const Player player;
    const int modes[] = {11, 4, 1, 2, 6, 8, 9};
    for (int i = 0; i < 7; ++i)
        QCOMPARE(player.impl.movie3DModeFromUI(i), modes[i]);
    for (int none : {-1, 7, 100, INT_MIN, INT_MAX})
        QCOMPARE(player.impl.movie3DModeFromUI(none), 0);
}

void tst_Panel3D::readsModesByDataAfterARemoval()
{
    Player player;
    player.widget->set3DModeVisible(Kest3DRedGreen);
    QCOMPARE(player.impl.movie3DModeFromUI(1), 4);
    QCOMPARE(player.impl.movie3DModeFromUI(2), 2);
    player.impl.movie3DModeToUI(Kest3DSlideBySlide);
    QCOMPARE(player.ui.cbx3DMode->currentIndex(), 5);
    player.impl.movie3DModeToUI(Kest3DRedGreen);
    QCOMPARE(player.ui.cbx3DMode->currentIndex(), 5);
}

void tst_Panel3D::showsTheFirstEntryOfAMode()
{
    Player player;
    player.ui.cbx3DMode->addItem("Red/Cyan again", 4);
    player.impl.movie3DModeToUI(Kest3DRedCyan);
    QCOMPARE(player.ui.cbx3DMode->currentIndex(), 1);
}

void tst_Panel3D::showsModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("panel");
    QTest::newRow("off") << 11 << "Turn off 3D, 7, 57, depth disabled";
    QTest::newRow("red/cyan") << 4 << "Red/Cyan, 7, 57";
    QTest::newRow("red/green") << 1 << "Red/Green, 7, 57";
    QTest::newRow("red/blue") << 2 << "Red/Blue, 7, 57";
    QTest::newRow("blue/yellow") << 6 << "Blue/Yellow, 7, 57";
    QTest::newRow("interleaved") << 8 << "Interleaved, 7, 57";
    QTest::newRow("side by side") << 9 << "Slide By Slide, 7, 57";
}

void tst_Panel3D::showsModes()
{
    QFETCH(int, mode);
    QFETCH(QString, panel);
    Player player;
    player.impl.movie3DPosToUI(7 * 0.006);
    player.impl.movie3DModeToUI(mode);
    QCOMPARE(shown(player), panel);
}

void tst_Panel3D::ignoresModesWithoutEntry_data()
{
    QTest::addColumn<int>("mode");
    for (int mode : {0, 3, 5, 7, 10, 12, -1, INT_MAX, INT_MIN})
        QTest::addRow("%d", mode) << mode;
}

void tst_Panel3D::ignoresModesWithoutEntry()
{
    QFETCH(int, mode);
    Player player;
    player.impl.movie3DModeToUI(Kest3DRedBlue);
    player.ui.lbl3DDepth->setEnabled(false);
    player.ui.edt3DPos->setEnabled(false);
    player.ui.effectTracker->setEnabled(false);
    player.impl.movie3DModeToUI(mode);
    QCOMPARE(shown(player), "Red/Blue, -2, 48, depth disabled");
}

void tst_Panel3D::enablesTheDepthAlsoWhenTheModeStays()
{
    Player player;
    QCOMPARE(shown(player), "Turn off 3D, 0, 50");
    player.impl.movie3DModeToUI(Kest3DTurnOff);
    QCOMPARE(shown(player), "Turn off 3D, 0, 50, depth disabled");
    player.impl.movie3DModeToUI(Kest3DRedCyan);
    player.ui.edt3DPos->setEnabled(false);
    player.impl.movie3DModeToUI(Kest3DRedCyan);
    QCOMPARE(shown(player), "Red/Cyan, -2, 48");
}

void tst_Panel3D::readsDepths()
{
    const Player player;
    for (int steps = -50; steps <= 50; ++steps) {
        player.ui.edt3DPos->setValue(steps);
        QCOMPARE(player.impl.movie3DPosFromUI(), steps * 0.006);
        player.ui.effectTracker->setValue(0);
        player.impl.movie3DPosToUI(steps * 0.006);
        QCOMPARE(player.ui.edt3DPos->value(), steps);
        QCOMPARE(player.ui.effectTracker->value(), steps + 50);
    }
}

void tst_Panel3D::showsDepths_data()
{
    QTest::addColumn<double>("depth");
    QTest::addColumn<int>("steps");
    const struct
    {
        double depth;
        int steps;
    } rows[] = {
        {0.1, 17},    {1.0, 50},     {-1.0, -50},    {0.3, 50},        {-0.3, -50},
        {-0.015, -2}, {0.015, 3},    {0.003, 1},     {-0.003, 0},      {-0.009, -1},
        {0.0029, 0},  {-0.0031, -1}, {-0.1, -17},    {0.3031, 50},     {-0.3031, -50},
        {0.0, 0},     {-0.0, 0},     {1e-300, 0},    {12884901.9, 50}, {-12884901.9, -50},
        {1e308, 50},  {-1e308, -50}, {infinity, 50}, {-infinity, -50}, {std::nan(""), 0},
    };
    for (const auto &row : rows)
        QTest::addRow("%g", row.depth) << row.depth << row.steps;
}

void tst_Panel3D::showsDepths()
{
    QFETCH(double, depth);
    QFETCH(int, steps);
    Player player;
    player.ui.edt3DPos->setValue(steps == 9 ? 8 : 9);
    player.impl.movie3DPosToUI(depth);
    QCOMPARE(player.ui.edt3DPos->value(), steps);
    QCOMPARE(player.ui.effectTracker->value(), steps + 50);
}

// A caller that cut the spin box's signal still hears the slider.
void tst_Panel3D::movesTheSliderOnlyAfterTheSpinBox()
{
    Previewing player;
    player.ui.edt3DPos->disconnect(&player.impl);
    player.impl.movie3DPosToUI(0.06);
    QCOMPARE(player.calls(), QStringList("KestAddFilter(9, mode 4, depth 0.06)"));
    player.impl.movie3DPosToUI(0.06);
    QCOMPARE(player.calls(), QStringList());
}

void tst_Panel3D::choosingAModeGivesTheDefaultDepth_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("mode");
    const int modes[] = {4, 1, 2, 6, 8, 9};
    for (int i = 0; i < 6; ++i)
        QTest::newRow(qPrintable(sevenEntries[i + 1])) << i + 1 << modes[i];
}

// One call for the mode and, as the depth moves both controls, two for the depth.
void tst_Panel3D::choosingAModeGivesTheDefaultDepth()
{
    QFETCH(int, index);
    QFETCH(int, mode);
    Player player;
    player.play();
    QCOMPARE(shown(player), "Turn off 3D, 0, 50, depth disabled");
    player.ui.cbx3DMode->setCurrentIndex(index);
    const QString filter = QStringLiteral("KestAddFilter(9, mode %1, depth %2)").arg(mode);
    QCOMPARE(player.calls(),
             QStringList({filter.arg("0"), filter.arg("-0.012"), filter.arg("-0.012")}));
    QCOMPARE(shown(player), sevenEntries[index] + ", -2, 48");
    QCOMPARE(settings(player, 0), QStringLiteral("%1 at -0.012").arg(mode));
}

void tst_Panel3D::choosingAModeKeepsADepth()
{
    Previewing player;
    player.ui.cbx3DMode->setCurrentIndex(6);
    QCOMPARE(player.calls(), QStringList("KestAddFilter(9, mode 9, depth 0.03)"));
    QCOMPARE(shown(player), "Slide By Slide, 5, 55");
}

void tst_Panel3D::choosingOffKeepsTheDepthAndDisablesIt()
{
    Previewing player;
    player.ui.cbx3DMode->setCurrentIndex(0);
    QCOMPARE(player.calls(), QStringList("KestAddFilter(9, mode 11, depth 0.03)"));
    QCOMPARE(shown(player), "Turn off 3D, 5, 55, depth disabled");
}

void tst_Panel3D::aSpinStepMovesTheSlider()
{
    Previewing player;
    player.ui.edt3DPos->setValue(6);
    QCOMPARE(player.calls(),
             QStringList({"KestAddFilter(9, mode 4, depth 0.036)",
                          "KestAddFilter(9, mode 4, depth 0.036)"}));
    QCOMPARE(shown(player), "Red/Cyan, 6, 56");
    QCOMPARE(settings(player, 1), "4 at 0.036");
}

// The slider's slot reconnects the spin box within the spin box's own slot: it is connected twice
// until the next step, which must not show.
void tst_Panel3D::everySpinStepIsHeardOnce()
{
    Previewing player;
    for (int steps : {6, 7, 8, -50, 50}) {
        player.ui.edt3DPos->setValue(steps);
        const QString filter
            = QStringLiteral("KestAddFilter(9, mode 4, depth %1)").arg(steps * 0.006);
        QCOMPARE(player.calls(), QStringList({filter, filter}));
        QCOMPARE(player.ui.effectTracker->value(), steps + 50);
    }
    // To zero depth is a step as any other: the default depth comes with a mode only.
    player.ui.edt3DPos->setValue(0);
    QCOMPARE(shown(player), "Red/Cyan, 0, 50");
}

// The call still carries the depth before; the one 100 ms later brings the new one.
void tst_Panel3D::aSliderStepMovesTheSpinBox()
{
    Previewing player;
    player.ui.effectTracker->setValue(65);
    QCOMPARE(player.calls(), QStringList("KestAddFilter(9, mode 4, depth 0.03)"));
    QCOMPARE(shown(player), "Red/Cyan, 15, 65");
    QCOMPARE(settings(player, 1), "4 at 0.03");
    player.ui.effectTracker->setValue(0);
    QCOMPARE(player.calls(), QStringList("KestAddFilter(9, mode 4, depth 0.09)"));
    QCOMPARE(shown(player), "Red/Cyan, -50, 0");
}

void tst_Panel3D::sendsToTheFileWhileStopped()
{
    Previewing player;
    player.impl.stopVideo(true);
    player.calls();
    player.ui.cbx3DMode->setCurrentIndex(2);
    player.ui.edt3DPos->setValue(1);
    player.ui.effectTracker->setValue(52);
    QCOMPARE(player.calls(),
             QStringList({"KestAddFilter2(20, 9, mode 1, depth 0.03)",
                          "KestAddFilter2(20, 9, mode 1, depth 0.006)",
                          "KestAddFilter2(20, 9, mode 1, depth 0.006)",
                          "KestAddFilter2(20, 9, mode 1, depth 0.006)"}));
}

void tst_Panel3D::asksNothingWithoutAnEngine()
{
    Player player;
    player.impl.initialize(nullptr);
    player.ui.cbx3DMode->setCurrentIndex(3);
    QCOMPARE(shown(player), "Red/Blue, -2, 48");
    player.ui.edt3DPos->setValue(4);
    QCOMPARE(shown(player), "Red/Blue, 4, 54");
    player.ui.effectTracker->setValue(40);
    QCOMPARE(shown(player), "Red/Blue, -10, 40");
    QCOMPARE(player.calls(), QStringList());
    QVERIFY(!player.impl.reapplyPending);
}

void tst_Panel3D::goesOnWhenTheEngineRefusesASetting()
{
    Previewing player;
    player.engine.setResult("KestAddFilter", -3);
    player.ui.edt3DPos->setValue(6);
    QCOMPARE(shown(player), "Red/Cyan, 6, 56");
    QCOMPARE(player.impl.errorList().size(), 2);
    player.ui.cbx3DMode->setCurrentIndex(0);
    QCOMPARE(shown(player), "Turn off 3D, 6, 56, depth disabled");
    QCOMPARE(player.impl.errorList().size(), 3);
    QCOMPARE(settings(player, 1), "11 at 0.036");
}

void tst_Panel3D::removesAMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("position");
    QTest::newRow("red/cyan") << 4 << 1;
    QTest::newRow("red/green") << 1 << 2;
    QTest::newRow("red/blue") << 2 << 3;
    QTest::newRow("blue/yellow") << 6 << 4;
    QTest::newRow("interleaved") << 8 << 5;
    QTest::newRow("side by side") << 9 << 6;
}

void tst_Panel3D::removesAMode()
{
    QFETCH(int, mode);
    QFETCH(int, position);
    Player player;
    player.widget->set3DModeVisible(static_cast<tagKest3DMode>(mode));
    QStringList rest = sevenEntries;
    rest.removeAt(position);
    QCOMPARE(entries(player), rest);
    QCOMPARE(player.impl.hiddenModeTextId, position + 8);
    QCOMPARE(player.calls(), QStringList());
}

void tst_Panel3D::removesNothingForOtherModes_data()
{
    QTest::addColumn<int>("mode");
    for (int mode : {11, 0, 3, 5, 7, 10, 12})
        QTest::addRow("%d", mode) << mode;
}

void tst_Panel3D::removesNothingForOtherModes()
{
    QFETCH(int, mode);
    Player player;
    player.widget->set3DModeVisible(static_cast<tagKest3DMode>(mode));
    QCOMPARE(entries(player), sevenEntries);
    QCOMPARE(player.impl.hiddenModeTextId, 19);
}

void tst_Panel3D::removesByPlaceASecondTime()
{
    Player player;
    player.widget->set3DModeVisible(Kest3DRedCyan);
    player.widget->set3DModeVisible(Kest3DRedCyan);
    QStringList rest = sevenEntries.mid(3);
    rest.prepend("Turn off 3D");
    QCOMPARE(entries(player), rest);
    QCOMPARE(player.impl.hiddenModeTextId, 9);
    player.widget->set3DModeVisible(Kest3DRedBlue);
    rest.removeAt(3);
    QCOMPARE(entries(player), rest);
    QCOMPARE(player.impl.hiddenModeTextId, 11);
    player.widget->set3DModeVisible(Kest3DTurnOff);
    QCOMPARE(entries(player), rest);
    QCOMPARE(player.impl.hiddenModeTextId, 11);
}

void tst_Panel3D::removesNothingPastTheEnd()
{
    Player player;
    player.widget->set3DModeVisible(Kest3DRedCyan);
    player.widget->set3DModeVisible(Kest3DSlideBySlide);
    QStringList rest = sevenEntries;
    rest.removeAt(1);
    QCOMPARE(entries(player), rest);
    // The text of the place is left out all the same.
    QCOMPARE(player.impl.hiddenModeTextId, int(PlayWidget::ModeSlideBySlideText));
}

// Removing the entry that is shown chooses another; there is no engine yet that could hear of it.
void tst_Panel3D::removesAModeBeforeItHasTheEngine()
{
    FakeKest::instance().reset();
    PlayWidget widget;
    widget.m_impl->ui.cbx3DMode->setCurrentIndex(1);
    widget.initialize(FakeKest::handle(), Kest3DRedCyan);
    QCOMPARE(widget.m_impl->ui.cbx3DMode->count(), 6);
    QVERIFY(widget.m_impl->ui.cbx3DMode->currentText() != "Red/Cyan");
    QCOMPARE(FakeKest::instance().takeCalls(), QStringList());
}

void tst_Panel3D::resetsChangedItemsOnly()
{
    Previewing player;
    player.change(0, 4, 0.06);
    player.change(2, 11, 0.03);
    player.impl.resetAll();
    QCOMPARE(player.calls(),
             QStringList({"KestAddFilter2(10, 9, mode 4, depth 0.03)",
                          "KestAddFilter2(30, 9, mode 4, depth 0.03)"}));
    for (int i = 0; i < 3; ++i)
        QVERIFY(!player.impl.playItem(i)->isChanged());
    player.impl.resetAll();
    QCOMPARE(player.calls(), QStringList());
}

void tst_Panel3D::resetsTheSelectedItemLikeAnother()
{
    Previewing player;
    player.change(1, 2, 0.1);
    player.impl.resetAll();
    QCOMPARE(player.calls(), QStringList("KestAddFilter2(20, 9, mode 4, depth 0.03)"));
    QCOMPARE(settings(player, 1), "4 at 0.03");
}

void tst_Panel3D::resetLeavesThePanel()
{
    Previewing player;
    player.ui.cbx3DMode->setCurrentIndex(5);
    player.ui.edt3DPos->setValue(-7);
    player.impl.resetAll();
    QCOMPARE(shown(player), "Interleaved, -7, 43");
    QCOMPARE(settings(player, 1), "4 at 0.03");
}

void tst_Panel3D::resetsItemsWhoseDepthIsNoNumber()
{
    Player player;
    player.widget->addPlayItem(40, "a", false, 4, std::nan(""));
    player.impl.resetAll();
    QCOMPARE(player.calls(), QStringList("KestAddFilter2(40, 9, mode 4, depth nan)"));
}

void tst_Panel3D::resetGoesOnPastFailures()
{
    Previewing player;
    player.change(0, 1, 0.01);
    player.change(2, 2, 0.02);
    player.engine.setResult("KestAddFilter2", 77);
    player.impl.resetAll();
    QCOMPARE(player.calls().size(), 2);
    ErrorList expected;
    expected.addFunctionErrorWithCode("KestAddFilter2", 77);
    expected.addFunctionErrorWithCode("KestAddFilter2", 77);
    QCOMPARE(player.impl.errorList(), expected);
    QCOMPARE(settings(player, 0), "1 at 0.01");
    QCOMPARE(settings(player, 2), "2 at 0.02");
}

void tst_Panel3D::resetRecordsEachFailureWithItsOwnCode()
{
    Player player(5, 4, 0.03);
    for (PlayItem *item : player.impl.playItems)
        item->depth = 0.06;
    player.engine.setFileResult(20, -3);
    player.engine.setFileResult(40, 8);
    player.impl.resetAll();
    QCOMPARE(player.calls().size(), 5);
    QCOMPARE(player.widget->errorString(),
             "ERROR: KestAddFilter2 function failed. [Code: -3]\r\n"
             "ERROR: KestAddFilter2 function failed. [Code: 8]");
    for (int index : {0, 2, 4})
        QCOMPARE(settings(player, index), "4 at 0.03");
    for (int index : {1, 3})
        QCOMPARE(settings(player, index), "4 at 0.06");
}

void tst_Panel3D::resetsWithoutAnEngine()
{
    Previewing player;
    player.change(0, 1, 0.01);
    player.impl.initialize(nullptr);
    player.impl.resetAll();
    QCOMPARE(player.calls(), QStringList("KestAddFilter2(10, 9, mode 4, depth 0.03)"));
    QCOMPARE(player.engine.lastEngine(), nullptr);
    QCOMPARE(settings(player, 0), "4 at 0.03");
}

void tst_Panel3D::appliesToAllButTheSelected()
{
    Previewing player;
    player.ui.cbx3DMode->setCurrentIndex(4);
    player.ui.edt3DPos->setValue(-9);
    player.change(1, 1, 0.5);
    player.change(2, 6, -0.054);
    player.calls();
    player.impl.applyToAll();
    QCOMPARE(player.calls(),
             QStringList({"KestAddFilter2(10, 9, mode 6, depth -0.054)",
                          "KestAddFilter2(30, 9, mode 6, depth -0.054)"}));
    QCOMPARE(settings(player, 0), "6 at -0.054");
    QCOMPARE(settings(player, 1), "1 at 0.5");
    QCOMPARE(settings(player, 2), "6 at -0.054");
    QCOMPARE(player.impl.playItem(0)->savedMode, 4);
    QCOMPARE(player.impl.playItem(0)->savedDepth, 0.03);
}

void tst_Panel3D::appliesToAllWithoutASelection()
{
    Player player(2);
    QCOMPARE(player.widget->playIndex(), -1);
    player.impl.applyToAll();
    QCOMPARE(player.calls(),
             QStringList({"KestAddFilter2(10, 9, mode 11, depth 0)",
                          "KestAddFilter2(20, 9, mode 11, depth 0)"}));
}

void tst_Panel3D::applyGoesOnPastFailures()
{
    Previewing player;
    player.ui.cbx3DMode->setCurrentIndex(0);
    player.calls();
    player.engine.setResult("KestAddFilter2", -1);
    player.impl.applyToAll();
    QCOMPARE(player.calls().size(), 2);
    ErrorList expected;
    expected.addFunctionErrorWithCode("KestAddFilter2", -1);
    expected.addFunctionErrorWithCode("KestAddFilter2", -1);
    QCOMPARE(player.impl.errorList(), expected);
    QCOMPARE(settings(player, 0), "4 at 0.03");
    QCOMPARE(settings(player, 2), "4 at 0.03");
}

void tst_Panel3D::appliesWithoutAnEngine()
{
    Previewing player;
    player.impl.initialize(nullptr);
    player.impl.applyToAll();
    QCOMPARE(player.calls().size(), 2);
    QCOMPARE(player.engine.lastEngine(), nullptr);
}

void tst_Panel3D::tellsWhetherToApplyToAll()
{
    const Player player;
    player.ui.chxApplyToAll->click();
    QVERIFY(player.widget->getApplyToAll());
    player.ui.chxApplyToAll->click();
    QVERIFY(!player.widget->getApplyToAll());
}

void tst_Panel3D::okStopsAndAccepts()
{
    Previewing player;
    player.change(0, 1, 0.01);
    player.press(QDialogButtonBox::Ok);
    QCOMPARE(player.calls(), stoppedWithSave + QStringList("accepted"));
    QCOMPARE(settings(player, 0), "1 at 0.01");
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Stopped));
}

void tst_Panel3D::okAppliesToAllBeforeItAccepts()
{
    Previewing player;
    player.ui.chxApplyToAll->setChecked(true);
    player.ui.cbx3DMode->setCurrentIndex(5);
    player.calls();
    player.press(QDialogButtonBox::Ok);
    QCOMPARE(player.calls(),
             stoppedWithSave
                 + QStringList({"KestAddFilter2(10, 9, mode 8, depth 0.03)",
                                "KestAddFilter2(30, 9, mode 8, depth 0.03)", "accepted"}));
    QCOMPARE(settings(player, 1), "8 at 0.03");
}

void tst_Panel3D::okWhileStoppedOnlyAccepts()
{
    Previewing player;
    player.impl.stopVideo(true);
    player.calls();
    player.press(QDialogButtonBox::Ok);
    QCOMPARE(player.calls(), QStringList("accepted"));
}

void tst_Panel3D::okTakesTheMouse()
{
    Previewing player;
    QSignalSpy accepted(player.widget.get(), &PlayWidget::accepted);
    QSignalSpy rejected(player.widget.get(), &PlayWidget::rejected);
    player.widget->show();
    QTest::mouseClick(player.ui.buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(rejected.count(), 0);
    QTest::mouseClick(player.ui.buttonBox->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(rejected.count(), 1);
}

void tst_Panel3D::cancelStopsResetsAndRejects()
{
    Previewing player;
    player.change(2, 9, 0.3);
    player.press(QDialogButtonBox::Cancel);
    QCOMPARE(player.calls(),
             stoppedWithoutSave
                 + QStringList({"KestAddFilter2(30, 9, mode 4, depth 0.03)", "rejected"}));
    QCOMPARE(settings(player, 2), "4 at 0.03");
}

void tst_Panel3D::cancelResetsTheOneChangedItem()
{
    Previewing player;
    player.ui.cbx3DMode->setCurrentIndex(6);
    player.calls();
    player.press(QDialogButtonBox::Cancel);
    QCOMPARE(player.calls(),
             stoppedWithoutSave
                 + QStringList({"KestAddFilter2(20, 9, mode 4, depth 0.03)", "rejected"}));
}

void tst_Panel3D::cancelDoesNotApplyToAll()
{
    Previewing player;
    player.ui.chxApplyToAll->setChecked(true);
    player.press(QDialogButtonBox::Cancel);
    QCOMPARE(player.calls(), stoppedWithoutSave + QStringList("rejected"));
}

void tst_Panel3D::anyOtherButtonCancels()
{
    Previewing player;
    QPushButton foreign;
    player.impl.buttonBoxClicked(&foreign);
    QCOMPARE(player.calls(), stoppedWithoutSave + QStringList("rejected"));
    player.impl.buttonBoxClicked(nullptr);
    QCOMPARE(player.calls(), QStringList("rejected"));
}

void tst_Panel3D::cancelRejectsDespiteFailures()
{
    Previewing player;
    player.change(0, 1, 0.01);
    player.engine.setResult("KestEditEnd", 4);
    player.engine.setResult("KestAddFilter2", 5);
    player.press(QDialogButtonBox::Cancel);
    QCOMPARE(player.calls(),
             stoppedWithoutSave
                 + QStringList({"KestAddFilter2(10, 9, mode 4, depth 0.03)", "rejected"}));
    ErrorList expected;
    expected.addFunctionErrorWithCode("KestEditEnd", 4);
    expected.addFunctionErrorWithCode("KestAddFilter2", 5);
    QCOMPARE(player.impl.errorList(), expected);
}

void tst_Panel3D::escapeCancelsAndReachesTheHost()
{
    Host host;
    Previewing player;
    player.widget->setParent(&host);
    player.change(0, 1, 0.01);
    QTest::keyPress(&player.impl, Qt::Key_Escape);
    QCOMPARE(player.calls(),
             stoppedWithoutSave
                 + QStringList({"KestAddFilter2(10, 9, mode 4, depth 0.03)", "rejected",
                                "host has key 1000000"}));
    QTest::keyPress(&player.impl, Qt::Key_Escape);
    QCOMPARE(player.calls(), QStringList({"rejected", "host has key 1000000"}));
}

void tst_Panel3D::escapeCancelsWhateverIsHeldWithIt()
{
    for (Qt::KeyboardModifier held : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        Previewing player;
        QTest::keyPress(&player.impl, Qt::Key_Escape, held);
        QCOMPARE(player.calls(), stoppedWithoutSave + QStringList("rejected"));
    }
}

void tst_Panel3D::escapeInTheSpinBoxCancels()
{
    Previewing player;
    QTest::keyPress(player.ui.edt3DPos, Qt::Key_Escape);
    QCOMPARE(player.calls(), stoppedWithoutSave + QStringList("rejected"));
}

void tst_Panel3D::otherKeysReachTheHostOnly_data()
{
    QTest::addColumn<int>("key");
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A, Qt::Key_Tab})
        QTest::addRow("%x", key) << int(key);
}

void tst_Panel3D::otherKeysReachTheHostOnly()
{
    QFETCH(int, key);
    Host host;
    Previewing player;
    player.widget->setParent(&host);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    player.impl.keyPressEvent(&event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(player.calls(), QStringList());
    if (key == Qt::Key_Tab)  // moves the focus on its way up
        return;
    QTest::keyPress(&player.impl, static_cast<Qt::Key>(key));
    QCOMPARE(player.calls(), QStringList("host has key " + QString::number(key, 16)));
}

void tst_Panel3D::hidingStopsAndRestoresNothing()
{
    Previewing player;
    player.widget->show();
    player.change(0, 1, 0.01);
    player.ui.cbx3DMode->setCurrentIndex(6);
    player.calls();
    player.widget->hide();
    QCOMPARE(player.calls(), stoppedWithoutSave);
    QCOMPARE(settings(player, 0), "1 at 0.01");
    QCOMPARE(settings(player, 1), "9 at 0.03");
}

void tst_Panel3D::hidingWhileStoppedDoesNothing()
{
    Player player;
    player.widget->show();
    player.widget->hide();
    QCOMPARE(player.calls(), QStringList());
}

QTEST_MAIN(tst_Panel3D)
#include "tst_panel3d.moc"
