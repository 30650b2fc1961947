// IconButton's painting: the icon's mode follows the button.
// Not here: hover and press handling, which is QToolButton's own.
#include "controls/iconbutton.h"

#include <QPainter>
#include <QStyleOptionToolButton>
#include <QTextOption>

namespace {

QIcon::Mode iconMode(const QToolButton &button, const QStyleOption &option)
{
    if (!button.isEnabled())
        return QIcon::Disabled;
    if (button.isDown() || button.isChecked())
        return QIcon::Selected;
    return option.state & QStyle::State_MouseOver ? QIcon::Active : QIcon::Normal;
}

}  // namespace

IconButton::IconButton(QWidget *parent)
    : QToolButton(parent)
{ }

IconButton::~IconButton() = default;

void IconButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.icon.paint(&painter, rect(), Qt::AlignCenter, iconMode(*this, option), QIcon::Off);
    if (toolButtonStyle() != Qt::ToolButtonIconOnly)
        painter.drawText(QRectF(option.rect), text(), QTextOption(Qt::AlignCenter));
}
