// spokenTime: the words for hours, minutes and seconds.
// Not here: the digits (timeformat.cpp).
#include "playwidget/spokentime.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

#include <limits>

namespace {

struct Unit
{
    long long ms;
    const char *one;
    const char *many;
};

constexpr Unit units[] = {
    {3600000, QT_TRANSLATE_NOOP("PlayWidget", "%n hour"),
     QT_TRANSLATE_NOOP("PlayWidget", "%n hours")},
    {60000, QT_TRANSLATE_NOOP("PlayWidget", "%n minute"),
     QT_TRANSLATE_NOOP("PlayWidget", "%n minutes")},
    {1000, QT_TRANSLATE_NOOP("PlayWidget", "%n second"),
     QT_TRANSLATE_NOOP("PlayWidget", "%n seconds")},
};

constexpr int most = std::numeric_limits<int>::max();

QString words(const Unit &unit, long long count)
{
    return QCoreApplication::translate("PlayWidget", count == 1 ? unit.one : unit.many, nullptr,
                                       static_cast<int>(qMin<long long>(count, most)));
}

}  // namespace

QString spokenTime(long long ms)
{
    QStringList parts;
    for (const Unit &unit : units) {
        if (const long long count = qAbs(ms / unit.ms))
            parts += words(unit, count);
        ms %= unit.ms;
    }
    return parts.isEmpty() ? words(units[2], 0) : parts.join(QLatin1Char(' '));
}

QString spokenClock(const QString &digits)
{
    static const QRegularExpression clock(QStringLiteral("^-?(\\d{2,12}):(\\d\\d):(\\d\\d)$"));
    const QRegularExpressionMatch match = clock.match(digits);
    if (!match.hasMatch())
        return digits;
    return spokenTime((match.captured(1).toLongLong() * 3600 + match.captured(2).toLongLong() * 60
                       + match.captured(3).toLongLong())
                      * 1000);
}
