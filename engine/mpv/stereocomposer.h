// compose(): turns what two eyes see into one picture in a 3D mode.
// Not here: threads, libmpv, widgets; the same input gives the same pixels anywhere.
#pragma once

#include "engine/mpv/frame.h"
#include "engine/mpv/stereosetting.h"

/// Returns `frame` with its picture composed for `setting`; time and serial stay. Where the frame
/// has a picture for the right eye, the other is the left eye's; else both see the same.
///
/// For a picture of width W and depth d the parallax is d x W pixels, on top of what there is
/// between two pictures: the left eye's view is its picture moved by -d x W / 2, the right eye's by
/// +d x W / 2, to 1/256 of a pixel by linear interpolation; what lies beyond the picture is black.
/// Depths beyond +-1 are clamped; NaN and infinities count as 0.
///
/// - red/cyan, red/green, red/blue: left eye in red, right eye in the other channels
/// - blue/yellow: left eye in blue, right eye in red and green
/// - interleaved: even rows left eye, odd rows right eye
/// - side by side: left view squeezed into the left half, right view into the right half, each column
///   the mean of what it covers; of an odd width the right half has the extra column
/// - off and unknown modes: the left eye's picture itself, not even copied
///
/// Channels that neither eye uses are 0. Pictures must be null or Format_RGB32; their alpha bytes are
/// not looked at, those of a composed picture are 255.
Frame compose(const Frame &frame, StereoSetting setting);
