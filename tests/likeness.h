// How alike two pictures are, where a codec or a scaler stands between them.
// Not here: pictures that are to be the same; those are compared.
#pragma once

#include <QImage>

#include <limits>

/// The mean of all channels of all pixels, in steps of 255; infinite for pictures of two sizes.
inline double meanDifference(const QImage &one, const QImage &other)
{
    if (one.size() != other.size())
        return std::numeric_limits<double>::infinity();
    qint64 sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y), b = other.pixel(x, y);
            sum += qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b))
                + qAbs(qBlue(a) - qBlue(b));
        }
    }
    return double(sum) / (3.0 * one.width() * one.height());
}
