// MediaEngine: owns the engine and tells what it says of files.
// Not here: playing them; the widget does that with the handle.
#pragma once

#include <QString>

/// What the engine finds in a file.
struct MediaFacts
{
    bool audioOnly = false;
    double frameRate = 0;    ///< pictures per second; 0 when the file does not say
    long long duration = 0;  ///< ms; likewise
    QString error;           ///< why it cannot be played; empty when it can
};

/// Lives on the thread that made it, which has to run an event loop.
class MediaEngine
{
public:
    /// `audioOutput` as on the command line; empty takes the system's default.
    explicit MediaEngine(const QString &audioOutput);
    ~MediaEngine();
    Q_DISABLE_COPY(MediaEngine)

    /// Null when the engine could not be opened.
    void *handle() const { return m_handle; }

    /// Names a file to the engine, by an id of the caller's.
    void add(int fileId, const QString &path);

    /// Looks into a file that was added. Waits for it, 3 s at the longest.
    MediaFacts examine(int fileId);

private:
    void *m_handle;
};
