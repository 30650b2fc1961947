// MediaEngine: owns the engine and the files that it knows.
// Not here: playing them; the widget does that with the handle.
#pragma once

#include <QString>
#include <QVector>

struct MediaFile
{
    int id;
    QString path;
    bool audioOnly;
    QString error;  ///< why it cannot be played; empty when it can
};

class MediaEngine
{
public:
    /// `audioOutput` as on the command line; empty takes the system's default.
    explicit MediaEngine(const QString &audioOutput);
    ~MediaEngine();
    Q_DISABLE_COPY(MediaEngine)

    /// Null when the engine could not be opened.
    void *handle() const { return m_handle; }

    /// Names a file to the engine and looks at what it holds.
    MediaFile add(const QString &path);

private:
    void *m_handle;
    int m_lastId = 0;
};
