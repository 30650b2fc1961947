// What the host asks for, on its way down to the player.
// Not here: what the player answers (session_events.cpp).
#include "engine/mpv/session.h"

#include "engine/mpv/videoview.h"

#include <QThread>

#include <algorithm>
#include <filesystem>

std::shared_ptr<Session> Session::open(const char *audioOutput)
{
    const std::shared_ptr<Session> session(new Session);
    return session->start(audioOutput) ? session : nullptr;
}

Session::~Session()
{
    close();
}

bool Session::start(const char *audioOutput)
{
    m_core = MpvCore::open(audioOutput);
    if (!m_core)
        return false;
    m_renderThread = RenderThread::start(m_core, m_mailbox);
    m_core->setWakeup(&Session::wake, this);
    return m_renderThread != nullptr;
}

void Session::close()
{
    if (!m_core)
        return;
    dropEdit(false);
    m_core->setWakeup(nullptr, nullptr);
    m_renderThread.reset();
    m_core.reset();
}

int Session::addFile(int fileId, const char *utf8Path)
{
    // A relative name means the folder of this moment; an absolute one is never taken for a URL.
    m_files[fileId] = {std::filesystem::absolute(utf8Path).string()};
    m_filters.remove(fileId);
    m_probe.forget(fileId);
    return KestOk;
}

int Session::removeFile(int fileId)
{
    if (!m_files.count(fileId))
        return KestErrorFileId;
    if (m_edit && m_edit->fileId == fileId)
        dropEdit(false);
    m_files.erase(fileId);
    m_filters.remove(fileId);
    m_probe.forget(fileId);
    return KestOk;
}

int Session::setLayout(int fileId, int name)
{
    const auto file = m_files.find(fileId);
    if (file == m_files.end())
        return KestErrorFileId;
    const std::optional<StereoLayout> layout = layoutNamed(name);
    if (!layout && name != KestLayoutAsTagged)
        return KestErrorArgument;
    file->second.layout = layout;
    if (m_edit && m_edit->fileId == fileId && m_edit->file.path == file->second.path) {
        m_edit->file.layout = layout;
        m_mailbox->setShape(shape());
    }
    return KestOk;
}

int Session::duration(int fileId, long long *milliseconds)
{
    const auto file = m_files.find(fileId);
    if (file == m_files.end())
        return KestErrorFileId;
    const ProbedFile &facts = m_probe.facts(fileId, file->second.path);
    if (facts.code == KestOk)
        *milliseconds = facts.duration;
    return facts.code;
}

int Session::mediaInfo(int fileId, void **records)
{
    const auto file = m_files.find(fileId);
    if (file == m_files.end())
        return KestErrorFileId;
    ProbedFile &facts = m_probe.facts(fileId, file->second.path);
    if (facts.code != KestOk)
        return facts.code;
    *records = facts.streams.data();
    return int(facts.streams.size());
}

PictureShape Session::shapeOf(const File &file, const ProbedFile &facts)
{
    PictureShape shape = facts.shape;
    shape.layout = file.layout.value_or(shape.layout);
    shape.size = viewShape(shape.size, shape.layout);
    return shape;
}

int Session::film(int fileId, FilmReader::Film *film)
{
    const auto file = m_files.find(fileId);
    if (file == m_files.end())
        return KestErrorFileId;
    const ProbedFile &facts = m_probe.facts(fileId, file->second.path);
    if (facts.code != KestOk)
        return facts.code;
    if (facts.shape.size.isEmpty())
        return KestErrorNoPicture;
    *film = {file->second.path, shapeOf(file->second, facts),
             facts.shape.layout.packing != StereoLayout::Flat,
             m_filters.kept(fileId).value_or(StereoSetting())};
    return KestOk;
}

int Session::beginEdit(const EditBeginParams &params)
{
    const auto file = m_files.find(params.fileId);
    if (file == m_files.end())
        return KestErrorFileId;
    if (params.firstWindow && params.firstWindow->thread() != QThread::currentThread())
        return KestErrorArgument;
    dropEdit(true);
    m_filters.begin(params.fileId);
    m_edit = Edit{++m_editCount,   params.fileId,
                  file->second,    m_probe.facts(params.fileId, file->second.path),
                  params.callback, params.userData};
    m_mailbox->beginEdit(m_filters.draft().value_or(StereoSetting()), shape());
    if (params.firstWindow)
        showIn(params.firstWindow);
    advance();
    report(Playing, 0);
    return KestOk;
}

