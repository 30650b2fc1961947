// MpvCore: owner of one libmpv player: its options, commands and observed properties.
// Not here: what its events mean (session_events.cpp), its pictures (rendercontext.h).
#pragma once

#include <mpv/client.h>

#include <QSize>

#include <cmath>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>

/// Our volume 0 to 200 on libmpv's scale. Ours is linear in amplitude: 100 leaves the sound as it
/// is, 200 doubles it (+6 dB), 50 halves it. libmpv's is cubic.
inline double playerVolume(int volume)
{
    const double gain = std::fmin(std::fmax(volume, 0), 200) / 100.0;
    return 100.0 * std::cbrt(gain);
}

/// Commands are queued and return at once; what comes of them is told by events. The player has room
/// for 1000 replies and events, then refuses requests and drops events: so while 200 replies are to
/// come or to be taken, further requests wait here, in their order. One thread at a time.
class MpvCore
{
public:
    /// What observed properties and replies are told apart by.
    enum Tag : std::uint64_t { NoTag, Position, AtEnd, OutputShape, Load, Seek };

    /// Null when the player cannot be made. `audioOutput` null: the system's default.
    static std::shared_ptr<MpvCore> open(const char *audioOutput);
    ~MpvCore();

    MpvCore(const MpvCore &) = delete;
    MpvCore &operator=(const MpvCore &) = delete;

    /// `wake` is called on threads of the player's own, until setWakeup(nullptr, nullptr) returned.
    void setWakeup(void (*wake)(void *), void *user);

    void load(const std::string &absolutePath);
    void stop();
    void seek(double seconds);
    void setPaused(bool paused);
    void setVolume(int volume);

    // For reading a film picture by picture instead of playing it. They wait for the player, up to as
    // long as it takes to decode a picture.
    /// No sound, no picture left out or hastily decoded, and the times that the file gives; for files
    /// loaded later.
    void setPicturesOnly();
    /// Goes on to the next picture, where isPaused() is true again.
    void step();
    bool isPaused();
    bool isAtEnd();
    /// Of the picture, in seconds; 0 when there is none.
    double position();
    /// Size of the film with square pixels, before it is turned; empty when there is no picture.
    QSize displaySize();
    /// Waits until the video output has done all that it was given.
    void awaitOutput();

    // Answered by MPV_EVENT_GET_PROPERTY_REPLY with the property's tag, by which time every command
    // given before has been taken up; an observed change may be older than that.
    void askPosition();
    void askAtEnd();

    /// The next event, of id MPV_EVENT_NONE when there is none. Good until the next call. A reply that
    /// is taken makes way for a request that waits.
    const mpv_event &nextEvent();

    mpv_handle *handle() const { return m_handle; }

private:
    explicit MpvCore(mpv_handle *handle)
        : m_handle(handle)
    { }

    /// Makes a request of the player; negative when it was refused, and no reply will come.
    using Request = std::function<int(mpv_handle *)>;

    void request(Request request);
    void sendWaiting();

    mpv_handle *const m_handle;
    std::deque<Request> m_waiting;
    int m_unanswered = 0;  // requests that were sent and whose reply has not been taken
};
