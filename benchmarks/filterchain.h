// FilterChain: a chain of libavfilter's that takes and gives pictures.
// Not here: which chains are measured (bench_compose.cpp).
#pragma once

#include <QImage>

#include <string>

struct AVFilterContext;
struct AVFilterGraph;
struct AVFrame;

/// Runs on one thread, as compose() does.
class FilterChain
{
public:
    FilterChain(const QImage &picture, const std::string &description);
    ~FilterChain();

    FilterChain(const FilterChain &) = delete;
    FilterChain &operator=(const FilterChain &) = delete;

    /// Sends the picture through once more. False when libavfilter refuses.
    bool run();

    /// What came out last; lives until the next run.
    QImage result() const;

private:
    bool connect(QSize size, const std::string &description);
    bool load(const QImage &picture);

    AVFilterGraph *m_graph;
    AVFilterContext *m_source = nullptr;
    AVFilterContext *m_sink = nullptr;
    AVFrame *m_input;
    AVFrame *m_output;
    qint64 m_time = 0;
    bool m_usable;
};
