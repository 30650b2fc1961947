// exportOnConsole(): an export that a shell starts, watches and stops.
// Not here: the export (exportjob.h), the one with a window (exportdialog.h).
#pragma once

#include "host/exportjob.h"

/// What it tells on the way.
QString exportLine(const ExportState &state);

/// Blocks. Tells how far it is on standard error where that is a terminal. A StopSignals stops it.
ExportSummary exportOnConsole(MediaEngine &engine, const QVector<FilmSettings> &films,
                              const ExportOrder &order);
