// JoinedTimes: the times of a film's pictures, which go on where those in its file jump back, as
// recordings do that were joined.
// Not here: sound and subtitles, which follow the pictures (streamcopy.cpp).
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

/// All times are in ms.
class JoinedTimes
{
public:
    /// A file may say any number. These, some 30,000 years, can be added up.
    static std::int64_t bounded(std::int64_t time) { return std::clamp(time, -furthest, furthest); }

    /// When the next picture is due whose time in the file is this.
    std::int64_t next(std::int64_t time)
    {
        time = bounded(time);
        if (m_last && time < *m_last - tolerance)
            m_shift = bounded(m_shift + *m_last + m_interval - time);
        else if (m_last && time > *m_last)
            m_interval = time - *m_last;
        m_last = time;
        return time + m_shift;
    }

    /// When the latest picture is due.
    std::int64_t latest() const { return m_last.value_or(0) + m_shift; }

    /// How much later than in the file that is.
    std::int64_t shift() const { return m_shift; }

private:
    static constexpr int tolerance = 100;  // files that are merely untidy
    static constexpr std::int64_t furthest = 1'000'000'000'000'000;

    std::optional<std::int64_t> m_last;
    std::int64_t m_interval = 0;
    std::int64_t m_shift = 0;
};
