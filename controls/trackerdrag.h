// TrackerDrag: a slider's range and steps, and a drag of its handle made by other means than a mouse.
// Not here: who drags: keys (trackerkeys.h), assistive technology (accessibletracker.h).
#pragma once

#include <QPointer>

class ImageTracker;

/// What a drag needs to know of a slider, and its three parts. They have the effect of a user's
/// drag: the same signals in the same order. A slider that is disabled, or in the state
/// ImageTracker::Disable, is neither pressed nor moved; what began before is released all the same.
/// GUI thread only.
class TrackerDrag
{
public:
    explicit TrackerDrag(ImageTracker *tracker);

    int minimum() const;
    int maximum() const;

    /// The slider's value, brought into the range that a drag by mouse can leave.
    int value() const;

    /// A hundredth of the range, and a tenth; at least 1.
    int step() const;
    int page() const;

    /// Emits sliderPressed().
    void press();

    /// Sets the value, or the nearest in the range, and emits valueChanged(). With no value in the
    /// range it does nothing.
    void moveTo(qint64 value);

    /// Emits sliderReleased().
    void release();

    /// All three at once.
    void dragTo(qint64 value);

private:
    bool takesDrags() const;
    int share(int part) const;

    QPointer<ImageTracker> m_tracker;
};
