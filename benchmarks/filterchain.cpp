// A graph of buffer source, the chain as described, and buffer sink.
// Not here: measuring (bench_compose.cpp).
#include "benchmarks/filterchain.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/frame.h>
}

#include <cstring>

FilterChain::FilterChain(const QImage &picture, const std::string &description)
    : m_graph(avfilter_graph_alloc())
    , m_input(av_frame_alloc())
    , m_output(av_frame_alloc())
{
    m_graph->nb_threads = 1;
    m_usable = connect(picture.size(), description) && load(picture);
}

FilterChain::~FilterChain()
{
    av_frame_free(&m_output);
    av_frame_free(&m_input);
    avfilter_graph_free(&m_graph);
}

bool FilterChain::connect(QSize size, const std::string &description)
{
    const std::string format = "buffer=width=" + std::to_string(size.width())
        + ":height=" + std::to_string(size.height()) + ":pix_fmt=bgr0:time_base=1/25[in];";
    AVFilterInOut *inputs = nullptr, *outputs = nullptr;
    const std::string whole = format + "[in]" + description + "[out];[out]buffersink";
    const bool connected = avfilter_graph_parse2(m_graph, whole.c_str(), &inputs, &outputs) >= 0
        && avfilter_graph_config(m_graph, nullptr) >= 0;
    avfilter_inout_free(&inputs);
    avfilter_inout_free(&outputs);
    for (unsigned i = 0; connected && i < m_graph->nb_filters; ++i) {
        AVFilterContext *filter = m_graph->filters[i];
        if (!std::strcmp(filter->filter->name, "buffer"))
            m_source = filter;
        if (!std::strcmp(filter->filter->name, "buffersink"))
            m_sink = filter;
    }
    return m_source && m_sink;
}

bool FilterChain::load(const QImage &picture)
{
    m_input->format = AV_PIX_FMT_BGR0;
    m_input->width = picture.width();
    m_input->height = picture.height();
    if (av_frame_get_buffer(m_input, 0) < 0)
        return false;
    for (int y = 0; y < picture.height(); ++y) {
        std::memcpy(m_input->data[0] + y * m_input->linesize[0], picture.constScanLine(y),
                    size_t(picture.width()) * sizeof(quint32));
    }
    return true;
}

bool FilterChain::run()
{
    av_frame_unref(m_output);
    m_input->pts = m_time++;
    m_usable = m_usable
        && av_buffersrc_add_frame_flags(m_source, m_input, AV_BUFFERSRC_FLAG_KEEP_REF) >= 0
        && av_buffersink_get_frame(m_sink, m_output) >= 0;
    return m_usable;
}

QImage FilterChain::result() const
{
    return {m_output->data[0], m_output->width, m_output->height, m_output->linesize[0],
            QImage::Format_RGB32};
}
