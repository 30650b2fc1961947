// exportFilms(): every film whose 3D is on, one after the other, into a folder.
// Not here: one film (filmexport.h).
#pragma once

#include "host/settings.h"

#include <QStringList>

class MediaEngine;

struct ExportOrder
{
    QString folder;  ///< made where it does not exist
    bool lossless = false;
};

/// Blocks. Tells how far it is on standard error where that is a terminal, and each finished file on
/// standard output. An interrupt or a request to terminate ends it and leaves no half file. Returns a
/// line for each film that failed, with the reason.
QStringList exportFilms(MediaEngine &engine, const QVector<FilmSettings> &films,
                        const ExportOrder &order);
