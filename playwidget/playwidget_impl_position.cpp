// Position and volume: the clock, the two skinned sliders, the time labels.
// Not here: where positions come from (playwidget_impl_transport.cpp), 5 s steps (navigation).
#include "playwidget/playwidget_impl.h"
#include "playwidget/timeformat.h"

namespace {

constexpr int perMille = 1000;  // range of the position slider
constexpr int loudest = 200;

// An engine may report any 64-bit length. Unsigned arithmetic wraps where signed is undefined.
long long times(long long a, long long b)
{
    return static_cast<long long>(static_cast<quint64>(a) * static_cast<quint64>(b));
}

long long minus(long long a, long long b)
{
    return static_cast<long long>(static_cast<quint64>(a) - static_cast<quint64>(b));
}

}  // namespace

void PlayWidget_Impl::playUpdateTimerTimeOut()
{
    if (position > duration) {
        stopVideo(true);
        return;
    }
    ui.lblElapsedTime->setText(MillSecondsToStr(position, false));
    ui.lblRemainTime->setText(QLatin1Char('-')
                              + MillSecondsToStr(minus(duration, position), false));
    if (trackerPressed)
        return;
    // Without a length there is no share of it: the slider rests at the left.
    const long long share = duration ? times(position, perMille) / duration : 0;
    ui.playTracker->setValue(static_cast<int>(share));
}

void PlayWidget_Impl::playTrackerPressed()
{
    trackerPressed = true;
}

void PlayWidget_Impl::playTrackerReleased()
{
    if (!trackerPressed || !hasOpenEdit())
        return;
    const long long target = times(duration, ui.playTracker->getValue()) / perMille;
    (void)KestSetCurPos(engine, static_cast<unsigned int>(target));
    position = target;
    trackerPressed = false;
    playUpdateTimerTimeOut();
}

void PlayWidget_Impl::volumeChanged(int value)
{
    if (hasOpenEdit())
        (void)KestChangeVolume(engine, value);
}

void PlayWidget_Impl::minimizeVolume()
{
    setVolume(0);
}

void PlayWidget_Impl::maximizeVolume()
{
    setVolume(loudest);
}

// Moving the slider from here is silent, so the engine is told once.
void PlayWidget_Impl::setVolume(int volume)
{
    ui.volumeTracker->setValue(volume);
    volumeChanged(volume);
}
