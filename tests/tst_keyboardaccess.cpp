// The player operated by keys alone: reaching every control, every action, the bar, and the setting.
// Not here: one slider's keys (tst_trackerkeys), how the focus is marked (tst_focusmark).
#include "playwidget/focusmark.h"
#include "playwidget/keyboardaccess.h"
#include "widgetfixture.h"

#include "engine/videownd.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

// A window of the host's with the player between two controls of its own, and hands on the keys.
struct Desk : Player
{
    explicit Desk(int count = 3, bool on = true)
        : Player(count, Kest3DRedCyan, -0.012)
    {
        setKeyboardAccess(widget.get(), on);
        auto *layout = new QVBoxLayout(&window);
        before.setObjectName("before");
        after.setObjectName("after");
        layout->addWidget(&before);
        layout->addWidget(widget.get());
        layout->addWidget(&after);
        window.resize(720, 680);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        ui.cbx3DMode->setFocus();
    }
    ~Desk() { widget->setParent(nullptr); }

    /// Without those that send the 3D settings: they come again by themselves a moment later.
    QStringList calls() { return withoutFilters(Player::calls()); }
    static QStringList withoutFilters(const QStringList &calls)
    {
        return calls.filter(QRegularExpression("^(?!KestAddFilter)"));
    }

    /// Presses and releases a key where the focus is, and lets the focus settle.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QCoreApplication::processEvents();
    }

    /// Tab until the control has the focus.
    void reach(const QWidget *control)
    {
        for (int i = 0; i < 30 && QApplication::focusWidget() != control; ++i)
            key(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), control);
    }

    static QString focus()
    {
        QWidget *widget = QApplication::focusWidget();
        const auto *button = qobject_cast<QPushButton *>(widget);
        return button ? button->text() : widget ? widget->objectName() : "nothing";
    }

    /// Where a key leads, one after the other, until it comes to where it started.
    QStringList tour(Qt::Key key)
    {
        QStringList found;
        do {
            found += focus();
            this->key(key);
        } while (found.size() < 40 && found.first() != focus());
        return found;
    }

    bool barShown() const { return !ui.panPlayControl->isHidden(); }
    FocusMark *mark() const { return window.findChild<FocusMark *>(); }
    QPushButton *ok() const { return ui.buttonBox->button(QDialogButtonBox::Ok); }
    QPushButton *cancel() const { return ui.buttonBox->button(QDialogButtonBox::Cancel); }

    void mouse(QWidget *over, QEvent::Type type)
    {
        QEvent event(type);
        QCoreApplication::sendEvent(over, &event);
    }
    void idle(int ticks)
    {
        for (int i = 0; i < ticks; ++i)
            tick(impl.mouseDetectTimer);
    }

    QWidget window;
    QLineEdit before;
    QLineEdit after;
};

QString allRules()
{
    QFile file(":/qss/Varlume.qss");
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
}

}  // namespace

class tst_KeyboardAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void isOnAtFirst();
    void bearsNull();

    void tabGoesThroughEverythingInOrder();
    void backtabGoesThroughEverythingBackwards();
    void tabPassesOverWhatIsDisabled();
    void tabFromTheHostFindsTheHiddenBar();
    void backtabFromTheHostComesToTheLast();
    void tabReachesWhatAStyleSheetTookOut();

    void pressesEachButton_data();
    void pressesEachButton();
    void changesTheVolume();
    void seeksOnceWhenTheKeyIsReleased();
    void seeksToTheEnds();
    void choosesAMode();
    void changesTheDepth_data();
    void changesTheDepth();
    void appliesToAll();
    void endsWithOk();
    void endsWithCancel();
    void endsWithEscapeFromEverywhere();

    void showsTheBarWhileTheFocusIsInIt();
    void showsTheBarForTabOnly();
    void staysThroughIdleTicks();
    void staysWhenTheMouseLeaves();
    void leavesTheBarToTheMouseAgain();
    void hidesTheBarWithTheFocus();
    void hidesFromAFocusThatNoKeyBrought();
    void staysWhileAnotherWindowIsActive();
    void aClickIntoThePictureGivesTheFocusUp();
    void aClickOnTheBarKeepsIt();
    void theEndOfTheFilmLeavesTheFocusInTheBar();
    void theLastFileLeavesTheFocusInTheBar();

    void marksWhatTheKeysReached();
    void marksNothingForTheMouse();
    void aClickTakesTheMarkAway();
    void marksAgainWhenTheWindowIsBack();
    void paintsAsWithoutItWhileNothingIsMarked();

    void offIsThePlainPlayer();
    void offLeavesKeysUnhandled();
    void canBeSwitchedWhileTheFocusIsInTheBar();
    void canBeSwitchedInTheMiddleOfADrag();
    void canBeDeletedWithTheFocusInTheBar();
    void worksInARightToLeftLayout();
};

