// Encoding with libavcodec and writing Matroska with libavformat.
// Not here: what is copied from the source (streamcopy.cpp), the file's name and fate (newfile.cpp).
#include "host/filmexport.h"

#include "engine/mpv/kest_host.h"
#include "host/ffmpeg.h"
#include "host/joinedtimes.h"
#include "host/newfile.h"
#include "host/streamcopy.h"

#include <QCoreApplication>

extern "C" {
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cerrno>
#include <memory>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Export)
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

using Output = std::unique_ptr<AVFormatContext, FreeOutput>;
using Scaler = std::unique_ptr<SwsContext, FreeScaler>;

constexpr int bufferSize = 256 * 1024;

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

/// Packed views say so, for players to take them apart. Matroska cannot say so of interleaved rows
/// without half of the players taking them for a film of half the height.
const char *stereoMode(int mode)
{
    switch (mode) {
    case Kest3DSlideBySlide:
        return "left_right";
    case Kest3DRedCyan:
        return "anaglyph_cyan_red";
    default:
        return nullptr;
    }
}

/// Of views side by side Matroska tells the shape of one, which has half of the columns and is as
/// wide as the film. Players that do not take the views apart find the shape of the whole there.
AVRational pixelShape(int mode)
{
    return mode == Kest3DSlideBySlide ? AVRational{2, 1} : AVRational{1, 1};
}

/// One film on its way into one file. Throws a Failure.
class Conversion
{
public:
    Conversion(const FilmOrder &order, QFile &target);
    void add(const KestPicture &picture);
    bool finish(const FilmProgress &progress);
    std::int64_t done() const { return m_last - m_first; }  // ms
    const QStringList &leftOut() const { return m_others.leftOut(); }

private:
    static AVFormatContext *newOutput(QFile &target);
    void begin(const KestPicture &first);
    void openEncoder(const KestPicture &first);
    void openScaler();
    void convert(const KestPicture &picture);
    void encode(AVFrame *frame);

    const FilmOrder &m_order;
    Output m_output;
    AVStream *m_stream;  // the pictures
    StreamCopy m_others;
    Codec m_encoder;
    Scaler m_scaler;
    Picture m_frame{av_frame_alloc()};
    Packet m_encoded{av_packet_alloc()};
    JoinedTimes m_times;
    std::int64_t m_first = 0;              // ms, when the first picture is due
    std::int64_t m_last = AV_NOPTS_VALUE;  // ms, as the next
    std::int64_t m_interval = 0;
};

Conversion::Conversion(const FilmOrder &order, QFile &target)
    : m_order(order)
    , m_output(newOutput(target))
    , m_stream(avformat_new_stream(m_output.get(), nullptr))
    , m_others(order.source, *m_output)
{ }

AVFormatContext *Conversion::newOutput(QFile &target)
{
    AVFormatContext *output = nullptr;
    checked(avformat_alloc_output_context2(&output, nullptr, "matroska", nullptr));
    output->pb = avio_alloc_context(static_cast<std::uint8_t *>(av_malloc(bufferSize)), bufferSize,
                                    1, &target, nullptr, writeBytes, seekBytes);
    return output;
}

void Conversion::begin(const KestPicture &first)
{
    openEncoder(first);
    openScaler();
    checked(avcodec_parameters_from_context(m_stream->codecpar, m_encoder.get()));
    m_stream->time_base = milliseconds;
    m_stream->sample_aspect_ratio = pixelShape(m_order.mode);
    if (const char *stereo = stereoMode(m_order.mode))
        av_dict_set(&m_stream->metadata, "stereo_mode", stereo, 0);
    checked(avformat_write_header(m_output.get(), nullptr));
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
    // From it the encoder works out what a player has to be capable of.
    m_encoder->framerate = av_d2q(m_order.frameRate > 0 ? m_order.frameRate : 25, 1 << 16);
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
}

/// From the engine's kind of pixels to the encoder's.
void Conversion::openScaler()
{
    const int width = m_encoder->width;
    const int height = m_encoder->height;
    m_scaler.reset(sws_getContext(width, height, AV_PIX_FMT_BGR0, width, height, m_encoder->pix_fmt,
                                  SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP, nullptr,
                                  nullptr, nullptr));
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
    std::int64_t time = m_times.next(av_rescale_q(picture.time, {1, 1000000}, milliseconds));
    if (m_last == AV_NOPTS_VALUE) {
        m_first = time;
    } else {
        time = std::max(time, m_last + 1);
        m_interval = time - m_last;
    }
    m_frame->pts = m_last = time;
    m_others.copyUntil(time);
    encode(m_frame.get());
}

/// The sound may go on for hours. False when it was cancelled.
bool Conversion::finish(const FilmProgress &progress)
{
    if (!m_encoder)
        throw Failure{Text::tr("none of its pictures can be decoded")};
    encode(nullptr);
    while (m_others.copyNext())
        if (!progress(done()))
            return false;
    checked(av_write_trailer(m_output.get()));
    checked(m_output->pb->error);
    return true;
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
        m_encoded->duration = m_interval;  // or the last picture would last no time
        av_packet_rescale_ts(m_encoded.get(), milliseconds, m_stream->time_base);
        checked(av_interleaved_write_frame(m_output.get(), m_encoded.get()));
        checked(m_output->pb->error);
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
        if (!progress(conversion.done()))
            return false;
    }
    if (code != KestAtEnd)
        throw Failure{QCoreApplication::translate("Engine", KestErrorText(code))};
    return conversion.finish(progress);
}

}  // namespace

FilmResult exportFilm(const FilmOrder &order, const FilmProgress &progress)
{
    const CloseReader closer{order.reader};
    NewFile file(order.target);
    try {
        if (!file.open())
            return {{}, file.error(), {}};
        Conversion conversion(order, file.file());
        if (!readInto(conversion, order, progress))
            return {};
        const QString name = file.commit();
        if (name.isEmpty())
            return {{}, file.error(), {}};
        return {name, {}, conversion.leftOut()};
    } catch (const Failure &failure) {
        return {{}, failure.text, {}};
    }
}
