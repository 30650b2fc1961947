// KeyboardNavigation: focus policies, and when the focus is marked.
// Not here: how the mark looks (focusmark.cpp).
#include "playwidget/keyboardnavigation.h"

#include "playwidget/focusmark.h"
#include "playwidget/focusreason.h"
#include "playwidget/playwidget_impl.h"

#include <QFocusEvent>
#include <QPushButton>

namespace {

// Tab follows the order in which the form makes the controls, which is the order on screen.
QList<QWidget *> controlsOf(const Ui_PlayWidget_Impl &ui)
{
    return {ui.btnVolumeLeft,
            ui.volumeTracker,
            ui.btnVolumeRight,
            ui.btnPriorFile,
            ui.btnPriorPart,
            ui.btnPlay,
            ui.btnNextPart,
            ui.btnNextFile,
            ui.btnCapture,
            ui.btnCaptureRight,
            ui.playTracker,
            ui.cbx3DMode,
            ui.edt3DPos,
            ui.effectTracker,
            ui.chxApplyToAll,
            ui.buttonBox->button(QDialogButtonBox::Ok),
            ui.buttonBox->button(QDialogButtonBox::Cancel)};
}

}  // namespace

KeyboardNavigation::KeyboardNavigation(PlayWidget_Impl *player)
    : QObject(player)
    , m_player(*player)
    , m_volumeKeys(player->ui.volumeTracker)
    , m_positionKeys(player->ui.playTracker)
    , m_overlay(player, controlsOf(player->ui))
{
    for (QWidget *control : controlsOf(player->ui)) {
        control->installEventFilter(this);
        makeReachable(control);
    }
}

// The focus may move while the rest is taken away, and must not be marked any more.
KeyboardNavigation::~KeyboardNavigation()
{
    for (QWidget *control : controlsOf(m_player.ui))
        control->removeEventFilter(this);
    delete m_mark;
    for (auto changed = m_policies.cbegin(); changed != m_policies.cend(); ++changed) {
        QWidget *control = changed.key();
        control->setFocusPolicy(changed.value());
        if (changed.value() == Qt::NoFocus)
            control->clearFocus();
    }
}

bool KeyboardNavigation::eventFilter(QObject *watched, QEvent *event)
{
    auto *control = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        focusIn(control, static_cast<QFocusEvent *>(event)->reason());
        break;
    case QEvent::FocusOut:
        setMarked(nullptr);
        break;
    case QEvent::MouseButtonPress:
        focusIn(control, Qt::MouseFocusReason);
        break;
    case QEvent::Polish:
    case QEvent::StyleChange:
        makeReachable(control);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

// Style sheets can set the policy too, each time that they are applied.
void KeyboardNavigation::makeReachable(QWidget *control)
{
    if (control->focusPolicy() & Qt::TabFocus)
        return;
    m_policies[control] = control->focusPolicy();
    control->setFocusPolicy(Qt::TabFocus);
}

// Other ways, such as coming back to the window or from a menu, go on as it was before.
void KeyboardNavigation::focusIn(QWidget *control, Qt::FocusReason reason)
{
    if (isByKeys(reason))
        m_byKeys = true;
    else if (reason == Qt::MouseFocusReason)
        m_byKeys = false;
    setMarked(m_byKeys ? control : nullptr);
}

void KeyboardNavigation::setMarked(QWidget *control)
{
    delete m_mark;
    if (control)
        m_mark = new FocusMark(control);
}
