// demoShot(): lets the window play by itself for a moment and takes its picture.
// Not here: starting a display for it; the development script does that.
#pragma once

#include <QString>

class QWidget;

/// Moves the mouse over the window, so that the controls are in the picture, waits until some film
/// has played and writes what the screen shows of the window to `file`. Then closes the window,
/// which ends the event loop. A picture that cannot be written ends it with status 3.
void demoShot(QWidget *window, const QString &file);
