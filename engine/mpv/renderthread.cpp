// The loop from order to frame.
// Not here: locks; the mailbox has them all.
#include "engine/mpv/renderthread.h"

#include "engine/mpv/renderviews.h"
#include "engine/mpv/stereocomposer.h"

#include <chrono>

static qint64 steadyMilliseconds()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::unique_ptr<RenderThread> RenderThread::start(const std::shared_ptr<MpvCore> &core,
                                                  const std::shared_ptr<Mailbox> &mailbox)
{
    const auto due = [](void *user) { static_cast<Mailbox *>(user)->frameDue(); };
    auto context = RenderContext::make(core, due, mailbox.get());
    if (!context)
        return nullptr;
    return std::unique_ptr<RenderThread>(new RenderThread(std::move(context), mailbox));
}

RenderThread::RenderThread(std::unique_ptr<RenderContext> context,
                           const std::shared_ptr<Mailbox> &mailbox)
    : m_mailbox(mailbox)
    , m_context(std::move(context))
    , m_thread(&RenderThread::run, this)
{ }

RenderThread::~RenderThread()
{
    m_mailbox->stop();
    m_thread.join();
}

void RenderThread::run()
{
    for (RenderOrder order = m_mailbox->wait(); !order.stop; order = m_mailbox->wait())
        carryOut(order);
}

void RenderThread::carryOut(const RenderOrder &order)
{
    const bool fresh = order.frameDue && m_context->frameWaits();
    // During a seek that takes its time the player draws the picture from before it once more.
    if (fresh && m_context->frameIsNew())
        m_epoch = order.epoch;
    const bool missed = m_epoch < order.settled;
    if (missed)
        m_epoch = order.settled;
    if (m_epoch < order.editEpoch || !order.epoch || order.size.isEmpty()) {
        // The player must not wait for a picture that nobody sees.
        if (fresh)
            m_context->skip();
        m_plain = {};
        return;
    }
    const bool rendered
        = fresh || missed || m_plain.picture.size() != order.size || m_layout != order.shape.layout;
    if (rendered)
        render(order);
    if (rendered || order.settingNew)
        m_mailbox->post(compose(m_plain, order.setting), m_epoch);
}

void RenderThread::render(const RenderOrder &order)
{
    const Frame frame = renderViews(*m_context, order.size, order.shape);
    m_plain = {frame.picture, steadyMilliseconds(), m_plain.serial + 1, frame.right};
    m_layout = order.shape.layout;
}
