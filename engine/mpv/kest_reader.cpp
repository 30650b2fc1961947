// The C functions of film readers: look the handle up, one call, return its code.
// Not here: reading (filmreader.cpp).
#include "engine/mpv/kest_reader.h"

#include "engine/mpv/kest_host.h"
#include "engine/mpv/kesthandle.h"

#include <map>

namespace {

struct OpenReader
{
    std::unique_ptr<FilmReader> reader;
    FilmReader::Picture picture = {};  // the one that the host looks at
};

/// Readers go from thread to thread, so there is one list for all of them.
struct OpenReaders
{
    std::mutex lock;
    std::map<void *, std::shared_ptr<OpenReader>> byHandle;
};

OpenReaders &readers()
{
    static OpenReaders all;
    return all;
}

std::shared_ptr<OpenReader> find(void *handle)
{
    const std::lock_guard lock(readers().lock);
    const auto found = readers().byHandle.find(handle);
    return found == readers().byHandle.end() ? nullptr : found->second;
}

KestPicture described(const FilmReader::Picture &picture)
{
    const QImage &image = picture.image;
    return {image.constBits(), int(image.bytesPerLine()), image.width(), image.height(),
            picture.time};
}

}  // namespace

int openKestReader(const FilmReader::Film &film, void **reader)
{
    auto opened = std::make_shared<OpenReader>(OpenReader{FilmReader::open(film)});
    if (!opened->reader)
        return KestErrorPlayer;
    *reader = newKestHandle();
    const std::lock_guard lock(readers().lock);
    readers().byHandle.emplace(*reader, std::move(opened));
    return KestOk;
}

int KestReaderNext(void *reader, KestPicture *picture)
try {
    const std::shared_ptr<OpenReader> open = find(reader);
    if (!open)
        return KestErrorHandle;
    if (!picture)
        return KestErrorArgument;
    const int code = open->reader->next(open->picture);
    if (code == KestOk)
        *picture = described(open->picture);
    return code;
} catch (...) {
    return KestErrorPlayer;
}

void KestReaderClose(void *reader)
{
    const std::shared_ptr<OpenReader> last = find(reader);  // goes when the list is free again
    const std::lock_guard lock(readers().lock);
    readers().byHandle.erase(reader);
}
