// What the event filter does: control bar and file name over the video, the music picture, and the
// Return key in the depth box.
// Not here: the widget's own keys (tst_panel3d).
#include "engine/videownd.h"
#include "painting.h"
#include "widgetfixture.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

struct Watched : Player
{
    /// Whether the filter takes an event of the type from `watched`.
    bool takes(QObject *watched, QEvent::Type type)
    {
        QEvent event(type);
        return impl.eventFilter(watched, &event);
    }

    void enter() { send(ui.videoWnd, QEvent::Enter); }
    void leave() { send(ui.videoWnd, QEvent::Leave); }
    void move()
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(9, 9), QPointF(9, 9), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QVERIFY(QCoreApplication::sendEvent(ui.videoWnd, &event));
    }
    void enterBar() { send(ui.panPlayControl, QEvent::Enter); }
    void leaveBar() { send(ui.panPlayControl, QEvent::Leave); }

    void idle(int ticks)
    {
        for (int i = 0; i < ticks; ++i)
            tick(impl.mouseDetectTimer);
    }

    /// "bar and name", "nothing", or one of them.
    QString overlay() const
    {
        const bool bar = !ui.panPlayControl->isHidden();
        const bool name = !ui.lblFileName->isHidden();
        return bar && name ? "bar and name" : bar ? "bar" : name ? "name" : "nothing";
    }

private:
    static void send(QObject *watched, QEvent::Type type)
    {
        QEvent event(type);
        QVERIFY(QCoreApplication::sendEvent(watched, &event));
    }
};

// A window over which the pictures are painted, as large as given.
struct Cinema : Watched
{
    explicit Cinema(const QSize &size)
    {
        ui.videoWnd->setFixedSize(size);
        widget->addPlayItem(40, "sound.mp3", true, Kest3DTurnOff, 0);
        *impl.musicPicture = canvas({100, 80}, Qt::green);
    }

    QRect picture() { return whereIs(painted(*ui.videoWnd), Qt::green); }
};

// Paints the music picture within the window's own painting, for a region of the test's choice.
class PaintsAPart : public QObject
{
public:
    PaintsAPart(PlayWidget_Impl &impl, const QRegion &part)
        : m_impl(impl)
        , m_part(part)
    {
        impl.ui.videoWnd->installEventFilter(this);
    }

    bool taken = false;  // whether the window's own painting was left out

private:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        QPaintEvent part(m_part);
        return taken = m_impl.eventFilter(watched, &part);
    }

    PlayWidget_Impl &m_impl;
    QRegion m_part;
};

// A dialog as hosts build them: Return would press its default button.
struct HostDialog
{
    HostDialog()
        : player(new PlayWidget)
        , spinBox(player->m_impl->ui.edt3DPos)
    {
        player->setParent(&dialog);
        player->m_impl->ui.buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
        dialog.resize(player->actualSize());
        dialog.show();
        player->m_impl->movie3DModeToUI(Kest3DRedCyan);
        spinBox->setFocus();
    }

    QDialog dialog;
    PlayWidget *player;
    QSpinBox *spinBox;
};

}  // namespace

class tst_Overlay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void isHiddenAtFirst();
    void tracksTheMouseOverTheClientArea();
    void showsWhenTheMouseEnters();
    void showsWhenTheMouseMoves();
    void showsOnARealMouseMove();
    void hidesAtOnceWhenTheMouseLeaves();
    void leavingEndsTheSlidersDrags();
    void leavingHidesThenStopsTheTimerThenSeeks();
    void leavingEndsASeek();
    void leavingWithoutADragSeeksNothing();
    void hidesOnTheFifthIdleTick();
    void hidingByIdlenessEndsTheSlidersDrags();
    void ticksOnAfterHiding();
    void comesBackWithTheMouse();
    void aMoveStartsTheCountAnew();
    void enteringStartsTheCountAnew();
    void staysWhileTheMouseIsOnTheBar();
    void countsFromTheBarAnew();
    void countsNothingOutsideTheVideo();
    void ticksEverySecond();
    void takesEnterAndLeaveOfTheBar();
    void takesTheMouseOverTheVideo();
    void leavesOtherEventsAlone_data();
    void leavesOtherEventsAlone();
    void leavesOtherObjectsAlone();
    void paintsTheMusicPictureForSoundOnly();
    void crossesWidthAndHeight_data();
    void crossesWidthAndHeight();
    void paintsWithinTheEventsRegion();
    void paintsInTheRealWindow();
    void keepsReturnFromTheSpinBox();
    void leavesTheKeypadsEnterToTheSpinBox();
    void filtersReturnPressesOnly();
};

