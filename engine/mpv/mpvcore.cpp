// libmpv's handle: made under the locale it insists on, set up to open one file and nothing else.
// Not here: any mpv_render_* call (rendercontext.cpp).
#include "engine/mpv/mpvcore.h"

#include <clocale>
#include <locale.h>
#include <mutex>
#include <utility>

namespace {

constexpr int mostUnanswered = 200;  // requests; what else the player tells needs room, too

struct Option
{
    const char *name;
    const char *value;
};

constexpr Option options[] = {
    // The one file, and nothing that lies beside it, is named in it or belongs to the user.
    {"config", "no"},
    {"load-scripts", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"ytdl", "no"},
    {"osc", "no"},
    {"access-references", "no"},
    {"autoload-files", "no"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"ordered-chapters", "no"},
    {"load-unsafe-playlists", "no"},
    {"demuxer-lavf-o", "protocol_whitelist=file"},
    {"resume-playback", "no"},
    {"save-position-on-quit", "no"},
    // No keys, no texts, no terminal: the host has its own.
    {"terminal", "no"},
    {"msg-level", "all=no"},
    {"input-default-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"osd-level", "0"},
    {"sid", "no"},
    {"sub-font-provider", "none"},
    {"osd-font-provider", "none"},
    {"audio-display", "no"},
    // One player for many films; at its end a film stays open, so that a seek can leave the end.
    {"idle", "yes"},
    {"keep-open", "yes"},
    {"hr-seek", "yes"},
    {"gapless-audio", "no"},
    {"audio-fallback-to-null", "yes"},
    {"volume-max", "130"},
    // We fit and turn the picture ourselves: the software renderer aborts on a turned one.
    {"vo", "libmpv"},
    {"keepaspect", "no"},
    {"video-rotate", "no"},
    {"video-timing-offset", "0"},
    // Means of areas, at the accuracy of a screen: half the cost of the default converter, and a
    // preview mostly shrinks. Where it enlarges this is bilinear.
    {"sws-allow-zimg", "no"},
    {"sws-scaler", "area"},
    {"sws-fast", "yes"},
    // Pictures that no other builds on are left unfiltered: that saves 7 % of decoding H.264, and
    // they are hardly told from filtered ones. To filter none would add up until the next key frame.
    {"vd-lavc-skiploopfilter", "nonref"},
    {"hwdec", "no"},
    {"cache", "no"},
};

/// For whoever copies the process's locale or changes it: duplocale() measures the names before it
/// takes a lock of its own.
std::mutex localeMutex;

/// Decimal points for the calling thread alone.
class PointLocale
{
public:
    PointLocale()
        : m_point(copyWithPoint())
        , m_before(uselocale(m_point))
    { }
    ~PointLocale()
    {
        uselocale(m_before);
        freelocale(m_point);
    }

private:
    static locale_t copyWithPoint()
    {
        const std::lock_guard lock(localeMutex);
        return newlocale(LC_NUMERIC_MASK, "C", duplocale(uselocale(nullptr)));
    }

    const locale_t m_point;
    const locale_t m_before;
};

/// mpv_create() asks for the process's locale, not the thread's, and refuses most but "C". Only for
/// that moment it is changed, and only where it differs.
mpv_handle *createHandle()
{
    const std::lock_guard lock(localeMutex);
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    if (before == "C")
        return mpv_create();
    std::setlocale(LC_NUMERIC, "C");
    mpv_handle *handle = mpv_create();
    std::setlocale(LC_NUMERIC, before.c_str());
    return handle;
}

void observe(mpv_handle *handle)
{
    mpv_observe_property(handle, MpvCore::Position, "time-pos", MPV_FORMAT_DOUBLE);
    mpv_observe_property(handle, MpvCore::AtEnd, "eof-reached", MPV_FORMAT_FLAG);
    mpv_observe_property(handle, MpvCore::OutputShape, "video-out-params", MPV_FORMAT_NODE);
    for (const mpv_event_id silent : {MPV_EVENT_SEEK, MPV_EVENT_AUDIO_RECONFIG,
                                      MPV_EVENT_VIDEO_RECONFIG, MPV_EVENT_CLIENT_MESSAGE})
        mpv_request_event(handle, silent, 0);
}

int sendSeek(mpv_handle *handle, double seconds)
{
    // The number goes as a number: as text it would be read in the locale of the moment.
    char name[] = "seek";
    char flags[] = "absolute+exact";
    mpv_node arguments[3] = {};
    arguments[0].format = arguments[2].format = MPV_FORMAT_STRING;
    arguments[0].u.string = name;
    arguments[1].format = MPV_FORMAT_DOUBLE;
    arguments[1].u.double_ = seconds;
    arguments[2].u.string = flags;
    mpv_node_list list = {3, arguments, nullptr};
    mpv_node command = {};
    command.format = MPV_FORMAT_NODE_ARRAY;
    command.u.list = &list;
    return mpv_command_node_async(handle, MpvCore::Seek, &command);
}

bool isReply(const mpv_event &event)
{
    return event.event_id == MPV_EVENT_COMMAND_REPLY
        || event.event_id == MPV_EVENT_SET_PROPERTY_REPLY
        || event.event_id == MPV_EVENT_GET_PROPERTY_REPLY;
}

}  // namespace

std::shared_ptr<MpvCore> MpvCore::open(const char *audioOutput)
{
    const PointLocale pointLocale;
    mpv_handle *handle = createHandle();
    if (!handle)
        return nullptr;
    const std::shared_ptr<MpvCore> core(new MpvCore(handle));
    for (const Option &option : options)
        mpv_set_option_string(handle, option.name, option.value);
    if (audioOutput && mpv_set_option_string(handle, "ao", audioOutput) < 0)
        return nullptr;
    if (mpv_initialize(handle) < 0)
        return nullptr;
    observe(handle);
    return core;
}

MpvCore::~MpvCore()
{
    mpv_terminate_destroy(m_handle);
}

void MpvCore::setWakeup(void (*wake)(void *), void *user)
{
    mpv_set_wakeup_callback(m_handle, wake, user);
}

void MpvCore::request(Request request)
{
    m_waiting.push_back(std::move(request));
    sendWaiting();
}

void MpvCore::sendWaiting()
{
    for (; !m_waiting.empty() && m_unanswered < mostUnanswered; m_waiting.pop_front()) {
        if (m_waiting.front()(m_handle) >= 0)
            ++m_unanswered;
    }
}

void MpvCore::load(const std::string &absolutePath)
{
    request([absolutePath](mpv_handle *handle) {
        const char *command[] = {"loadfile", absolutePath.c_str(), nullptr};
        return mpv_command_async(handle, Load, command);
    });
}

void MpvCore::stop()
{
    request([](mpv_handle *handle) {
        const char *command[] = {"stop", nullptr};
        return mpv_command_async(handle, NoTag, command);
    });
}

void MpvCore::seek(double seconds)
{
    request([seconds](mpv_handle *handle) { return sendSeek(handle, seconds); });
}

void MpvCore::setPaused(bool paused)
{
    request([flag = int(paused)](mpv_handle *handle) mutable {
        return mpv_set_property_async(handle, NoTag, "pause", MPV_FORMAT_FLAG, &flag);
    });
}

void MpvCore::setVolume(int volume)
{
    request([value = playerVolume(volume)](mpv_handle *handle) mutable {
        return mpv_set_property_async(handle, NoTag, "volume", MPV_FORMAT_DOUBLE, &value);
    });
}

void MpvCore::setPicturesOnly()
{
    constexpr Option ones[] = {{"aid", "no"},
                               {"untimed", "yes"},
                               {"framedrop", "no"},
                               {"cache-pause", "no"},  // after such a pause it forgets its steps
                               {"speed", "100"},       // it waits as long as the last picture lasts
                               {"rebase-start-time", "no"},
                               {"vd-lavc-skiploopfilter", "default"}};
    for (const Option &option : ones)
        mpv_set_property_string(m_handle, option.name, option.value);
}

void MpvCore::step()
{
    // Not queued: questions that are waited for overtake the queue.
    const char *command[] = {"frame-step", nullptr};
    mpv_command(m_handle, command);
}

bool MpvCore::isPaused()
{
    int paused = 0;
    mpv_get_property(m_handle, "pause", MPV_FORMAT_FLAG, &paused);
    return paused;
}

bool MpvCore::isAtEnd()
{
    int atEnd = 0;
    mpv_get_property(m_handle, "eof-reached", MPV_FORMAT_FLAG, &atEnd);
    return atEnd;
}

double MpvCore::position()
{
    double seconds = 0;
    mpv_get_property(m_handle, "time-pos", MPV_FORMAT_DOUBLE, &seconds);
    return seconds;
}

QSize MpvCore::displaySize()
{
    std::int64_t width = 0, height = 0;
    mpv_get_property(m_handle, "dwidth", MPV_FORMAT_INT64, &width);
    mpv_get_property(m_handle, "dheight", MPV_FORMAT_INT64, &height);
    return {int(width), int(height)};
}

void MpvCore::awaitOutput()
{
    // Only the output knows its displays. When it answers for the second time, it has done what it
    // had been given before it answered for the first.
    for (int i = 0; i < 2; ++i)
        mpv_free(mpv_get_property_string(m_handle, "display-names"));
}

void MpvCore::askPosition()
{
    request([](mpv_handle *handle) {
        return mpv_get_property_async(handle, Position, "time-pos", MPV_FORMAT_DOUBLE);
    });
}

void MpvCore::askAtEnd()
{
    request([](mpv_handle *handle) {
        return mpv_get_property_async(handle, AtEnd, "eof-reached", MPV_FORMAT_FLAG);
    });
}

const mpv_event &MpvCore::nextEvent()
{
    const mpv_event &event = *mpv_wait_event(m_handle, 0);
    if (isReply(event)) {
        --m_unanswered;
        sendWaiting();
    }
    return event;
}
