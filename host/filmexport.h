// FilmExport: one film, from the engine's composed pictures to a finished file.
// Not here: which films, how far they are and how long it will take (exportjob.h).
#pragma once

#include <QStringList>

#include <functional>

struct FilmOrder
{
    void *reader = nullptr;  ///< an engine's; exportFilm() closes it
    QString source;          ///< the film; its sound, subtitles and chapters are copied
    QString target;          ///< a Matroska file; where it exists, a number is added to the name
    int mode = 0;           ///< a tagKest3DMode, which a player is told of where it packs two views
    bool lossless = false;  ///< the very pixels (FFV1) instead of H.264
    double frameRate = 0;   ///< pictures per second; 0: unknown
};

struct FilmResult
{
    QString file;         ///< the finished file; empty after a failure
    QString error;        ///< why there is none; empty as well when it was cancelled
    QStringList leftOut;  ///< what of the film is not in the file, in words
};

/// Called after each picture with how long after the first it is due, in ms, and after each packet of
/// what goes on beyond the last one; false cancels.
using FilmProgress = std::function<bool(long long milliseconds)>;

/// Blocks; in any thread. Until it is finished the file is called "....part"; after a failure, or
/// when it is cancelled, nothing of it remains. An existing file is never overwritten.
FilmResult exportFilm(const FilmOrder &order, const FilmProgress &progress);
