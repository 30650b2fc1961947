// An edit of our own in the player's window, and waiting for its picture.
// Not here: writing it to a file (main.cpp).
#include "host/screenshot.h"

#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"
#include "playwidget/playwidget.h"

namespace {

constexpr int longestWait = 20000;  // ms
constexpr int restTime = 250;       // ms without a change on screen

CVideoWnd *videoWindowOf(PlayWidget *player)
{
    const auto widgets = player->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (auto *window = dynamic_cast<CVideoWnd *>(widget))
            return window;
    }
    return nullptr;
}

}  // namespace

Screenshot::Screenshot(void *engine, PlayWidget *player, QObject *parent)
    : QObject(parent)
    , m_engine(engine)
    , m_player(player)
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] { finish(QImage()); });
    connect(&m_looks, &QTimer::timeout, this, &Screenshot::look);
}

void Screenshot::take(int fileId, unsigned int position)
{
    CVideoWnd *window = videoWindowOf(m_player);
    EditBeginParams params = {};
    params.mode = 1;
    params.fileId = fileId;
    params.factor = 1.0;
    params.firstHeight = params.secondHeight = window->height();
    params.firstWidth = params.secondWidth = window->width();
    params.firstWindow = params.secondWindow = window;
    params.callback = &Screenshot::arrived;
    params.userData = this;
    m_patience.start(longestWait);
    (void)KestEditBegin(m_engine, &params);
    m_sought = KestSetCurPos(m_engine, position) == KestOk;
}

// The event of the beginning comes before the seek, the one after it says that the seek is done.
int Screenshot::arrived(tagKestEvent *, void *screenshot)
{
    auto *self = static_cast<Screenshot *>(screenshot);
    if (self->m_sought && !self->m_looks.isActive())
        self->m_looks.start(restTime);
    return 0;
}

void Screenshot::look()
{
    const QImage now = m_player->grab().toImage();
    if (now == m_last)
        finish(now);
    m_last = now;
}

void Screenshot::finish(const QImage &picture)
{
    m_looks.stop();
    m_patience.stop();
    Q_EMIT taken(picture);
}
