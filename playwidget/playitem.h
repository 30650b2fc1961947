// PlayItem: one entry of the play list.
// Not here: the list and the selection (playwidget_impl_navigation.cpp).
#pragma once

#include <QString>

struct PlayItem
{
    int fileId;         ///< the host's id of the file in the engine
    QString fileName;   ///< name or path; only its file-name part is shown
    int mode;           ///< 3D mode (tagKest3DMode) last sent to the engine or read from it
    double depth;       ///< 3D depth, likewise
    int savedMode;      ///< 3D mode as the host gave it; never changes
    double savedDepth;  ///< 3D depth as the host gave it; never changes
    bool audioOnly;     ///< has no picture: the music picture stands in

    /// Whether the 3D settings differ from those that the host gave. A NaN differs from anything.
    bool isChanged() const { return !(mode == savedMode && depth == savedDepth); }
};
