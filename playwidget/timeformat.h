// MillSecondsToStr: a play time as text.
// Not here: which label shows it.
#pragma once

#include <QString>

/// `ms` as "hh:mm:ss", or as "hh:mm:ss.mmm" with milliseconds. Parts are cut off, not rounded;
/// hours take as many digits as they need, at least two.
QString MillSecondsToStr(long long ms, bool withMillis);
