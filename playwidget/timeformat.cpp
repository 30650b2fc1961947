// The arithmetic and the format of a play time.
// Not here: any widget.
#include "playwidget/timeformat.h"

QString MillSecondsToStr(long long ms, bool withMillis)
{
    const long long hours = ms / 3600000;
    const long long minutes = ms % 3600000 / 60000;
    const long long seconds = ms % 60000 / 1000;
    const QString text = QString::asprintf("%02lld:%02lld:%02lld", hours, minutes, seconds);
    return withMillis ? text + QString::asprintf(".%03lld", ms % 1000) : text;
}
