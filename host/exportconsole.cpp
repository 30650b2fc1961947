// One line that is written over itself.
// Not here: failures, which the program tells like all others.
#include "host/exportconsole.h"

#include "host/stopsignals.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

#include <unistd.h>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Export)
};

void show(const ExportState &state)
{
    const QString line = Text::tr("%1 of %2, %3: %4 %, %5 s left")
                             .arg(state.number)
                             .arg(state.count)
                             .arg(QFileInfo(state.path).fileName())
                             .arg(state.done / 10)
                             .arg(state.left / 1000);
    std::fprintf(stderr, "\r\033[K%s", line.toLocal8Bit().constData());
}

}  // namespace

ExportSummary exportOnConsole(MediaEngine &engine, const QVector<FilmSettings> &films,
                              const ExportOrder &order)
{
    const bool shown = isatty(STDERR_FILENO);
    const auto watch = [shown](const ExportState &state) {
        if (shown)
            show(state);
    };
    const ExportSummary summary = exportFilms(engine, films, order, watch, &StopSignals::arrived);
    if (shown)
        std::fputs("\r\033[K", stderr);
    for (const QString &file : summary.files)
        std::printf("%s\n", file.toLocal8Bit().constData());
    return summary;
}
