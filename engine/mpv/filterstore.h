// FilterStore: the 3D settings kept for files and the draft of the open edit.
// Not here: applying a setting, checking file ids; it is pure bookkeeping.
#pragma once

#include "engine/mpv/stereosetting.h"

#include <map>
#include <optional>

/// Settings are stored as they are given, whatever their values.
class FilterStore
{
public:
    /// Starts a draft for a file, as a copy of what is kept for it.
    void begin(int fileId);

    /// Keeps the draft for its file, or drops it. Nothing when no draft was begun.
    void end(bool save);

    /// Sets the draft's setting. Nothing when no draft was begun.
    void setDraft(StereoSetting setting);

    /// Keeps a setting for a file; when that file has the draft, the draft follows.
    void setKept(int fileId, StereoSetting setting);

    /// Forgets what is kept for a file. A draft for it stays, but belongs to no file any more.
    void remove(int fileId);

    bool hasDraftFor(int fileId) const;

    std::optional<StereoSetting> draft() const;
    std::optional<StereoSetting> kept(int fileId) const;

private:
    struct Draft
    {
        std::optional<int> fileId;
        std::optional<StereoSetting> setting;
    };

    std::map<int, StereoSetting> m_kept;
    std::optional<Draft> m_draft;
};
