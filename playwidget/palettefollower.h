// PaletteFollower: brings new colours of the application into a player that is already there.
// Not here: the skin (playwidget_impl_skin.cpp).
#pragma once

#include <QObject>

class PlayWidget_Impl;

/// Attached to a player from outside. Qt hands a new palette down as far as the first widget with a
/// style sheet of its own, which the player is; its parent hears of it still, unless the host has
/// given that one or itself a style sheet as well. GUI thread only.
class PaletteFollower : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of `player`, which has a parent.
    explicit PaletteFollower(PlayWidget_Impl *player);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    PlayWidget_Impl &m_player;
};
