// Frame: one picture on its way from the renderer to the screen.
// Not here: anything that makes, changes or shows one.
#pragma once

#include <QImage>

/// Never changed once made: whoever takes a frame shares its pixels.
struct Frame
{
    QImage picture;      ///< Format_RGB32 at the size on screen, in device pixels; null: no picture
    qint64 time = 0;     ///< when it was rendered, ms of a steady clock
    quint64 serial = 0;  ///< counts up with each picture that the player renders
    QImage right = {};  ///< what the right eye sees, where that is another picture of the same size
};
