// ImageTracker's model: value and handle position, and the mouse.
// Not here: its images and painting (tst_imagetracker_skin.cpp).
#include "controls/imagetracker.h"

#include "painting.h"

#include <QEnterEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <type_traits>
#include <utility>

namespace {

const QColor normalColor(Qt::red);
const QColor onColor(Qt::green);
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

// The type of a member's address names the class that declares it.
struct Overrides : ImageTracker
{
    template <typename Event> using Handler = void (ImageTracker::*)(Event *);

    static_assert(std::is_same_v<decltype(&Overrides::metaObject),
                                 const QMetaObject *(ImageTracker::*)() const>);
    static_assert(std::is_same_v<decltype(&Overrides::sizeHint), QSize (ImageTracker::*)() const>);
    static_assert(std::is_same_v<decltype(&Overrides::mousePressEvent), Handler<QMouseEvent>>);
    static_assert(std::is_same_v<decltype(&Overrides::mouseReleaseEvent), Handler<QMouseEvent>>);
    static_assert(std::is_same_v<decltype(&Overrides::mouseMoveEvent), Handler<QMouseEvent>>);
    static_assert(std::is_same_v<decltype(&Overrides::enterEvent), Handler<EnterEvent>>);
    static_assert(std::is_same_v<decltype(&Overrides::leaveEvent), Handler<QEvent>>);
    static_assert(std::is_same_v<decltype(&Overrides::paintEvent), Handler<QPaintEvent>>);
    static_assert(std::is_same_v<decltype(&Overrides::resizeEvent), Handler<QResizeEvent>>);

    using ImageTracker::leaveEvent;
};

static_assert(std::is_same_v<std::underlying_type_t<ImageTracker::State>, int>);
static_assert(ImageTracker::Normal == 0 && ImageTracker::On == 1 && ImageTracker::Down == 2
              && ImageTracker::Disable == 3);

// A slider in a shown window, what it emits in order, and who is repainted.
class Stage : public QObject
{
public:
    explicit Stage(const QString &skin = {}, const QSize &size = {240, 15}, int maximum = 1000)
    {
        window.resize(400, 100);
        window.setMouseTracking(true);
        tracker.setGeometry(QRect(QPoint(20, 20), size));
        barrier.setGeometry(0, 90, 5, 5);
        connect(&tracker, &ImageTracker::valueChanged, this,
                [this](int v) { emitted << QStringLiteral("value %1").arg(v); });
        connect(&tracker, &ImageTracker::sliderPressed, this, [this] { emitted << "pressed"; });
        connect(&tracker, &ImageTracker::sliderReleased, this, [this] { emitted << "released"; });
        for (QWidget *widget : {&window, &barrier, static_cast<QWidget *>(&tracker)})
            widget->installEventFilter(this);
        window.show();
        if (!skin.isEmpty())
            tracker.setImagePrefix(skin);
        tracker.setRange(0, maximum);
        tracker.setValue(0);
    }

    // Everything of the window is painted in one go, so once the barrier is, the slider was too if
    // it wanted to be.
    template <typename Action> bool repaints(Action action)
    {
        settle();
        trackerPainted = false;
        action();
        settle();
        return trackerPainted;
    }

    void mouse(QEvent::Type type, int x, int y = 7, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPoint position(x, y);
        QMouseEvent event(type, position, tracker.mapToGlobal(position), button, button, {});
        QCoreApplication::sendEvent(&tracker, &event);
    }
    void press(int x, int y = 7) { mouse(QEvent::MouseButtonPress, x, y); }
    void release(int x, int y = 7) { mouse(QEvent::MouseButtonRelease, x, y); }
    void move(int x, int y = 7) { mouse(QEvent::MouseMove, x, y, Qt::NoButton); }
    void enter(int x)
    {
        const QPoint position(x, 7);
        QEnterEvent event(position, tracker.mapTo(&window, position),
                          tracker.mapToGlobal(position));
        QCoreApplication::sendEvent(&tracker, &event);
    }
    void leave()
    {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&tracker, &event);
    }

