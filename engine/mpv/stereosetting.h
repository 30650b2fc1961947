// StereoSetting: the 3D choice as the engine works with it, and its two conversions.
// Not here: storing settings (filterstore.h), applying them (stereocomposer.h).
#pragma once

#include "engine/kest.h"

/// A 3D mode and a depth. The depth is the parallax as a share of the picture's width; negative
/// comes out of the screen. Both are kept as they were given: what is out of range is made good
/// where it is used.
struct StereoSetting
{
    int mode = Kest3DTurnOff;
    double depth = 0.0;
};

/// Only mode and depth are read.
inline StereoSetting stereoSettingFrom(const tagKestFilterInfo &info)
{
    return {info.mode, info.depth};
}

inline tagKestFilterInfo filterInfoFrom(StereoSetting setting)
{
    tagKestFilterInfo info = {};
    info.type = 17;
    info.mode = setting.mode;
    info.depth = setting.depth;
    return info;
}
