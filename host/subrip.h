// SubRip: the subtitles of MP4 as subtitles that every player of Matroska shows.
// Not here: subtitles that Matroska holds as they are (streamcopy.cpp).
#pragma once

#include "host/ffmpeg.h"

class SubRip
{
public:
    /// Null where the stream is no subtitles of MP4, or FFmpeg lacks what turns them into text.
    static std::unique_ptr<SubRip> from(const AVStream &stream);

    /// Makes the stream one of what convert() returns.
    void describe(AVStream &stream) const;

    /// The same moment, in ms, as SubRip; false where nothing is shown then, or it cannot be read.
    bool convert(AVPacket &packet) const;

private:
    Codec m_decoder;
    Codec m_encoder;
};
