// The number stands in boxes along the top and the bottom, one for each bit, white for a one.
// Not here: who looks at it.
#include "benchmarks/barcodeclip.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int boxes = 16;
constexpr int bits = 12;
constexpr int always = 15;  // this box is white in each picture, so that black is none of them

QString filters()
{
    QString chain = "[0:v]noise=alls=6:allf=t";
    const auto addBox = [&chain](const QString &place, const QString &colour) {
        for (const char *y : {"0", "ih-108"})
            chain += QString(",drawbox=%1:y=%2:h=108:t=fill:%3").arg(place, y, colour);
    };
    addBox("x=0:w=iw", "color=black");
    addBox(QString("x=%1:w=120").arg(always * 120), "color=white");
    for (int bit = 0; bit < bits; ++bit) {
        addBox(QString("x=%1:w=120").arg(bit * 120),
               QString("color=white:enable='mod(floor(n/%1),2)'").arg(1 << bit));
    }
    return chain + "[v]";
}

/// The number along one row of pixels.
int numberIn(const QImage &shown, int y)
{
    const auto white = [&](int box) {
        return qGreen(shown.pixel((2 * box + 1) * shown.width() / (2 * boxes), y)) > 127;
    };
    int number = 0;
    for (int bit = 0; bit < bits; ++bit)
        number |= int(white(bit)) << bit;
    return white(always) ? number : -1;
}

}  // namespace

QString barcodeClip(int seconds, int framesPerSecond)
{
    const QString path
        = QString("%1/clip-%2fps-%3s.mkv").arg(CLIP_FOLDER).arg(framesPerSecond).arg(seconds);
    if (QFile::exists(path))
        return path;
    std::printf("Making a clip of %d s; the next run has it\n", seconds);
    std::fflush(stdout);
    const QString part = path + ".part";
    const QStringList arguments
        = {"-v",
           "error",
           "-y",
           "-nostdin",
           "-f",
           "lavfi",
           "-i",
           QString("testsrc2=s=1920x1080:r=%1:d=%2").arg(framesPerSecond).arg(seconds),
           "-f",
           "lavfi",
           "-i",
           QString("sine=r=48000:d=%1").arg(seconds),
           "-filter_complex",
           filters(),
           "-map",
           "[v]",
           "-map",
           "1:a",
           "-c:v",
           "libx264",
           "-preset",
           "veryfast",
           "-b:v",
           "6M",
           "-pix_fmt",
           "yuv420p",
           "-g",
           "250",
           "-c:a",
           "aac",
           "-f",
           "matroska",
           part};
    if (QProcess::execute("ffmpeg", arguments) != 0 || !QFile::rename(part, path)) {
        std::fprintf(stderr, "ffmpeg could not make the clip\n");
        std::exit(1);
    }
    return path;
}

int barcodeOf(const QImage &shown)
{
    if (shown.isNull())
        return -1;
    const int top = numberIn(shown, shown.height() / 20);
    const int bottom = numberIn(shown, shown.height() - 1 - shown.height() / 20);
    return top == bottom ? top : -2;
}
