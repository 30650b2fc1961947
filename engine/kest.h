// The media engine as the widget sees it: twelve plain functions and the records they exchange.
// Not here: the video window (engine/videownd.h) and opening an engine (engine/mpv/kest_host.h).
#pragma once

#include <cstddef>

#if defined(_WIN32) && defined(KEST_BUILD)
#define KEST_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define KEST_EXPORT __declspec(dllimport)
#else
#define KEST_EXPORT __attribute__((visibility("default")))
#endif

class CVideoWnd;

/// How the engine shows one picture to two eyes. The gaps in the numbering belong to modes that
/// the widget does not offer; an engine shows the plain picture for them.
enum tagKest3DMode {
    Kest3DRedGreen = 1,
    Kest3DRedBlue = 2,
    Kest3DRedCyan = 4,
    Kest3DBlueYellow = 6,
    Kest3DInterleaved = 8,
    Kest3DSlideBySlide = 9,
    Kest3DTurnOff = 11
};

/// An event of the open edit, handed to the KestEventCallback.
struct tagKestEvent
{
    int eventType;      ///< 0: a play-state event, the only kind there is so far
    int state;          ///< 5: the film has ended; 7: a tick; any other: playing at `time`
    unsigned int time;  ///< play position in ms
};

/// Receives the events of one edit. May be entered on a thread of the engine's own, never again
/// once KestEditEnd or the closing of the engine has returned. The event lives for the call only.
/// Return 0.
typedef int (*KestEventCallback)(tagKestEvent *event, void *user);

/// What KestEditBegin needs to know. Both window and size pairs name the same window.
struct EditBeginParams
{
    int mode;         ///< 1
    int fileId;       ///< the file to open, by the id that the host gave it
    double factor;    ///< 1.0
    int firstHeight;  ///< height of the window in device-independent pixels
    int firstWidth;
    int secondHeight;
    int secondWidth;
    CVideoWnd *firstWindow;  ///< where the picture goes; may be destroyed before the edit ends
    CVideoWnd *secondWindow;
    KestEventCallback callback;  ///< may be null: no events
    void *userData;              ///< handed back to the callback
};

/// A filter's settings. The 3D filter is kind 9 and carries a mode and a depth; everything
/// reserved is 0.
#pragma pack(push, 4)
struct tagKestFilterInfo
{
    int reserved0;
    int type;  ///< 17 for the 3D filter
    int mode;  ///< a tagKest3DMode; an unknown value means the plain picture
    unsigned char reserved1[8];
    double depth;  ///< parallax as a share of the picture's width; negative comes out of the screen
    unsigned char reserved2[56];
};
#pragma pack(pop)

// Both records cross a library border, so their layout is fixed.
static_assert(sizeof(int) == 4 && sizeof(double) == 8, "the records count on these sizes");
static_assert(sizeof(tagKestFilterInfo) == 84, "a filter record has 84 bytes");
static_assert(offsetof(tagKestFilterInfo, type) == 4, "type stands at 4");
static_assert(offsetof(tagKestFilterInfo, mode) == 8, "mode stands at 8");
static_assert(offsetof(tagKestFilterInfo, reserved1) == 12, "the first gap starts at 12");
static_assert(offsetof(tagKestFilterInfo, depth) == 20, "depth stands at 20, unaligned");
static_assert(offsetof(tagKestFilterInfo, reserved2) == 28, "the second gap starts at 28");
static_assert(offsetof(EditBeginParams, fileId) == 4, "file id stands at 4");
static_assert(offsetof(EditBeginParams, factor) == 8, "factor stands at 8");
static_assert(offsetof(EditBeginParams, firstHeight) == 16, "first height stands at 16");
static_assert(offsetof(EditBeginParams, firstWidth) == 20, "first width stands at 20");
static_assert(offsetof(EditBeginParams, secondHeight) == 24, "second height stands at 24");
static_assert(offsetof(EditBeginParams, secondWidth) == 28, "second width stands at 28");
static_assert(offsetof(EditBeginParams, firstWindow) == 32, "pointers start at 32");
static_assert(offsetof(EditBeginParams, secondWindow) == 32 + sizeof(void *), "second window");
static_assert(offsetof(EditBeginParams, callback) == 32 + 2 * sizeof(void *), "callback");
static_assert(offsetof(EditBeginParams, userData) == 32 + 3 * sizeof(void *), "user data");
static_assert(sizeof(EditBeginParams) == 32 + 4 * sizeof(void *), "48 or 64 bytes in all");

// Every function takes the engine's handle first and returns 0 for success, any other value being
// the engine's code of what went wrong. A null, closed or foreign handle and a null pointer are
// answered by a code as well. Positions and durations are milliseconds.
//
// Threads: call them from the thread that opened the engine.
extern "C" {

/// Starts the open edit, or resumes it after KestPause. Tells at once when the file cannot be
/// played: missing, empty, unreadable, not a media file. After the end of the film it starts over,
/// unless a KestSetCurPos has come since.
KEST_EXPORT int KestPlay(void *engine);

/// Pauses the open edit at the current picture.
KEST_EXPORT int KestPause(void *engine);

/// Moves the open edit to `position` ms, playing or paused; beyond the end is the end. The position
/// that was reached comes back by event: that of the first picture which is not more than 5 ms before
/// the one asked for.
KEST_EXPORT int KestSetCurPos(void *engine, unsigned int position);

/// Sets the volume, linear in amplitude: 0 is silent, 50 half, 100 leaves the sound as it is, 200
/// doubles it (+6 dB). Values outside are clamped. Holds for this edit and those that follow.
KEST_EXPORT int KestChangeVolume(void *engine, int volume);

/// Writes the length of the file to `duration` in ms; `duration` stays as it is on failure. 0 when the
/// file does not say: such a film plays, but its position is 0 throughout.
KEST_EXPORT int KestGetMediaDuration(void *engine, int fileId, long long *duration);

/// Writes the address of the file's media-information records, 64 bytes each, to `records` and
/// returns their count; a negative value is the code of a failure. The engine owns the records, which
/// live until the next call that names the file.
KEST_EXPORT int KestGetMediaInfo(void *engine, int fileId, void **records);

/// Opens an edit of one file, rendered into a window, and reports its events to the callback from
/// then on. An edit that is still open is ended first, with save; after a failure it is still open.
/// A file that cannot be played has an edit all the same, for its filters: KestPlay tells why.
/// Copies what it needs of `params`. Position 0 is reported before this returns, and the first
/// picture shows before KestPlay.
KEST_EXPORT int KestEditBegin(void *engine, EditBeginParams *params);

/// Ends the open edit: `save` keeps the filters set during it, otherwise they are dropped. The
/// callback is not entered again once this has returned.
KEST_EXPORT int KestEditEnd(void *engine, bool save);

/// Sets a filter of the open edit; it shows with the next picture, paused or not.
KEST_EXPORT int KestAddFilter(void *engine, int kind, tagKestFilterInfo *info);

/// Sets a filter kept for a file, with or without an edit; when that file is being edited, of the
/// open edit as well.
KEST_EXPORT int KestAddFilter2(void *engine, int fileId, int kind, tagKestFilterInfo *info);

/// Reads a filter of the open edit. Non-zero, and `info` untouched, where none is set.
KEST_EXPORT int KestGetFilter(void *engine, int kind, tagKestFilterInfo *info);

/// Reads a filter kept for a file. Non-zero, and `info` untouched, where none is kept.
KEST_EXPORT int KestGetFilter2(void *engine, int fileId, int kind, tagKestFilterInfo *info);
}
