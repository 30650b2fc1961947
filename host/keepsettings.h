// keepSettings(): puts the settings where they belong when the user says OK.
// Not here: what they are (settings.h).
#pragma once

#include "host/options.h"
#include "host/settings.h"

class QWidget;

/// Writes the settings to `file`. Where that fails, or there is no file and something has changed
/// that nothing else would keep, asks the user, who may name another: `file` then becomes that.
/// False when the user would rather go on. `error` says why they could not be written, when the
/// user has let it rest at that.
bool keepSettings(QWidget *window, const Settings &settings, const Options &options, QString &file,
                  QString &error);