void tst_KeyboardAccess::isOnAtFirst()
{
    const Player player;
    QVERIFY(hasKeyboardAccess(player.widget.get()));
    setKeyboardAccess(player.widget.get(), true);
    QVERIFY(hasKeyboardAccess(player.widget.get()));
    setKeyboardAccess(player.widget.get(), false);
    setKeyboardAccess(player.widget.get(), false);
    QVERIFY(!hasKeyboardAccess(player.widget.get()));
}

void tst_KeyboardAccess::bearsNull()
{
    setKeyboardAccess(nullptr, true);
    setKeyboardAccess(nullptr, false);
    QVERIFY(!hasKeyboardAccess(nullptr));
}

void tst_KeyboardAccess::tabGoesThroughEverythingInOrder()
{
    Desk desk;
    desk.play(1);
    const QStringList expected{
        "cbx3DMode",           "edt3DPos",     "effectTracker", "chxApplyToAll", desk.ok()->text(),
        desk.cancel()->text(), "after",        "before",        "btnVolumeLeft", "volumeTracker",
        "btnVolumeRight",      "btnPriorFile", "btnPriorPart",  "btnPlay",       "btnNextPart",
        "btnNextFile",         "playTracker"};
    QCOMPARE(desk.tour(Qt::Key_Tab), expected);
}

void tst_KeyboardAccess::backtabGoesThroughEverythingBackwards()
{
    Desk desk;
    desk.play(1);
    const QStringList expected{
        "cbx3DMode",     "playTracker",  "btnNextFile",         "btnNextPart",     "btnPlay",
        "btnPriorPart",  "btnPriorFile", "btnVolumeRight",      "volumeTracker",   "btnVolumeLeft",
        "before",        "after",        desk.cancel()->text(), desk.ok()->text(), "chxApplyToAll",
        "effectTracker", "edt3DPos"};
    QCOMPARE(desk.tour(Qt::Key_Backtab), expected);
}

void tst_KeyboardAccess::tabPassesOverWhatIsDisabled()
{
    Desk desk(1);
    desk.impl.movie3DModeToUI(Kest3DTurnOff);
    desk.widget->setPlayIndex(0);
    desk.impl.stopVideo(true);
    desk.impl.movie3DModeToUI(Kest3DTurnOff);
    const QStringList expected{"cbx3DMode",           "chxApplyToAll", desk.ok()->text(),
                               desk.cancel()->text(), "after",         "before",
                               "btnVolumeLeft",       "volumeTracker", "btnVolumeRight",
                               "btnPriorPart",        "btnPlay",       "btnNextPart"};
    QCOMPARE(desk.tour(Qt::Key_Tab), expected);
}

void tst_KeyboardAccess::tabFromTheHostFindsTheHiddenBar()
{
    Desk desk;
    desk.before.setFocus();
    QVERIFY(!desk.barShown());
    desk.key(Qt::Key_Tab);
    QTRY_COMPARE(desk.focus(), "btnVolumeLeft");
    QVERIFY(desk.barShown());
}

void tst_KeyboardAccess::backtabFromTheHostComesToTheLast()
{
    Desk desk;
    desk.after.setFocus();
    desk.key(Qt::Key_Backtab);
    QCOMPARE(desk.focus(), desk.cancel()->text());
    QVERIFY(!desk.barShown());
}

void tst_KeyboardAccess::tabReachesWhatAStyleSheetTookOut()
{
    Desk desk;
    desk.window.setStyleSheet(allRules());
    desk.reach(desk.ui.chxApplyToAll);
    desk.reach(desk.ok());
    desk.reach(desk.cancel());
    setKeyboardAccess(desk.widget.get(), false);
    for (const QWidget *control :
         std::initializer_list<QWidget *>{desk.ui.chxApplyToAll, desk.ok(), desk.cancel()})
        QCOMPARE(control->focusPolicy(), Qt::NoFocus);
}

