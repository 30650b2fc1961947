// Flat images on disk, and what exactly a widget paints.
// Not here: any test.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QWidget>

// Stands wherever the widget painted nothing.
inline const QColor unpainted(Qt::magenta);

inline QImage canvas(const QSize &size, const QColor &color = unpainted)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

// The part of area that lies outside the image is left out.
inline void fill(QImage &image, const QRect &area, const QColor &color)
{
    const QRect inside = area.intersected(image.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            image.setPixelColor(x, y, color);
}

inline bool writeFlat(const QString &fileName, const QSize &size, const QColor &color)
{
    return canvas(size, color).save(fileName, "PNG");
}

// In the widget's own pixels: twice its size where the device pixel ratio is 2.
inline QImage painted(QWidget &widget)
{
    QImage image = canvas(widget.size() * widget.devicePixelRatioF());
    image.setDevicePixelRatio(widget.devicePixelRatioF());
    widget.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    image.setDevicePixelRatio(1);
    return image;
}

// The rectangle around all pixels of that colour; null when there is none.
inline QRect whereIs(const QImage &image, const QColor &color)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == color)
                found |= QRect(x, y, 1, 1);
    return found;
}