void tst_Overlay::isHiddenAtFirst()
{
    const Watched player;
    QCOMPARE(player.overlay(), "nothing");
    QVERIFY(!player.impl.mouseDetectTimer->isActive());
    QCOMPARE(player.impl.mouseDetectTimer->parent(), &player.impl);
    QVERIFY(!player.impl.mouseDetectTimer->isSingleShot());
    QVERIFY(!player.impl.mouseInVideo);
    QVERIFY(!player.impl.mouseOverPanel);
    QCOMPARE(player.impl.idleTicks, 0);
}

void tst_Overlay::tracksTheMouseOverTheClientArea()
{
    const Watched player;
    QVERIFY(player.ui.panClient->testAttribute(Qt::WA_MouseTracking));
}

void tst_Overlay::showsWhenTheMouseEnters()
{
    Watched player;
    player.impl.idleTicks = 4;
    player.enter();
    QCOMPARE(player.overlay(), "bar and name");
    QVERIFY(player.impl.mouseInVideo);
    QCOMPARE(player.impl.idleTicks, 0);
    QVERIFY(player.impl.mouseDetectTimer->isActive());
    QCOMPARE(player.impl.mouseDetectTimer->interval(), 1000);
}

void tst_Overlay::showsWhenTheMouseMoves()
{
    Watched player;
    player.impl.idleTicks = 4;
    player.move();
    QCOMPARE(player.overlay(), "bar and name");
    QCOMPARE(player.impl.idleTicks, 0);
    QVERIFY(!player.impl.mouseInVideo);
    QVERIFY(!player.impl.mouseDetectTimer->isActive());
}

void tst_Overlay::showsOnARealMouseMove()
{
    Watched player;
    player.widget->resize(player.widget->actualSize());
    player.widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(player.widget.get()));
    QTest::mouseMove(player.ui.videoWnd, {100, 100});
    QTest::mouseMove(player.ui.videoWnd, {110, 120});
    QTRY_COMPARE(player.overlay(), "bar and name");
    QVERIFY(player.ui.panPlayControl->isVisible());
    QVERIFY(player.ui.lblFileName->isVisible());
}

void tst_Overlay::hidesAtOnceWhenTheMouseLeaves()
{
    Watched player;
    player.enter();
    player.leave();
    QCOMPARE(player.overlay(), "nothing");
    QVERIFY(!player.impl.mouseInVideo);
    QVERIFY(!player.impl.mouseDetectTimer->isActive());
}

void tst_Overlay::leavingEndsTheSlidersDrags()
{
    Watched player;
    player.enter();
    player.ui.playTracker->setState(ImageTracker::Down);
    player.ui.playTracker->setMoveState(true);
    player.ui.volumeTracker->setState(ImageTracker::Down);
    player.ui.volumeTracker->setMoveState(true);
    QSignalSpy released(player.ui.playTracker, &ImageTracker::sliderReleased);
    QSignalSpy volumeReleased(player.ui.volumeTracker, &ImageTracker::sliderReleased);
    player.leave();
    QCOMPARE(released.count(), 1);
    QCOMPARE(player.ui.playTracker->state, ImageTracker::Normal);
    QVERIFY(!player.ui.playTracker->moveState);
    // The volume has nothing to commit and keeps its look.
    QCOMPARE(volumeReleased.count(), 0);
    QCOMPARE(player.ui.volumeTracker->state, ImageTracker::Down);
    QVERIFY(!player.ui.volumeTracker->moveState);
}

