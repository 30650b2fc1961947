// RenderThread: renders the player's pictures, composes them for two eyes and posts them.
// Not here: what is shown and when it changes; orders come through the mailbox.
#pragma once

#include "engine/mpv/mailbox.h"
#include "engine/mpv/rendercontext.h"

#include <memory>
#include <thread>

/// Sleeps while there is nothing to do. Destroying it joins the thread, which is at most one
/// picture away from its end.
class RenderThread
{
public:
    /// Null when libmpv gives no renderer.
    static std::unique_ptr<RenderThread> start(const std::shared_ptr<MpvCore> &core,
                                               const std::shared_ptr<Mailbox> &mailbox);
    ~RenderThread();

    RenderThread(const RenderThread &) = delete;
    RenderThread &operator=(const RenderThread &) = delete;

private:
    RenderThread(std::unique_ptr<RenderContext> context, const std::shared_ptr<Mailbox> &mailbox);
    void run();
    void carryOut(const RenderOrder &order);
    void render(const RenderOrder &order);

    // --- fixed before the thread starts
    const std::shared_ptr<Mailbox> m_mailbox;
    const std::unique_ptr<RenderContext> m_context;

    // --- render thread only
    Frame m_plain;  // as rendered, before it is composed; a new 3D setting starts from it again
    StereoLayout m_layout;  // that its pictures were taken out of the film's frame by
    quint64 m_epoch = 0;    // that the player's picture came in; 0: it has none

    std::thread m_thread;
};
