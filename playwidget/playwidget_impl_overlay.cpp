// What the event filter does: the overlay over the video comes and goes with the mouse, the music
// picture stands in for a film, Return stays out of the depth box. Not here: the widget's own keys.
#include "engine/videownd.h"
#include "playwidget/playwidget_impl.h"

#include <QImage>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int tickInterval = 1000;  // ms
constexpr int ticksUntilHidden = 5;

}  // namespace

bool PlayWidget_Impl::eventFilter(QObject *watched, QEvent *event)
{
    bool consumed = false;
    if (watched == ui.panPlayControl)
        consumed = filterPanelEvent(event);
    else if (watched == ui.videoWnd)
        consumed = filterVideoEvent(event);
    else if (watched == ui.edt3DPos && event->type() == QEvent::KeyPress)
        consumed = static_cast<QKeyEvent *>(event)->key() == Qt::Key_Return;
    return consumed || QWidget::eventFilter(watched, event);
}

bool PlayWidget_Impl::filterPanelEvent(QEvent *event)
{
    if (event->type() != QEvent::Enter && event->type() != QEvent::Leave)
        return false;
    mouseOverPanel = event->type() == QEvent::Enter;
    return true;
}

bool PlayWidget_Impl::filterVideoEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        idleTicks = 0;
        showOverlay();
        return true;
    case QEvent::Enter:
        mouseInVideo = true;
        showOverlay();
        idleTicks = 0;
        mouseDetectTimer->start(tickInterval);
        return true;
    case QEvent::Leave:
        mouseInVideo = false;
        hideOverlay();
        mouseDetectTimer->stop();
        releaseTrackers();
        return true;
    case QEvent::Paint:
        if (currentAudioOnly)
            paintMusicPicture(static_cast<QPaintEvent *>(event));
        return currentAudioOnly;
    default:
        return false;
    }
}

// The count is not started over and the timer runs on: every further tick hides again.
void PlayWidget_Impl::mouseDetectTimerTimeOut()
{
    if (!mouseInVideo)
        return;
    if (mouseOverPanel) {
        idleTicks = 0;
        return;
    }
    if (++idleTicks < ticksUntilHidden)
        return;
    hideOverlay();
    releaseTrackers();
}

void PlayWidget_Impl::showOverlay()
{
    ui.panPlayControl->setVisible(true);
    ui.lblFileName->setVisible(true);
}

void PlayWidget_Impl::hideOverlay()
{
    ui.panPlayControl->setVisible(false);
    ui.lblFileName->setVisible(false);
}

// A bar that cannot be seen must not be dragged either.
void PlayWidget_Impl::releaseTrackers()
{
    ui.playTracker->sliderLeaveEvent();
    ui.volumeTracker->setMoveState(false);
}

void PlayWidget_Impl::paintMusicPicture(QPaintEvent *event)
{
    QPainter painter(ui.videoWnd);
    painter.setClipRegion(event->region(), Qt::ReplaceClip);
    // Width and height are crossed on purpose: the picture keeps the place that it has always had,
    // in the middle of a square window only.
    const int x = (ui.videoWnd->height() - musicPicture->width()) / 2;
    const int y = (ui.videoWnd->width() - musicPicture->height()) / 2;
    painter.drawImage(QPointF(x, y), *musicPicture);
}