void tst_Overlay::leavingHidesThenStopsTheTimerThenSeeks()
{
    Watched player;
    player.widget->show();
    player.enter();
    const auto standing = [&player] {
        return QStringLiteral("%1, timer %2")
            .arg(player.overlay(), player.impl.mouseDetectTimer->isActive() ? "on" : "off");
    };
    const NoteOnEvent bar(player.ui.panPlayControl, QEvent::Hide, standing);
    const NoteOnEvent name(player.ui.lblFileName, QEvent::Hide, standing);
    connect(player.ui.playTracker, &ImageTracker::sliderReleased, &player.impl,
            [&] { player.engine.note(standing()); });
    player.leave();
    QCOMPARE(player.calls(),
             QStringList({"name, timer on", "nothing, timer on", "nothing, timer off"}));
    player.enter();
    player.idle(5);
    QCOMPARE(player.calls(),
             QStringList({"name, timer on", "nothing, timer on", "nothing, timer on"}));
}

void tst_Overlay::leavingEndsASeek()
{
    Watched player;
    player.play();
    player.enter();
    player.pressPlayTracker();
    player.ui.playTracker->setValue(250);
    player.leave();
    QCOMPARE(player.calls(), QStringList("KestSetCurPos(15000)"));
    QVERIFY(!player.impl.trackerPressed);
}

void tst_Overlay::leavingWithoutADragSeeksNothing()
{
    Watched player;
    player.play();
    player.enter();
    player.leave();
    QCOMPARE(player.calls(), QStringList());
}

void tst_Overlay::hidesOnTheFifthIdleTick()
{
    Watched player;
    player.enter();
    player.idle(4);
    QCOMPARE(player.overlay(), "bar and name");
    QCOMPARE(player.impl.idleTicks, 4);
    player.idle(1);
    QCOMPARE(player.overlay(), "nothing");
}

void tst_Overlay::hidingByIdlenessEndsTheSlidersDrags()
{
    Watched player;
    player.play();
    player.enter();
    player.idle(4);
    player.pressPlayTracker();
    player.ui.playTracker->setValue(500);
    player.ui.volumeTracker->setMoveState(true);
    QSignalSpy released(player.ui.playTracker, &ImageTracker::sliderReleased);
    player.idle(1);
    QCOMPARE(released.count(), 1);
    QCOMPARE(player.calls(), QStringList("KestSetCurPos(30000)"));
    QVERIFY(!player.ui.volumeTracker->moveState);
}

// Whatever showed the bar again without the mouse, the next tick hides it.
void tst_Overlay::ticksOnAfterHiding()
{
    Watched player;
    player.enter();
    player.idle(5);
    QVERIFY(player.impl.mouseDetectTimer->isActive());
    QSignalSpy released(player.ui.playTracker, &ImageTracker::sliderReleased);
    player.ui.panPlayControl->setVisible(true);
    player.ui.lblFileName->setVisible(true);
    player.idle(1);
    QCOMPARE(player.overlay(), "nothing");
    QCOMPARE(player.impl.idleTicks, 6);
    player.idle(2);
    QCOMPARE(released.count(), 3);
}

void tst_Overlay::comesBackWithTheMouse()
{
    Watched player;
    player.enter();
    player.idle(7);
    player.move();
    QCOMPARE(player.overlay(), "bar and name");
    player.idle(4);
    QCOMPARE(player.overlay(), "bar and name");
    player.idle(1);
    QCOMPARE(player.overlay(), "nothing");
    player.leave();
    player.enter();
    QCOMPARE(player.overlay(), "bar and name");
}

void tst_Overlay::aMoveStartsTheCountAnew()
{
    Watched player;
    player.enter();
    player.idle(4);
    player.move();
    player.idle(4);
    QCOMPARE(player.overlay(), "bar and name");
    player.idle(1);
    QCOMPARE(player.overlay(), "nothing");
}

void tst_Overlay::enteringStartsTheCountAnew()
{
    Watched player;
    player.enter();
    player.idle(4);
    player.leave();
    player.enter();
    player.idle(4);
    QCOMPARE(player.overlay(), "bar and name");
}

void tst_Overlay::staysWhileTheMouseIsOnTheBar()
{
    Watched player;
    player.enter();
    player.idle(4);
    player.enterBar();
    player.idle(100);
    QCOMPARE(player.overlay(), "bar and name");
    QCOMPARE(player.impl.idleTicks, 0);
}

