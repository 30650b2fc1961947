// Clips for engine tests, made by the ffmpeg program in a folder that goes with the test.
// Not here: the clips that ship (samples/).
#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <random>

class Clips
{
public:
    bool valid() const { return m_folder.isValid(); }
    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// Runs ffmpeg with these arguments, split at spaces, and `name` as its output. Returns the
    /// path; a failure says why and returns an empty one.
    QString make(const QString &name, const QString &arguments) const
    {
        return run(QStringLiteral("-v error -y ") + arguments, name);
    }

    /// Red, lime, blue and white, a second of each, at 25 frames per second, one key frame in all.
    QString fourColours(const QString &name, const QString &size, const QString &more = {}) const
    {
        QString inputs;
        for (const char *colour : {"red", "lime", "blue", "white"})
            inputs += QStringLiteral("-f lavfi -i color=c=%1:s=%2:r=25:d=1 ").arg(colour, size);
        return make(name,
                    inputs
                        + "-filter_complex concat=n=4 -c:v libx264 -preset ultrafast -qp 1 "
                          "-g 250 -threads 1 "
                        + more);
    }

    /// A pattern that moves, in H.264 at 25 frames per second; `more` are further inputs and options.
    QString pattern(const QString &name, const QString &size, int seconds,
                    const QString &more = {}) const
    {
        return make(name,
                    QStringLiteral("-f lavfi -i testsrc2=s=%1:r=25:d=%2 %3 -c:v libx264 "
                                   "-preset ultrafast -pix_fmt yuv420p")
                        .arg(size, QString::number(seconds), more));
    }

    /// One that takes long to export, but not to make: the same two seconds over and over.
    QString longPattern(const QString &name) const
    {
        return make(name, "-stream_loop 29 -i " + pattern("part.mkv", "640x360", 2) + " -c copy");
    }

    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()
            ? file.fileName()
            : QString();
    }

    /// What is no film, and the same each time.
    static QByteArray noise(int size)
    {
        std::mt19937 random(1);
        QByteArray bytes(size, Qt::Uninitialized);
        for (char &byte : bytes)
            byte = char(random());
        return bytes;
    }

    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QString run(const QString &arguments, const QString &name) const
    {
        QProcess ffmpeg;
        ffmpeg.setWorkingDirectory(m_folder.path());
        ffmpeg.setStandardInputFile(QProcess::nullDevice());
        ffmpeg.setProcessChannelMode(QProcess::MergedChannels);
        ffmpeg.start("ffmpeg", arguments.split(' ', Qt::SkipEmptyParts) << name);
        if (ffmpeg.waitForFinished(60000) && ffmpeg.exitStatus() == QProcess::NormalExit
            && ffmpeg.exitCode() == 0)
            return path(name);
        qWarning("ffmpeg failed for %s: %s", qPrintable(name), ffmpeg.readAll().constData());
        return {};
    }

    QTemporaryDir m_folder;
};
