// FakeKest: an engine that plays nothing, writes down every call in order, and fails on demand.
// Not here: any behaviour of a real engine beyond what a test tells it to answer.
#pragma once

#include "engine/kest.h"

#include <QStringList>

#if defined(FAKEKEST_BUILD)
#define FAKEKEST_EXPORT Q_DECL_EXPORT
#else
#define FAKEKEST_EXPORT Q_DECL_IMPORT
#endif

/// The one recording engine of a test program, which links it instead of a real engine: every
/// function of engine/kest.h and engine/mpv/kest_host.h and the video window are there, and need
/// no display, no sound and no film. reset() it in init().
///
/// Every call becomes one line in the log, in the order of the calls: the function's name and what
/// it was given, without the handle.
///
///     KestOpen("null")  KestOpen(nullptr)  KestAddFile(7, "/films/a.mkv")  KestEditBegin(7)
///     KestGetFilter2(7, 9)  KestAddFilter2(7, 9, mode 4, depth -0.012)  KestEditEnd(true)
///     CVideoWnd::SendCommand(4, -1)
///
/// KestErrorText and a window's command that is null leave no line. Unless told otherwise a function
/// returns 0 and writes to none of its outputs; a null pointer where a record or a path is needed is
/// KestErrorArgument. A film that is read has a reader, and no pictures: KestReaderNext returns
/// KestAtEnd.
///
/// GUI thread only, but for sendEvent().
class FAKEKEST_EXPORT FakeKest
{
public:
    static FakeKest &instance();

    /// What KestOpen returns: a handle for PlayWidget::initialize(); nothing is behind it.
    static void *handle();

    /// Forgets calls, results, delays and answers.
    void reset();

    /// The lines since the last call of this function or of reset().
    QStringList takeCalls();

    /// The same lines, which stay: for waiting until a call comes.
    QStringList calls() const;

    /// Puts a line of the test's own into the log, to see when something happens between calls.
    void note(const QString &line);

    /// Makes a function, by its name, return `code` from now on; 0 makes it succeed again. It fails
    /// for every file. KestOpen returns null while its code is not 0; KestClose and
    /// KestReaderClose return no code. An unknown name is ignored with a warning.
    void setResult(const QString &function, int code);

    /// The same for KestAddFilter2 on one file alone.
    void setFileResult(int fileId, int code);

    /// Makes a function block its caller for `ms` milliseconds before it returns, as on a slow disk;
    /// 0 makes it quick again. An unknown name is ignored with a warning.
    void setDelay(const QString &function, int ms);

    /// What KestGetMediaDuration writes for a file, in ms; it writes nothing for others.
    void setDuration(int fileId, long long ms);

    /// What KestGetFilter2 finds for a file. Until set, it returns KestErrorNoFilter.
    void setKeptFilter(int fileId, int mode, double depth);

    /// What KestGetFilter finds. Until set, it returns KestErrorNoFilter.
    void setEditFilter(int mode, double depth);

    /// The parameters of the last KestEditBegin; all 0 before the first.
    const EditBeginParams &editBeginParams() const;

    /// The record of the last KestAddFilter or KestAddFilter2; all 0 before the first.
    const tagKestFilterInfo &addedFilter() const;

    /// The handle that the last call came with, which may be another than handle().
    void *lastEngine() const;

    /// Calls the callback of the last KestEditBegin, on the calling thread, and returns its result;
    /// also when that edit has ended, as an engine that keeps no promise would. The widget of the
    /// edit must still be there. KestErrorNoEdit when there is no callback.
    int sendEvent(int eventType, int state, unsigned int time);

    /// Sends the same from the event loop, `ms` milliseconds from now, to the callback of the edit
    /// that was begun last as of this call, even if others were begun since. Nothing is sent once
    /// the window of that edit is destroyed.
    void sendEventLater(int ms, int eventType, int state, unsigned int time);
};
