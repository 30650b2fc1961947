// For hosts of our own engine: open one, name its files and how they hold two views, read them
// picture by picture, close it, and put a code into words.
// Not here: playing (engine/kest.h), which works the same with any engine.
#pragma once

#include "engine/kest.h"

/// What the engine's functions return. All failures are negative, so that a count and a code can
/// share a return value.
enum KestResult {
    KestAtEnd = 1,  ///< no failure: the film has no further picture
    KestOk = 0,
    KestErrorHandle = -1,      ///< null, closed or foreign handle, or one of another thread
    KestErrorArgument = -2,    ///< a null pointer, an empty path, an unknown layout, or a window
                               ///< that lives in another thread
    KestErrorFileId = -3,      ///< no file has this id
    KestErrorNoEdit = -4,      ///< no edit is open
    KestErrorFilterKind = -5,  ///< not a kind of filter that the engine has
    KestErrorNoFilter = -6,    ///< no filter of this kind is set
    KestErrorNotFound = -7,    ///< the file does not exist
    KestErrorUnreadable = -8,  ///< the file may not or cannot be read
    KestErrorNotAFile = -9,    ///< a folder, a pipe, a device
    KestErrorEmpty = -10,      ///< the file has no bytes
    KestErrorNotMedia = -11,   ///< the file holds no picture and no sound that can be decoded
    KestErrorTimeout = -12,    ///< the file could not be examined in time
    KestErrorPlayer = -13,     ///< the player below refused
    KestErrorNoPicture = -14   ///< the file holds sound alone
};

/// The time in ms after which examining a file is given up, though a read under way is waited for. It
/// is done when the file's length or streams, an edit or a reader of it are asked for, and it is new or
/// has changed; the calling thread waits. A file that could not be read, or not in time, counts as new
/// again when this time has passed once more. An edit keeps what was found when it began.
enum { KestProbeMilliseconds = 3000 };

/// How the views of a stereo film lie in its frames. Half: each view is squeezed to half of its width
/// (side by side) or height (top and bottom), so that the frame is as large as one view; otherwise
/// the frame is as large as both. The left eye's view lies left or above, unless it says right first.
enum KestStereoLayout {
    KestLayoutAsTagged = -1,  ///< as the file says, and flat where it says nothing
    KestLayoutFlat = 0,       ///< no views: both eyes see the whole frame
    KestLayoutSideBySide = 1,
    KestLayoutSideBySideRightFirst = 2,
    KestLayoutSideBySideHalf = 3,
    KestLayoutSideBySideHalfRightFirst = 4,
    KestLayoutTopBottom = 5,
    KestLayoutTopBottomRightFirst = 6,
    KestLayoutTopBottomHalf = 7,
    KestLayoutTopBottomHalfRightFirst = 8
};

enum KestStreamKind {
    KestStreamPicture = 0,  ///< moving pictures that can be decoded
    KestStreamSound = 1,
    KestStreamSubtitles = 2,
    KestStreamOther = 3  ///< anything else, the picture on a record's cover too
};

/// One stream of a file, as KestGetMediaInfo hands it out: 64 bytes.
struct KestStreamInfo
{
    int kind;      ///< a KestStreamKind
    int width;     ///< picture: stored width in pixels, else 0
    int height;    ///< picture: stored height in pixels, else 0
    int rotation;  ///< picture: degrees clockwise that it is shown turned by: 0, 90, 180, 270
    int aspectNumerator;  ///< picture: shape of one pixel; 1 / 1 when the file says nothing
    int aspectDenominator;
    int frameRateNumerator;  ///< picture: mean frames per second as a fraction, 0 / 1 if unknown
    int frameRateDenominator;
    int sampleRate;      ///< sound: Hz, else 0
    int channels;        ///< sound: number of channels, else 0
    long long duration;  ///< ms, -1 when the file does not say
    char codec[16];      ///< short name of the codec, zero-terminated, cut where it is longer
};
static_assert(sizeof(KestStreamInfo) == 64, "a media-information record has 64 bytes");

/// One picture of a film that is being read.
struct KestPicture
{
    const unsigned char
        *pixels;  ///< rows from top to bottom, 4 bytes a pixel: blue, green, red, 255
    int stride;   ///< bytes from one row to the next
    int width;
    int height;
    long long time;  ///< µs, as the file counts them; its first picture need not be at 0
};

