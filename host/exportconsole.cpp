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
    std::fprintf(stderr, "\r\033[K%s", exportLine(state).toLocal8Bit().constData());
}

}  // namespace

QString exportLine(const ExportState &state)
{
    // All at once: a name may hold what looks like a place for the next.
    const QString line
        = Text::tr("%1 of %2, %3: %4 %")
              .arg(QString::number(state.number), QString::number(state.count),
                   QFileInfo(state.path).fileName(), QString::number(state.done / 10));
    return state.left == 0 ? line : line + Text::tr(", %1 s left").arg(state.left / 1000);
}

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
    return summary;
}
