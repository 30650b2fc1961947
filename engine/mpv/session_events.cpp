// What the player tells, on its way up to the host's callback.
// Not here: what the host asks for (session.cpp).
//
// A callback may end the edit, begin another or close the session: nothing of m_edit is touched
// after report(), and each event is taken anew from what the members then say.
#include "engine/mpv/session.h"

#include <QCoreApplication>
#include <QEvent>

#include <cmath>
#include <cstring>
#include <utility>

namespace {

constexpr qint64 reportInterval = 40;  // ms
constexpr int eventsAtATime = 200;     // then the event loop gets its turn

double numberOf(const mpv_node &map, const char *key)
{
    for (int i = 0; i < map.u.list->num; ++i) {
        if (std::strcmp(map.u.list->keys[i], key))
            continue;
        const mpv_node &value = map.u.list->values[i];
        return value.format == MPV_FORMAT_INT64 ? double(value.u.int64) : 0.0;
    }
    return 0.0;
}

}  // namespace

/// On a thread of the player's own: asks for a drain() on ours, once at a time.
void Session::wake(void *session)
{
    auto *self = static_cast<Session *>(session);
    if (!self->m_woken.exchange(true))
        QCoreApplication::postEvent(&self->m_bell, new QEvent(QEvent::User));
}

/// A callback may close the session, which goes, and the bell with it, when this is over.
bool Session::Bell::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    const auto session = m_session.shared_from_this();
    session->drain();
    return true;
}

void Session::drain()
{
    m_woken = false;
    for (int i = 0; i < eventsAtATime && m_core; ++i) {
        const mpv_event &event = m_core->nextEvent();
        if (event.event_id == MPV_EVENT_NONE)
            return;
        take(event);
    }
    if (m_core)
        wake(this);
}

void Session::take(const mpv_event &event)
{
    switch (event.event_id) {
    case MPV_EVENT_START_FILE:
        m_player = Player::Opening;
        advance();
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        playbackSettled();
        break;
    case MPV_EVENT_END_FILE:
        fileEnded();
        break;
    case MPV_EVENT_IDLE:
        // The one at the start of the player's life may come when a file is already on its way.
        if (m_player == Player::Leaving)
            m_player = Player::Idle;
        advance();
        break;
    case MPV_EVENT_PROPERTY_CHANGE:
        takeProperty(event, false);
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        takeProperty(event, true);
        break;
    case MPV_EVENT_COMMAND_REPLY:
        takeReply(event);
        break;
    default:
        break;
    }
}

/// Only refusals matter here; what a command brings about is told by other events.
void Session::takeReply(const mpv_event &event)
{
    if (event.error >= 0)
        return;
    if (event.reply_userdata == MpvCore::Seek && playerHasEdit())
        m_edit->seeking = false;
    if (event.reply_userdata == MpvCore::Load) {
        m_player = Player::Idle;
        fileFailed();
        advance();  // to another edit, if one has begun meanwhile
    }
}

void Session::takeProperty(const mpv_event &event, bool asked)
{
    if (!playerHasEdit())
        return;
    const bool arrived = asked && event.reply_userdata == MpvCore::Position
        && std::exchange(m_edit->arriving, false);
    if (event.error < 0)
        return;
    const auto &property = *static_cast<const mpv_event_property *>(event.data);
    if (property.format == MPV_FORMAT_NONE)
        return;
    if (event.reply_userdata == MpvCore::Position)
        takePosition(*static_cast<double *>(property.data), asked, arrived);
    else if (event.reply_userdata == MpvCore::AtEnd)
        takeAtEnd(*static_cast<int *>(property.data), asked);
    else if (event.reply_userdata == MpvCore::OutputShape)
        takeShape(*static_cast<mpv_node *>(property.data));
}

void Session::takePosition(double seconds, bool asked, bool arrived)
{
    // Until a seek is done the player may still tell where it was before.
    const bool moving = m_edit->seeking || m_edit->nextSeek || m_edit->arriving;
    if (m_player != Player::Ready || moving || m_edit->ended)
        return;
    const unsigned int position = withinFilm(std::llround(seconds * 1000));
    const bool due = asked || m_edit->sinceReport.nsecsElapsed() >= reportInterval * 1000000;
    if (arrived || (due && position != m_edit->reported))
        report(Playing, position);
}

/// A change may be told late, when a seek has long left the end; an answer is of this moment.
void Session::takeAtEnd(bool atEnd, bool asked)
{
    const bool moving = m_edit->seeking || m_edit->nextSeek;
    if (!atEnd || !m_edit->playing || m_player != Player::Ready || moving)
        return;
    if (!asked) {
        m_core->askAtEnd();
        return;
    }
    m_edit->playing = false;
    m_edit->ended = true;
    m_core->setPaused(true);
    report(Ended, withinFilm(m_edit->facts.duration));
}

/// Of a film tagged as stereo the player may mean a view or the whole frame, as its container does.
void Session::takeShape(const mpv_node &params)
{
    PictureShape &frame = m_edit->facts.shape;
    if (params.format != MPV_FORMAT_NODE_MAP || frame.layout.packing != StereoLayout::Flat)
        return;
    const QSizeF size(numberOf(params, "dw"), numberOf(params, "dh"));
    if (size.isEmpty())
        return;
    frame.size = size;
    m_mailbox->setShape(shape());
}

/// A picture or a sound is there after loading or a seek.
void Session::playbackSettled()
{
    if (!playerHasEdit())
        return;
    m_player = Player::Ready;
    m_mailbox->settle();
    if (std::exchange(m_edit->seeking, false)) {
        m_edit->arriving = true;
        m_core->askPosition();
        m_core->askAtEnd();
    }
    sendSeek();
}

/// Films stay open at their end, so this is either what we asked for or a failure.
void Session::fileEnded()
{
    const bool unasked = playerHasEdit();
    m_player = Player::Leaving;
    if (unasked)
        fileFailed();
}

void Session::fileFailed()
{
    if (!m_edit || m_playerEdit != m_edit->serial)
        return;
    m_edit->failed = true;
    m_edit->playing = false;
    if (!std::exchange(m_edit->ended, true))
        report(Ended, m_edit->reported);
}

void Session::report(int state, unsigned int position)
{
    m_edit->reported = position;
    m_edit->sinceReport.start();
    tagKestEvent event = {0, state, position};
    if (m_edit->callback)
        m_edit->callback(&event, m_edit->userData);
}
