// Examining a file through libavformat, under limits.
// Not here: libmpv; the two may differ on a broken file, and then the player has the last word.
#include "engine/mpv/mediaprobe.h"

#include "engine/mpv/framepacking.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/display.h>
#include <libavutil/stereo3d.h>
}

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstring>
#include <memory>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int lowestProbeScore = 24;  // what a player still takes for an mp3 without a header
constexpr int bufferSize = 64 * 1024;
constexpr int packetLimit = 200;  // before the first picture of a stream

/// A regular file, open for reading, and the moment at which patience ends.
class Source
{
public:
    explicit Source(const std::string &path);
    ~Source();
    Source(const Source &) = delete;
    Source &operator=(const Source &) = delete;

    int code() const { return m_code; }
    bool late() const { return Clock::now() > m_deadline; }

    static int read(void *source, std::uint8_t *to, int size);
    static std::int64_t seek(void *source, std::int64_t offset, int whence);
    static int interrupted(void *source) { return static_cast<Source *>(source)->late(); }

private:
    int m_file = -1;
    int m_code = KestOk;
    std::int64_t m_size = 0;
    Clock::time_point m_deadline = Clock::now() + std::chrono::milliseconds(KestProbeMilliseconds);
};

int codeOfErrno()
{
    return errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG ? KestErrorNotFound
                                                                        : KestErrorUnreadable;
}

int codeOfStat(const struct stat &status)
{
    if (!S_ISREG(status.st_mode))
        return KestErrorNotAFile;
    return status.st_size > 0 ? KestOk : KestErrorEmpty;
}

Source::Source(const std::string &path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) < 0)
        m_code = codeOfErrno();
    else
        m_code = codeOfStat(status);
    if (m_code != KestOk)
        return;
    // Not blocking: should a pipe have taken the file's place by now, opening it must not hang.
    m_file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_file < 0 || fstat(m_file, &status) < 0)
        m_code = codeOfErrno();
    else
        m_code = codeOfStat(status);
    m_size = status.st_size;
}

Source::~Source()
{
    if (m_file >= 0)
        close(m_file);
}

int Source::read(void *source, std::uint8_t *to, int size)
{
    auto *self = static_cast<Source *>(source);
    if (self->late())
        return AVERROR_EXIT;
    const ssize_t count = ::read(self->m_file, to, std::size_t(size));
    if (count < 0) {
        self->m_code = codeOfErrno();
        return AVERROR(errno);
    }
    return count == 0 ? AVERROR_EOF : int(count);
}

std::int64_t Source::seek(void *source, std::int64_t offset, int whence)
{
    auto *self = static_cast<Source *>(source);
    if (whence == AVSEEK_SIZE)
        return self->m_size;
    const off_t result = lseek(self->m_file, offset, whence & ~AVSEEK_FORCE);
    return result < 0 ? AVERROR(errno) : result;
}

struct FreeIo
{
    void operator()(AVIOContext *io) const
    {
        av_freep(&io->buffer);
        avio_context_free(&io);
    }
};

struct CloseFormat
{
    void operator()(AVFormatContext *format) const { avformat_close_input(&format); }
};

struct FreePacket
{
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

using PacketPointer = std::unique_ptr<AVPacket, FreePacket>;
using IoPointer = std::unique_ptr<AVIOContext, FreeIo>;
using FormatPointer = std::unique_ptr<AVFormatContext, CloseFormat>;

/// What a file names inside itself is not opened, be it a segment, a reference or a key.
int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EPERM);
}

/// Lists, texts and single pictures that libavformat would read as if they were films.
bool namesNoFilm(const AVInputFormat &format)
{
    static const char *const names[]
        = {"hls",    "concat", "dash", "sdp",      "rtsp", "ffmetadata", "tty",
           "data",   "image2", "ico",  "imf",      "lrc",  "srt",        "ass",
           "webvtt", "vobsub", "sup",  "microdvd", "sami", "mpsub"};
    const std::string all = format.name;
    const bool pipe = all.size() > 5 && all.compare(all.size() - 5, 5, "_pipe") == 0;
    return pipe || std::any_of(std::begin(names), std::end(names), [&all](const char *name) {
               return all == name
                   || all.compare(0, std::strlen(name) + 1, std::string(name) + ',') == 0;
           });
}