extern "C" {

/// Opens an engine and returns its handle, or null when the player below cannot be started. The
/// handle belongs to the calling thread, which must run a Qt event loop; in other threads it counts
/// as foreign. Handles are never reused.
/// `audioOutput` names the sound output ("pulse", "alsa", ...); null takes the system's default and
/// "null" plays without sound. Where an output is missing, films play without sound.
/// The callbacks of all edits are entered on this thread, from its event loop or from KestEditBegin;
/// they may call any function, also one that ends the edit or closes the engine.
/// While the player is made, here and in KestReaderOpen, the process's LC_NUMERIC is "C" for a moment,
/// unless it is already.
KEST_EXPORT void *KestOpen(const char *audioOutput);

/// Ends an open edit without save, stops everything and frees the engine. It waits until a read that
/// is under way has been answered, which a disk out of reach may hold up. Unknown handles are ignored.
/// An engine that is never closed goes with the thread that opened it.
KEST_EXPORT void KestClose(void *engine);

/// Gives a file an id to be named by. The path is UTF-8 and is not looked at yet; a relative one
/// means the folder of this moment. It is always a file on disk, never a URL. An id that is taken
/// gets the new path and loses the filters and the layout set for it. An edit that is open on it goes
/// on with the old file, shown as it was, and keeps nothing when it ends.
KEST_EXPORT int KestAddFile(void *engine, int fileId, const char *utf8Path);

/// Forgets a file, the filters kept for it and its layout. An edit that is open on it is ended
/// without save.
KEST_EXPORT int KestRemoveFile(void *engine, int fileId);

/// Sets how the views of both eyes lie in a file's frames, a KestStereoLayout, in place of what the
/// file says; KestLayoutAsTagged takes that back. An edit that is open on the file shows it at once,
/// playing or paused. It is kept as long as the file's id, whether edits are saved or not.
///
/// With two views, each 3D mode shows every eye its own, moved by the depth on top of the parallax
/// that they have; the modes that show the plain picture show the left view.
///
/// As tagged: Matroska and WebM (StereoMode), MP4 and QuickTime (st3d), or else the frame packing in
/// the first picture of H.264 and HEVC. Other packings than side by side and top and bottom count as
/// flat. Tags do not tell half from whole. Each view has the shape that the file gives it, unless that
/// is narrower than 5:4 or not narrower than 5:2, and doubling or halving its width leads in between:
/// such files, which are common, are taken to mean that. Square views and others that are no film's
/// may need to be told here.
KEST_EXPORT int KestSetStereoLayout(void *engine, int fileId, int layout);

/// Opens a film to be read picture by picture, each exactly once and in order, composed with the 3D
/// filter that is kept for the file at this moment and plain without one. They are composed as an edit
/// shows them, at the film's full size with square pixels, turned where the film says so, and decoded
/// in full, with the loop filter that an edit leaves out where it hardly shows. `reader` is set to a
/// handle of its own, which later changes to the file and the engine do not touch; it may outlive the
/// engine, and lives until it is closed. Fails with the file's own code where it cannot be played, with
/// KestErrorNoPicture where it holds sound alone. A reader does not disturb an open edit.
KEST_EXPORT int KestReaderOpen(void *engine, int fileId, void **reader);

/// Waits for the next picture as long as it takes. KestOk with a picture, whose pixels stay until the
/// next call with this reader; KestAtEnd after the last one; otherwise the code of a failure, such as
/// KestErrorPlayer for a picture with a side of more than 16384 pixels. After the end or a failure it
/// returns the same code again; `picture` stays as it was. A film that changes its size on the way is
/// scaled to that of its first picture. This function and KestReaderClose may be called in any thread,
/// without an event loop, but for one reader not in two at once.
KEST_EXPORT int KestReaderNext(void *reader, KestPicture *picture);

/// Ends the reading, at any picture, and frees the reader. Unknown handles are ignored.
KEST_EXPORT void KestReaderClose(void *reader);

/// What a code means, in one English sentence without a full stop. Static text, never null; an
/// unknown code has a text of its own.
KEST_EXPORT const char *KestErrorText(int code);
}
