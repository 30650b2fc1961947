// AccessibleValues: the position, volume and depth sliders and the two times, in words.
// Not here: what any skinned slider tells (controls/accessibletracker.cpp).
#include "playwidget/accessiblevalues.h"

#include "controls/accessibletracker.h"
#include "playwidget/playwidget_impl.h"
#include "playwidget/spokentime.h"

#include <QAccessibleWidget>
#include <QCoreApplication>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("PlayWidget", text);
}

PlayWidget_Impl *playerOf(QObject *object)
{
    while (object && !qobject_cast<PlayWidget_Impl *>(object))
        object = object->parent();
    return static_cast<PlayWidget_Impl *>(object);
}

// In two parts, so that no length that an engine reports is too large to multiply.
long long share(long long whole, int part, int of)
{
    return whole / of * part + whole % of * part / of;
}

// A label whose digits are read as a time.
class AccessibleTime : public QAccessibleWidget
{
public:
    AccessibleTime(QLabel *label, const char *sentence)
        : QAccessibleWidget(label, QAccessible::StaticText)
        , m_sentence(sentence)
    { }

    QString text(QAccessible::Text type) const override
    {
        if (type != QAccessible::Name)
            return QAccessibleWidget::text(type);
        return translated(m_sentence).arg(spokenClock(static_cast<QLabel *>(widget())->text()));
    }

private:
    const char *m_sentence;
};

// The depth slider counts from 0; people read the box beside it, which counts from the middle.
class AccessibleDepth : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    AccessibleDepth(QSlider *slider, const QSpinBox *shown)
        : QAccessibleWidget(slider, QAccessible::Slider)
        , m_slider(slider)
        , m_shown(shown)
    { }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text type) const override
    {
        return type == QAccessible::Value ? currentValue().toString()
                                          : QAccessibleWidget::text(type);
    }

    QVariant currentValue() const override { return m_slider->value() + offset(); }
    void setCurrentValue(const QVariant &value) override
    {
        bool isNumber = false;
        const int number = value.toInt(&isNumber);
        if (isNumber && m_slider->isEnabled())
            m_slider->setValue(qBound(m_shown->minimum(), number, m_shown->maximum()) - offset());
    }
    QVariant minimumValue() const override { return m_shown->minimum(); }
    QVariant maximumValue() const override { return m_shown->maximum(); }
    QVariant minimumStepSize() const override { return m_slider->singleStep(); }

private:
    int offset() const { return m_shown->minimum() - m_slider->minimum(); }

    QSlider *m_slider;
    const QSpinBox *m_shown;
};

}  // namespace

QAccessibleInterface *AccessibleValues::make(const QString &className, QObject *object)
{
    const QStringList classes{QStringLiteral("ImageTracker"), QStringLiteral("QSlider"),
                              QStringLiteral("QLabel")};
    const PlayWidget_Impl *player = classes.contains(className) ? playerOf(object) : nullptr;
    if (!player)
        return nullptr;
    const Ui_PlayWidget_Impl &ui = player->ui;
    if (object == ui.playTracker)
        return new AccessibleTracker(ui.playTracker, [player] { return position(*player); });
    if (object == ui.volumeTracker)
        return new AccessibleTracker(ui.volumeTracker, [player] { return volume(*player); });
    if (object == ui.effectTracker)
        return new AccessibleDepth(ui.effectTracker, ui.edt3DPos);
    if (object == ui.lblElapsedTime)
        return new AccessibleTime(ui.lblElapsedTime,
                                  QT_TRANSLATE_NOOP("PlayWidget", "Elapsed: %1"));
    if (object == ui.lblRemainTime)
        return new AccessibleTime(ui.lblRemainTime,
                                  QT_TRANSLATE_NOOP("PlayWidget", "Remaining: %1"));
    return nullptr;
}

// While the handle is dragged this is where letting go would seek to. Of a film whose length is not
// known only the share can be told.
QString AccessibleValues::position(const PlayWidget_Impl &player)
{
    const TrackerDrag drag(player.ui.playTracker);
    if (player.duration <= 0)
        return translated(QT_TRANSLATE_NOOP("PlayWidget", "%1 %")).arg(drag.value() / 10);
    return translated(QT_TRANSLATE_NOOP("PlayWidget", "%1 of %2"))
        .arg(spokenTime(share(player.duration, drag.value(), drag.maximum())),
             spokenTime(player.duration));
}

QString AccessibleValues::volume(const PlayWidget_Impl &player)
{
    return translated(QT_TRANSLATE_NOOP("PlayWidget", "%1 %"))
        .arg(TrackerDrag(player.ui.volumeTracker).value());
}