    QRect handle()
    {
        return whereIs(painted(tracker), normalColor) | whereIs(painted(tracker), onColor);
    }
    bool isOn() { return !whereIs(painted(tracker), onColor).isNull(); }
    bool isNormal() { return !whereIs(painted(tracker), normalColor).isNull(); }
    QStringList takeEmitted() { return std::exchange(emitted, {}); }

    QWidget window;
    QWidget barrier{&window};
    ImageTracker tracker{&window};
    QStringList emitted;
    QList<QEvent::Type> passedOn;  // mouse events that reached the window

private:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            trackerPainted |= watched == &tracker;
            barrierPainted |= watched == &barrier;
        }
        if (watched == &window && dynamic_cast<QMouseEvent *>(event))
            passedOn << event->type();
        return false;
    }

    void settle()
    {
        barrierPainted = false;
        barrier.update();
        QTRY_VERIFY(barrierPainted);
    }

    bool trackerPainted = false;
    bool barrierPainted = false;
};

}  // namespace

class tst_ImageTracker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void startsEmptyAndWide();
    void metaObjectListsThreeSignalsAndOneSlot();

    void setValuePlacesTheHandle_data();
    void setValuePlacesTheHandle();
    void setValueCentresTheHandleVertically();
    void setValueOutsideTheRangeChangesNothing();
    void setValueRepaintsEvenWhenUnchanged();
    void setValueNeverEmits();
    void minimumIsNoOffset();
    void settingTheRangeMovesNothing();
    void checkValueClamps_data();
    void checkValueClamps();

    void rangeOfZeroWidth();
    void widgetAsWideAsTheHandle();
    void reversedRange();
    void widestRange();
    void handleFarOutside();

    void pressOnTheHandleStartsADrag_data();
    void pressOnTheHandleStartsADrag();
    void pressOnTheGrooveMovesTheHandle();
    void pressLeftOfTheFirstColumnGivesZero();
    void withoutASkinEveryPressIsOnTheGroove();
    void otherButtonsDoNotPress();

    void dragKeepsTheGrabOffset();
    void dragOvershootsWithAnOddHandle();
    void dragCoversTheRangeWithAnEvenHandle();
    void dragShowsOnOnlyOverTheHandle();
    void moveWithoutDragOnlyHovers();

    void isAsItSaysWhenItSaysSo();
    void dragsOnFromWithinASlot();
    void releaseEndsTheDrag();
    void otherButtonsReleaseWithoutEndingTheDrag();

    void enterShowsOnUntilTheNextMove();
    void leaveKeepsTheDrag();
    void otherEventTypesAreNoLeave();

    void disableIgnoresPressAndHover();
    void disableKeepsARunningDrag();
    void onlySetStateLeavesDisable();

    void setMoveStateDragsFromTheLastPress();
    void setMoveStateIsSilent();
    void sliderLeaveEventEndsTheDrag();
    void setStateAndProgressBarRepaint();
    void ofTheTwoLoadersOnlySetSkinRepaints();

    void resizePlacesTheHandle();
    void resizeAfterAnOvershootKeepsTheHandle();
    void mouseEventsArePassedOn();

private:
    QString file(const char *name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
    QString play;    // handle 15 x 15
    QString volume;  // handle 10 x 10
};

void tst_ImageTracker::initTestCase()
{
    QVERIFY(writeFlat(file("play.png"), {15, 15}, normalColor));
    QVERIFY(writeFlat(file("play_on.png"), {15, 15}, onColor));
    QVERIFY(writeFlat(file("volume.png"), {10, 10}, normalColor));
    QVERIFY(writeFlat(file("volume_on.png"), {10, 10}, onColor));
    play = file("play.png");
    volume = file("volume.png");
}