FormatPointer openFormat(Source &source, const IoPointer &io)
{
    // Without the name: a text called film.mp4 is no film, and no format is chosen by its suffix.
    const AVInputFormat *input = nullptr;
    const int score = av_probe_input_buffer2(io.get(), &input, "", nullptr, 0, 0);
    if (score < lowestProbeScore || !input || namesNoFilm(*input))
        return {};
    AVFormatContext *format = avformat_alloc_context();
    if (!format)
        return {};
    format->pb = io.get();
    format->io_open = refuseToOpen;
    format->interrupt_callback = {Source::interrupted, &source};
    format->probesize = 4 * 1024 * 1024;
    format->max_analyze_duration = AV_TIME_BASE;
    if (avformat_open_input(&format, "", input, nullptr) < 0)  // frees format on failure
        return {};
    FormatPointer opened(format);
    if (avformat_find_stream_info(format, nullptr) < 0)
        return {};
    return opened;
}

bool canBeDecoded(const AVStream &stream)
{
    const AVCodecParameters &codec = *stream.codecpar;
    const bool known = codec.codec_type == AVMEDIA_TYPE_VIDEO ? codec.width > 0 && codec.height > 0
                                                              : codec.sample_rate > 0;
    return known && avcodec_find_decoder(codec.codec_id);
}

bool isMovingPicture(const AVStream &stream)
{
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO
        && !(stream.disposition & AV_DISPOSITION_ATTACHED_PIC) && canBeDecoded(stream);
}

bool isSound(const AVStream &stream)
{
    return stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO && canBeDecoded(stream);
}

int kindOf(const AVStream &stream)
{
    switch (stream.codecpar->codec_type) {
    case AVMEDIA_TYPE_VIDEO:
        return isMovingPicture(stream) ? KestStreamPicture : KestStreamOther;
    case AVMEDIA_TYPE_AUDIO:
        return KestStreamSound;
    case AVMEDIA_TYPE_SUBTITLE:
        return KestStreamSubtitles;
    default:
        return KestStreamOther;
    }
}

/// Degrees clockwise; a file may say any angle, and the nearest upright one is taken.
int rotationOf(AVStream &stream)
{
    const std::uint8_t *matrix
        = av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, nullptr);
    const double angle
        = matrix ? -av_display_rotation_get(reinterpret_cast<const std::int32_t *>(matrix)) : 0;
    if (!std::isfinite(angle))
        return 0;
    return (int(std::lround(angle / 90)) % 4 + 4) % 4 * 90;
}

AVRational orUnity(AVRational ratio)
{
    return ratio.num > 0 && ratio.den > 0 ? ratio : AVRational{1, 1};
}

KestStreamInfo describe(AVFormatContext &format, AVStream &stream)
{
    const AVCodecParameters &codec = *stream.codecpar;
    KestStreamInfo info = {};
    info.kind = kindOf(stream);
    info.aspectNumerator = info.aspectDenominator = info.frameRateDenominator = 1;
    if (info.kind == KestStreamPicture) {
        const AVRational aspect = orUnity(av_guess_sample_aspect_ratio(&format, &stream, nullptr));
        const AVRational rate
            = stream.avg_frame_rate.den > 0 ? stream.avg_frame_rate : AVRational{0, 1};
        info.width = codec.width;
        info.height = codec.height;
        info.rotation = rotationOf(stream);
        info.aspectNumerator = aspect.num;
        info.aspectDenominator = aspect.den;
        info.frameRateNumerator = rate.num;
        info.frameRateDenominator = rate.den;
    }
    if (info.kind == KestStreamSound) {
        info.sampleRate = codec.sample_rate;
        info.channels = codec.ch_layout.nb_channels;
    }
    info.duration
        = stream.duration < 0 ? -1 : av_rescale_q(stream.duration, stream.time_base, {1, 1000});
    std::strncpy(info.codec, avcodec_get_name(codec.codec_id), sizeof info.codec - 1);
    return info;
}

/// The first coded picture of a stream; libavformat has it in its buffers as a rule.
std::vector<std::uint8_t> firstPicture(AVFormatContext &format, const AVStream &stream)
{
    const PacketPointer packet(av_packet_alloc());
    for (int i = 0; i < packetLimit && packet; ++i) {
        if (av_read_frame(&format, packet.get()) < 0)
            break;
        if (packet->stream_index == stream.index)
            return {packet->data, packet->data + packet->size};
        av_packet_unref(packet.get());
    }
    return {};
}

StereoLayout packingInStream(AVFormatContext &format, const AVStream &stream)
{
    const AVCodecParameters &codec = *stream.codecpar;
    const bool isHevc = codec.codec_id == AV_CODEC_ID_HEVC;
    if (!isHevc && codec.codec_id != AV_CODEC_ID_H264)
        return {};
    // Where the codec's own record begins with a version, it tells how units are told apart.
    const int place = isHevc ? 21 : 4;
    const bool hasLengths = codec.extradata_size > place && codec.extradata[0] == 1;
    const int lengthSize = hasLengths ? (codec.extradata[place] & 3) + 1 : 0;
    return framePacking(isHevc ? NalCodec::Hevc : NalCodec::H264, firstPicture(format, stream),
                        lengthSize);
}