void tst_KeyboardAccess::pressesEachButton_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("calls");
    const auto stepTo = [](int fileId) {
        return Desk::withoutFilters(Player::stopCalls(true) + Player::startCalls(fileId));
    };
    QTest::newRow("silence") << "btnVolumeLeft" << QStringList("KestChangeVolume(0)");
    QTest::newRow("full volume") << "btnVolumeRight" << QStringList("KestChangeVolume(200)");
    QTest::newRow("prior file") << "btnPriorFile" << stepTo(10);
    QTest::newRow("prior part") << "btnPriorPart" << QStringList("KestSetCurPos(7000)");
    QTest::newRow("play") << "btnPlay" << QStringList("KestPause()");
    QTest::newRow("next part") << "btnNextPart" << QStringList("KestSetCurPos(17000)");
    QTest::newRow("next file") << "btnNextFile" << stepTo(30);
}

void tst_KeyboardAccess::pressesEachButton()
{
    QFETCH(QString, button);
    QFETCH(QStringList, calls);
    Desk desk;
    desk.play(1);
    desk.impl.position = 12000;
    desk.reach(desk.widget->findChild<QWidget *>(button));
    QCOMPARE(desk.calls(), QStringList());
    desk.key(Qt::Key_Space);
    QCOMPARE(desk.calls(), calls);
}

void tst_KeyboardAccess::changesTheVolume()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.volumeTracker);
    desk.key(Qt::Key_Right);
    desk.key(Qt::Key_PageDown);
    desk.key(Qt::Key_Home);
    QCOMPARE(desk.calls(),
             QStringList({"KestChangeVolume(102)", "KestChangeVolume(82)", "KestChangeVolume(0)"}));
    QCOMPARE(desk.ui.volumeTracker->getValue(), 0);
}

void tst_KeyboardAccess::seeksOnceWhenTheKeyIsReleased()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.playTracker);
    QTest::keyPress(desk.ui.playTracker, Qt::Key_PageUp);
    desk.impl.playUpdateTimerTimeOut();
    QTest::keyPress(desk.ui.playTracker, Qt::Key_Right);
    QCOMPARE(desk.calls(), QStringList());
    QCOMPARE(desk.ui.playTracker->getValue(), 110);
    QTest::keyRelease(desk.ui.playTracker, Qt::Key_Right);
    QCOMPARE(desk.calls(), QStringList("KestSetCurPos(6600)"));
    QCOMPARE(desk.ui.lblElapsedTime->text(), "00:00:06");
}

void tst_KeyboardAccess::seeksToTheEnds()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.playTracker);
    desk.key(Qt::Key_End);
    desk.key(Qt::Key_Home);
    QCOMPARE(desk.calls(), QStringList({"KestSetCurPos(60000)", "KestSetCurPos(0)"}));
}

void tst_KeyboardAccess::choosesAMode()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.cbx3DMode);
    desk.key(Qt::Key_Down);
    QCOMPARE(desk.ui.cbx3DMode->currentText(), "Red/Green");
    QCOMPARE(desk.engine.addedFilter().mode, 1);
}

void tst_KeyboardAccess::changesTheDepth_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("steps");
    QTest::newRow("box, up") << "edt3DPos" << Qt::Key_Up << -1;
    QTest::newRow("box, down") << "edt3DPos" << Qt::Key_Down << -3;
    QTest::newRow("slider, right") << "effectTracker" << Qt::Key_Right << -1;
    QTest::newRow("slider, left") << "effectTracker" << Qt::Key_Left << -3;
    QTest::newRow("slider, to its end") << "effectTracker" << Qt::Key_End << 50;
}

void tst_KeyboardAccess::changesTheDepth()
{
    QFETCH(QString, control);
    QFETCH(Qt::Key, key);
    QFETCH(int, steps);
    Desk desk;
    desk.play();
    desk.reach(desk.widget->findChild<QWidget *>(control));
    desk.key(key);
    QCOMPARE(desk.ui.edt3DPos->value(), steps);
    QCOMPARE(desk.ui.effectTracker->value(), steps + 50);
    desk.impl.delaySetAgain();
    QCOMPARE(double(desk.engine.addedFilter().depth), steps * 0.006);
}

void tst_KeyboardAccess::appliesToAll()
{
    Desk desk;
    desk.reach(desk.ui.chxApplyToAll);
    desk.key(Qt::Key_Space);
    QVERIFY(desk.widget->getApplyToAll());
}

