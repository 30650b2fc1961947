// StreamCopy: what an exported film has of its source besides the pictures: sound, subtitles and the
// fonts for them, chapters.
// Not here: the pictures, and the file that all go into (filmexport.cpp).
#pragma once

#include "host/ffmpeg.h"
#include "host/joinedtimes.h"
#include "host/subrip.h"

#include <QStringList>

#include <memory>
#include <vector>

/// Throws a Failure.
class StreamCopy
{
public:
    /// Adds what there is in `source` to a Matroska file whose header is not written yet and which
    /// must outlive this. Fails where Matroska cannot hold the sound. All times, also those of packets
    /// that others write, are still the source's; in the file they begin at 0.
    StreamCopy(const QString &source, AVFormatContext &output);

    /// Reads and writes what is due up to a time in ms, counted as JoinedTimes does.
    void copyUntil(std::int64_t time);

    /// Reads one packet and, if it is copied, writes it, whenever it is due; false at the end.
    bool copyNext();

    /// What has been left out, and why, in words.
    const QStringList &leftOut() const { return m_leftOut; }

private:
    struct CloseInput
    {
        void operator()(AVFormatContext *input) const;
    };
    struct Track
    {
        AVStream *to = nullptr;  ///< null: left out
        std::unique_ptr<SubRip> conversion;
        std::int64_t shift = 0;              ///< ms, as JoinedTimes has it
        std::int64_t last = AV_NOPTS_VALUE;  ///< ms, when its latest packet is due
    };

    void openInput(const QString &source);
    Track trackFor(const AVStream &from);
    AVStream *addStream(const AVStream &from);
    bool hasNext();
    Track *trackOf(const AVPacket &packet);
    void follow(const AVPacket &picture);
    void place(AVPacket &packet, Track &track);
    void write();

    AVFormatContext &m_output;
    std::unique_ptr<AVFormatContext, CloseInput> m_input;
    std::vector<Track> m_tracks;         // the source's, by index
    int m_pictures = -1;                 // the index of theirs
    JoinedTimes m_times;                 // of the pictures that have been read
    Packet m_packet{av_packet_alloc()};  // read and placed, and not written yet
    std::int64_t m_reached = 0;  // when the latest packet is due, also one that is not copied
    QStringList m_leftOut;
};
