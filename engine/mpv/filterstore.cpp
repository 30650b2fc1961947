// The bookkeeping of 3D settings; see filterstore.h.
// Not here: anything that shows them.
#include "engine/mpv/filterstore.h"

void FilterStore::begin(int fileId)
{
    m_draft = Draft{fileId, kept(fileId)};
}

void FilterStore::end(bool save)
{
    if (save && m_draft && m_draft->fileId && m_draft->setting)
        m_kept[*m_draft->fileId] = *m_draft->setting;
    m_draft.reset();
}

void FilterStore::setDraft(StereoSetting setting)
{
    if (m_draft)
        m_draft->setting = setting;
}

void FilterStore::setKept(int fileId, StereoSetting setting)
{
    m_kept[fileId] = setting;
    if (hasDraftFor(fileId))
        m_draft->setting = setting;
}

void FilterStore::remove(int fileId)
{
    m_kept.erase(fileId);
    if (hasDraftFor(fileId))
        m_draft->fileId.reset();
}

bool FilterStore::hasDraftFor(int fileId) const
{
    return m_draft && m_draft->fileId == fileId;
}

std::optional<StereoSetting> FilterStore::draft() const
{
    return m_draft ? m_draft->setting : std::nullopt;
}

std::optional<StereoSetting> FilterStore::kept(int fileId) const
{
    const auto found = m_kept.find(fileId);
    return found == m_kept.end() ? std::nullopt : std::optional(found->second);
}
