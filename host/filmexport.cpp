// Encoding with libavcodec and writing Matroska with libavformat.
// Not here: the file's name and its fate (newfile.cpp).
#include "host/filmexport.h"

#include "engine/mpv/kest_host.h"
#include "host/newfile.h"

#include <QCoreApplication>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <cerrno>
#include <memory>
#include <vector>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Export)
};

/// Why there will be no file.
struct Failure
{
    QString text;
};

template <auto release> struct Releaser
{
    template <typename Type> void operator()(Type *pointer) const { release(&pointer); }
};

struct CloseInput
{
    void operator()(AVFormatContext *input) const
    {
        AVIOContext *io = input->pb;
        avformat_close_input(&input);
        avio_closep(&io);
    }
};

struct FreeOutput
{
    void operator()(AVFormatContext *output) const
    {
        if (output->pb)
            av_freep(&output->pb->buffer);
        avio_context_free(&output->pb);
        avformat_free_context(output);
    }
};

struct FreeScaler
{
    void operator()(SwsContext *scaler) const { sws_freeContext(scaler); }
};

using Input = std::unique_ptr<AVFormatContext, CloseInput>;
using Output = std::unique_ptr<AVFormatContext, FreeOutput>;
using Encoder = std::unique_ptr<AVCodecContext, Releaser<avcodec_free_context>>;
using Picture = std::unique_ptr<AVFrame, Releaser<av_frame_free>>;
using Packet = std::unique_ptr<AVPacket, Releaser<av_packet_free>>;
using Scaler = std::unique_ptr<SwsContext, FreeScaler>;

constexpr AVRational milliseconds = {1, 1000};  // what Matroska counts in
constexpr int bufferSize = 256 * 1024;

QString wordsFor(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE];
    return QString::fromLocal8Bit(av_make_error_string(text, sizeof text, code));
}

int checked(int code)
{
    if (code < 0)
        throw Failure{wordsFor(code)};
    return code;
}

/// What the film names inside itself is not opened.
int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EPERM);
}

Input openInput(const QString &source)
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
    return Input(input);
}

int writeBytes(void *file, std::uint8_t *bytes, int size)
{
    errno = 0;
    const bool written
        = static_cast<QFile *>(file)->write(reinterpret_cast<const char *>(bytes), size) == size;
    return written ? size : AVERROR(errno ? errno : EIO);
}

std::int64_t seekBytes(void *file, std::int64_t offset, int whence)
{
    auto *target = static_cast<QFile *>(file);
    if (whence == AVSEEK_SIZE)
        return target->size();
    return target->seek(offset) ? offset : AVERROR(EIO);
}

/// Packed views say so, for players to take them apart.
const char *stereoMode(int mode)
{
    switch (mode) {
    case Kest3DSlideBySlide:
        return "left_right";
    case Kest3DInterleaved:
        return "row_interleaved_lr";
    case Kest3DRedCyan:
        return "anaglyph_cyan_red";
    default:
        return nullptr;
    }
}

/// One film on its way into one file. Throws a Failure.
class Conversion
{
public:
    Conversion(const FilmOrder &order, QFile &target);
    void add(const KestPicture &picture);
    void finish();

private:
    void copyStreams();
    void begin(const KestPicture &first);
    void openEncoder(const KestPicture &first);
    void convert(const KestPicture &picture);
    void encode(AVFrame *frame);
    void copyUntil(std::int64_t time);

    const FilmOrder &m_order;
    QFile &m_target;
    Input m_input;
    Output m_output;
    AVStream *m_stream = nullptr;  // the pictures
    Encoder m_encoder;
    Scaler m_scaler;
    Picture m_frame{av_frame_alloc()};
    Packet m_encoded{av_packet_alloc()};
    Packet m_copied{av_packet_alloc()};  // read, and not due yet
    std::vector<int> m_streamMap;        // from the film's streams; -1: left out
    std::int64_t m_last = AV_NOPTS_VALUE;
};