void tst_ImageTracker::startsEmptyAndWide()
{
    ImageTracker tracker;
    QSignalSpy changed(&tracker, &ImageTracker::valueChanged);
    QCOMPARE(tracker.parentWidget(), nullptr);
    QCOMPARE(tracker.windowFlags() & ~Qt::WindowType_Mask,
             QWidget().windowFlags() & ~Qt::WindowType_Mask);
    QCOMPARE(tracker.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
    QVERIFY(tracker.testAttribute(Qt::WA_MouseTracking));
    QCOMPARE(tracker.getValue(), 0);
    tracker.setValue(10000);
    QCOMPARE(tracker.getValue(), 10000);
    tracker.setValue(10001);
    tracker.setValue(-1);
    QCOMPARE(tracker.getValue(), 10000);
    QCOMPARE(changed.count(), 0);

    QWidget parent;
    QCOMPARE((new ImageTracker(&parent))->parentWidget(), &parent);
}

void tst_ImageTracker::metaObjectListsThreeSignalsAndOneSlot()
{
    struct Row
    {
        const char *signature;
        QMetaMethod::MethodType type;
        QList<QByteArray> parameters;
    };
    const Row rows[] = {
        {"valueChanged(int)", QMetaMethod::Signal, {"lValue"}},
        {"sliderReleased()", QMetaMethod::Signal, {}},
        {"sliderPressed()", QMetaMethod::Signal, {}},
        {"setValue(int)", QMetaMethod::Slot, {"lValue"}},
    };
    const QMetaObject &meta = ImageTracker::staticMetaObject;
    QCOMPARE(meta.className(), "ImageTracker");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 4);
    int index = meta.methodOffset();
    for (const Row &row : rows) {
        const QMetaMethod method = meta.method(index++);
        QCOMPARE(method.methodSignature(), QByteArray(row.signature));
        QCOMPARE(method.methodType(), row.type);
        QCOMPARE(method.access(), QMetaMethod::Public);
        QCOMPARE(method.parameterNames(), row.parameters);
    }
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_ImageTracker::setValuePlacesTheHandle_data()
{
    QTest::addColumn<bool>("isPlay");
    QTest::addColumn<int>("value");
    QTest::addColumn<QRect>("handle");
    QTest::newRow("play, left end") << true << 0 << QRect(0, 0, 15, 15);
    QTest::newRow("play, less than a column") << true << 4 << QRect(0, 0, 15, 15);
    QTest::newRow("play, one column") << true << 5 << QRect(1, 0, 15, 15);
    QTest::newRow("play, middle") << true << 500 << QRect(112, 0, 15, 15);
    QTest::newRow("play, one before the end") << true << 999 << QRect(224, 0, 15, 15);
    QTest::newRow("play, right end") << true << 1000 << QRect(225, 0, 15, 15);
    QTest::newRow("volume, left end") << false << 0 << QRect(0, 0, 10, 10);
    QTest::newRow("volume, middle") << false << 100 << QRect(30, 0, 10, 10);
    QTest::newRow("volume, right end") << false << 200 << QRect(60, 0, 10, 10);
}

void tst_ImageTracker::setValuePlacesTheHandle()
{
    QFETCH(bool, isPlay);
    QFETCH(int, value);
    Stage playing(play);
    Stage loudness(volume, {70, 10}, 200);
    Stage &stage = isPlay ? playing : loudness;
    stage.tracker.setValue(value);
    QCOMPARE(stage.tracker.getValue(), value);
    QTEST(stage.handle(), "handle");
}

void tst_ImageTracker::setValueCentresTheHandleVertically()
{
    Stage stage(play, {240, 40});
    QCOMPARE(stage.handle(), QRect(0, 12, 15, 15));
}

void tst_ImageTracker::setValueOutsideTheRangeChangesNothing()
{
    Stage stage(play);
    stage.tracker.setValue(500);
    for (int outside : {-1, 1001, lowest, highest})
        QVERIFY(!stage.repaints([&] { stage.tracker.setValue(outside); }));
    QCOMPARE(stage.tracker.getValue(), 500);
    QCOMPARE(stage.handle(), QRect(112, 0, 15, 15));
}

void tst_ImageTracker::setValueRepaintsEvenWhenUnchanged()
{
    Stage stage(play);
    QVERIFY(stage.repaints([&] { stage.tracker.setValue(500); }));
    QVERIFY(stage.repaints([&] { stage.tracker.setValue(500); }));
}

void tst_ImageTracker::setValueNeverEmits()
{
    Stage stage(play);
    for (int value : {0, 1, 500, 1000, 1001})
        stage.tracker.setValue(value);
    QCOMPARE(stage.emitted, QStringList());
}

void tst_ImageTracker::minimumIsNoOffset()
{
    Stage stage(play);
    stage.tracker.setRange(100, 300);
    stage.tracker.setValue(100);
    QCOMPARE(stage.handle(), QRect(112, 0, 15, 15));
    stage.press(7 + 90);  // outside the handle: 90 columns of 225, times 200
    QCOMPARE(stage.tracker.getValue(), 80);

    stage.tracker.setRange(-100, 100);
    stage.tracker.setValue(-5);  // 5.6 columns left of the left end, truncated toward zero
    QCOMPARE(stage.handle(), QRect(0, 0, 10, 15));
    stage.tracker.setValue(0);
    QCOMPARE(stage.handle(), QRect(0, 0, 15, 15));
}

void tst_ImageTracker::settingTheRangeMovesNothing()
{
    Stage stage(play);
    stage.tracker.setValue(500);
    QVERIFY(!stage.repaints([&] {
        stage.tracker.setRange(0, 500);
        stage.tracker.setMinValue(600);
        stage.tracker.setMaxValue(700);
    }));
    QCOMPARE(stage.tracker.getValue(), 500);
    QCOMPARE(stage.handle(), QRect(112, 0, 15, 15));
    QCOMPARE(stage.emitted, QStringList());

    stage.tracker.setValue(599);
    stage.tracker.setValue(701);
    QCOMPARE(stage.tracker.getValue(), 500);
    stage.tracker.setValue(600);
    QCOMPARE(stage.tracker.getValue(), 600);
}

void tst_ImageTracker::checkValueClamps_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("expected");
    QTest::newRow("far left") << 240 << lowest << 7;
    QTest::newRow("left of half") << 240 << 6 << 7;
    QTest::newRow("half") << 240 << 7 << 7;
    QTest::newRow("between") << 240 << 100 << 100;
    QTest::newRow("last") << 240 << 233 << 233;
    QTest::newRow("beyond the last") << 240 << 234 << 233;
    QTest::newRow("far right") << 240 << highest << 233;
    QTest::newRow("narrow, left of half") << 10 << 6 << 7;
    QTest::newRow("narrow, at half") << 10 << 7 << 3;
}

