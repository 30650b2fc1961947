// PaletteFollower: a style sheet set anew takes the colours of the moment.
// Not here: whom it is attached to (playwidget.cpp).
#include "playwidget/palettefollower.h"

#include "playwidget/playwidget_impl.h"

#include <QEvent>

PaletteFollower::PaletteFollower(PlayWidget_Impl *player)
    : QObject(player)
    , m_player(*player)
{
    player->parentWidget()->installEventFilter(this);
}

bool PaletteFollower::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        m_player.setStyleSheet(m_player.styleSheet());
    return QObject::eventFilter(watched, event);
}
