// PaletteFollower: brings new colours of the application into a player that is already there.
// Not here: the skin (playwidget_impl_skin.cpp).
#pragma once

#include <QObject>

class PlayWidget_Impl;

/// Attached to a player from outside. Qt hands a new palette down as far as the first widget with a
/// style sheet of its own, which the player is. GUI thread only.
class PaletteFollower : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of `player`, whose parent must have no style sheet.
    explicit PaletteFollower(PlayWidget_Impl *player);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    PlayWidget_Impl &m_player;
};
