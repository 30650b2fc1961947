// A slider as assistive technology sees it: role, value, range and actions.
// Not here: the words that a player finds for its values (tst_accessibleplayer).
#include "controls/accessiblefactory.h"
#include "controls/accessibletracker.h"
#include "controls/imagetracker.h"

#include <QAccessible>
#include <QTest>

class Volume : public ImageTracker
{
    Q_OBJECT
};

namespace {

struct Slider
{
    Slider()
    {
        tracker.setRange(0, 200);
        tracker.setValue(100);
        QObject::connect(&tracker, &ImageTracker::sliderPressed, [this] { said += "pressed"; });
        QObject::connect(&tracker, &ImageTracker::valueChanged,
                         [this](int value) { said += QString::number(value); });
        QObject::connect(&tracker, &ImageTracker::sliderReleased, [this] { said += "released"; });
        iface = QAccessible::queryAccessibleInterface(&tracker);
    }
    QAccessibleValueInterface &value() const { return *iface->valueInterface(); }
    QAccessibleActionInterface &action() const { return *iface->actionInterface(); }

    QStringList said;
    AccessibleFactory factory{&accessibleTracker};
    ImageTracker tracker;
    QAccessibleInterface *iface;
};

}  // namespace

class tst_AccessibleTracker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isASlider();
    void tellsValueRangeAndStep();
    void tellsTheValueAsANumber();
    void tellsAValueInTheRangeOnly();
    void aNewValueIsADrag_data();
    void aNewValueIsADrag();
    void ignoresWhatIsNoNumber_data();
    void ignoresWhatIsNoNumber();
    void actionsStepAsADrag();
    void aDisabledSliderStaysStill();
    void takesTheFocusWhereItMay();
    void knowsDerivedSlidersToo();
    void isKnownAsLongAsTheFactoryIsHeld();
};

void tst_AccessibleTracker::isASlider()
{
    const Slider slider;
    QVERIFY(slider.iface->isValid());
    QCOMPARE(slider.iface->role(), QAccessible::Slider);
    QCOMPARE(slider.iface->object(), &slider.tracker);
    QCOMPARE(slider.iface->childCount(), 0);
}

void tst_AccessibleTracker::tellsValueRangeAndStep()
{
    const Slider slider;
    QCOMPARE(slider.value().currentValue(), QVariant(100));
    QCOMPARE(slider.value().minimumValue(), QVariant(0));
    QCOMPARE(slider.value().maximumValue(), QVariant(200));
    QCOMPARE(slider.value().minimumStepSize(), QVariant(2));
}

void tst_AccessibleTracker::tellsTheValueAsANumber()
{
    Slider slider;
    slider.tracker.setToolTip("How loud it is");
    slider.tracker.setAccessibleName("Volume");
    QCOMPARE(slider.iface->text(QAccessible::Value), "100");
    QCOMPARE(slider.iface->text(QAccessible::Name), "Volume");
    QCOMPARE(slider.iface->text(QAccessible::Description), "How loud it is");
}

void tst_AccessibleTracker::tellsAValueInTheRangeOnly()
{
    Slider slider;
    slider.tracker.setMaxValue(99);
    QCOMPARE(slider.value().currentValue(), QVariant(99));
}

void tst_AccessibleTracker::aNewValueIsADrag_data()
{
    QTest::addColumn<QVariant>("wanted");
    QTest::addColumn<int>("value");
    QTest::newRow("inside") << QVariant(150) << 150;
    QTest::newRow("as a fraction") << QVariant(99.6) << 100;
    QTest::newRow("as text") << QVariant("20") << 20;
    QTest::newRow("below") << QVariant(-1) << 0;
    QTest::newRow("above") << QVariant(1e300) << 200;
}

void tst_AccessibleTracker::aNewValueIsADrag()
{
    QFETCH(QVariant, wanted);
    QFETCH(int, value);
    Slider slider;
    slider.value().setCurrentValue(wanted);
    QCOMPARE(slider.said, QStringList({"pressed", QString::number(value), "released"}));
    QCOMPARE(slider.value().currentValue(), QVariant(value));
}

void tst_AccessibleTracker::ignoresWhatIsNoNumber_data()
{
    QTest::addColumn<QVariant>("wanted");
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("a word") << QVariant("loud");
    QTest::newRow("not a number") << QVariant(qQNaN());
    QTest::newRow("infinite") << QVariant(qInf());
}

void tst_AccessibleTracker::ignoresWhatIsNoNumber()
{
    QFETCH(QVariant, wanted);
    Slider slider;
    slider.value().setCurrentValue(wanted);
    QCOMPARE(slider.said, QStringList());
    QCOMPARE(slider.tracker.getValue(), 100);
}

void tst_AccessibleTracker::actionsStepAsADrag()
{
    Slider slider;
    slider.action().doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(slider.said, QStringList({"pressed", "102", "released"}));
    slider.said.clear();
    slider.action().doAction(QAccessibleActionInterface::decreaseAction());
    QCOMPARE(slider.said, QStringList({"pressed", "100", "released"}));
    slider.said.clear();
    slider.action().doAction("fly");
    QCOMPARE(slider.said, QStringList());
}

void tst_AccessibleTracker::aDisabledSliderStaysStill()
{
    Slider slider;
    slider.tracker.setEnabled(false);
    QVERIFY(slider.iface->state().disabled);
    slider.value().setCurrentValue(150);
    slider.action().doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(slider.said, QStringList());
    QCOMPARE(slider.tracker.getValue(), 100);
}

void tst_AccessibleTracker::takesTheFocusWhereItMay()
{
    Slider slider;
    const QStringList steps{QAccessibleActionInterface::increaseAction(),
                            QAccessibleActionInterface::decreaseAction()};
    QVERIFY(!slider.iface->state().focusable);
    QCOMPARE(slider.action().actionNames(), steps);
    slider.tracker.setFocusPolicy(Qt::TabFocus);
    QVERIFY(slider.iface->state().focusable);
    QCOMPARE(slider.action().actionNames(),
             QStringList(QAccessibleActionInterface::setFocusAction()) + steps);
}

void tst_AccessibleTracker::knowsDerivedSlidersToo()
{
    const AccessibleFactory factory(&accessibleTracker);
    Volume volume;
    QCOMPARE(QAccessible::queryAccessibleInterface(&volume)->role(), QAccessible::Slider);
}

void tst_AccessibleTracker::isKnownAsLongAsTheFactoryIsHeld()
{
    const auto role = [] {
        ImageTracker tracker;
        return QAccessible::queryAccessibleInterface(&tracker)->role();
    };
    QVERIFY(role() != QAccessible::Slider);
    {
        const AccessibleFactory one(&accessibleTracker);
        {
            const AccessibleFactory other(&accessibleTracker);
        }
        QCOMPARE(role(), QAccessible::Slider);
    }
    QVERIFY(role() != QAccessible::Slider);
}

QTEST_MAIN(tst_AccessibleTracker)
#include "tst_accessibletracker.moc"