void tst_ImageTracker::checkValueClamps()
{
    QFETCH(int, width);
    QFETCH(int, column);
    Stage stage(play, {width, 15});
    QTEST(stage.tracker.checkValue(column), "expected");
}

void tst_ImageTracker::rangeOfZeroWidth()
{
    Stage stage(play);
    stage.tracker.setValue(1000);
    stage.tracker.setRange(5, 5);
    stage.tracker.setValue(5);
    QCOMPARE(stage.tracker.getValue(), 5);
    QCOMPARE(stage.handle(), QRect(0, 0, 15, 15));
    stage.press(120);
    QCOMPARE(stage.emitted, QStringList({"value 0", "pressed"}));
}

void tst_ImageTracker::widgetAsWideAsTheHandle()
{
    Stage stage(play, {15, 40});
    stage.tracker.setValue(600);
    QCOMPARE(stage.handle(), QRect(0, 12, 15, 15));
    stage.press(14, 0);  // above the handle
    QCOMPARE(stage.takeEmitted(), QStringList({"value 600", "pressed"}));
    QCOMPARE(stage.handle(), QRect(1, 12, 14, 15));
    stage.press(5, 20);
    stage.move(9, 20);
    QCOMPARE(stage.emitted, QStringList({"pressed", "value 600"}));
}

void tst_ImageTracker::reversedRange()
{
    Stage stage(play);
    stage.tracker.setValue(500);
    stage.tracker.setRange(1000, 0);
    for (int value : {0, 499, 1000})
        stage.tracker.setValue(value);
    QCOMPARE(stage.tracker.getValue(), 500);
    stage.press(7 + 9);
    QCOMPARE(stage.emitted, QStringList({"value -40", "pressed"}));
}

void tst_ImageTracker::widestRange()
{
    Stage stage(play);
    stage.tracker.setRange(lowest, highest);
    stage.tracker.setValue(highest);
    QCOMPARE(stage.handle(), QRect(112, 0, 15, 15));
    stage.press(233);  // 226 / 225 of the range
    QCOMPARE(stage.tracker.getValue(), highest);
    stage.press(7 + 45);  // a fifth
    QCOMPARE(stage.tracker.getValue(), 858993459);
    stage.tracker.setValue(lowest);
    QCOMPARE(stage.tracker.getValue(), lowest);
    QCOMPARE(stage.handle(), QRect());
}

