// framePacking(): how the views are packed, as an H.264 or HEVC stream itself says.
// Not here: what the container says (mediaprobe.cpp); it comes first where both speak.
#pragma once

#include "engine/mpv/stereolayout.h"

#include <cstdint>
#include <vector>

enum class NalCodec { H264, Hevc };

/// Reads the frame packing arrangement in the supplemental information of one coded picture. Flat
/// where there is none, where it is of another kind, and where the bytes make no sense.
/// `lengthSize`: of the number of bytes before each unit; 0: units stand between start codes.
StereoLayout framePacking(NalCodec codec, const std::vector<std::uint8_t> &picture, int lengthSize);
