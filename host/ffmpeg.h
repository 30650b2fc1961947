// What FFmpeg's libraries hand out, with an owner; their codes as failures.
// Not here: what is done with it.
#pragma once

#include <QString>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <memory>

/// Thrown: why there will be no file.
struct Failure
{
    QString text;
};

/// The code, where it is none of an error; throws the Failure that it stands for.
inline int checked(int code)
{
    if (code >= 0)
        return code;
    char text[AV_ERROR_MAX_STRING_SIZE];
    throw Failure{QString::fromLocal8Bit(av_make_error_string(text, sizeof text, code))};
}

template <auto release> struct Releaser
{
    template <typename Type> void operator()(Type *pointer) const { release(&pointer); }
};

using Codec = std::unique_ptr<AVCodecContext, Releaser<avcodec_free_context>>;
using Picture = std::unique_ptr<AVFrame, Releaser<av_frame_free>>;
using Packet = std::unique_ptr<AVPacket, Releaser<av_packet_free>>;

constexpr AVRational milliseconds = {1, 1000};  // what Matroska counts in
