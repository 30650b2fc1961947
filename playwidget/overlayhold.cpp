// OverlayHold: standing in for the mouse, and letting the focus in and out of the bar.
// Not here: which controls take the focus (keyboardnavigation.cpp).
#include "playwidget/overlayhold.h"

#include "engine/videownd.h"
#include "playwidget/focusreason.h"
#include "playwidget/playwidget_impl.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

bool isTab(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

}  // namespace

OverlayHold::OverlayHold(PlayWidget_Impl *player, const QList<QWidget *> &controls)
    : m_player(*player)
{
    player->ui.videoWnd->installEventFilter(this);
    player->ui.panPlayControl->installEventFilter(this);
    for (QWidget *control : controls)
        control->installEventFilter(this);
}

OverlayHold::~OverlayHold()
{
    if (m_holding)
        release();
}

// A real mouse may leave while it is stood in for; the player hears of it when that ends.
bool OverlayHold::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (isTab(*static_cast<QKeyEvent *>(event)))
            openForTab();
        return false;
    case QEvent::FocusIn:
        focusIn(watched, static_cast<QFocusEvent *>(event)->reason());
        return false;
    case QEvent::FocusOut:
        focusOut(watched);
        return false;
    case QEvent::MouseButtonPress:
        if (watched == m_player.ui.videoWnd)
            pressVideo(*static_cast<QMouseEvent *>(event));
        return false;
    case QEvent::Hide:
        if (watched == m_player.ui.panPlayControl)
            barHidden();
        return false;
    case QEvent::Leave:
        return m_holding
            && (watched == m_player.ui.videoWnd || watched == m_player.ui.panPlayControl);
    default:
        return QObject::eventFilter(watched, event);
    }
}

// Qt passes over what is hidden, so the bar is there before the focus moves. Where the focus does
// not come into it, it is gone again before anything is painted; but with the mouse over the video
// it goes as after a move.
void OverlayHold::openForTab()
{
    if (m_player.ui.panPlayControl->isHidden())
        hold();
    settleLater();
}

// With the bar hidden, Tab from before the player has passed it over and came to the first control
// behind it.
void OverlayHold::focusIn(QObject *control, Qt::FocusReason reason)
{
    const Ui_PlayWidget_Impl &ui = m_player.ui;
    if (control == ui.cbx3DMode && reason == Qt::TabFocusReason && ui.panPlayControl->isHidden())
        focusLater(ui.btnVolumeLeft);
    else if (isInBar(control) && isByKeys(reason) && !m_holding)
        hold();
    settleLater();
}

// A control that is disabled under the focus, such as the position at the end of a film, hands it to
// its neighbour. The neighbour may be the 3D settings, where the next key would change the picture.
void OverlayHold::focusOut(QObject *control)
{
    const bool wasDisabled = !static_cast<QWidget *>(control)->isEnabled();
    if (wasDisabled && isInBar(control))
        focusLater(m_player.ui.btnPlay);
    settleLater();
}

// The focus may be in the bar although no key brought it: a window gives it to its first control
// when it opens. Left to itself it would go on as if by Tab.
void OverlayHold::barHidden()
{
    const Ui_PlayWidget_Impl &ui = m_player.ui;
    if (isFocusInBar() && ui.panPlayControl->isHidden())
        ui.cbx3DMode->setFocus(Qt::OtherFocusReason);
}

// Controls leave their presses to the widgets below them, down to the video.
void OverlayHold::pressVideo(const QMouseEvent &press)
{
    if (isFocusInBar() && !m_player.ui.panPlayControl->geometry().contains(press.pos()))
        m_player.ui.videoWnd->setFocus(Qt::MouseFocusReason);
}

bool OverlayHold::isInBar(const QObject *object) const
{
    return object && object->parent() == m_player.ui.panPlayControl;
}

// Asks the window, which keeps its focus while another window is active.
bool OverlayHold::isFocusInBar() const
{
    return isInBar(m_player.window()->focusWidget());
}

void OverlayHold::hold()
{
    m_holding = true;
    tell(m_player.ui.videoWnd, QEvent::Enter);
    tell(m_player.ui.panPlayControl, QEvent::Enter);
}

void OverlayHold::release()
{
    m_holding = false;
    for (QWidget *widget :
         {m_player.ui.panPlayControl, static_cast<QWidget *>(m_player.ui.videoWnd)}) {
        if (!widget->underMouse())
            tell(widget, QEvent::Leave);
    }
}

void OverlayHold::settle()
{
    if (m_holding && !isFocusInBar())
        release();
}

// Later, because the focus is still moving.
void OverlayHold::settleLater()
{
    QMetaObject::invokeMethod(this, &OverlayHold::settle, Qt::QueuedConnection);
}

void OverlayHold::focusLater(QWidget *control)
{
    const auto focus = [this, control] {
        hold();
        control->setFocus(Qt::TabFocusReason);
    };
    QMetaObject::invokeMethod(this, focus, Qt::QueuedConnection);
}

// To the player's filter alone: the widgets themselves know where the real mouse is.
void OverlayHold::tell(QWidget *watched, QEvent::Type type)
{
    QEvent event(type);
    m_player.eventFilter(watched, &event);
}
