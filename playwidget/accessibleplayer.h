// AccessiblePlayer: gives a player's controls the names that assistive technology reads out.
// Not here: their values (accessiblevalues.h), operating them by keys (keyboardaccess.h).
#pragma once

#include "controls/accessiblefactory.h"

#include <QObject>

class PlayWidget_Impl;

/// Attached to a player from outside. A button is named by its tool tip; while the host has set
/// none, and for the controls that show no text, a name of our own stands in, translated in the
/// context "PlayWidget". Names follow the texts that the host sets, the play button's state, and the
/// application's language. GUI thread only.
class AccessiblePlayer : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of `player`.
    explicit AccessiblePlayer(PlayWidget_Impl *player);

    /// The one that is attached to `player`; null when none is.
    static AccessiblePlayer *of(const PlayWidget_Impl *player);

    /// Brings all names up to date; who has the same name as before hears nothing of it.
    void nameControls();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void nameButtons();

    PlayWidget_Impl &m_player;
    AccessibleFactory m_trackers;
    AccessibleFactory m_values;  // asked first: Qt begins with the latest
};
