// What the command line asks for.
// Not here: doing it.
#pragma once

#include "engine/kest.h"

#include <QString>
#include <QStringList>

struct Options
{
    QStringList files;
    tagKest3DMode mode = Kest3DTurnOff;        ///< 3D mode that every file starts with
    double depth = 0.0;                        ///< likewise, as a share of the picture's width
    tagKest3DMode hiddenMode = Kest3DTurnOff;  ///< not offered to the user; off hides none
    QString audioOutput;                       ///< empty: the system's default
    QString demoShot;  ///< where to write a picture of the window; empty: run for the user

    QString error;  ///< what is wrong with the command line; empty when it is right
};

/// Reads the application's arguments. Prints and exits by itself for --help and --version.
Options readOptions();
