// CVideoWnd: the widget that shows the pictures of an edit.
// Not here: where the pictures come from; a library of the engine's implements these four calls.
#pragma once

#include "engine/kest.h"

#include <QWidget>

class VideoView;

/// Shows the engine's pictures, fitted into its area in their own aspect, on black. An engine finds
/// it through EditBeginParams; it may be destroyed at any time, which ends an edit that still
/// renders into it, without save.
///
/// It declares no virtual function of its own, so that whoever brings another engine has these four
/// functions to write and nothing else. Mouse tracking is on: a mouse move without a button arrives.
///
/// GUI thread only.
class KEST_EXPORT CVideoWnd : public QWidget
{
public:
    struct tagMsgParams
    {
        int command;  ///< 4: empty the view to black; any other is ignored
        int param;    ///< -1 with command 4; not read
        void *reserved0;
        void *reserved1;
    };

    explicit CVideoWnd(QWidget *parent = nullptr, Qt::WindowFlags flags = {});

    /// Carries a command out; see tagMsgParams. A null pointer is ignored.
    void SendCommand(tagMsgParams *params);

    /// Repaints at the next turn of the event loop.
    void UpdateView();

    /// Forgets the last picture of the edit before; called right after KestEditBegin.
    void resetSessionState();

private:
    friend class VideoView;

    VideoView *m_view;  // the implementation's own; a child object of this widget
};
