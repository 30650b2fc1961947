// FilmReader: one film from its first picture to its last, each once, composed as in the preview.
// Not here: showing pictures in time (session.h), the C functions over it (kest_reader.cpp).
#pragma once

#include "engine/mpv/kest_host.h"
#include "engine/mpv/mailbox.h"
#include "engine/mpv/mpvcore.h"
#include "engine/mpv/rendercontext.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

/// Has a player of its own, paused, which is asked for one picture at a time. Made on the thread that
/// makes players; the rest belongs to one thread at a time, any.
class FilmReader
{
public:
    struct Film
    {
        std::string path;
        PictureShape shape;
        bool tagged;  ///< the file says how its views lie
        StereoSetting setting;
    };

    struct Picture
    {
        QImage image;  ///< Format_RGB32
        qint64 time;   ///< µs
    };

    /// Null when the player cannot be started.
    static std::unique_ptr<FilmReader> open(const Film &film);
    ~FilmReader();

    FilmReader(const FilmReader &) = delete;
    FilmReader &operator=(const FilmReader &) = delete;

    /// Waits for the next picture. KestOk, KestAtEnd or the code of a failure; once it is not KestOk
    /// it stays what it is, and `picture` is untouched.
    int next(Picture &picture);

private:
    FilmReader(const Film &film, const std::shared_ptr<MpvCore> &core);
    static void wake(void *reader);
    bool sleep();
    void takeEvents();
    bool pictureWaits();
    bool pictureMissed();
    int take(Picture &picture);
    QSize fullSize();

    const StereoSetting m_setting;
    PictureShape m_shape;
    const bool m_tagged;
    QSize m_size;  // of the whole film, by its first picture
    int m_code = KestOk;
    bool m_settled = false;  // the film is open and its first picture with the renderer
    const std::shared_ptr<MpvCore> m_core;

    // --- guarded by m_lock, a leaf
    std::mutex m_lock;
    std::condition_variable m_bell;
    bool m_woken = false;

    std::unique_ptr<RenderContext> m_context;  // gone first: it wakes us
};
