// StereoLayout: how both eyes' views lie in the frames of a film, and taking them out of one.
// Not here: what a file says of it (mediaprobe.h), making one picture of two (stereocomposer.h).
#pragma once

#include <QImage>
#include <QSizeF>

#include <optional>

struct StereoLayout
{
    enum Packing { Flat, SideBySide, TopBottom };

    Packing packing = Flat;
    bool half = false;        ///< views are squeezed to half of their width or height
    bool rightFirst = false;  ///< the right eye's view lies left, or above

    bool operator==(const StereoLayout &other) const
    {
        return packing == other.packing && half == other.half && rightFirst == other.rightFirst;
    }
    bool operator!=(const StereoLayout &other) const { return !(*this == other); }
};

/// What a KestStereoLayout means; nothing for KestLayoutAsTagged and for unknown numbers.
std::optional<StereoLayout> layoutNamed(int name);

/// The shape of one view in a frame of this shape.
QSizeF viewShape(QSizeF frame, StereoLayout layout);

/// How large a frame is whose views have this size.
QSize frameSize(QSize view, StereoLayout layout);

/// `stored` pixels of the aspect `pixel`, never scaled down.
QSizeF frameShape(QSize stored, double pixel);

struct TaggedFrame
{
    QSizeF shape;
    StereoLayout layout;
};

/// Completes what a file tells of its views: how they are packed, but not whether they are squeezed.
/// A view has the shape that `pixel` gives it, unless that is no film's and twice or half as wide
/// is. Views that become about twice as wide or high by it are squeezed.
TaggedFrame taggedFrame(QSize stored, double pixel, StereoLayout tag);

struct Eyes
{
    QImage left;
    QImage right;  ///< null: both eyes see the left one
};

/// The views in a frame, which share its pixels. A frame that was scaled, from `stored` pixels, has
/// columns or rows where the scaling mixed both views; these first become like their neighbours.
Eyes eyesOf(QImage frame, QSize stored, StereoLayout layout);
