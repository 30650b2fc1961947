// isByKeys(): how the focus came to a control.
// Not here: what follows from it.
#pragma once

#include <Qt>

/// Whether keys brought the focus. Activating a window, a menu and the program itself did not.
inline bool isByKeys(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}
