// Asking a paused player for one picture after the other.
// Not here: mpv_render_* calls (rendercontext.cpp).
#include "engine/mpv/filmreader.h"

#include "engine/mpv/renderviews.h"
#include "engine/mpv/stereocomposer.h"

#include <chrono>
#include <cmath>

constexpr int longestSide = 16384;  // pixels; what a file says of its shape may be anything

static bool tellsTheEnd(const mpv_event &event)
{
    if (event.event_id != MPV_EVENT_PROPERTY_CHANGE || event.reply_userdata != MpvCore::AtEnd)
        return false;
    const auto &property = *static_cast<const mpv_event_property *>(event.data);
    return property.format == MPV_FORMAT_FLAG && *static_cast<const int *>(property.data);
}

std::unique_ptr<FilmReader> FilmReader::open(const Film &film)
{
    const auto core = MpvCore::open("null");
    if (!core)
        return nullptr;
    std::unique_ptr<FilmReader> reader(new FilmReader(film, core));
    if (!reader->m_context)
        return nullptr;
    core->setWakeup(&FilmReader::wake, reader.get());
    core->setPicturesOnly();
    core->setPaused(true);
    core->load(film.path);
    return reader;
}

FilmReader::FilmReader(const Film &film, const std::shared_ptr<MpvCore> &core)
    : m_setting(film.setting)
    , m_shape(film.shape)
    , m_tagged(film.tagged)
    , m_core(core)
    , m_context(RenderContext::make(core, &FilmReader::wake, this))
{ }

FilmReader::~FilmReader()
{
    m_core->setWakeup(nullptr, nullptr);
}

int FilmReader::next(Picture &picture)
{
    if (m_code == KestOk && !m_size.isEmpty())
        m_core->step();
    while (m_code == KestOk) {
        const bool woken = sleep();
        takeEvents();
        if (m_code == KestOk && (pictureWaits() || (!woken && pictureMissed())))
            return take(picture);
    }
    return m_code;
}

void FilmReader::wake(void *reader)
{
    auto *self = static_cast<FilmReader *>(reader);
    {
        const std::lock_guard lock(self->m_lock);
        self->m_woken = true;
    }
    self->m_bell.notify_one();
}

/// Whether something woke us; if not, it is time to look whether a picture was missed.
bool FilmReader::sleep()
{
    std::unique_lock lock(m_lock);
    m_bell.wait_for(lock, std::chrono::milliseconds(20), [this] { return m_woken; });
    return std::exchange(m_woken, false);
}

void FilmReader::takeEvents()
{
    for (;;) {
        const mpv_event &event = m_core->nextEvent();
        if (event.event_id == MPV_EVENT_NONE)
            return;
        if (event.event_id == MPV_EVENT_PLAYBACK_RESTART)
            m_settled = true;
        else if (event.event_id == MPV_EVENT_END_FILE)
            m_code = KestErrorPlayer;  // at its end a film stays open
        else if (tellsTheEnd(event))
            m_code = KestAtEnd;
    }
}

bool FilmReader::pictureWaits()
{
    if (!m_context->frameWaits())
        return false;
    const bool isNew = m_context->frameIsNew();
    m_context->skip();  // at once: until then the player answers no question
    return isNew;
}

/// The player waits 200 ms for a renderer and then takes its picture for shown: it tells of it no
/// more, but goes on showing it. On a machine that is busy beyond measure this makes good for it.
bool FilmReader::pictureMissed()
{
    if (!m_settled || !m_core->isPaused())
        return false;
    if (m_core->isAtEnd())
        m_code = KestAtEnd;
    else if (sleep())  // a picture that took long came while we asked
        return pictureWaits();
    else
        m_core->awaitOutput();
    return m_code == KestOk;
}

int FilmReader::take(Picture &picture)
{
    if (m_size.isEmpty())
        m_size = fullSize();
    const Frame frame = renderViews(*m_context, m_size, m_shape);
    const QImage composed = frame.picture.isNull() ? QImage() : compose(frame, m_setting).picture;
    if (composed.isNull())
        return m_code = KestErrorPlayer;
    picture = {composed, std::llround(m_core->position() * 1e6)};
    return KestOk;
}

/// The size of a tagged frame in the player is that of the frame or of a view, as its container does.
QSize FilmReader::fullSize()
{
    const QSizeF size
        = m_tagged ? m_shape.size : viewShape(QSizeF(m_core->displaySize()), m_shape.layout);
    if (size.width() > longestSide || size.height() > longestSide)
        return {};
    return (m_shape.rotation % 180 ? size.transposed() : size).toSize();
}
