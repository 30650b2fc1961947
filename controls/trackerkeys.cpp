// TrackerKeys: which key moves the handle where, and when a drag by keys begins and ends.
// Not here: the signals of a drag (trackerdrag.cpp).
#include "controls/trackerkeys.h"

#include "controls/imagetracker.h"

#include <QKeyEvent>

namespace {

bool isPlain(const QKeyEvent &event)
{
    return !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

}  // namespace

TrackerKeys::TrackerKeys(ImageTracker *tracker)
    : m_drag(tracker)
{
    tracker->installEventFilter(this);
}

TrackerKeys::~TrackerKeys()
{
    letGo();
}

bool TrackerKeys::eventFilter(QObject *watched, QEvent *event)
{
    const auto key = [event] { return static_cast<QKeyEvent *>(event); };
    switch (event->type()) {
    case QEvent::KeyPress:
        return isPlain(*key()) && press(key()->key());
    case QEvent::KeyRelease:
        return target(key()->key()) && (key()->isAutoRepeat() || letGo());
    case QEvent::FocusOut:
        letGo();
        return false;
    default:
        return QObject::eventFilter(watched, event);
    }
}

std::optional<qint64> TrackerKeys::target(int key) const
{
    const qint64 value = m_drag.value();
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return value - m_drag.step();
    case Qt::Key_Right:
    case Qt::Key_Up:
        return value + m_drag.step();
    case Qt::Key_PageDown:
        return value - m_drag.page();
    case Qt::Key_PageUp:
        return value + m_drag.page();
    case Qt::Key_Home:
        return m_drag.minimum();
    case Qt::Key_End:
        return m_drag.maximum();
    default:
        return std::nullopt;
    }
}

bool TrackerKeys::press(int key)
{
    const std::optional<qint64> value = target(key);
    if (!value)
        return false;
    if (!m_dragging)
        m_drag.press();
    m_dragging = true;
    m_drag.moveTo(*value);
    return true;
}

bool TrackerKeys::letGo()
{
    if (!m_dragging)
        return false;
    m_dragging = false;
    m_drag.release();
    return true;
}
