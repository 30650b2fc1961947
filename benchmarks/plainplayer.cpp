// The player's life, and its pictures on the calling thread.
// Not here: what is compared (bench_start.cpp, bench_seek.cpp).
#include "benchmarks/plainplayer.h"

#include <mpv/client.h>
#include <mpv/render.h>

#include <clocale>
#include <condition_variable>
#include <mutex>
#include <utility>

struct PlainPlayer::Player
{
    mpv_handle *handle = nullptr;
    mpv_render_context *context = nullptr;
    QImage picture;
    std::mutex lock;
    std::condition_variable wake;
    bool due = false;

    void waitUntilDue()
    {
        std::unique_lock guard(lock);
        wake.wait(guard, [this] { return due; });
        due = false;
    }

    static void nowDue(void *player)
    {
        auto *self = static_cast<Player *>(player);
        const std::lock_guard guard(self->lock);
        self->due = true;
        self->wake.notify_one();
    }

    bool frameWaits() { return mpv_render_context_update(context) & MPV_RENDER_UPDATE_FRAME; }

    void render(QSize size)
    {
        if (picture.size() != size)
            picture = QImage(size, QImage::Format_RGB32);
        int extent[2] = {size.width(), size.height()};
        char format[] = "bgra";
        auto stride = std::size_t(picture.bytesPerLine());
        int wait = 0;
        mpv_render_param params[] = {{MPV_RENDER_PARAM_SW_SIZE, extent},
                                     {MPV_RENDER_PARAM_SW_FORMAT, format},
                                     {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                     {MPV_RENDER_PARAM_SW_POINTER, picture.bits()},
                                     {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
        mpv_render_context_render(context, params);
    }
};

PlainPlayer::PlainPlayer(const QString &path)
    : m_player(std::make_unique<Player>())
{
    std::setlocale(LC_NUMERIC, "C");  // or libmpv refuses
    m_player->handle = mpv_create();
    const std::pair<const char *, const char *> options[] = {
        {"config", "no"}, {"terminal", "no"}, {"vo", "libmpv"},     {"ao", "null"},
        {"pause", "yes"}, {"osc", "no"},      {"keepaspect", "no"}, {"keep-open", "yes"},
    };
    for (const auto &[name, value] : options)
        mpv_set_option_string(m_player->handle, name, value);
    mpv_initialize(m_player->handle);
    char api[] = MPV_RENDER_API_TYPE_SW;
    mpv_render_param params[]
        = {{MPV_RENDER_PARAM_API_TYPE, api}, {MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context_create(&m_player->context, m_player->handle, params);
    mpv_render_context_set_update_callback(m_player->context, &Player::nowDue, m_player.get());
    const QByteArray name = path.toUtf8();
    const char *command[] = {"loadfile", name.constData(), nullptr};
    mpv_command_async(m_player->handle, 0, command);
}

PlainPlayer::~PlainPlayer()
{
    mpv_render_context_free(m_player->context);
    mpv_terminate_destroy(m_player->handle);
}

void PlainPlayer::waitForPicture()
{
    do {
        m_player->waitUntilDue();
    } while (!m_player->frameWaits());
}

void PlainPlayer::waitForPicture(QSize size, const std::function<bool(const QImage &)> &right)
{
    do {
        waitForPicture();
        m_player->render(size);
    } while (!right(m_player->picture));
}

void PlainPlayer::setPaused(bool paused)
{
    int flag = paused;
    mpv_set_property_async(m_player->handle, 0, "pause", MPV_FORMAT_FLAG, &flag);
}

void PlainPlayer::seek(double seconds)
{
    const QByteArray target = QByteArray::number(seconds, 'f', 6);
    const char *command[] = {"seek", target.constData(), "absolute+exact", nullptr};
    mpv_command_async(m_player->handle, 0, command);
}