/// Whether views are squeezed is not told.
StereoLayout tagOf(AVFormatContext &format, AVStream &stream)
{
    const std::uint8_t *data = av_stream_get_side_data(&stream, AV_PKT_DATA_STEREO3D, nullptr);
    if (!data)
        return packingInStream(format, stream);
    const auto &stereo = *reinterpret_cast<const AVStereo3D *>(data);
    const bool rightFirst = stereo.flags & AV_STEREO3D_FLAG_INVERT;
    if (stereo.type == AV_STEREO3D_SIDEBYSIDE)
        return {StereoLayout::SideBySide, false, rightFirst};
    if (stereo.type == AV_STEREO3D_TOPBOTTOM)
        return {StereoLayout::TopBottom, false, rightFirst};
    return {};
}

PictureShape shapeOf(AVFormatContext &format, AVStream &stream, const KestStreamInfo &info)
{
    const QSize stored(info.width, info.height);
    const double pixel = double(info.aspectNumerator) / info.aspectDenominator;
    const TaggedFrame frame = taggedFrame(stored, pixel, tagOf(format, stream));
    return {frame.shape, info.rotation, frame.layout, stored};
}

long long durationOf(const AVFormatContext &format, const std::vector<KestStreamInfo> &streams)
{
    if (format.duration != AV_NOPTS_VALUE)
        return std::max<long long>(0, av_rescale(format.duration, 1000, AV_TIME_BASE));
    long long longest = 0;
    for (const KestStreamInfo &info : streams)
        longest = std::max(longest, info.duration);
    return longest;
}

ProbedFile failure(int code)
{
    return {code, 0, {}, {}};
}

/// The moving picture that a player chooses: the first that is marked as the default, or the first.
std::optional<std::size_t> shownStream(const AVFormatContext &format)
{
    std::optional<std::size_t> first;
    for (std::size_t i = 0; i < format.nb_streams; ++i) {
        if (!isMovingPicture(*format.streams[i]))
            continue;
        if (format.streams[i]->disposition & AV_DISPOSITION_DEFAULT)
            return i;
        first = first.value_or(i);
    }
    return first;
}

ProbedFile factsOf(AVFormatContext &format)
{
    ProbedFile facts;
    facts.code = KestErrorNotMedia;
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        AVStream &stream = *format.streams[i];
        facts.streams.push_back(describe(format, stream));
        if (isMovingPicture(stream) || isSound(stream))
            facts.code = KestOk;
    }
    if (facts.code != KestOk)
        return failure(KestErrorNotMedia);
    facts.duration = durationOf(format, facts.streams);
    if (const auto shown = shownStream(format))
        facts.shape = shapeOf(format, *format.streams[*shown], facts.streams[*shown]);
    return facts;
}

}  // namespace

ProbedFile probeMedia(const std::string &path)
{
    Source source(path);
    if (source.code() != KestOk)
        return failure(source.code());
    auto *buffer = static_cast<std::uint8_t *>(av_malloc(bufferSize));
    IoPointer io(
        avio_alloc_context(buffer, bufferSize, 0, &source, Source::read, nullptr, Source::seek));
    const FormatPointer format = openFormat(source, io);
    if (source.late())
        return failure(KestErrorTimeout);
    const ProbedFile facts = format ? factsOf(*format) : failure(KestErrorNotMedia);
    return facts.code == KestOk || source.code() == KestOk ? facts : failure(source.code());
}

MediaProbe::Stamp MediaProbe::stampOf(const std::string &path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) < 0)
        return {};
    return {(long long)status.st_dev, (long long)status.st_ino, status.st_size,
            status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

bool MediaProbe::isOutdated(const Entry &entry)
{
    const int code = entry.facts.code;
    return (code == KestErrorTimeout || code == KestErrorUnreadable)
        && Clock::now() - entry.examined >= std::chrono::milliseconds(KestProbeMilliseconds);
}

ProbedFile &MediaProbe::facts(int fileId, const std::string &path)
{
    const Stamp now = stampOf(path);
    const auto found = m_entries.find(fileId);
    if (found != m_entries.end() && found->second.path == path && found->second.stamp == now
        && !isOutdated(found->second))
        return found->second.facts;
    const Entry entry{path, now, probeMedia(path), Clock::now()};
    return m_entries.insert_or_assign(fileId, entry).first->second.facts;
}

void MediaProbe::forget(int fileId)
{
    m_entries.erase(fileId);
}
