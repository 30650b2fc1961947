// Operating a PlayWidget by keys alone: the setting.
// Not here: the keys of the standard controls, which are Qt's own.
#pragma once

#include "playwidget/playwidget_global.h"

class PlayWidget;

/// Switches keyboard access to the player on or off, at any time. A new player has it on. Null is
/// ignored. GUI thread only.
///
/// While it is on:
/// - Tab and Shift+Tab reach every control in the order in which they stand: the bar over the video
///   with volume, transport and position, then the 3D settings, then OK and Cancel. A host's style
///   sheet that takes the focus from one of them does not keep Tab from it.
/// - The bar is shown for as long as it has the focus that keys brought, as it is while the mouse
///   rests on it. Tab finds it when it is hidden; a click into the picture gives the focus up.
/// - Keys drag the two skinned sliders: the arrow keys by a hundredth of the range, page up and page
///   down by a tenth, Home and End to its ends. What a drag by mouse does when the button is
///   released, such as seeking, happens when the key is released.
/// - A frame stands around the control that was reached by keys. Using the mouse shows none.
///
/// While it is off, focus, keys, bar and painting are as if it did not exist: the skinned sliders
/// take no focus, no frame is painted, and the bar comes and goes with the mouse alone. What
/// assistive technology is told of the controls does not depend on it.
PLAYWIDGET_EXPORT void setKeyboardAccess(PlayWidget *player, bool on);

/// Whether the player has keyboard access; false for null.
PLAYWIDGET_EXPORT bool hasKeyboardAccess(const PlayWidget *player);
