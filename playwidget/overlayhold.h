// OverlayHold: keeps a player's bar shown while the focus is in it.
// Not here: what shows and hides the bar for the mouse (playwidget_impl_overlay.cpp).
#pragma once

#include <QEvent>
#include <QList>
#include <QObject>

class PlayWidget_Impl;
class QMouseEvent;
class QWidget;

/// Tells a player what a mouse that rests on the bar would tell it, for as long as a control of the
/// bar has the focus that keys brought, and lets Tab into a bar that is hidden. Attached from
/// outside. GUI thread only.
class OverlayHold : public QObject
{
    Q_OBJECT

public:
    /// `controls` are all that take the focus in `player`; they must outlive it.
    OverlayHold(PlayWidget_Impl *player, const QList<QWidget *> &controls);

    /// Leaves the bar to the mouse.
    ~OverlayHold() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isInBar(const QObject *object) const;
    bool isFocusInBar() const;
    void openForTab();
    void focusIn(QObject *control, Qt::FocusReason reason);
    void focusOut(QObject *control);
    void barHidden();
    void pressVideo(const QMouseEvent &press);
    void hold();
    void release();
    void settle();
    void settleLater();
    void focusLater(QWidget *control);
    void tell(QWidget *watched, QEvent::Type type);

    PlayWidget_Impl &m_player;
    bool m_holding = false;
};
