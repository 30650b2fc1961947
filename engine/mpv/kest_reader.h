// openKestReader(): gives a reader the handle that a host knows it by.
// Not here: which film is read, and with which settings (session.h).
#pragma once

#include "engine/mpv/filmreader.h"

/// Returns a KestResult; `reader` is set on success.
int openKestReader(const FilmReader::Film &film, void **reader);
