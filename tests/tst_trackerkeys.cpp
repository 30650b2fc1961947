// Keys on a slider: where each moves the handle, and the signals of a drag in their order.
// Not here: what the player does with them (tst_keyboardaccess).
#include "controls/imagetracker.h"
#include "controls/trackerkeys.h"

#include <QFocusEvent>
#include <QTest>

#include <limits>
#include <memory>

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

// A slider that writes down what it says.
struct Slider
{
    explicit Slider(int maximum = 1000, int value = 500)
    {
        tracker.setRange(0, maximum);
        tracker.setValue(value);
        QObject::connect(&tracker, &ImageTracker::sliderPressed, [this] { said += "pressed"; });
        QObject::connect(&tracker, &ImageTracker::valueChanged,
                         [this](int value) { said += QString::number(value); });
        QObject::connect(&tracker, &ImageTracker::sliderReleased, [this] { said += "released"; });
    }

    /// Whether the keys take the event.
    bool send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {}, bool again = false)
    {
        QKeyEvent event(type, key, modifiers, QString(), again);
        return keys->eventFilter(&tracker, &event);
    }
    bool press(int key) { return send(QEvent::KeyPress, key); }
    bool release(int key) { return send(QEvent::KeyRelease, key); }
    bool repeat(int key)
    {
        return send(QEvent::KeyRelease, key, {}, true) && send(QEvent::KeyPress, key, {}, true);
    }

    QStringList said;
    ImageTracker tracker;
    std::unique_ptr<TrackerKeys> keys{new TrackerKeys(&tracker)};
};

}  // namespace

class tst_TrackerKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachKeyDragsItsWay_data();
    void eachKeyDragsItsWay();
    void staysInTheRange_data();
    void staysInTheRange();
    void stepsByOneAtLeast();
    void bearsTheWidestRange();
    void bearsAnEmptyRange();
    void startsInsideAfterADragPastTheEnd();
    void aHeldKeyDragsOnAndLetsGoOnce();
    void losingTheFocusLetsGo();
    void itsEndLetsGo();
    void leavesOtherKeysAlone();
    void leavesShortcutsAlone();
    void aSliderThatIsOffStaysStill_data();
    void aSliderThatIsOffStaysStill();
    void goesRightInARightToLeftLayoutToo();
    void bearsASliderThatItsOwnerDeletes();
};

void tst_TrackerKeys::eachKeyDragsItsWay_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("value");
    QTest::newRow("left") << Qt::Key_Left << 490;
    QTest::newRow("down") << Qt::Key_Down << 490;
    QTest::newRow("right") << Qt::Key_Right << 510;
    QTest::newRow("up") << Qt::Key_Up << 510;
    QTest::newRow("page down") << Qt::Key_PageDown << 400;
    QTest::newRow("page up") << Qt::Key_PageUp << 600;
    QTest::newRow("home") << Qt::Key_Home << 0;
    QTest::newRow("end") << Qt::Key_End << 1000;
}

void tst_TrackerKeys::eachKeyDragsItsWay()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, value);
    Slider slider;
    QVERIFY(slider.press(key));
    QCOMPARE(slider.said, QStringList({"pressed", QString::number(value)}));
    QVERIFY(slider.release(key));
    QCOMPARE(slider.said, QStringList({"pressed", QString::number(value), "released"}));
    QCOMPARE(slider.tracker.getValue(), value);
}

void tst_TrackerKeys::staysInTheRange_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("value");
    QTest::newRow("below") << Qt::Key_PageDown << 99 << 0;
    QTest::newRow("at the lower end") << Qt::Key_Left << 0 << 0;
    QTest::newRow("above") << Qt::Key_PageUp << 901 << 1000;
    QTest::newRow("at the upper end") << Qt::Key_Right << 1000 << 1000;
}

void tst_TrackerKeys::staysInTheRange()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, from);
    QFETCH(int, value);
    Slider slider(1000, from);
    slider.press(key);
    QCOMPARE(slider.tracker.getValue(), value);
    QCOMPARE(slider.said, QStringList({"pressed", QString::number(value)}));
}

void tst_TrackerKeys::stepsByOneAtLeast()
{
    Slider slider(9, 5);
    slider.press(Qt::Key_Right);
    slider.press(Qt::Key_PageUp);
    QCOMPARE(slider.said, QStringList({"pressed", "6", "7"}));
}