void tst_KeyboardAccess::endsWithOk()
{
    Desk desk;
    desk.play();
    const QSignalSpy accepted(desk.widget.get(), &PlayWidget::accepted);
    desk.reach(desk.ok());
    desk.key(Qt::Key_Space);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(desk.calls(), Player::stopCalls(true));
}

void tst_KeyboardAccess::endsWithCancel()
{
    Desk desk;
    desk.play();
    const QSignalSpy rejected(desk.widget.get(), &PlayWidget::rejected);
    desk.reach(desk.cancel());
    desk.key(Qt::Key_Space);
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(desk.calls(), Player::stopCalls(false));
}

void tst_KeyboardAccess::endsWithEscapeFromEverywhere()
{
    Desk desk;
    desk.play(1);
    const QSignalSpy rejected(desk.widget.get(), &PlayWidget::rejected);
    int expected = 0;
    for (const QString &control : desk.tour(Qt::Key_Tab)) {
        if (control == "before" || control == "after") {
            desk.key(Qt::Key_Tab);
            continue;
        }
        desk.key(Qt::Key_Escape);
        QCOMPARE(rejected.count(), ++expected);
        desk.play(1);
        desk.key(Qt::Key_Tab);
    }
    QCOMPARE(expected, 15);
}

void tst_KeyboardAccess::showsTheBarWhileTheFocusIsInIt()
{
    Desk desk;
    desk.play();
    QVERIFY(!desk.barShown());
    desk.key(Qt::Key_Backtab);
    QCOMPARE(desk.focus(), "playTracker");
    QVERIFY(desk.barShown());
    QVERIFY(!desk.ui.lblFileName->isHidden());
    desk.key(Qt::Key_Tab);
    QCOMPARE(desk.focus(), "cbx3DMode");
    QVERIFY(!desk.barShown());
    QVERIFY(desk.ui.lblFileName->isHidden());
    QVERIFY(!desk.impl.mouseDetectTimer->isActive());
    QVERIFY(!desk.impl.mouseInVideo);
    QVERIFY(!desk.impl.mouseOverPanel);
}

void tst_KeyboardAccess::showsTheBarForTabOnly()
{
    Desk desk;
    desk.play();
    desk.key(Qt::Key_Tab);
    QCOMPARE(desk.focus(), "edt3DPos");
    QVERIFY(!desk.barShown());
    QTest::keyPress(desk.ui.edt3DPos, Qt::Key_Up);
    QVERIFY(!desk.barShown());
}

void tst_KeyboardAccess::staysThroughIdleTicks()
{
    Desk desk;
    desk.reach(desk.ui.btnPlay);
    desk.idle(100);
    QVERIFY(desk.barShown());
    QCOMPARE(desk.focus(), "btnPlay");
}

void tst_KeyboardAccess::staysWhenTheMouseLeaves()
{
    Desk desk;
    desk.mouse(desk.ui.videoWnd, QEvent::Enter);
    desk.mouse(desk.ui.panPlayControl, QEvent::Enter);
    desk.reach(desk.ui.btnPlay);
    desk.mouse(desk.ui.panPlayControl, QEvent::Leave);
    desk.idle(100);
    desk.mouse(desk.ui.videoWnd, QEvent::Leave);
    QVERIFY(desk.barShown());
    QCOMPARE(desk.focus(), "btnPlay");
    desk.reach(desk.ui.cbx3DMode);
    QVERIFY(!desk.barShown());
}

void tst_KeyboardAccess::leavesTheBarToTheMouseAgain()
{
    Desk desk;
    desk.mouse(desk.ui.videoWnd, QEvent::Enter);
    desk.reach(desk.ui.btnPlay);
    desk.reach(desk.ui.cbx3DMode);
    QVERIFY(desk.barShown());
    desk.impl.idleTicks = 0;
    desk.idle(4);
    QVERIFY(desk.barShown());
    desk.idle(1);
    QVERIFY(!desk.barShown());
    desk.mouse(desk.ui.videoWnd, QEvent::Leave);
    QVERIFY(!desk.impl.mouseInVideo);
}

void tst_KeyboardAccess::hidesTheBarWithTheFocus()
{
    Desk desk;
    desk.reach(desk.ui.btnPlay);
    desk.before.setFocus();
    QCoreApplication::processEvents();
    QVERIFY(!desk.barShown());
}

