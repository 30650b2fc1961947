// KeyboardNavigation: makes a player's controls reachable by keys and marks the one that was reached.
// Not here: keys of a slider (controls/trackerkeys.h), keeping the bar shown (overlayhold.h).
#pragma once

#include "controls/trackerkeys.h"
#include "playwidget/overlayhold.h"

#include <QHash>
#include <QPointer>

class FocusMark;
class PlayWidget_Impl;

/// What setKeyboardAccess() switches on, attached to a player from outside; see there. Destroying it
/// puts everything back. GUI thread only.
class KeyboardNavigation : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of `player`, whose controls must still be there when it is destroyed.
    explicit KeyboardNavigation(PlayWidget_Impl *player);
    ~KeyboardNavigation() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeReachable(QWidget *control);
    void focusIn(QWidget *control, Qt::FocusReason reason);
    void setMarked(QWidget *control);

    PlayWidget_Impl &m_player;
    TrackerKeys m_volumeKeys;
    TrackerKeys m_positionKeys;
    OverlayHold m_overlay;
    QHash<QWidget *, Qt::FocusPolicy> m_policies;  // of the controls that had to be changed
    QPointer<FocusMark> m_mark;
    bool m_byKeys = false;  // how the focus came to where it is
};
