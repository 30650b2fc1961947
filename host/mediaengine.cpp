// Opening and closing the engine, and what it says of a file.
// Not here: any window.
#include "host/mediaengine.h"

#include "engine/mpv/kest_host.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

/// What the engine says when a file cannot be played or exported, for the translators.
[[maybe_unused]] constexpr const char *reasons[] = {
    QT_TRANSLATE_NOOP("Engine", "The file does not exist"),
    QT_TRANSLATE_NOOP("Engine", "The file cannot be read"),
    QT_TRANSLATE_NOOP("Engine", "The path is a folder, a pipe or a device"),
    QT_TRANSLATE_NOOP("Engine", "The file is empty"),
    QT_TRANSLATE_NOOP("Engine", "The file holds no film and no sound that can be played"),
    QT_TRANSLATE_NOOP("Engine", "The file could not be examined in time"),
    QT_TRANSLATE_NOOP("Engine", "The file holds no film, only sound"),
};

/// The film's, or null.
const KestStreamInfo *pictureStream(const KestStreamInfo *streams, int count)
{
    const auto *found = std::find_if(streams, streams + count, [](const KestStreamInfo &stream) {
        return stream.kind == KestStreamPicture;
    });
    return found == streams + count ? nullptr : found;
}

}  // namespace

//! [host-open]
MediaEngine::MediaEngine(const QString &audioOutput)
    : m_handle(KestOpen(audioOutput.isEmpty() ? nullptr : audioOutput.toUtf8().constData()))
{ }

MediaEngine::~MediaEngine()
{
    KestClose(m_handle);
}

void MediaEngine::add(int fileId, const QString &path)
{
    (void)KestAddFile(m_handle, fileId, path.toUtf8().constData());
}
//! [host-open]

//! [host-examine]
MediaFacts MediaEngine::examine(int fileId)
{
    MediaFacts facts;
    void *records = nullptr;
    const int count = KestGetMediaInfo(m_handle, fileId, &records);
    if (count < 0)
        facts.error = QCoreApplication::translate("Engine", KestErrorText(count));
    else if (const auto *film = pictureStream(static_cast<KestStreamInfo *>(records), count))
        facts.frameRate = double(film->frameRateNumerator) / film->frameRateDenominator;
    else
        facts.audioOnly = true;
    (void)KestGetMediaDuration(m_handle, fileId, &facts.duration);
    return facts;
}
//! [host-examine]
