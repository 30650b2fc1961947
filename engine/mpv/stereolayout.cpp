// Shapes, sizes and memory of the views in a frame.
// Not here: the pixels of a view, but for those where two touch.
#include "engine/mpv/stereolayout.h"

#include "engine/mpv/kest_host.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

using Layout = StereoLayout;

struct NamedLayout
{
    int name;
    Layout layout;
};

constexpr NamedLayout namedLayouts[] = {
    {KestLayoutFlat, {Layout::Flat, false, false}},
    {KestLayoutSideBySide, {Layout::SideBySide, false, false}},
    {KestLayoutSideBySideRightFirst, {Layout::SideBySide, false, true}},
    {KestLayoutSideBySideHalf, {Layout::SideBySide, true, false}},
    {KestLayoutSideBySideHalfRightFirst, {Layout::SideBySide, true, true}},
    {KestLayoutTopBottom, {Layout::TopBottom, false, false}},
    {KestLayoutTopBottomRightFirst, {Layout::TopBottom, false, true}},
    {KestLayoutTopBottomHalf, {Layout::TopBottom, true, false}},
    {KestLayoutTopBottomHalfRightFirst, {Layout::TopBottom, true, true}},
};

double aspectOf(QSizeF shape)
{
    return shape.width() / shape.height();
}

bool isFilmAspect(double aspect)
{
    return aspect >= 1.25 && aspect < 2.5;
}

/// Many files say that their squeezed views are half as wide or high as they are meant, and some say
/// the contrary of their whole ones.
double meantAspect(double said)
{
    for (const double factor : {2.0, 0.5})
        if (!isFilmAspect(said) && isFilmAspect(said * factor))
            return said * factor;
    return said;
}

/// Columns, or rows, on either side of where the views touch that scaling has mixed. It looks as far
/// as one pixel of the film, colours included.
int mixedReach(int shown, int stored)
{
    if (shown == stored || stored <= 0)
        return 0;
    const int reach = int(std::ceil(double(shown) / stored - 0.5));
    return std::min(std::max(reach, 1), shown / 2 - 1);
}

void mendColumns(QImage &frame, int reach)
{
    const int middle = frame.width() / 2;
    for (int y = 0; y < frame.height(); ++y) {
        auto *seam = reinterpret_cast<quint32 *>(frame.scanLine(y)) + middle;
        std::fill(seam - reach, seam, seam[-reach - 1]);
        std::fill(seam, seam + reach, seam[reach]);
    }
}

void mendRows(QImage &frame, int reach)
{
    const int middle = frame.height() / 2;
    const auto copy = [&frame](int from, int to) {
        std::memcpy(frame.scanLine(to), frame.constScanLine(from), size_t(frame.width()) * 4);
    };
    for (int y = 0; y < reach; ++y) {
        copy(middle - reach - 1, middle - reach + y);
        copy(middle + reach, middle + y);
    }
}

void mendSeam(QImage &frame, QSize stored, Layout layout)
{
    if (layout.packing == Layout::SideBySide)
        mendColumns(frame, mixedReach(frame.width(), stored.width()));
    else
        mendRows(frame, mixedReach(frame.height(), stored.height()));
}

/// A part of the frame, which keeps the frame's memory.
QImage part(const QImage &frame, QRect place)
{
    const auto release = [](void *held) { delete static_cast<QImage *>(held); };
    return {frame.constScanLine(place.y()) + place.x() * 4,
            place.width(),
            place.height(),
            int(frame.bytesPerLine()),
            frame.format(),
            release,
            new QImage(frame)};
}

}  // namespace

std::optional<Layout> layoutNamed(int name)
{
    for (const NamedLayout &row : namedLayouts)
        if (row.name == name)
            return row.layout;
    return {};
}

QSizeF viewShape(QSizeF frame, Layout layout)
{
    const bool isWhole = layout.packing == Layout::Flat || layout.half;
    if (isWhole)
        return frame;
    return layout.packing == Layout::SideBySide ? QSizeF(frame.width() / 2, frame.height())
                                                : QSizeF(frame.width(), frame.height() / 2);
}

QSize frameSize(QSize view, Layout layout)
{
    return {layout.packing == Layout::SideBySide ? view.width() * 2 : view.width(),
            layout.packing == Layout::TopBottom ? view.height() * 2 : view.height()};
}

QSizeF frameShape(QSize stored, double pixel)
{
    return pixel >= 1 ? QSizeF(stored.width() * pixel, stored.height())
                      : QSizeF(stored.width(), stored.height() / pixel);
}

TaggedFrame taggedFrame(QSize stored, double pixel, Layout tag)
{
    if (tag.packing == Layout::Flat)
        return {frameShape(stored, pixel), tag};
    const bool beside = tag.packing == Layout::SideBySide;
    const double said = aspectOf(viewShape(frameShape(stored, pixel), tag));
    const double meant = pixel * meantAspect(said) / said;  // the aspect of a pixel on screen
    tag.half = beside ? meant >= 1.5 : meant <= 0.75;
    const double squeeze = beside ? 2.0 : 0.5;
    return {frameShape(stored, tag.half ? meant / squeeze : meant), tag};
}

Eyes eyesOf(QImage frame, QSize stored, Layout layout)
{
    if (layout.packing == Layout::Flat || frame.isNull())
        return {frame, {}};
    mendSeam(frame, stored, layout);
    const bool beside = layout.packing == Layout::SideBySide;
    const QSize size(beside ? frame.width() / 2 : frame.width(),
                     beside ? frame.height() : frame.height() / 2);
    const QImage first = part(frame, QRect(QPoint(0, 0), size));
    const QImage second
        = part(frame, QRect(beside ? QPoint(size.width(), 0) : QPoint(0, size.height()), size));
    return layout.rightFirst ? Eyes{second, first} : Eyes{first, second};
}
