// Decoding to what all text is decoded to, and encoding that.
// Not here: times, which stay those of the packets.
#include "host/subrip.h"

#include <array>

namespace {

struct Shown : AVSubtitle
{
    Shown()
        : AVSubtitle{}
    { }
    ~Shown() { avsubtitle_free(this); }
    Q_DISABLE_COPY(Shown)
};

Codec openDecoder(const AVStream &stream)
{
    const AVCodec *codec = avcodec_find_decoder(AV_CODEC_ID_MOV_TEXT);
    Codec decoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0)
        return nullptr;
    decoder->pkt_timebase = milliseconds;
    return avcodec_open2(decoder.get(), codec, nullptr) < 0 ? nullptr : std::move(decoder);
}

/// With the styles that the decoded text refers to.
Codec openEncoder(const AVCodecContext &decoder)
{
    const AVCodec *codec = avcodec_find_encoder(AV_CODEC_ID_SUBRIP);
    Codec encoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!encoder)
        return nullptr;
    const auto size = std::size_t(decoder.subtitle_header_size);
    encoder->subtitle_header = static_cast<std::uint8_t *>(av_mallocz(size + 1));
    std::copy_n(decoder.subtitle_header, size, encoder->subtitle_header);
    encoder->subtitle_header_size = int(size);
    encoder->time_base = milliseconds;
    return avcodec_open2(encoder.get(), codec, nullptr) < 0 ? nullptr : std::move(encoder);
}

}  // namespace

std::unique_ptr<SubRip> SubRip::from(const AVStream &stream)
{
    if (stream.codecpar->codec_id != AV_CODEC_ID_MOV_TEXT)
        return nullptr;
    auto conversion = std::make_unique<SubRip>();
    conversion->m_decoder = openDecoder(stream);
    if (conversion->m_decoder)
        conversion->m_encoder = openEncoder(*conversion->m_decoder);
    return conversion->m_encoder ? std::move(conversion) : nullptr;
}

void SubRip::describe(AVStream &stream) const
{
    checked(avcodec_parameters_from_context(stream.codecpar, m_encoder.get()));
}

bool SubRip::convert(AVPacket &packet) const
{
    Shown shown;
    int decoded = 0;
    if (avcodec_decode_subtitle2(m_decoder.get(), &shown, &decoded, &packet) < 0 || !decoded)
        return false;
    std::array<std::uint8_t, 64 * 1024> text;
    const int size
        = avcodec_encode_subtitle(m_encoder.get(), text.data(), int(text.size()), &shown);
    Packet converted(av_packet_alloc());
    if (size <= 0 || av_new_packet(converted.get(), size) < 0)
        return false;
    std::copy_n(text.data(), size, converted->data);
    av_packet_copy_props(converted.get(), &packet);
    av_packet_unref(&packet);
    av_packet_move_ref(&packet, converted.get());
    return true;
}
