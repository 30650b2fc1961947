// exportOnConsole(): an export that a shell starts, watches and stops.
// Not here: the export (exportjob.h), the one with a window (exportdialog.h).
#pragma once

#include "host/exportjob.h"

/// Blocks. Tells how far it is on standard error where that is a terminal, and at the end what was
/// written on standard output. A StopSignals stops it.
ExportSummary exportOnConsole(MediaEngine &engine, const QVector<FilmSettings> &films,
                              const ExportOrder &order);
