// TrackerKeys: drives a slider by keys.
// Not here: what a drag does to the slider (trackerdrag.h), marking the slider that has the focus.
#pragma once

#include "controls/trackerdrag.h"

#include <QObject>

#include <optional>

/// While it lives, keys drag the slider that has the focus: right and up add a step, left and down
/// take one, page up and page down go by pages, home and end to the ends of the range. The first
/// press of a key grasps the handle, its repetitions drag on, its release lets go; losing the focus
/// does so too. Left is less in a right-to-left layout as well, since the slider is not mirrored.
/// Other keys, and keys with Ctrl, Alt or Meta, are left alone. GUI thread only.
class TrackerKeys : public QObject
{
    Q_OBJECT

public:
    /// `tracker` must outlive it.
    explicit TrackerKeys(ImageTracker *tracker);

    /// Lets go of the handle.
    ~TrackerKeys() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::optional<qint64> target(int key) const;
    bool press(int key);
    bool letGo();

    TrackerDrag m_drag;
    bool m_dragging = false;
};
