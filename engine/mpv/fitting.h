// fitted(): the largest size of a given shape inside an area.
// Not here: who needs it: the renderer for the picture's size, the view for its place.
#pragma once

#include <QSize>

#include <algorithm>
#include <cmath>

/// `shape` scaled to touch `area` in at least one direction, halves rounded up, never below one
/// pixel. Empty when either is.
inline QSize fitted(QSize area, QSizeF shape)
{
    if (area.isEmpty() || shape.isEmpty())
        return {};
    const double scale = std::min(area.width() / shape.width(), area.height() / shape.height());
    const auto side = [scale](double length, int limit) {
        return std::clamp(int(std::floor(length * scale + 0.5)), 1, limit);
    };
    return {side(shape.width(), area.width()), side(shape.height(), area.height())};
}
