// FocusMark: where the frame stands and how it looks.
// Not here: when there is one.
#include "playwidget/focusmark.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr int margin = 4;  // px around the control
constexpr qreal radius = 4;

QRect frameIn(QWidget *parent, const QWidget *control)
{
    return QRect(control->mapTo(parent, QPoint()), control->size())
        .adjusted(-margin, -margin, margin, margin);
}

// The nearest one with room for the frame: a box of buttons ends where they do.
QWidget *parentFor(const QWidget *control)
{
    QWidget *parent = control->parentWidget();
    while (!parent->isWindow() && !parent->rect().contains(frameIn(parent, control)))
        parent = parent->parentWidget();
    return parent;
}

}  // namespace

FocusMark::FocusMark(QWidget *control)
    : QFocusFrame(parentFor(control))
    , m_control(control)
{
    for (QWidget *moving = control; moving != parentWidget(); moving = moving->parentWidget())
        moving->installEventFilter(this);
    follow();
    raise();
    show();
}

bool FocusMark::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        follow();
    return QFocusFrame::eventFilter(watched, event);
}

void FocusMark::follow()
{
    setGeometry(frameIn(parentWidget(), m_control));
}

void FocusMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setClipRegion(QRegion(rect()) - rect().adjusted(margin, margin, -margin, -margin));
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(2, 2, -2, -2);
    painter.setPen(QPen(QColor(255, 255, 255, 220), 4));
    painter.drawRoundedRect(frame, radius, radius);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(frame, radius, radius);
}