// As a window gives it to its first control when it opens under the mouse.
void tst_KeyboardAccess::hidesFromAFocusThatNoKeyBrought()
{
    Desk desk;
    desk.mouse(desk.ui.videoWnd, QEvent::Enter);
    desk.ui.btnVolumeLeft->setFocus(Qt::ActiveWindowFocusReason);
    QCoreApplication::processEvents();
    desk.impl.idleTicks = 0;
    desk.idle(5);
    QCoreApplication::processEvents();
    QVERIFY(!desk.barShown());
    QCOMPARE(desk.focus(), "cbx3DMode");
    QVERIFY(!desk.mark());
}

void tst_KeyboardAccess::staysWhileAnotherWindowIsActive()
{
    Desk desk;
    desk.reach(desk.ui.btnPlay);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    desk.idle(100);
    QVERIFY(desk.barShown());
}

void tst_KeyboardAccess::aClickIntoThePictureGivesTheFocusUp()
{
    Desk desk;
    desk.reach(desk.ui.btnPlay);
    QTest::mouseClick(desk.ui.videoWnd, Qt::LeftButton, {}, QPoint(50, 100));
    QCoreApplication::processEvents();
    QCOMPARE(desk.focus(), "videoWnd");
    QVERIFY(!desk.barShown());
    desk.key(Qt::Key_Tab);
    QCOMPARE(desk.focus(), "btnVolumeLeft");
}

void tst_KeyboardAccess::aClickOnTheBarKeepsIt()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.btnPlay);
    QTest::mouseClick(desk.ui.playTracker, Qt::LeftButton, {}, QPoint(120, 7));
    QCoreApplication::processEvents();
    QCOMPARE(desk.focus(), "btnPlay");
    QVERIFY(desk.barShown());
}

void tst_KeyboardAccess::theEndOfTheFilmLeavesTheFocusInTheBar()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.playTracker);
    desk.report(5, 60000);
    QCoreApplication::processEvents();
    QCOMPARE(desk.focus(), "btnPlay");
    QVERIFY(desk.barShown());
}

void tst_KeyboardAccess::theLastFileLeavesTheFocusInTheBar()
{
    Desk desk;
    desk.play(1);
    desk.reach(desk.ui.btnNextFile);
    desk.key(Qt::Key_Space);
    QVERIFY(!desk.ui.btnNextFile->isEnabled());
    QCOMPARE(desk.focus(), "btnPlay");
    QVERIFY(desk.barShown());
}

void tst_KeyboardAccess::marksWhatTheKeysReached()
{
    Desk desk;
    desk.play(1);
    QVERIFY(!desk.mark());
    for (int i = 0; i < 17; ++i) {
        desk.key(Qt::Key_Tab);
        const QWidget *control = QApplication::focusWidget();
        if (!desk.widget->isAncestorOf(control)) {
            QVERIFY(!desk.mark());
            continue;
        }
        QVERIFY2(desk.mark() && desk.mark()->isVisible(), qPrintable(desk.focus()));
        QWidget *page = desk.mark()->parentWidget();
        QCOMPARE(desk.mark()->geometry().center(), control->mapTo(page, control->rect().center()));
        QVERIFY2(page->rect().contains(desk.mark()->geometry()), qPrintable(desk.focus()));
    }
}

void tst_KeyboardAccess::marksNothingForTheMouse()
{
    Desk desk;
    desk.play();
    QTest::mouseClick(desk.ui.edt3DPos, Qt::LeftButton);
    QCOMPARE(desk.focus(), "edt3DPos");
    QVERIFY(!desk.mark());
    desk.mouse(desk.ui.videoWnd, QEvent::Enter);
    QTest::mouseClick(desk.ui.btnPlay, Qt::LeftButton);
    QTest::mouseClick(desk.ui.playTracker, Qt::LeftButton);
    QCOMPARE(desk.focus(), "edt3DPos");
    QVERIFY(!desk.mark());
}

void tst_KeyboardAccess::aClickTakesTheMarkAway()
{
    Desk desk;
    desk.reach(desk.ui.chxApplyToAll);
    QVERIFY(desk.mark());
    QTest::mouseClick(desk.ui.chxApplyToAll, Qt::LeftButton);
    QCOMPARE(desk.focus(), "chxApplyToAll");
    QVERIFY(!desk.mark());
}

void tst_KeyboardAccess::marksAgainWhenTheWindowIsBack()
{
    Desk desk;
    desk.reach(desk.ui.btnPlay);
    {
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!desk.mark());
    }
    desk.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&desk.window));
    QTRY_COMPARE(desk.focus(), "btnPlay");
    QVERIFY(desk.mark());
}

