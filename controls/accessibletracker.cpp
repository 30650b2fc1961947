// AccessibleTracker: role, value, range and actions of a slider, and the news of its value.
// Not here: the drag that a new value makes (trackerdrag.cpp).
#include "controls/accessibletracker.h"

#include "controls/imagetracker.h"

// Qt asks for the interface of whatever is shown, so being here does not mean that somebody listens.
AccessibleTracker::AccessibleTracker(ImageTracker *tracker, Words words)
    : QAccessibleWidget(tracker, QAccessible::Slider)
    , m_drag(tracker)
    , m_words(std::move(words))
    , m_announcing(QObject::connect(tracker, &ImageTracker::valueChanged, [tracker](int value) {
        if (!QAccessible::isActive())
            return;
        QAccessibleValueChangeEvent event(tracker, value);
        QAccessible::updateAccessibility(&event);
    }))
{ }

AccessibleTracker::~AccessibleTracker()
{
    QObject::disconnect(m_announcing);
}

void *AccessibleTracker::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

// The words stand in for the description as well: on Linux the bridge hands on that and the bare
// number, but no text of a value.
QString AccessibleTracker::text(QAccessible::Text type) const
{
    if (type == QAccessible::Value && !m_words)
        return QString::number(m_drag.value());
    if (m_words && (type == QAccessible::Value || type == QAccessible::Description))
        return m_words();
    return QAccessibleWidget::text(type);
}

QStringList AccessibleTracker::actionNames() const
{
    return QAccessibleWidget::actionNames() + QStringList{increaseAction(), decreaseAction()};
}

void AccessibleTracker::doAction(const QString &name)
{
    if (name == increaseAction())
        m_drag.dragTo(qint64(m_drag.value()) + m_drag.step());
    else if (name == decreaseAction())
        m_drag.dragTo(qint64(m_drag.value()) - m_drag.step());
    else
        QAccessibleWidget::doAction(name);
}

QVariant AccessibleTracker::currentValue() const
{
    return m_drag.value();
}

void AccessibleTracker::setCurrentValue(const QVariant &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (isNumber && qIsFinite(number))
        m_drag.dragTo(qRound64(qBound(-1e15, number, 1e15)));
}

QVariant AccessibleTracker::minimumValue() const
{
    return m_drag.minimum();
}

QVariant AccessibleTracker::maximumValue() const
{
    return m_drag.maximum();
}

QVariant AccessibleTracker::minimumStepSize() const
{
    return m_drag.step();
}

// Qt asks for each class of an object in turn, the most derived first.
QAccessibleInterface *accessibleTracker(const QString &className, QObject *object)
{
    if (className != QLatin1String("ImageTracker"))
        return nullptr;
    return new AccessibleTracker(static_cast<ImageTracker *>(object));
}
