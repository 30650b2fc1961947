// RenderContext: owner of libmpv's software renderer; turns the player's picture into a QImage.
// Not here: when to render (renderthread.h).
#pragma once

#include "engine/mpv/mpvcore.h"

#include <QImage>

#include <atomic>
#include <memory>
#include <vector>

struct mpv_render_context;

/// Shares the player, so that it cannot outlive it. Made and freed on any thread; the rest belongs
/// to the render thread.
class RenderContext
{
public:
    /// Null when libmpv refuses. `due` is called on threads of the player's own, until the context
    /// is gone; it may only wake somebody.
    static std::unique_ptr<RenderContext> make(const std::shared_ptr<MpvCore> &core,
                                               void (*due)(void *), void *user);
    ~RenderContext();

    RenderContext(const RenderContext &) = delete;
    RenderContext &operator=(const RenderContext &) = delete;

    /// Whether the player waits for a new picture to be rendered.
    bool frameWaits();

    /// Whether the picture that waits is one that was not there before.
    bool frameIsNew();

    /// The player's picture scaled to `size`; null on failure. The pixels are opaque.
    QImage render(QSize size);

    /// Lets the player go on as if its picture had been rendered.
    void skip();

private:
    struct Buffer;

    RenderContext(std::shared_ptr<MpvCore> core, mpv_render_context *context);
    QImage recycledImage(QSize size);

    const std::shared_ptr<MpvCore> m_core;
    mpv_render_context *const m_context;
    std::vector<std::shared_ptr<Buffer>> m_buffers;
};
