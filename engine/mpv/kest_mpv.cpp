// The C functions over Session: look the handle up, check pointers, one call, return its code.
// Not here: any decision about playing (session.cpp), reading picture by picture (kest_reader.cpp).
#include "engine/mpv/kest_host.h"
#include "engine/mpv/kest_reader.h"
#include "engine/mpv/kesthandle.h"
#include "engine/mpv/session.h"

#include <map>

namespace {

/// The engines of one thread. A handle is a number that is never given twice, not an address, so
/// whatever a caller passes is looked up and never followed.
std::map<void *, std::shared_ptr<Session>> &engines()
{
    static thread_local std::map<void *, std::shared_ptr<Session>> ofThisThread;
    return ofThisThread;
}

/// Runs one call on the handle's session, which stays alive for it even if a callback closes it.
template <typename Call> int on(void *engine, Call call) noexcept
try {
    const auto found = engines().find(engine);
    if (found == engines().end())
        return KestErrorHandle;
    const std::shared_ptr<Session> session = found->second;
    return call(*session);
} catch (...) {
    return KestErrorPlayer;
}

constexpr int stereoFilter = 9;

int checkFilter(int kind, const tagKestFilterInfo *info)
{
    if (!info)
        return KestErrorArgument;
    return kind == stereoFilter ? KestOk : KestErrorFilterKind;
}

/// Fills `info` from what `get` finds.
template <typename Get> int readFilter(int kind, tagKestFilterInfo *info, Get get)
{
    StereoSetting setting;
    int code = checkFilter(kind, info);
    if (code == KestOk)
        code = get(&setting);
    if (code == KestOk)
        *info = filterInfoFrom(setting);
    return code;
}

struct ErrorRow
{
    int code;
    const char *text;
};

constexpr ErrorRow errorRows[] = {
    {KestAtEnd, "The film has ended"},
    {KestOk, "No error"},
    {KestErrorHandle, "The engine handle is not open in this thread"},
    {KestErrorArgument, "An argument is not usable"},
    {KestErrorFileId, "No file has this id"},
    {KestErrorNoEdit, "No edit is open"},
    {KestErrorFilterKind, "The engine has no such filter"},
    {KestErrorNoFilter, "No such filter is set"},
    {KestErrorNotFound, "The file does not exist"},
    {KestErrorUnreadable, "The file cannot be read"},
    {KestErrorNotAFile, "The path is a folder, a pipe or a device"},
    {KestErrorEmpty, "The file is empty"},
    {KestErrorNotMedia, "The file holds no film and no sound that can be played"},
    {KestErrorTimeout, "The file could not be examined in time"},
    {KestErrorPlayer, "The player failed"},
    {KestErrorNoPicture, "The file holds no film, only sound"},
};

}  // namespace

void *KestOpen(const char *audioOutput)
try {
    auto session = Session::open(audioOutput);
    if (!session)
        return nullptr;
    void *const handle = newKestHandle();
    engines().emplace(handle, std::move(session));
    return handle;
} catch (...) {
    return nullptr;
}

void KestClose(void *engine)
{
    on(engine, [engine](Session &session) {
        engines().erase(engine);
        session.close();
        return KestOk;
    });
}

int KestAddFile(void *engine, int fileId, const char *utf8Path)
{
    return on(engine, [=](Session &session) {
        return utf8Path && *utf8Path ? session.addFile(fileId, utf8Path) : KestErrorArgument;
    });
}

int KestRemoveFile(void *engine, int fileId)
{
    return on(engine, [=](Session &session) { return session.removeFile(fileId); });
}

int KestSetStereoLayout(void *engine, int fileId, int layout)
{
    return on(engine, [=](Session &session) { return session.setLayout(fileId, layout); });
}

int KestReaderOpen(void *engine, int fileId, void **reader)
{
    return on(engine, [=](Session &session) {
        if (!reader)
            return int(KestErrorArgument);
        FilmReader::Film film;
        const int code = session.film(fileId, &film);
        return code == KestOk ? openKestReader(film, reader) : code;
    });
}

const char *KestErrorText(int code)
{
    for (const ErrorRow &row : errorRows)
        if (row.code == code)
            return row.text;
    return "Unknown error";
}

int KestPlay(void *engine)
{
    return on(engine, [](Session &session) { return session.play(); });
}

int KestPause(void *engine)
{
    return on(engine, [](Session &session) { return session.pause(); });
}

int KestSetCurPos(void *engine, unsigned int position)
{
    return on(engine, [=](Session &session) { return session.seek(position); });
}

int KestChangeVolume(void *engine, int volume)
{
    return on(engine, [=](Session &session) { return session.changeVolume(volume); });
}

int KestGetMediaDuration(void *engine, int fileId, long long *duration)
{
    return on(engine, [=](Session &session) {
        return duration ? session.duration(fileId, duration) : KestErrorArgument;
    });
}

int KestGetMediaInfo(void *engine, int fileId, void **records)
{
    return on(engine, [=](Session &session) {
        return records ? session.mediaInfo(fileId, records) : KestErrorArgument;
    });
}

int KestEditBegin(void *engine, EditBeginParams *params)
{
    return on(engine, [=](Session &session) {
        return params ? session.beginEdit(*params) : KestErrorArgument;
    });
}

int KestEditEnd(void *engine, bool save)
{
    return on(engine, [=](Session &session) { return session.endEdit(save); });
}

int KestAddFilter(void *engine, int kind, tagKestFilterInfo *info)
{
    return on(engine, [=](Session &session) {
        const int code = checkFilter(kind, info);
        return code == KestOk ? session.setDraft(stereoSettingFrom(*info)) : code;
    });
}

int KestAddFilter2(void *engine, int fileId, int kind, tagKestFilterInfo *info)
{
    return on(engine, [=](Session &session) {
        const int code = checkFilter(kind, info);
        return code == KestOk ? session.setKept(fileId, stereoSettingFrom(*info)) : code;
    });
}

int KestGetFilter(void *engine, int kind, tagKestFilterInfo *info)
{
    return on(engine, [=](Session &session) {
        return readFilter(kind, info, [&](StereoSetting *to) { return session.draft(to); });
    });
}

int KestGetFilter2(void *engine, int fileId, int kind, tagKestFilterInfo *info)
{
    return on(engine, [=](Session &session) {
        return readFilter(kind, info, [&](StereoSetting *to) { return session.kept(fileId, to); });
    });
}
