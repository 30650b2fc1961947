// Opening and closing the engine, and what it says of a file.
// Not here: any window.
#include "host/mediaengine.h"

#include "engine/mpv/kest_host.h"

#include <algorithm>

namespace {

bool hasPicture(const KestStreamInfo *streams, int count)
{
    return std::any_of(streams, streams + count,
                       [](const KestStreamInfo &stream) { return stream.kind == 0; });
}

}  // namespace

MediaEngine::MediaEngine(const QString &audioOutput)
    : m_handle(KestOpen(audioOutput.isEmpty() ? nullptr : audioOutput.toUtf8().constData()))
{ }

MediaEngine::~MediaEngine()
{
    KestClose(m_handle);
}

MediaFile MediaEngine::add(const QString &path)
{
    MediaFile file = {++m_lastId, path, false, QString()};
    int result = KestAddFile(m_handle, file.id, path.toUtf8().constData());
    void *records = nullptr;
    if (result == KestOk)
        result = KestGetMediaInfo(m_handle, file.id, &records);
    if (result < 0)
        file.error = QString::fromUtf8(KestErrorText(result));
    else
        file.audioOnly = !hasPicture(static_cast<KestStreamInfo *>(records), result);
    return file;
}
