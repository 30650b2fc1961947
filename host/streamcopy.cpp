// Reading the source once more, beside the engine, and copying packet by packet.
// Not here: turning one kind of subtitles into another (subrip.cpp).
#include "host/streamcopy.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

constexpr AVRational microseconds = {1, AV_TIME_BASE};

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

QLatin1String codecName(const AVStream &stream)
{
    return QLatin1String(avcodec_get_name(stream.codecpar->codec_id));
}

std::int64_t distance(std::int64_t time, std::int64_t other)
{
    return std::abs(time - other);
}

/// Matroska wants to know both of an attachment.
bool isLabelled(const AVStream &attachment)
{
    return av_dict_get(attachment.metadata, "filename", nullptr, 0)
        && av_dict_get(attachment.metadata, "mimetype", nullptr, 0);
}

bool isMovingPicture(const AVStream &stream)
{
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO
        && !(stream.disposition & AV_DISPOSITION_ATTACHED_PIC);
}

/// The index of those that libmpv shows; -1: it shows none.
int picturesOf(const AVFormatContext &film)
{
    int first = -1;
    for (int i = 0; i < int(film.nb_streams); ++i) {
        const AVStream &stream = *film.streams[i];
        if (!isMovingPicture(stream))
            continue;
        if (stream.disposition & AV_DISPOSITION_DEFAULT)
            return i;
        if (first < 0)
            first = i;
    }
    return first;
}

/// Recordings count from the time of day, or from any. In µs, as the next.
std::int64_t startOf(const AVFormatContext &film)
{
    return film.start_time == AV_NOPTS_VALUE ? 0 : JoinedTimes::bounded(film.start_time);
}

// FFmpeg has no function for it. Matroska refuses chapters that begin before the film.
void copyChapters(const AVFormatContext &from, AVFormatContext &to)
{
    const auto timeInFilm = [&from](std::int64_t time, AVRational unit) {
        return JoinedTimes::bounded(av_rescale_q(time, unit, microseconds)) - startOf(from);
    };
    to.chapters = static_cast<AVChapter **>(av_calloc(from.nb_chapters, sizeof(AVChapter *)));
    for (unsigned i = 0; to.chapters && i < from.nb_chapters; ++i) {
        const AVChapter &original = *from.chapters[i];
        const std::int64_t start
            = std::max<std::int64_t>(0, timeInFilm(original.start, original.time_base));
        const std::int64_t end = timeInFilm(original.end, original.time_base);
        if (end < start)
            continue;
        auto *chapter = static_cast<AVChapter *>(av_mallocz(sizeof(AVChapter)));
        chapter->id = original.id;
        chapter->time_base = microseconds;
        chapter->start = start;
        chapter->end = end;
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
    m_pictures = picturesOf(*m_input);
    for (unsigned i = 0; i < m_input->nb_streams; ++i) {
        AVStream &from = *m_input->streams[i];
        m_tracks.push_back(trackFor(from));
        const bool isWanted = m_tracks.back().to || int(i) == m_pictures;
        from.discard = isWanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    m_output.output_ts_offset = -startOf(*m_input);
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
        if (from.codecpar->sample_rate == 0) {
            m_leftOut << Text::tr("without its sound in %1, of which the file tells too little")
                             .arg(codecName(from));
            return {};
        }
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
                         .arg(codecName(from));
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
    while (hasNext() && m_reached <= time)
        write();
}

bool StreamCopy::copyNext()
{
    if (!hasNext())
        return false;
    write();
    return true;
}

/// Reads no more than one packet: whoever waits is asked in between. The end of the source, or as
/// good as it, ends the copying; libavformat takes a disk that fails for an end.
bool StreamCopy::hasNext()
{
    if (m_packet->buf)
        return true;
    if (av_read_frame(m_input.get(), m_packet.get()) < 0) {
        checked(m_input->pb->error);
        return false;
    }
    const AVStream &from = *m_input->streams[m_packet->stream_index];
    av_packet_rescale_ts(m_packet.get(), from.time_base, milliseconds);
    if (from.index == m_pictures)
        follow(*m_packet);
    if (Track *track = trackOf(*m_packet))
        place(*m_packet, *track);
    else
        av_packet_unref(m_packet.get());
    return true;
}

/// Null: the packet is not copied, as none is of a stream that the file's beginning does not tell of.
StreamCopy::Track *StreamCopy::trackOf(const AVPacket &packet)
{
    const auto index = std::size_t(packet.stream_index);
    return index < m_tracks.size() && m_tracks[index].to ? &m_tracks[index] : nullptr;
}

/// Where pictures have no times, one is as far as it goes at a time.
void StreamCopy::follow(const AVPacket &picture)
{
    constexpr auto far = std::numeric_limits<std::int64_t>::max();
    m_reached = picture.dts == AV_NOPTS_VALUE ? far : m_times.next(picture.dts);
}

/// When the packet is due, in ms. Where the pictures' times jump back, the other tracks move by as
/// much, each once that takes it nearer to the pictures around it, so that all stay in step. What then
/// still overlaps by a packet or two is written at one moment, for Matroska refuses to go back.
void StreamCopy::place(AVPacket &packet, Track &track)
{
    std::int64_t time = packet.dts == AV_NOPTS_VALUE ? packet.pts : packet.dts;
    if (time == AV_NOPTS_VALUE)
        time = std::max<std::int64_t>(0, track.last) - track.shift;
    time = JoinedTimes::bounded(time);
    if (distance(time + m_times.shift(), m_times.latest())
        < distance(time + track.shift, m_times.latest()))
        track.shift = m_times.shift();
    packet.dts = track.last = m_reached = std::max(time + track.shift, track.last);
    packet.pts = packet.pts == AV_NOPTS_VALUE
        ? packet.dts
        : std::max(JoinedTimes::bounded(packet.pts) + track.shift, packet.dts);
}

void StreamCopy::write()
{
    if (!m_packet->buf)
        return;
    const Track &track = m_tracks[std::size_t(m_packet->stream_index)];
    if (track.conversion && !track.conversion->convert(*m_packet)) {
        av_packet_unref(m_packet.get());
        return;
    }
    m_packet->stream_index = track.to->index;
    m_packet->pos = -1;
    av_packet_rescale_ts(m_packet.get(), milliseconds, track.to->time_base);
    checked(av_interleaved_write_frame(&m_output, m_packet.get()));
}
