// The 3D modes by name: for command line and settings, and for people.
// Not here: what the modes do to a picture.
#pragma once

#include "engine/kest.h"

#include <QStringList>

/// Every name, in the order of the widget's list.
QStringList modeNames();

/// The name of a mode; one without a name, which an engine may still report, as its number.
QString modeName(int mode);

/// The mode of a name; false, with `mode` untouched, when no mode is called so.
bool modeFromName(const QString &name, tagKest3DMode &mode);

/// What people read, in the language of the program; modeName() where there are no words for it.
QString modeLabel(int mode);
