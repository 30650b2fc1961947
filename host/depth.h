// The depths that there are: what the player's box can show.
// Not here: what a depth does to a picture; that is the engine's.
#pragma once

#include <cmath>

constexpr double depthStep = 0.006;  ///< share of the picture's width that one step stands for
constexpr double mostDepth = 0.3;

inline bool isDepth(double depth)
{
    return depth >= -mostDepth && depth <= mostDepth;
}

/// The number that the player's box shows for a depth.
inline int depthSteps(double depth)
{
    return int(std::lround(depth / depthStep));
}

/// The depth that the player makes of one that lies between two of its steps. A film that starts
/// with it has not changed by being played.
inline double nearestDepth(double depth)
{
    return depthSteps(depth) * depthStep;
}
