// The edit of the selected item: begin, play, pause, stop, and what the engine reports of it.
// Not here: the 3D half of beginning (playwidget_impl_filter3d.cpp), seeking and the clock.
#include "engine/videownd.h"
#include "playwidget/playwidget_impl.h"

#include <QFileInfo>
#include <QPointer>
#include <QTimer>

namespace {

constexpr int clockInterval = 500;  // ms between two looks at the position
constexpr int playStateEvent = 0;
constexpr int stateEnded = 5;
constexpr int stateTick = 7;
constexpr int emptyViewCommand = 4;

}  // namespace

int CallbackVelmoEvent(tagKestEvent *event, void *user)
{
    if (user)
        static_cast<PlayWidget_Impl *>(user)->callBackVelmoEvent(event);
    return 0;
}

// Runs on the engine's thread: emitting is all that may happen here, the connection brings the
// values to the GUI thread.
void PlayWidget_Impl::callBackVelmoEvent(tagKestEvent *event)
{
    if (event && event->eventType == playStateEvent)
        Q_EMIT updatePlayState(event->state, event->time);
}

void PlayWidget_Impl::doUpdatePlayState(int velmoState, uint t)
{
    if (velmoState == stateEnded)
        stopVideo(true);
    else if (velmoState != stateTick)
        position = t;
    else if (position > duration)
        stopVideo(true);
}

void PlayWidget_Impl::btnPlayClick()
{
    if (playState == Playing)
        pauseVideo();
    else
        playVideo();
}

bool PlayWidget_Impl::playVideo()
{
    if (playState == Paused) {
        (void)KestPlay(engine);
        showPlaying();
        return true;
    }
    if (!playItem(currentIndex))
        return false;

    ui.lblFileName->setText(QFileInfo(currentFileName).fileName());
    (void)KestGetMediaDuration(engine, currentFileId, &duration);
    const QPointer<PlayWidget_Impl> alive(this);
    beginEdit(currentIndex);
    if (!alive)
        return false;
    (void)KestChangeVolume(engine, ui.volumeTracker->getValue());
    if (const int code = KestPlay(engine)) {
        errors.addFunctionErrorWithCode(QStringLiteral("KestPlay"), code);
        return false;
    }
    showPlaying();
    ui.playTracker->setEnabled(true);
    return true;
}

bool PlayWidget_Impl::pauseVideo()
{
    if (playState != Playing)
        return false;
    if (const int code = KestPause(engine)) {
        errors.addFunctionErrorWithCode(QStringLiteral("KestPause"), code);
        return false;
    }
    playState = Paused;
    showPlayButton(playIcon, playToolTip);
    playUpdateTimer->stop();
    return true;
}

void PlayWidget_Impl::stopVideo(bool bSave)
{
    if (playState == Stopped)
        return;
    ui.lblFileName->setText(QString());
    endEdit(bSave);
    playState = Stopped;
    showPlayButton(playIcon, playToolTip);
    ui.playTracker->setValue(0);
    playUpdateTimer->stop();
    ui.playTracker->setEnabled(false);
    CVideoWnd::tagMsgParams message = {};
    message.command = emptyViewCommand;
    message.param = -1;
    ui.videoWnd->SendCommand(&message);
    ui.videoWnd->UpdateView();
}

void PlayWidget_Impl::beginEdit(int index)
{
    PlayItem *item = playItem(index);
    if (!engine || !item)
        return;
    EditBeginParams params = {};
    params.mode = 1;
    params.fileId = item->fileId;
    params.factor = 1.0;
    params.firstHeight = params.secondHeight = ui.videoWnd->height();
    params.firstWidth = params.secondWidth = ui.videoWnd->width();
    params.firstWindow = params.secondWindow = ui.videoWnd;
    params.callback = CallbackVelmoEvent;
    params.userData = this;
    // The engine reports while it begins, and whoever hears of that may delete the widget.
    const QPointer<PlayWidget_Impl> alive(this);
    (void)KestEditBegin(engine, &params);
    if (!alive)
        return;
    ui.videoWnd->resetSessionState();
    beginFilter(item);
}

void PlayWidget_Impl::endEdit(bool save)
{
    if (!engine)
        return;
    if (const int code = KestEditEnd(engine, save))
        errors.addFunctionErrorWithCode(QStringLiteral("KestEditEnd"), code);
}

bool PlayWidget_Impl::hasOpenEdit() const
{
    return playState == Playing || playState == Paused;
}

void PlayWidget_Impl::showPlayButton(const QIcon &icon, const QString &toolTip)
{
    ui.btnPlay->setIcon(icon);
    ui.btnPlay->setToolTip(toolTip);
}

void PlayWidget_Impl::showPlaying()
{
    playState = Playing;
    showPlayButton(pauseIcon, pauseToolTip);
    playUpdateTimer->start(clockInterval);
}
