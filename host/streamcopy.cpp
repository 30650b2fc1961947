// Reading the source once more, beside the engine, and copying packet by packet.
// Not here: turning one kind of subtitles into another (subrip.cpp).
#include "host/streamcopy.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Export)
};

/// What the film names inside itself is not opened.
int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EPERM);
}

/// Matroska has names of its own for what is common; the rest goes by its tag in AVI and WAV.
bool fits(const AVFormatContext &output, const AVStream &stream)
{
    const AVCodecID codec = stream.codecpar->codec_id;
    unsigned tag = 0;
    return avformat_query_codec(output.oformat, codec, FF_COMPLIANCE_NORMAL) == 1
        || av_codec_get_tag2(output.oformat->codec_tag, codec, &tag);
}

/// Matroska wants to know both of an attachment.
bool isLabelled(const AVStream &attachment)
{
    return av_dict_get(attachment.metadata, "filename", nullptr, 0)
        && av_dict_get(attachment.metadata, "mimetype", nullptr, 0);
}

// FFmpeg has no function for it. Matroska refuses chapters that begin before the film.
void copyChapters(const AVFormatContext &from, AVFormatContext &to)
{
    to.chapters = static_cast<AVChapter **>(av_calloc(from.nb_chapters, sizeof(AVChapter *)));
    for (unsigned i = 0; to.chapters && i < from.nb_chapters; ++i) {
        const AVChapter &original = *from.chapters[i];
        if (original.end < std::max<std::int64_t>(0, original.start))
            continue;
        auto *chapter = static_cast<AVChapter *>(av_mallocz(sizeof(AVChapter)));
        chapter->id = original.id;
        chapter->time_base = original.time_base;
        chapter->start = std::max<std::int64_t>(0, original.start);
        chapter->end = original.end;
        av_dict_copy(&chapter->metadata, original.metadata, 0);
        to.chapters[to.nb_chapters++] = chapter;
    }
}

}  // namespace

void StreamCopy::CloseInput::operator()(AVFormatContext *input) const
{
    AVIOContext *io = input->pb;
    avformat_close_input(&input);
    avio_closep(&io);
}

StreamCopy::StreamCopy(const QString &source, AVFormatContext &output)
    : m_output(output)
{
    openInput(source);
    for (unsigned i = 0; i < m_input->nb_streams; ++i) {
        AVStream &from = *m_input->streams[i];
        m_tracks.push_back(trackFor(from));
        from.discard = m_tracks.back().to ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    copyChapters(*m_input, m_output);
    av_dict_copy(&m_output.metadata, m_input->metadata, 0);
}

void StreamCopy::openInput(const QString &source)
{
    AVIOContext *io = nullptr;
    const QByteArray url = "file:" + source.toUtf8();
    checked(avio_open(&io, url.constData(), AVIO_FLAG_READ));
    AVFormatContext *input = avformat_alloc_context();
    input->io_open = refuseToOpen;
    input->pb = io;
    const int code = avformat_open_input(&input, "", nullptr, nullptr);  // frees input on failure
    if (code < 0)
        avio_closep(&io);
    checked(code);
    m_input.reset(input);
    checked(avformat_find_stream_info(input, nullptr));
}

StreamCopy::Track StreamCopy::trackFor(const AVStream &from)
{
    switch (from.codecpar->codec_type) {
    case AVMEDIA_TYPE_AUDIO:
        if (!fits(m_output, from))
            throw Failure{Text::tr("Matroska cannot hold its sound")};
        return {addStream(from), nullptr};
    case AVMEDIA_TYPE_SUBTITLE:
        if (fits(m_output, from))
            return {addStream(from), nullptr};
        if (auto conversion = SubRip::from(from)) {
            AVStream *to = addStream(from);
            conversion->describe(*to);
            return {to, std::move(conversion)};
        }
        m_leftOut << Text::tr("without its subtitles in %1, which Matroska cannot hold")
                         .arg(QLatin1String(avcodec_get_name(from.codecpar->codec_id)));
        return {};
    case AVMEDIA_TYPE_ATTACHMENT:
        return {isLabelled(from) ? addStream(from) : nullptr, nullptr};
    default:
        return {};
    }
}

AVStream *StreamCopy::addStream(const AVStream &from)
{
    AVStream *to = avformat_new_stream(&m_output, nullptr);
    checked(avcodec_parameters_copy(to->codecpar, from.codecpar));
    to->codecpar->codec_tag = 0;
    to->time_base = from.time_base;
    to->disposition = from.disposition;
    av_dict_copy(&to->metadata, from.metadata, 0);
    return to;
}

void StreamCopy::copyUntil(std::int64_t time)
{
    AVPacket *packet = m_packet.get();
    // The end of the source, or as good as it, ends the copying.
    while (packet->data || av_read_frame(m_input.get(), packet) >= 0) {
        if (!isDue(*packet, time))
            return;
        write(*packet);
    }
}

/// What is not copied is always due.
bool StreamCopy::isDue(const AVPacket &packet, std::int64_t time) const
{
    const auto index = std::size_t(packet.stream_index);
    if (index >= m_tracks.size() || !m_tracks[index].to || packet.dts == AV_NOPTS_VALUE)
        return true;
    return av_compare_ts(packet.dts, m_input->streams[index]->time_base, time, milliseconds) <= 0;
}

void StreamCopy::write(AVPacket &packet)
{
    const auto index = std::size_t(packet.stream_index);
    const Track *track = index < m_tracks.size() ? &m_tracks[index] : nullptr;
    const bool isThere
        = track && track->to && (!track->conversion || track->conversion->convert(packet));
    if (!isThere) {
        av_packet_unref(&packet);
        return;
    }
    packet.stream_index = track->to->index;
    packet.pos = -1;
    av_packet_rescale_ts(&packet, m_input->streams[index]->time_base, track->to->time_base);
    checked(av_interleaved_write_frame(&m_output, &packet));
}