void tst_KeyboardAccess::paintsAsWithoutItWhileNothingIsMarked()
{
    const auto picture = [](bool on) {
        Desk desk(3, on);
        desk.play(1);
        desk.mouse(desk.ui.videoWnd, QEvent::Enter);
        desk.before.setFocus(Qt::MouseFocusReason);
        return desk.widget->grab().toImage();
    };
    QCOMPARE(picture(true), picture(false));
}

void tst_KeyboardAccess::offIsThePlainPlayer()
{
    Desk desk;
    desk.play();
    setKeyboardAccess(desk.widget.get(), false);
    const PlayWidget_Impl plain;
    const QList<QWidget *> widgets = plain.findChildren<QWidget *>();
    QCOMPARE(desk.impl.findChildren<QWidget *>().size(), widgets.size());
    for (const QWidget *widget : widgets) {
        if (widget->objectName().isEmpty())
            continue;
        const auto *same = desk.impl.findChild<QWidget *>(widget->objectName());
        QCOMPARE(same->focusPolicy(), widget->focusPolicy());
    }
    QCOMPARE(desk.ui.playTracker->focusPolicy(), Qt::NoFocus);
    QCOMPARE(desk.ui.volumeTracker->focusPolicy(), Qt::NoFocus);
    QCOMPARE(desk.tour(Qt::Key_Tab),
             QStringList({"cbx3DMode", "edt3DPos", "effectTracker", "chxApplyToAll",
                          desk.ok()->text(), desk.cancel()->text(), "after", "before"}));
    QVERIFY(!desk.barShown());
    QVERIFY(!desk.mark());
}

void tst_KeyboardAccess::offLeavesKeysUnhandled()
{
    Desk desk(3, false);
    desk.play();
    desk.mouse(desk.ui.videoWnd, QEvent::Enter);
    for (const int key : {Qt::Key_Left, Qt::Key_PageUp, Qt::Key_End}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(desk.ui.playTracker, &event);
        QVERIFY(!event.isAccepted());
    }
    QCOMPARE(desk.calls(), QStringList());
    desk.ui.btnPlay->setFocus(Qt::TabFocusReason);
    QVERIFY(!desk.mark());
    desk.idle(5);
    QVERIFY(!desk.barShown());
}

void tst_KeyboardAccess::canBeSwitchedWhileTheFocusIsInTheBar()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.playTracker);
    setKeyboardAccess(desk.widget.get(), false);
    QVERIFY(!desk.barShown());
    QVERIFY(!desk.mark());
    QVERIFY(!desk.ui.playTracker->hasFocus());
    setKeyboardAccess(desk.widget.get(), true);
    desk.ui.cbx3DMode->setFocus();
    desk.reach(desk.ui.playTracker);
    QVERIFY(desk.barShown());
}

void tst_KeyboardAccess::canBeSwitchedInTheMiddleOfADrag()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.playTracker);
    QTest::keyPress(desk.ui.playTracker, Qt::Key_PageUp);
    setKeyboardAccess(desk.widget.get(), false);
    QCOMPARE(desk.calls(), QStringList("KestSetCurPos(6000)"));
    QVERIFY(!desk.impl.trackerPressed);
}

void tst_KeyboardAccess::canBeDeletedWithTheFocusInTheBar()
{
    Desk desk;
    desk.play();
    desk.reach(desk.ui.btnPlay);
    desk.widget.reset(new PlayWidget);
    QCOMPARE(desk.calls(), Player::stopCalls(false));
}

void tst_KeyboardAccess::worksInARightToLeftLayout()
{
    Desk desk;
    desk.window.setLayoutDirection(Qt::RightToLeft);
    desk.play();
    desk.reach(desk.ui.playTracker);
    desk.key(Qt::Key_PageUp);
    desk.key(Qt::Key_Right);
    QCOMPARE(desk.calls(), QStringList({"KestSetCurPos(6000)", "KestSetCurPos(6600)"}));
    desk.reach(desk.ui.effectTracker);  // mirrored by Qt: left is more
    desk.key(Qt::Key_Left);
    QCOMPARE(desk.ui.edt3DPos->value(), -1);
}

QTEST_MAIN(tst_KeyboardAccess)
#include "tst_keyboardaccess.moc"
