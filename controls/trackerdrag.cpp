// TrackerDrag: the range of a slider, and the signals of a drag.
// Not here: which keys or actions ask for it.
#include "controls/trackerdrag.h"

#include "controls/imagetracker.h"

#include <algorithm>

TrackerDrag::TrackerDrag(ImageTracker *tracker)
    : m_tracker(tracker)
{ }

int TrackerDrag::minimum() const
{
    return m_tracker->minValue;
}

int TrackerDrag::maximum() const
{
    return m_tracker->maxValue;
}

int TrackerDrag::value() const
{
    return std::min(std::max(m_tracker->getValue(), minimum()), maximum());
}

int TrackerDrag::step() const
{
    return share(100);
}

int TrackerDrag::page() const
{
    return share(10);
}

void TrackerDrag::press()
{
    if (takesDrags())
        Q_EMIT m_tracker->sliderPressed();
}

void TrackerDrag::moveTo(qint64 value)
{
    if (!takesDrags() || minimum() > maximum())
        return;
    const int inRange = static_cast<int>(std::clamp<qint64>(value, minimum(), maximum()));
    m_tracker->setValue(inRange);
    Q_EMIT m_tracker->valueChanged(inRange);
}

void TrackerDrag::release()
{
    if (m_tracker)
        Q_EMIT m_tracker->sliderReleased();
}

// Whoever hears a signal may delete the slider.
void TrackerDrag::dragTo(qint64 value)
{
    if (!takesDrags())
        return;
    press();
    moveTo(value);
    release();
}

bool TrackerDrag::takesDrags() const
{
    return m_tracker && m_tracker->isEnabled() && m_tracker->state != ImageTracker::Disable;
}

int TrackerDrag::share(int part) const
{
    const qint64 range = qint64(maximum()) - minimum();
    return static_cast<int>(std::max<qint64>(1, range / part));
}