void tst_Overlay::countsFromTheBarAnew()
{
    Watched player;
    player.enter();
    player.enterBar();
    player.idle(3);
    player.leaveBar();
    QVERIFY(!player.impl.mouseOverPanel);
    player.idle(4);
    QCOMPARE(player.overlay(), "bar and name");
    player.idle(1);
    QCOMPARE(player.overlay(), "nothing");
}

void tst_Overlay::countsNothingOutsideTheVideo()
{
    Watched player;
    player.move();
    player.impl.idleTicks = 4;
    player.idle(10);
    QCOMPARE(player.impl.idleTicks, 4);
    QCOMPARE(player.overlay(), "bar and name");
    player.enterBar();
    player.idle(1);
    QCOMPARE(player.impl.idleTicks, 4);
}

void tst_Overlay::ticksEverySecond()
{
    Watched player;
    QElapsedTimer elapsed;
    elapsed.start();
    player.enter();
    QTRY_COMPARE_WITH_TIMEOUT(player.impl.idleTicks, 1, 20000);
    QVERIFY(elapsed.elapsed() >= 900);
}

void tst_Overlay::takesEnterAndLeaveOfTheBar()
{
    Watched player;
    QVERIFY(player.takes(player.ui.panPlayControl, QEvent::Enter));
    QVERIFY(player.impl.mouseOverPanel);
    QVERIFY(player.takes(player.ui.panPlayControl, QEvent::Leave));
    QVERIFY(!player.impl.mouseOverPanel);
    QVERIFY(!player.impl.mouseInVideo);
    QCOMPARE(player.overlay(), "nothing");
}

void tst_Overlay::takesTheMouseOverTheVideo()
{
    Watched player;
    for (const auto type : {QEvent::Enter, QEvent::MouseMove, QEvent::Leave})
        QVERIFY(player.takes(player.ui.videoWnd, type));
    QVERIFY(!player.impl.mouseOverPanel);
}

void tst_Overlay::leavesOtherEventsAlone_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("resize") << int(QEvent::Resize);
    QTest::newRow("hide") << int(QEvent::Hide);
    QTest::newRow("wheel") << int(QEvent::Wheel);
    QTest::newRow("double click") << int(QEvent::MouseButtonDblClick);
    QTest::newRow("press") << int(QEvent::MouseButtonPress);
    QTest::newRow("release") << int(QEvent::MouseButtonRelease);
    QTest::newRow("tool tip") << int(QEvent::ToolTip);
    QTest::newRow("hover") << int(QEvent::HoverEnter);
    QTest::newRow("paint") << int(QEvent::Paint);
}

void tst_Overlay::leavesOtherEventsAlone()
{
    QFETCH(int, type);
    Watched player;
    player.enter();
    player.idle(3);
    for (QObject *watched : std::initializer_list<QObject *>{
             player.ui.videoWnd, player.ui.panPlayControl, player.ui.edt3DPos})
        QVERIFY(!player.takes(watched, static_cast<QEvent::Type>(type)));
    QVERIFY(!player.takes(player.ui.panPlayControl, QEvent::MouseMove));
    QCOMPARE(player.impl.idleTicks, 3);
    QCOMPARE(player.overlay(), "bar and name");
    QVERIFY(!player.impl.mouseOverPanel);
}

void tst_Overlay::leavesOtherObjectsAlone()
{
    Watched player;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    for (QObject *other : std::initializer_list<QObject *>{
             &player.impl, player.ui.panClient, player.ui.playTracker, player.ui.effectTracker}) {
        for (const auto type : {QEvent::Enter, QEvent::MouseMove, QEvent::Leave})
            QVERIFY(!player.takes(other, type));
        QVERIFY(!player.impl.eventFilter(other, &key));
    }
    QVERIFY(!player.takes(player.ui.edt3DPos, QEvent::Enter));
    QCOMPARE(player.overlay(), "nothing");
    QVERIFY(!player.impl.mouseInVideo);
    QVERIFY(!player.impl.mouseOverPanel);
}