void tst_ImageTracker::handleFarOutside()
{
    Stage stage(play);
    for (int value : {lowest, lowest + 1, highest - 1, highest}) {
        const bool low = value < 0;
        stage.tracker.setRange(low ? lowest : highest - 1, low ? lowest + 1 : highest);
        stage.tracker.setValue(value);
        QCOMPARE(stage.tracker.getValue(), value);
        QCOMPARE(stage.handle(), QRect());
        stage.tracker.setMoveState(true);
        stage.move(100);
        QCOMPARE(stage.tracker.getValue(), low ? 0 : 1);
        QCOMPARE(stage.handle().left(), low ? 0 : 226);
    }
}

void tst_ImageTracker::pressOnTheHandleStartsADrag_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("hit");
    QTest::newRow("first pixel") << QPoint(112, 12) << true;
    QTest::newRow("last pixel") << QPoint(126, 26) << true;
    QTest::newRow("left of it") << QPoint(111, 12) << false;
    QTest::newRow("above it") << QPoint(112, 11) << false;
    QTest::newRow("right of it") << QPoint(127, 26) << false;
    QTest::newRow("below it") << QPoint(126, 27) << false;
}

void tst_ImageTracker::pressOnTheHandleStartsADrag()
{
    QFETCH(QPoint, position);
    QFETCH(bool, hit);
    Stage stage(play, {240, 40});
    stage.tracker.setValue(500);
    const bool repainted = stage.repaints([&] { stage.press(position.x(), position.y()); });
    QCOMPARE(repainted, hit);
    QCOMPARE(stage.isOn(), hit);
    QCOMPARE(stage.takeEmitted().last(), QString("pressed"));
    stage.move(position.x() + 1, position.y());
    QCOMPARE(stage.emitted, hit ? QStringList({"value 502"}) : QStringList());
}

void tst_ImageTracker::pressOnTheGrooveMovesTheHandle()
{
    Stage stage(play);
    for (ImageTracker::State state : {ImageTracker::Normal, ImageTracker::On}) {
        stage.tracker.setValue(0);
        stage.tracker.setState(state);
        QVERIFY(!stage.repaints([&] { stage.press(120); }));
        QCOMPARE(stage.takeEmitted(), QStringList({"value 502", "pressed"}));
        QCOMPARE(stage.tracker.getValue(), 502);
        QCOMPARE(stage.handle(), QRect(113, 0, 15, 15));
        QCOMPARE(stage.isOn(), state == ImageTracker::On);
        stage.move(130);
        QCOMPARE(stage.emitted, QStringList());
    }
}

void tst_ImageTracker::pressLeftOfTheFirstColumnGivesZero()
{
    Stage stage(play);
    stage.tracker.setRange(100, 300);
    stage.tracker.setValue(200);
    stage.press(3);
    QCOMPARE(stage.emitted, QStringList({"value 0", "pressed"}));
    QCOMPARE(stage.handle(), QRect(0, 0, 15, 15));
}

void tst_ImageTracker::withoutASkinEveryPressIsOnTheGroove()
{
    Stage stage;
    // Without a handle there are 241 columns: its width counts as -1.
    stage.press(0, 0);
    stage.press(120);
    stage.press(239);
    QCOMPARE(stage.emitted,
             QStringList({"value 0", "pressed", "value 497", "pressed", "value 991", "pressed"}));
    QCOMPARE(stage.tracker.checkValue(-1), 0);
    QCOMPARE(stage.tracker.checkValue(241), 240);
}

void tst_ImageTracker::otherButtonsDoNotPress()
{
    Stage stage(play);
    for (Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        stage.mouse(QEvent::MouseButtonPress, 7, 7, button);
        stage.mouse(QEvent::MouseButtonPress, 120, 7, button);
        stage.move(130);
    }
    QCOMPARE(stage.emitted, QStringList());
    QCOMPARE(stage.handle(), QRect(0, 0, 15, 15));
}

