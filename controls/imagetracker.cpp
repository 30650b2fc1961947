// ImageTracker's model: value and handle position, and the mouse that changes them.
// Not here: images and painting (imagetracker_skin.cpp).
#include "controls/imagetracker.h"

#include <QMouseEvent>

#include <algorithm>
#include <limits>

namespace {

// Far outside every widget, and far enough from the end of int to add a size without overflow.
constexpr qint64 farColumn = 1 << 30;

int toColumn(qint64 x)
{
    return static_cast<int>(std::clamp(x, -farColumn, farColumn));
}

int toInt(qint64 number)
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<qint64>(number, Limits::min(), Limits::max()));
}

}  // namespace

ImageTracker::ImageTracker(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
}

ImageTracker::~ImageTracker() = default;

int ImageTracker::getValue() const
{
    return value;
}

void ImageTracker::setMinValue(int lValue)
{
    minValue = lValue;
}

void ImageTracker::setMaxValue(int lValue)
{
    maxValue = lValue;
}

void ImageTracker::setRange(int lMin, int lMax)
{
    minValue = lMin;
    maxValue = lMax;
}

void ImageTracker::setMoveState(bool moving)
{
    moveState = moving;
}

void ImageTracker::setShowProgressBar(bool show)
{
    showProgressBar = show;
    update();
}

void ImageTracker::setState(ImageTracker::State lState)
{
    state = lState;
    update();
}

void ImageTracker::sliderLeaveEvent()
{
    moveState = false;
    setState(Normal);
    Q_EMIT sliderReleased();
}

int ImageTracker::checkValue(int column) const
{
    if (column < half())
        return half();
    return qMin(column, width() - half());
}

void ImageTracker::setValue(int lValue)
{
    if (lValue < minValue || lValue > maxValue)
        return;

    value = lValue;
    const qint64 range = qint64(maxValue) - minValue;
    const qint64 room = width() - handleSize.width();
    handlePos.setX(toColumn(range == 0 ? half() : room * lValue / range + half()));
    if (!handleImage.isNull())
        handlePos.setY((height() - logicalSize(handleImage).height()) / 2);
    update();
}

int ImageTracker::half() const
{
    return handleSize.width() / 2;
}

bool ImageTracker::isOverHandle(const QPoint &position) const
{
    const QPoint topLeft(handlePos.x() - half(), handlePos.y());
    return QRect(topLeft, logicalSize(handleImage)).contains(position);
}

// The value follows the handle, unclamped: with an odd handle width the right end lies a little
// above the maximum, and owners know.
void ImageTracker::moveHandle(int column)
{
    handlePos.setX(checkValue(column));
    const qint64 range = qint64(maxValue) - minValue;
    const qint64 room = width() - handleSize.width();
    if (room != 0)
        value = toInt((handlePos.x() - half()) * range / room);
}

void ImageTracker::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && state != Disable) {
        if (isOverHandle(event->pos())) {
            moveState = true;
            pressPos = event->pos();
            setState(Down);
        } else {
            // No repaint: the owner answers with setValue, which repaints.
            moveHandle(event->pos().x());
            Q_EMIT valueChanged(value);
        }
        Q_EMIT sliderPressed();
    }
    QWidget::mousePressEvent(event);
}

void ImageTracker::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && state != Disable) {
        moveState = false;
        setState(isOverHandle(event->pos()) ? On : Normal);
    }
    // For every button and state, unlike sliderPressed: owners end their seek with it.
    Q_EMIT sliderReleased();
    QWidget::mouseReleaseEvent(event);
}

void ImageTracker::mouseMoveEvent(QMouseEvent *event)
{
    if (moveState) {
        movePos = event->pos();
        moveHandle(toColumn(qint64(movePos.x()) + handlePos.x() - pressPos.x()));
        pressPos = movePos;
        Q_EMIT valueChanged(value);
    }
    if (state != Disable)
        setState(isOverHandle(event->pos()) ? On : Normal);
    QWidget::mouseMoveEvent(event);
}

void ImageTracker::enterEvent(EnterEvent *event)
{
    if (event->type() == QEvent::Enter && state != Disable)
        setState(On);
    QWidget::enterEvent(event);
}

void ImageTracker::leaveEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave && state != Disable)
        setState(Normal);
    QWidget::leaveEvent(event);
}

void ImageTracker::resizeEvent(QResizeEvent *)
{
    setValue(value);
}
