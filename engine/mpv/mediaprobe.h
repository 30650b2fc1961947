// MediaProbe: what a file is: playable or not and why, how long, of which streams, in what shape.
// Not here: playing it.
#pragma once

#include "engine/mpv/kest_host.h"
#include "engine/mpv/mailbox.h"

#include <array>
#include <chrono>
#include <map>
#include <string>
#include <vector>

struct ProbedFile
{
    int code = KestErrorNotFound;  ///< KestOk: it can be played; the rest is empty otherwise
    long long duration = 0;        ///< ms; 0 when the file does not say
    PictureShape shape;  ///< of the stream that a player chooses, as a whole frame, with the layout
                         ///< that the file tells; empty: no moving picture
    std::vector<KestStreamInfo> streams;
};

/// Examines one file, for no longer than KestProbeMilliseconds but for a system call that blocks.
/// Opens that file and no other, whatever it refers to. A container counts as media when it has a
/// moving picture or a sound that can be decoded; play lists, subtitles and still pictures do not.
ProbedFile probeMedia(const std::string &path);

/// Remembers what probeMedia() said, by file id, until the file changes. A failure that may pass, to
/// read it or to be done in time, is remembered for KestProbeMilliseconds only: long enough that the
/// calls of one action wait for it once, short enough that the next action tries again.
class MediaProbe
{
public:
    /// The reference is good until the next call that names the file.
    ProbedFile &facts(int fileId, const std::string &path);
    void forget(int fileId);

private:
    /// Device, inode, size and time of change tell a file from another that took its place.
    using Stamp = std::array<long long, 5>;

    struct Entry
    {
        std::string path;
        Stamp stamp;
        ProbedFile facts;
        std::chrono::steady_clock::time_point examined;
    };

    static Stamp stampOf(const std::string &path);
    static bool isOutdated(const Entry &entry);

    std::map<int, Entry> m_entries;
};
