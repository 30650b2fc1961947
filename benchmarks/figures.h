// Figures made of many measurements.
// Not here: measuring and printing.
#pragma once

#include <algorithm>
#include <vector>

/// The value that `share` of all lie below: 0.5 gives the median.
inline double percentile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, std::size_t(share * double(values.size())))];
}

inline double median(const std::vector<double> &values)
{
    return percentile(values, 0.5);
}