void tst_TrackerKeys::bearsTheWidestRange()
{
    Slider slider;
    slider.tracker.setRange(lowest, highest);
    slider.press(Qt::Key_Home);
    slider.press(Qt::Key_Left);
    QCOMPARE(slider.tracker.getValue(), lowest);
    slider.press(Qt::Key_End);
    slider.press(Qt::Key_PageUp);
    QCOMPARE(slider.tracker.getValue(), highest);
}

void tst_TrackerKeys::bearsAnEmptyRange()
{
    Slider slider;
    slider.tracker.setRange(10, -10);
    slider.press(Qt::Key_Home);
    slider.release(Qt::Key_Home);
    QCOMPARE(slider.said, QStringList({"pressed", "released"}));
    QCOMPARE(slider.tracker.getValue(), 500);
}

void tst_TrackerKeys::startsInsideAfterADragPastTheEnd()
{
    Slider slider;
    slider.tracker.setRange(0, 400);
    slider.press(Qt::Key_Left);
    QCOMPARE(slider.said, QStringList({"pressed", "396"}));
}

void tst_TrackerKeys::aHeldKeyDragsOnAndLetsGoOnce()
{
    Slider slider;
    slider.press(Qt::Key_Right);
    QVERIFY(slider.repeat(Qt::Key_Right));
    QVERIFY(slider.repeat(Qt::Key_Right));
    slider.release(Qt::Key_Right);
    QCOMPARE(slider.said, QStringList({"pressed", "510", "520", "530", "released"}));
    QVERIFY(!slider.release(Qt::Key_Right));
}

void tst_TrackerKeys::losingTheFocusLetsGo()
{
    Slider slider;
    slider.press(Qt::Key_Right);
    QFocusEvent out(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QVERIFY(!slider.keys->eventFilter(&slider.tracker, &out));
    QVERIFY(!slider.keys->eventFilter(&slider.tracker, &out));
    QCOMPARE(slider.said, QStringList({"pressed", "510", "released"}));
}

void tst_TrackerKeys::itsEndLetsGo()
{
    Slider slider;
    slider.press(Qt::Key_Right);
    slider.keys.reset();
    QCOMPARE(slider.said, QStringList({"pressed", "510", "released"}));
    QTest::keyClick(&slider.tracker, Qt::Key_Right);
    QCOMPARE(slider.tracker.getValue(), 510);
}

void tst_TrackerKeys::leavesOtherKeysAlone()
{
    Slider slider;
    for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_A}) {
        QVERIFY(!slider.press(key));
        QVERIFY(!slider.release(key));
    }
    QCOMPARE(slider.said, QStringList());
}

void tst_TrackerKeys::leavesShortcutsAlone()
{
    Slider slider;
    for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        QVERIFY(!slider.send(QEvent::KeyPress, Qt::Key_Right, modifier));
    QCOMPARE(slider.said, QStringList());
    QVERIFY(slider.send(QEvent::KeyPress, Qt::Key_Right, Qt::KeypadModifier));
    QCOMPARE(slider.said, QStringList({"pressed", "510"}));
}

void tst_TrackerKeys::aSliderThatIsOffStaysStill_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("state");
    QTest::newRow("disabled") << false << int(ImageTracker::Normal);
    QTest::newRow("switched off by its owner") << true << int(ImageTracker::Disable);
}

void tst_TrackerKeys::aSliderThatIsOffStaysStill()
{
    QFETCH(bool, enabled);
    QFETCH(int, state);
    Slider slider;
    slider.tracker.setEnabled(enabled);
    slider.tracker.setState(static_cast<ImageTracker::State>(state));
    TrackerDrag(&slider.tracker).dragTo(7);
    QCOMPARE(slider.said, QStringList());
    QCOMPARE(slider.tracker.getValue(), 500);
}

// The slider stands the same way round in every layout.
void tst_TrackerKeys::goesRightInARightToLeftLayoutToo()
{
    Slider slider;
    slider.tracker.setLayoutDirection(Qt::RightToLeft);
    slider.press(Qt::Key_Right);
    QCOMPARE(slider.tracker.getValue(), 510);
    slider.press(Qt::Key_Left);
    QCOMPARE(slider.tracker.getValue(), 500);
}

void tst_TrackerKeys::bearsASliderThatItsOwnerDeletes()
{
    auto *tracker = new ImageTracker;
    QObject::connect(tracker, &ImageTracker::sliderPressed, [tracker] { delete tracker; });
    QPointer<ImageTracker> alive(tracker);
    TrackerDrag(tracker).dragTo(7);
    QVERIFY(!alive);
}

QTEST_MAIN(tst_TrackerKeys)
#include "tst_trackerkeys.moc"