/// How the open edit's film is shown.
PictureShape Session::shape() const
{
    return shapeOf(m_edit->file, m_edit->facts);
}

void Session::showIn(CVideoWnd *window)
{
    VideoView::of(window)->show(m_mailbox);
    const auto gone = [weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->dropEdit(false);
    };
    m_windowGone = QObject::connect(window, &QObject::destroyed, &m_bell, gone);
}

int Session::endEdit(bool save)
{
    if (!m_edit)
        return KestErrorNoEdit;
    dropEdit(save);
    return KestOk;
}

void Session::dropEdit(bool save)
{
    if (!m_edit)
        return;
    m_filters.end(save);
    m_mailbox->endEdit();
    QObject::disconnect(m_windowGone);
    m_edit.reset();
    advance();
}

/// Why the open edit cannot be played, if so.
int Session::editCode() const
{
    if (!m_edit)
        return KestErrorNoEdit;
    return m_edit->failed ? int(KestErrorPlayer) : m_edit->facts.code;
}

bool Session::playerHasEdit() const
{
    return m_edit && m_playerEdit == m_edit->serial && m_player != Player::Leaving;
}

int Session::play()
{
    if (const int code = editCode())
        return code;
    m_edit->playing = true;
    if (std::exchange(m_edit->ended, false))
        m_edit->nextSeek = 0;
    if (playerHasEdit()) {
        sendSeek();
        m_core->setPaused(false);
        m_core->askAtEnd();
    }
    return KestOk;
}

int Session::pause()
{
    if (const int code = editCode())
        return code;
    m_edit->playing = false;
    if (playerHasEdit()) {
        m_core->setPaused(true);
        m_core->askPosition();  // the last one may have come too soon after another to be told
    }
    return KestOk;
}

int Session::seek(unsigned int position)
{
    if (const int code = editCode())
        return code;
    m_edit->ended = false;
    m_edit->nextSeek = withinFilm(position);
    sendSeek();
    return KestOk;
}

int Session::changeVolume(int volume)
{
    m_core->setVolume(volume);
    return KestOk;
}

/// Sends the seek that waits, unless the player is busy with one or not ready for any.
void Session::sendSeek()
{
    if (!m_edit->nextSeek || m_edit->seeking || m_player != Player::Ready || !playerHasEdit())
        return;
    m_mailbox->seekBegun();
    m_core->seek(*m_edit->nextSeek / 1000.0);
    m_edit->nextSeek.reset();
    m_edit->seeking = true;
    // At the end of a film the player has paused itself.
    if (m_edit->playing)
        m_core->setPaused(false);
}

unsigned int Session::withinFilm(long long position) const
{
    const long long end = m_edit->facts.duration;
    return unsigned(std::clamp<long long>(position, 0, std::min<long long>(end, UINT_MAX)));
}

/// Takes the player one step towards what is wanted of it; its events make the further ones.
void Session::advance()
{
    const bool wanted = m_edit && editCode() == KestOk;
    if (m_player == Player::Idle && wanted) {
        m_mailbox->filmBegun();
        m_core->setPaused(!m_edit->playing);
        m_core->load(m_edit->file.path);
        m_player = Player::Starting;
        m_playerEdit = m_edit->serial;
    } else if ((m_player == Player::Opening || m_player == Player::Ready) && !playerHasEdit()) {
        m_core->stop();
        m_player = Player::Leaving;
    }
}

int Session::setDraft(StereoSetting setting)
{
    if (!m_edit)
        return KestErrorNoEdit;
    m_filters.setDraft(setting);
    m_mailbox->setSetting(setting);
    return KestOk;
}

int Session::setKept(int fileId, StereoSetting setting)
{
    if (!m_files.count(fileId))
        return KestErrorFileId;
    m_filters.setKept(fileId, setting);
    if (m_filters.hasDraftFor(fileId))
        m_mailbox->setSetting(setting);
    return KestOk;
}

int Session::draft(StereoSetting *setting) const
{
    if (!m_edit)
        return KestErrorNoEdit;
    const auto found = m_filters.draft();
    if (found)
        *setting = *found;
    return found ? KestOk : KestErrorNoFilter;
}

int Session::kept(int fileId, StereoSetting *setting) const
{
    if (!m_files.count(fileId))
        return KestErrorFileId;
    const auto found = m_filters.kept(fileId);
    if (found)
        *setting = *found;
    return found ? KestOk : KestErrorNoFilter;
}
