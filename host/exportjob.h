// exportFilms(): every film whose 3D is on, one after the other, into a folder.
// Not here: one film (filmexport.h), who is told (exportconsole.h, exportdialog.h).
#pragma once

#include "host/settings.h"

#include <QStringList>

#include <functional>

class MediaEngine;

struct ExportOrder
{
    QString folder;  ///< made where it does not exist
    bool lossless = false;
};

/// How far all films are together.
struct ExportState
{
    QString path;        ///< the film at work
    int number = 0;      ///< its place among the films to be written, from 1
    int count = 0;       ///< how many these are
    int done = 0;        ///< per mille; stays 0 where no film says how long it is
    long long left = 0;  ///< ms; 0: not known yet
};

/// What there is to say of a film.
struct ExportRemark
{
    QString path;
    QString text;
};

struct ExportSummary
{
    QStringList files;  ///< what was written
    QVector<ExportRemark> failures;
    QVector<ExportRemark> leftOut;  ///< of films that were written
    bool stopped = false;           ///< before the last film was written
};

/// Told when the film at work or its per mille has changed; it may take its time only at the cost of
/// the export.
using ExportWatch = std::function<void(const ExportState &state)>;

/// Asked after every picture; true ends the export.
using ExportStop = std::function<bool()>;

/// The films of these whose 3D is on.
QVector<FilmSettings> filmsToExport(const QVector<FilmSettings> &films);

/// Blocks; in the engine's thread. What was stopped or fails leaves no half file.
ExportSummary exportFilms(MediaEngine &engine, const QVector<FilmSettings> &films,
                          const ExportOrder &order, const ExportWatch &watch,
                          const ExportStop &stop);

/// What a user calls a failure: "/films/a.mkv: The file does not exist".
QStringList failureLines(const ExportSummary &summary);

/// The same of what is no failure: "/films/b.mp4: without its subtitles in ...".
QStringList leftOutLines(const ExportSummary &summary);
