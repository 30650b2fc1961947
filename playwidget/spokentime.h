// spokenTime: a time in words, for people who listen.
// Not here: the time as digits (timeformat.h).
#pragma once

#include <QString>

/// `ms` as "1 hour 2 minutes 5 seconds": what is 0 is left out, but "0 seconds" stays when all is.
/// Milliseconds are cut off; of a negative time the sign is. Translated in the context "PlayWidget".
QString spokenTime(long long ms);

/// The same for a time in digits, such as "00:01:05" or "-00:01:05"; any other text as it is.
QString spokenClock(const QString &digits);
