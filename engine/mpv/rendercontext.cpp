// The mpv_render_* calls, and the buffers they write into.
// Not here: any other libmpv call; made from the render thread those could deadlock.
#include "engine/mpv/rendercontext.h"

#include <mpv/render.h>

#include <algorithm>
#include <cstdlib>

/// Memory for one picture. Fresh memory costs a page fault for every 4 KiB, which is more than
/// rendering a small picture, so a buffer is used again once the last image on it is gone.
struct RenderContext::Buffer
{
    explicit Buffer(std::size_t size)
        : bytes(size)
        , memory(static_cast<uchar *>(std::aligned_alloc(64, size)))
    { }
    ~Buffer() { std::free(memory); }
    Buffer(const Buffer &) = delete;
    Buffer &operator=(const Buffer &) = delete;

    const std::size_t bytes;
    uchar *const memory;
    std::atomic<bool> used{false};
};

std::unique_ptr<RenderContext> RenderContext::make(const std::shared_ptr<MpvCore> &core,
                                                   void (*due)(void *), void *user)
{
    char api[] = MPV_RENDER_API_TYPE_SW;
    mpv_render_param params[]
        = {{MPV_RENDER_PARAM_API_TYPE, api}, {MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context *context = nullptr;
    if (mpv_render_context_create(&context, core->handle(), params) < 0)
        return nullptr;
    mpv_render_context_set_update_callback(context, due, user);
    return std::unique_ptr<RenderContext>(new RenderContext(core, context));
}

RenderContext::RenderContext(std::shared_ptr<MpvCore> core, mpv_render_context *context)
    : m_core(std::move(core))
    , m_context(context)
{ }

RenderContext::~RenderContext()
{
    mpv_render_context_free(m_context);
}

bool RenderContext::frameWaits()
{
    return mpv_render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME;
}

bool RenderContext::frameIsNew()
{
    mpv_render_frame_info info = {};
    mpv_render_context_get_info(m_context, {MPV_RENDER_PARAM_NEXT_FRAME_INFO, &info});
    // An old one is flagged, unless it was missed before; but it never has a time to be shown at.
    return info.target_time != 0;
}

QImage RenderContext::render(QSize size)
{
    QImage image = recycledImage(size);
    if (image.isNull())
        return {};
    int extent[2] = {size.width(), size.height()};
    char format[] = "bgra";  // like bgr0 in cost, with the alpha that a QImage wants
    auto stride = std::size_t(image.bytesPerLine());
    int wait = 0;
    mpv_render_param params[] = {{MPV_RENDER_PARAM_SW_SIZE, extent},
                                 {MPV_RENDER_PARAM_SW_FORMAT, format},
                                 {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                 {MPV_RENDER_PARAM_SW_POINTER, image.bits()},
                                 {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                 {MPV_RENDER_PARAM_INVALID, nullptr}};
    return mpv_render_context_render(m_context, params) < 0 ? QImage() : image;
}

void RenderContext::skip()
{
    int yes = 1;
    int wait = 0;
    mpv_render_param params[] = {{MPV_RENDER_PARAM_SKIP_RENDERING, &yes},
                                 {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                 {MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context_render(m_context, params);
}

QImage RenderContext::recycledImage(QSize size)
{
    if (size.isEmpty())  // such an image would never give its buffer back
        return {};
    // libmpv is fastest when both the start and each row lie on 64 bytes.
    const std::size_t stride = (std::size_t(size.width()) * 4 + 63) / 64 * 64;
    const std::size_t bytes = stride * std::size_t(size.height());
    m_buffers.erase(std::remove_if(m_buffers.begin(), m_buffers.end(),
                                   [bytes](const auto &buffer) { return buffer->bytes != bytes; }),
                    m_buffers.end());
    auto free = std::find_if(m_buffers.begin(), m_buffers.end(), [](const auto &buffer) {
        return !buffer->used.load(std::memory_order_acquire);
    });
    if (free == m_buffers.end())
        free = m_buffers.insert(free, std::make_shared<Buffer>(bytes));
    if (!(*free)->memory)
        return {};
    (*free)->used.store(true, std::memory_order_relaxed);
    const auto release = [](void *held) {
        const std::unique_ptr<std::shared_ptr<Buffer>> buffer(
            static_cast<std::shared_ptr<Buffer> *>(held));
        (*buffer)->used.store(false, std::memory_order_release);
    };
    return {(*free)->memory,
            size.width(),
            size.height(),
            int(stride),
            QImage::Format_RGB32,
            release,
            new std::shared_ptr<Buffer>(*free)};
}
