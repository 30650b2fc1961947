// ImageTracker's look: its images, its size and its painting.
// Not here: where the handle stands (imagetracker.cpp).
#include "controls/imagetracker.h"

#include <QGuiApplication>
#include <QPainter>

namespace {

QImage readImage(const QString &stem, const QString &extension)
{
    if (qGuiApp->devicePixelRatio() > 1) {
        QImage dense(stem + QLatin1String("@2x") + extension);
        if (!dense.isNull()) {
            dense.setDevicePixelRatio(2);
            return dense;
        }
    }
    const QString fileName = stem + extension;
    return fileName.isEmpty() ? QImage() : QImage(fileName);  // Qt warns of an empty name
}

// QPainter takes a negative width for "as wide as the image", so it must not get one.
void drawStretched(QPainter &painter, const QRect &target, const QImage &image)
{
    if (!target.isEmpty())
        painter.drawImage(target, image);
}

}  // namespace

QSize ImageTracker::logicalSize(const QImage &image)
{
    return image.size() / image.devicePixelRatio();
}

QSize ImageTracker::sizeHint() const
{
    const int grooveWidth = logicalSize(bgLeft).width() + logicalSize(bgCenter).width()
        + logicalSize(bgRight).width();
    return QSize(grooveWidth, logicalSize(handleImage).height());
}

void ImageTracker::setSkin(const QString &fileName)
{
    loadImages(fileName);
    handleSize = logicalSize(handleImage);
    update();
}

void ImageTracker::setImagePrefix(const QString &fileName)
{
    loadImages(fileName);
    handleSize = logicalSize(handleImage);
    handlePos = QPoint(handleSize.width(), 0);
}

void ImageTracker::loadImages(const QString &fileName)
{
    struct Piece
    {
        QImage ImageTracker::*image;
        const char *suffix;
    };
    static constexpr Piece pieces[] = {
        {&ImageTracker::bgLeft, "_bl"},         {&ImageTracker::bgCenter, "_bc"},
        {&ImageTracker::bgRight, "_br"},        {&ImageTracker::progressLeft, "_pl"},
        {&ImageTracker::progressCenter, "_pc"}, {&ImageTracker::progressRight, "_pr"},
        {&ImageTracker::handleOnImage, "_on"},  {&ImageTracker::handleDisableImage, "_disable"},
    };

    // Without a dot, left(-1) is the whole name.
    const QString base = fileName.left(fileName.lastIndexOf(QLatin1Char('.')));
    handleImage = readImage(base, fileName.mid(base.size()));
    for (const Piece &piece : pieces)
        this->*piece.image = readImage(base + QLatin1String(piece.suffix), QStringLiteral(".png"));
}

void ImageTracker::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // A dense screen scales every image without an exact twin, which shows on the handle's edge.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, devicePixelRatioF() > 1);
    paintGroove(painter);
    if (showProgressBar)
        paintProgress(painter);
    painter.drawImage(QPoint(handlePos.x() - half(), handlePos.y()), shownHandle());
}

// The right piece ends one column short of the edge, and the middle, drawn last, covers its first
// column: the images are made for that.
void ImageTracker::paintGroove(QPainter &painter) const
{
    const QSize left = logicalSize(bgLeft);
    const int rightWidth = logicalSize(bgRight).width();
    const int y = (height() - left.height()) / 2;
    const QRect middle(left.width(), y, width() - left.width() - rightWidth,
                       logicalSize(bgCenter).height());

    painter.drawImage(QPoint(0, y), bgLeft);
    painter.drawImage(QPoint(width() - 1 - rightWidth, y), bgRight);
    drawStretched(painter, middle, bgCenter);
}

// The bar ends at the handle's centre. Its middle is measured with the groove's ends, so that it
// starts where the groove's middle does.
void ImageTracker::paintProgress(QPainter &painter) const
{
    const int centre = handlePos.x();
    const QSize left = logicalSize(progressLeft);
    const QSize right = logicalSize(progressRight);
    const int middleHeight = logicalSize(progressCenter).height();
    const int middleX = logicalSize(bgLeft).width();
    const QRect middle(middleX, (height() - middleHeight) / 2,
                       centre - middleX - logicalSize(bgRight).width(), middleHeight);

    painter.drawImage(QPoint(0, (height() - left.height()) / 2), progressLeft);
    if (centre > left.width())
        painter.drawImage(QPoint(centre - right.width(), (height() - right.height()) / 2),
                          progressRight);
    if (centre > left.width() + right.width())
        drawStretched(painter, middle, progressCenter);
}

const QImage &ImageTracker::shownHandle() const
{
    if (!isEnabled())
        return handleDisableImage;
    return state == On || state == Down ? handleOnImage : handleImage;
}