void tst_ImageTracker::dragKeepsTheGrabOffset()
{
    Stage stage(play);
    stage.press(10);
    stage.move(110);
    QCOMPARE(stage.takeEmitted(), QStringList({"pressed", "value 444"}));
    QCOMPARE(stage.handle(), QRect(100, 0, 15, 15));
    stage.move(50, 300);
    QCOMPARE(stage.takeEmitted(), QStringList({"value 177"}));
    QCOMPARE(stage.handle(), QRect(40, 0, 15, 15));
    stage.move(50);
    QCOMPARE(stage.takeEmitted(), QStringList({"value 177"}));
}

void tst_ImageTracker::dragOvershootsWithAnOddHandle()
{
    Stage stage(play);
    stage.press(7);
    stage.move(1000);
    QCOMPARE(stage.takeEmitted(), QStringList({"pressed", "value 1004"}));
    QCOMPARE(stage.tracker.getValue(), 1004);
    QCOMPARE(stage.handle(), QRect(226, 0, 14, 15));

    stage.tracker.setValue(1004);
    QCOMPARE(stage.handle(), QRect(226, 0, 14, 15));
    stage.move(990);  // a step from where the pointer was, not from the handle
    QCOMPARE(stage.takeEmitted(), QStringList({"value 960"}));
    stage.move(-1000);
    QCOMPARE(stage.takeEmitted(), QStringList({"value 0"}));
}

void tst_ImageTracker::dragCoversTheRangeWithAnEvenHandle()
{
    Stage stage(volume, {70, 10}, 200);
    stage.press(5, 5);
    stage.move(65, 5);
    QCOMPARE(stage.handle(), QRect(60, 0, 10, 10));
    stage.move(500, 5);
    stage.move(440, 5);
    stage.move(0, 5);
    QCOMPARE(stage.emitted,
             QStringList({"pressed", "value 200", "value 200", "value 0", "value 0"}));
}

void tst_ImageTracker::dragShowsOnOnlyOverTheHandle()
{
    Stage stage(play);
    stage.press(7);
    stage.move(50);
    QVERIFY(stage.isOn());
    stage.move(60, 15);
    QVERIFY(stage.isNormal());
    stage.move(70, 14);
    QVERIFY(stage.isOn());
    QVERIFY(stage.repaints([&] { stage.move(70, 14); }));
}

void tst_ImageTracker::moveWithoutDragOnlyHovers()
{
    Stage stage(play);
    stage.move(14, 14);
    QVERIFY(stage.isOn());
    stage.move(15, 14);
    QVERIFY(stage.isNormal());
    QVERIFY(stage.repaints([&] { stage.move(15, 14); }));
    QCOMPARE(stage.emitted, QStringList());
}

void tst_ImageTracker::isAsItSaysWhenItSaysSo()
{
    Stage stage(play);
    QStringList seen;
    const auto see = [&](const char *signal) {
        seen << QStringLiteral("%1: %2 at %3, %4")
                    .arg(signal)
                    .arg(stage.tracker.getValue())
                    .arg(stage.handle().left())
                    .arg(stage.isOn() ? "on" : "normal");
    };
    connect(&stage.tracker, &ImageTracker::valueChanged, &stage, [&] { see("moved"); });
    connect(&stage.tracker, &ImageTracker::sliderPressed, &stage, [&] { see("pressed"); });
    connect(&stage.tracker, &ImageTracker::sliderReleased, &stage, [&] { see("released"); });
    stage.press(120);
    QCOMPARE(std::exchange(seen, {}),
             QStringList({"moved: 502 at 113, normal", "pressed: 502 at 113, normal"}));
    stage.press(120);
    stage.move(130);
    stage.release(200);
    QCOMPARE(seen,
             QStringList({"pressed: 502 at 113, on", "moved: 546 at 123, on",
                          "released: 546 at 123, normal"}));
    seen.clear();
    stage.press(130);
    stage.tracker.sliderLeaveEvent();
    QCOMPARE(seen, QStringList({"pressed: 546 at 123, on", "released: 546 at 123, normal"}));
}