Conversion::Conversion(const FilmOrder &order, QFile &target)
    : m_order(order)
    , m_target(target)
    , m_input(openInput(order.source))
{
    checked(avformat_find_stream_info(m_input.get(), nullptr));
    AVFormatContext *output = nullptr;
    checked(avformat_alloc_output_context2(&output, nullptr, "matroska", nullptr));
    m_output.reset(output);
    output->pb = avio_alloc_context(static_cast<std::uint8_t *>(av_malloc(bufferSize)), bufferSize,
                                    1, &target, nullptr, writeBytes, seekBytes);
    m_stream = avformat_new_stream(output, nullptr);
    av_dict_copy(&output->metadata, m_input->metadata, 0);
    copyStreams();
}

void Conversion::copyStreams()
{
    for (unsigned i = 0; i < m_input->nb_streams; ++i) {
        AVStream &from = *m_input->streams[i];
        const AVMediaType type = from.codecpar->codec_type;
        const bool fits
            = avformat_query_codec(m_output->oformat, from.codecpar->codec_id, FF_COMPLIANCE_NORMAL)
            == 1;
        if (type == AVMEDIA_TYPE_AUDIO && !fits)
            throw Failure{Text::tr("Matroska cannot hold its sound")};
        m_streamMap.push_back(-1);
        from.discard = AVDISCARD_ALL;
        if (!fits || (type != AVMEDIA_TYPE_AUDIO && type != AVMEDIA_TYPE_SUBTITLE))
            continue;
        from.discard = AVDISCARD_DEFAULT;
        AVStream *to = avformat_new_stream(m_output.get(), nullptr);
        checked(avcodec_parameters_copy(to->codecpar, from.codecpar));
        to->codecpar->codec_tag = 0;
        to->time_base = from.time_base;
        to->disposition = from.disposition;
        av_dict_copy(&to->metadata, from.metadata, 0);
        m_streamMap.back() = to->index;
    }
}

void Conversion::begin(const KestPicture &first)
{
    openEncoder(first);
    checked(avcodec_parameters_from_context(m_stream->codecpar, m_encoder.get()));
    m_stream->time_base = milliseconds;
    if (const char *stereo = stereoMode(m_order.mode))
        av_dict_set(&m_stream->metadata, "stereo_mode", stereo, 0);
    checked(avformat_write_header(m_output.get(), nullptr));
    m_frame->format = m_encoder->pix_fmt;
    m_frame->width = first.width;
    m_frame->height = first.height;
}

void Conversion::openEncoder(const KestPicture &first)
{
    const AVCodec *codec = m_order.lossless ? avcodec_find_encoder(AV_CODEC_ID_FFV1)
                                            : avcodec_find_encoder_by_name("libx264");
    if (!codec)
        throw Failure{Text::tr("FFmpeg has no encoder for it here")};
    m_encoder.reset(avcodec_alloc_context3(codec));
    const bool even = first.width % 2 == 0 && first.height % 2 == 0;
    m_encoder->width = first.width;
    m_encoder->height = first.height;
    m_encoder->time_base = milliseconds;
    m_encoder->thread_count = 0;
    if (m_order.lossless) {
        m_encoder->pix_fmt = AV_PIX_FMT_BGR0;
        m_encoder->level = 3;
    } else {
        // Half of the colour plays everywhere, but needs an even size.
        m_encoder->pix_fmt = even ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_YUV444P;
        m_encoder->colorspace = AVCOL_SPC_BT709;
        m_encoder->color_primaries = AVCOL_PRI_BT709;
        m_encoder->color_trc = AVCOL_TRC_BT709;
        m_encoder->color_range = AVCOL_RANGE_MPEG;
        av_opt_set(m_encoder->priv_data, "preset", "fast", 0);
        av_opt_set(m_encoder->priv_data, "crf", "18", 0);
    }
    m_encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    checked(avcodec_open2(m_encoder.get(), codec, nullptr));

    m_scaler.reset(sws_getContext(
        first.width, first.height, AV_PIX_FMT_BGR0, first.width, first.height, m_encoder->pix_fmt,
        SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP, nullptr, nullptr, nullptr));
    if (!m_scaler)
        throw Failure{Text::tr("FFmpeg cannot convert its pictures")};
    const int *bt709 = sws_getCoefficients(SWS_CS_ITU709);
    sws_setColorspaceDetails(m_scaler.get(), bt709, 1, bt709, 0, 0, 1 << 16, 1 << 16);
}