void tst_Overlay::paintsTheMusicPictureForSoundOnly()
{
    Cinema player({400, 300});
    QVERIFY(player.picture().isNull());
    player.play(3);
    QCOMPARE(player.picture(), QRect(100, 160, 100, 80));
    player.play(0);
    QVERIFY(player.picture().isNull());
}

void tst_Overlay::crossesWidthAndHeight_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("wide") << QSize(400, 300) << QPoint(100, 160);
    QTest::newRow("tall") << QSize(300, 400) << QPoint(150, 110);
    QTest::newRow("square") << QSize(300, 300) << QPoint(100, 110);
    QTest::newRow("halves") << QSize(401, 301) << QPoint(100, 160);
    // Quotients go toward zero also below it: -5 / 2 is -2.
    QTest::newRow("lower than the picture's width") << QSize(101, 95) << QPoint(-2, 10);
    QTest::newRow("narrower than the picture's height") << QSize(75, 95) << QPoint(-2, -2);
}

void tst_Overlay::crossesWidthAndHeight()
{
    QFETCH(QSize, size);
    QFETCH(QPoint, corner);
    Cinema player(size);
    player.play(3);
    QCOMPARE(player.ui.videoWnd->size(), size);
    QCOMPARE(player.picture(), QRect(corner, QSize(100, 80)) & QRect(QPoint(), size));
}

void tst_Overlay::paintsWithinTheEventsRegion()
{
    Cinema player({400, 300});
    player.play(3);
    const PaintsAPart filter(player.impl, QRect(90, 150, 30, 40));
    QCOMPARE(player.picture(), QRect(100, 160, 20, 30));
    QVERIFY(filter.taken);
    player.play(0);
    QVERIFY(player.picture().isNull());
    QVERIFY(!filter.taken);
}

// Below the overlay's own window, through the backing store.
void tst_Overlay::paintsInTheRealWindow()
{
    Cinema player({400, 300});
    player.widget->show();
    player.play(3);
    const QImage grabbed
        = player.ui.videoWnd->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(whereIs(grabbed, Qt::green), QRect(100, 160, 100, 80));
    QPaintEvent paint(player.ui.videoWnd->rect());
    player.play(0);
    QVERIFY(!player.impl.eventFilter(player.ui.videoWnd, &paint));
}

void tst_Overlay::keepsReturnFromTheSpinBox()
{
    HostDialog host;
    QSignalSpy accepted(host.player, &PlayWidget::accepted);
    QSignalSpy finished(host.spinBox, &QSpinBox::editingFinished);
    QTest::keyClick(host.spinBox, Qt::Key_Return);
    QCOMPARE(finished.count(), 0);
    QCOMPARE(accepted.count(), 0);
}

void tst_Overlay::leavesTheKeypadsEnterToTheSpinBox()
{
    HostDialog host;
    QSignalSpy accepted(host.player, &PlayWidget::accepted);
    QSignalSpy finished(host.spinBox, &QSpinBox::editingFinished);
    QTest::keyClick(host.spinBox, Qt::Key_Enter, Qt::KeypadModifier);
    QVERIFY(finished.count() >= 1);
    QCOMPARE(accepted.count(), 1);
}

void tst_Overlay::filtersReturnPressesOnly()
{
    Watched player;
    const auto takes
        = [&player](QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
              QKeyEvent event(type, key, modifiers);
              return player.impl.eventFilter(player.ui.edt3DPos, &event);
          };
    QVERIFY(takes(QEvent::KeyPress, Qt::Key_Return));
    QVERIFY(takes(QEvent::KeyPress, Qt::Key_Return, Qt::ShiftModifier));
    QVERIFY(takes(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier));
    QVERIFY(!takes(QEvent::KeyRelease, Qt::Key_Return));
    QVERIFY(!takes(QEvent::ShortcutOverride, Qt::Key_Return));
    for (const auto key : {Qt::Key_Enter, Qt::Key_Escape, Qt::Key_5, Qt::Key_Up})
        QVERIFY(!takes(QEvent::KeyPress, key));
}

QTEST_MAIN(tst_Overlay)
#include "tst_overlay.moc"
