// A clip of moving pictures and a tone, each picture with its own number in it.
// Not here: playing it.
#pragma once

#include <QImage>
#include <QString>

/// The path of a 1080p clip, made by the ffmpeg program the first time it is asked for and kept
/// beside the benchmarks. H.264 at a film's data rate, a key frame every 250 pictures. Ends the
/// program when there is no ffmpeg.
QString barcodeClip(int seconds, int framesPerSecond);

/// The number of the clip's picture that `shown` is, at any size; -1 where it is none of the clip's,
/// -2 where top and bottom are of different ones.
int barcodeOf(const QImage &shown);