void Conversion::convert(const KestPicture &picture)
{
    const std::uint8_t *const rows[] = {picture.pixels, nullptr, nullptr, nullptr};
    const int strides[] = {picture.stride, 0, 0, 0};
    av_frame_unref(m_frame.get());
    m_frame->format = m_encoder->pix_fmt;
    m_frame->width = picture.width;
    m_frame->height = picture.height;
    checked(av_frame_get_buffer(m_frame.get(), 0));
    sws_scale(m_scaler.get(), rows, strides, 0, picture.height, m_frame->data, m_frame->linesize);
}

void Conversion::add(const KestPicture &picture)
{
    if (!m_encoder)
        begin(picture);
    convert(picture);
    std::int64_t time = av_rescale_q(picture.time, {1, 1000000}, milliseconds);
    if (m_last != AV_NOPTS_VALUE && time <= m_last)
        time = m_last + 1;
    m_frame->pts = m_last = time;
    copyUntil(time);
    encode(m_frame.get());
}

void Conversion::finish()
{
    if (!m_encoder)
        throw Failure{Text::tr("none of its pictures can be decoded")};
    encode(nullptr);
    copyUntil(INT64_MAX);
    checked(av_write_trailer(m_output.get()));
    checked(m_output->pb->error);
}

/// Null: what the encoder still holds back.
void Conversion::encode(AVFrame *frame)
{
    checked(avcodec_send_frame(m_encoder.get(), frame));
    for (;;) {
        const int code = avcodec_receive_packet(m_encoder.get(), m_encoded.get());
        if (code == AVERROR(EAGAIN) || code == AVERROR_EOF)
            return;
        checked(code);
        m_encoded->stream_index = m_stream->index;
        av_packet_rescale_ts(m_encoded.get(), milliseconds, m_stream->time_base);
        checked(av_interleaved_write_frame(m_output.get(), m_encoded.get()));
        checked(m_output->pb->error);
    }
}

/// Copies the film's other streams up to a time in ms.
void Conversion::copyUntil(std::int64_t time)
{
    for (;;) {
        AVPacket *packet = m_copied.get();
        if (!packet->data && av_read_frame(m_input.get(), packet) < 0)
            return;  // the end, or as good as it
        const AVStream &from = *m_input->streams[packet->stream_index];
        const bool known = std::size_t(packet->stream_index) < m_streamMap.size();
        const int to = known ? m_streamMap[std::size_t(packet->stream_index)] : -1;
        if (to < 0) {
            av_packet_unref(packet);
            continue;
        }
        if (packet->dts != AV_NOPTS_VALUE
            && av_compare_ts(packet->dts, from.time_base, time, milliseconds) > 0)
            return;
        packet->stream_index = to;
        packet->pos = -1;
        av_packet_rescale_ts(packet, from.time_base, m_output->streams[to]->time_base);
        checked(av_interleaved_write_frame(m_output.get(), packet));
    }
}

/// Closes a reader whatever happens.
struct CloseReader
{
    void *reader;
    ~CloseReader() { KestReaderClose(reader); }
};

/// False when it was cancelled.
bool readInto(Conversion &conversion, const FilmOrder &order, const FilmProgress &progress)
{
    KestPicture picture = {};
    int code = KestReaderNext(order.reader, &picture);
    for (; code == KestOk; code = KestReaderNext(order.reader, &picture)) {
        conversion.add(picture);
        if (!progress(picture.time / 1000))
            return false;
    }
    if (code != KestAtEnd)
        throw Failure{QCoreApplication::translate("Engine", KestErrorText(code))};
    conversion.finish();
    return true;
}

}  // namespace

FilmResult exportFilm(const FilmOrder &order, const FilmProgress &progress)
{
    const CloseReader closer{order.reader};
    NewFile file(order.target);
    try {
        if (!file.open())
            return {{}, file.error()};
        Conversion conversion(order, file.file());
        if (!readInto(conversion, order, progress))
            return {};
        const QString name = file.commit();
        return {name, name.isEmpty() ? file.error() : QString()};
    } catch (const Failure &failure) {
        return {{}, failure.text};
    }
}
