// AccessibleTracker: a slider as assistive technology sees it.
// Not here: what the value means; its owner says it in words.
#pragma once

#include "controls/trackerdrag.h"

#include <QAccessibleWidget>
#include <QMetaObject>

#include <functional>

class ImageTracker;

/// Role Slider, with value, range and step, and with actions to increase and decrease by a step.
/// Setting the value has the effect of a user's drag; anything but a number is ignored. What a user
/// changes is announced. What the owner sets is not: a position that moves with the film would be
/// read out without end. GUI thread only.
class AccessibleTracker : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    using Words = std::function<QString()>;

    /// `words` tells the current value as a person would; without it the number is told.
    explicit AccessibleTracker(ImageTracker *tracker, Words words = {});
    ~AccessibleTracker() override;

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text type) const override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant minimumValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override;

private:
    TrackerDrag m_drag;
    Words m_words;
    QMetaObject::Connection m_announcing;
};

/// For AccessibleFactory: an AccessibleTracker for each ImageTracker.
QAccessibleInterface *accessibleTracker(const QString &className, QObject *object);
