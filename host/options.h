// What the command line asks for.
// Not here: doing it.
#pragma once

#include "engine/kest.h"

#include <QString>
#include <QStringList>

struct Options
{
    QStringList files;                         ///< films, sound files and folders
    QString settingsFile;                      ///< empty: none
    bool json = false;                         ///< print the settings on OK
    tagKest3DMode mode = Kest3DTurnOff;        ///< of every film that has no settings yet
    double depth = 0.0;                        ///< likewise, as a share of the picture's width
    tagKest3DMode hiddenMode = Kest3DTurnOff;  ///< not offered to the user; off hides none
    QString start;                             ///< the film to begin with; empty: the first
    QString audioOutput;                       ///< empty: the system's default
    QString language;                          ///< empty: the system's
    QString screenshot;                        ///< where to write a picture; empty: run for a user
    unsigned int screenshotAt = 0;             ///< ms
    QString exportFolder;                      ///< where films go after OK; empty: nowhere
    bool exportLossless = false;               ///< to the pixel, instead of in H.264
    bool noWindow = false;                     ///< export what the settings say, and quit

    QString answer;  ///< help or version, to be printed instead of anything else
    QString error;   ///< what is wrong with the command line; empty when it is right

    /// Whether a user is there to choose, and to say OK.
    bool hasWindow() const { return screenshot.isEmpty() && !noWindow; }
};

/// Reads the command line, the program's name included. Needs a QCoreApplication.
Options readOptions(const QStringList &arguments);

/// The language alone, which has to be known before the rest can be put into words.
QString readLanguage(const QStringList &arguments);