// A slot may open a dialog, whose event loop brings further moves.
void tst_ImageTracker::dragsOnFromWithinASlot()
{
    Stage stage(play);
    connect(&stage.tracker, &ImageTracker::sliderPressed, &stage, [&] { stage.move(16); });
    connect(&stage.tracker, &ImageTracker::valueChanged, &stage, [&](int value) {
        if (value == 80)
            stage.move(34);
    });
    connect(&stage.tracker, &ImageTracker::sliderReleased, &stage, [&] { stage.move(200); });
    stage.press(7);
    QCOMPARE(stage.takeEmitted(), QStringList({"pressed", "value 40"}));
    stage.move(25);
    QCOMPARE(stage.takeEmitted(), QStringList({"value 80", "value 120"}));
    stage.release(34);
    QCOMPARE(stage.takeEmitted(), QStringList({"released"}));
    stage.press(34);
    stage.takeEmitted();
    stage.tracker.sliderLeaveEvent();
    QCOMPARE(stage.emitted, QStringList({"released"}));
}

void tst_ImageTracker::releaseEndsTheDrag()
{
    Stage stage(play);
    stage.press(7);
    stage.release(7);
    QVERIFY(stage.isOn());
    stage.move(100);
    QCOMPARE(stage.takeEmitted(), QStringList({"pressed", "released"}));

    stage.press(7);
    stage.release(7, 15);
    QVERIFY(stage.isNormal());
    stage.move(100);
    QCOMPARE(stage.emitted, QStringList({"pressed", "released"}));
}

void tst_ImageTracker::otherButtonsReleaseWithoutEndingTheDrag()
{
    Stage stage(play);
    stage.mouse(QEvent::MouseButtonRelease, 120, 7, Qt::RightButton);
    QCOMPARE(stage.takeEmitted(), QStringList({"released"}));

    stage.press(7);
    stage.mouse(QEvent::MouseButtonRelease, 120, 7, Qt::RightButton);
    QVERIFY(stage.isOn());
    stage.move(16);
    QCOMPARE(stage.emitted, QStringList({"pressed", "released", "value 40"}));
}

void tst_ImageTracker::enterShowsOnUntilTheNextMove()
{
    Stage stage(play);
    stage.enter(200);
    QVERIFY(stage.isOn());
    stage.move(200);
    QVERIFY(stage.isNormal());
    stage.enter(7);
    stage.leave();
    QVERIFY(stage.isNormal());
    QCOMPARE(stage.emitted, QStringList());
}

void tst_ImageTracker::leaveKeepsTheDrag()
{
    Stage stage(play);
    stage.press(7);
    stage.leave();
    QVERIFY(stage.isNormal());
    stage.move(16);
    QCOMPARE(stage.emitted, QStringList({"pressed", "value 40"}));
}

void tst_ImageTracker::otherEventTypesAreNoLeave()
{
    Overrides tracker;
    tracker.setImagePrefix(play);
    tracker.resize(240, 15);
    tracker.setState(ImageTracker::On);
    QEvent other(QEvent::User);
    tracker.leaveEvent(&other);
    QVERIFY(!whereIs(painted(tracker), onColor).isNull());
    QEvent leave(QEvent::Leave);
    tracker.leaveEvent(&leave);
    QVERIFY(whereIs(painted(tracker), onColor).isNull());
}

void tst_ImageTracker::disableIgnoresPressAndHover()
{
    Stage stage(play);
    stage.tracker.setState(ImageTracker::Disable);
    stage.press(7);
    stage.press(120);
    stage.enter(7);
    stage.move(7);
    QCOMPARE(stage.takeEmitted(), QStringList());
    QVERIFY(stage.isNormal());
    QCOMPARE(stage.handle(), QRect(0, 0, 15, 15));
    stage.release(7);
    QVERIFY(stage.isNormal());
    QCOMPARE(stage.emitted, QStringList({"released"}));
}

void tst_ImageTracker::disableKeepsARunningDrag()
{
    Stage stage(play);
    stage.press(7);
    stage.tracker.setState(ImageTracker::Disable);
    stage.move(16);
    QVERIFY(stage.isNormal());
    QCOMPARE(stage.handle(), QRect(9, 0, 15, 15));
    stage.release(16);
    stage.move(25);
    QCOMPARE(stage.emitted, QStringList({"pressed", "value 40", "released", "value 80"}));
    QVERIFY(stage.isNormal());
}

