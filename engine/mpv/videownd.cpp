// CVideoWnd and its view: takes the latest frame and paints it, black around.
// Not here: where frames come from (renderthread.h).
#include "engine/videownd.h"

#include "engine/mpv/videoview.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>

/// The smallest rectangle of the widget's own units around one of device pixels.
static QRect outerRect(const QRect &pixels, qreal ratio)
{
    return QRectF(pixels.x() / ratio, pixels.y() / ratio, pixels.width() / ratio,
                  pixels.height() / ratio)
        .toAlignedRect();
}

/// The largest rectangle of the widget's own units inside one of device pixels.
static QRect innerRect(const QRect &pixels, qreal ratio)
{
    const auto up = [ratio](int edge) { return int(std::ceil(edge / ratio)); };
    const auto down = [ratio](int edge) { return int(std::floor(edge / ratio)) - 1; };
    return {QPoint(up(pixels.left()), up(pixels.top())),
            QPoint(down(pixels.right() + 1), down(pixels.bottom() + 1))};
}

CVideoWnd::CVideoWnd(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_view(new VideoView(this))
{
    QPalette black;
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    setAutoFillBackground(true);
    setMouseTracking(true);
}

void CVideoWnd::SendCommand(tagMsgParams *params)
{
    if (params && params->command == 4)
        m_view->blank();
}

void CVideoWnd::UpdateView()
{
    update();
}

void CVideoWnd::resetSessionState()
{
    m_view->forget();
}

VideoView::VideoView(CVideoWnd *window)
    : QObject(window)
    , m_window(window)
{
    window->installEventFilter(this);
}

VideoView::~VideoView()
{
    if (m_mailbox)
        m_mailbox->detach(this);
}

void VideoView::show(const std::shared_ptr<Mailbox> &mailbox)
{
    if (m_mailbox && m_mailbox != mailbox)
        m_mailbox->detach(this);
    if (m_mailbox != mailbox)
        m_blankedIn = m_shown.epoch = 0;  // each engine counts for itself
    m_mailbox = mailbox;
    m_mailbox->attach(this);
    publishArea();
}

void VideoView::blank()
{
    setShown({});
    m_blankedIn = m_mailbox ? m_mailbox->epoch() : 0;
    m_window->update();
}

void VideoView::forget()
{
    if (m_mailbox && m_shown.epoch >= m_mailbox->editEpoch() && m_mailbox->editEpoch())
        return;
    setShown({});
    m_window->update();
}

bool VideoView::event(QEvent *event)
{
    if (event->type() != Mailbox::frameEvent())
        return QObject::event(event);
    takeFrame();
    return true;
}

bool VideoView::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
        m_visible = event->type() == QEvent::Show;
        publishArea();
        break;
    case QEvent::Resize:
        publishArea();
        break;
    case QEvent::Paint:
        paint(static_cast<QPaintEvent *>(event)->region());
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void VideoView::takeFrame()
{
    auto letter = m_mailbox->take(this);
    if (!letter || letter->epoch <= m_blankedIn)
        return;
    const QSize before = m_shown.frame.picture.size();
    setShown(*std::move(letter));
    if (before == m_shown.frame.picture.size())
        m_window->update(outerRect(place(), m_window->devicePixelRatioF()));
    else
        m_window->update();
}

// With a picture the view paints every pixel itself. Without one Qt lays the black: whoever takes
// the paint event away then, to show something else, need not.
void VideoView::setShown(const Mailbox::Letter &letter)
{
    m_shown = letter;
    m_window->setAttribute(Qt::WA_OpaquePaintEvent, !letter.frame.picture.isNull());
}

void VideoView::publishArea()
{
    if (m_mailbox)
        m_mailbox->setArea(this, m_visible ? area() : QSize());
}

void VideoView::paint(const QRegion &exposed)
{
    publishArea();  // on another screen the same window has other pixels, and no event says so
    QPainter painter(m_window);
    if (m_shown.frame.picture.isNull()) {
        painter.fillRect(exposed.boundingRect(), Qt::black);
        return;
    }
    paintBlack(painter, exposed);
    paintPicture(painter);
}

void VideoView::paintBlack(QPainter &painter, const QRegion &exposed) const
{
    for (const QRect &part : exposed - innerRect(place(), m_window->devicePixelRatioF()))
        painter.fillRect(part, Qt::black);
}

void VideoView::paintPicture(QPainter &painter) const
{
    // Works in whole device pixels: undo the painter's scale, then what is left of an offset.
    const qreal ratio = m_window->devicePixelRatioF();
    painter.scale(1 / ratio, 1 / ratio);
    const QTransform device = painter.deviceTransform();
    painter.translate(std::round(device.dx()) - device.dx(), std::round(device.dy()) - device.dy());

    const QRect target = place();
    const QImage &picture = m_shown.frame.picture;
    if (target.size() == picture.size()) {
        painter.drawImage(target.topLeft(), picture);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, picture);
    }
}

QSize VideoView::area() const
{
    const qreal ratio = m_window->devicePixelRatioF();
    return {int(std::round(m_window->width() * ratio)),
            int(std::round(m_window->height() * ratio))};
}

/// Where the picture goes, in device pixels. One that was made for the area as it is now is not
/// scaled; after a resize the old one is, until the next comes.
QRect VideoView::place() const
{
    const QSize room = area();
    QSize size = m_shown.frame.picture.size();
    const bool inside = size.width() <= room.width() && size.height() <= room.height();
    if (!inside || (size.width() != room.width() && size.height() != room.height()))
        size = fitted(room, size);
    return {QPoint((room.width() - size.width()) / 2, (room.height() - size.height()) / 2), size};
}
