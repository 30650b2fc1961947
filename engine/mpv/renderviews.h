// renderViews(): the player's picture as both eyes' views, upright, at a size.
// Not here: composing the two (stereocomposer.h), when it is done (renderthread.h, filmreader.h).
#pragma once

#include "engine/mpv/mailbox.h"
#include "engine/mpv/rendercontext.h"

/// `size` is that of one view after it is turned. Time and serial of the frame are 0.
Frame renderViews(RenderContext &context, QSize size, const PictureShape &shape);