void tst_ImageTracker::onlySetStateLeavesDisable()
{
    Stage stage(play);
    stage.tracker.setState(ImageTracker::Disable);
    stage.leave();
    stage.enter(7);
    QVERIFY(stage.isNormal());
    stage.tracker.setState(ImageTracker::Normal);
    stage.enter(7);
    QVERIFY(stage.isOn());
}

void tst_ImageTracker::setMoveStateDragsFromTheLastPress()
{
    Stage stage(play);
    stage.tracker.setMoveState(true);
    stage.move(9);  // nothing was pressed: from (0, 0)
    QCOMPARE(stage.takeEmitted(), QStringList({"value 40"}));
    stage.tracker.setMoveState(false);
    stage.move(100);
    stage.tracker.setMoveState(true);
    stage.move(18);
    QCOMPARE(stage.emitted, QStringList({"value 80"}));
}

void tst_ImageTracker::setMoveStateIsSilent()
{
    Stage stage(play);
    stage.press(7);
    QVERIFY(!stage.repaints([&] { stage.tracker.setMoveState(false); }));
    QVERIFY(stage.isOn());
    stage.move(50);
    QCOMPARE(stage.takeEmitted(), QStringList({"pressed"}));
    QVERIFY(!stage.repaints([&] { stage.tracker.setMoveState(true); }));
    QCOMPARE(stage.emitted, QStringList());
}

void tst_ImageTracker::sliderLeaveEventEndsTheDrag()
{
    Stage stage(play);
    stage.press(7);
    QVERIFY(stage.repaints([&] { stage.tracker.sliderLeaveEvent(); }));
    QVERIFY(stage.isNormal());
    stage.move(50);
    QCOMPARE(stage.takeEmitted(), QStringList({"pressed", "released"}));

    stage.tracker.setState(ImageTracker::Disable);
    stage.tracker.sliderLeaveEvent();
    stage.enter(7);
    QVERIFY(stage.isOn());
    QCOMPARE(stage.emitted, QStringList({"released"}));
}

void tst_ImageTracker::setStateAndProgressBarRepaint()
{
    Stage stage(play);
    QVERIFY(stage.repaints([&] { stage.tracker.setState(ImageTracker::Normal); }));
    QVERIFY(stage.repaints([&] { stage.tracker.setState(ImageTracker::Normal); }));
    QVERIFY(stage.repaints([&] { stage.tracker.setShowProgressBar(true); }));
    QVERIFY(stage.repaints([&] { stage.tracker.setShowProgressBar(true); }));
    QCOMPARE(stage.emitted, QStringList());
}

void tst_ImageTracker::ofTheTwoLoadersOnlySetSkinRepaints()
{
    Stage stage(play);
    QVERIFY(!stage.repaints([&] { stage.tracker.setImagePrefix(volume); }));
    QVERIFY(stage.repaints([&] { stage.tracker.setSkin(volume); }));
    QCOMPARE(stage.emitted, QStringList());
}

void tst_ImageTracker::resizePlacesTheHandle()
{
    Stage stage(play);
    stage.tracker.setValue(500);
    stage.tracker.resize(115, 25);
    QCOMPARE(stage.handle(), QRect(50, 5, 15, 15));
    QCOMPARE(stage.emitted, QStringList());
}

void tst_ImageTracker::resizeAfterAnOvershootKeepsTheHandle()
{
    Stage stage(play);
    stage.press(7);
    stage.move(1000);
    stage.tracker.resize(300, 25);
    QCOMPARE(stage.handle(), QRect(226, 0, 15, 15));
    QCOMPARE(stage.tracker.getValue(), 1004);
}

void tst_ImageTracker::mouseEventsArePassedOn()
{
    Stage stage(play);
    for (ImageTracker::State state : {ImageTracker::Normal, ImageTracker::Disable}) {
        stage.tracker.setState(state);
        stage.passedOn.clear();
        stage.press(7);
        stage.move(8);
        stage.release(8);
        QCOMPARE(stage.passedOn,
                 QList<QEvent::Type>(
                     {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease}));
    }
}

QTEST_MAIN(tst_ImageTracker)
#include "tst_imagetracker.moc"
