// The queue of films, and what is said about it.
// Not here: settings (settings.h), encoding (filmexport.cpp).
#include "host/exportjob.h"

#include "engine/mpv/kest_host.h"
#include "host/filmexport.h"
#include "host/mediaengine.h"
#include "host/modenames.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Export)
};

volatile std::sig_atomic_t stopped = 0;

void stop(int)
{
    stopped = 1;
}

/// How far a film is, in one line that is written over itself.
class Meter
{
public:
    Meter(const QString &name, long long duration)
        : m_name(name)
        , m_duration(duration)
        , m_shown(isatty(STDERR_FILENO) && duration > 0)
    {
        m_clock.start();
    }
    ~Meter()
    {
        if (m_shown)
            std::fputs("\r\033[K", stderr);
    }

    void show(long long time)
    {
        const long long done = qBound(0LL, time * 1000 / qMax(1LL, m_duration), 1000LL);
        if (!m_shown || done == m_done || done == 0)
            return;
        m_done = done;
        const long long left = m_clock.elapsed() * (1000 - done) / done / 1000;
        const QString line = Text::tr("%1: %2 %, %3 s left").arg(m_name).arg(done / 10).arg(left);
        std::fprintf(stderr, "\r\033[K%s", line.toLocal8Bit().constData());
    }

private:
    const QString m_name;
    const long long m_duration;
    const bool m_shown;
    long long m_done = 0;
    QElapsedTimer m_clock;
};

/// Returns why the film failed; empty when it did not.
QString exportOne(MediaEngine &engine, int id, const FilmSettings &film, const ExportOrder &order)
{
    engine.add(id, film.path);
    const MediaFacts facts = engine.examine(id);
    if (!facts.error.isEmpty())
        return facts.error;
    tagKestFilterInfo filter = {};
    filter.type = 17;
    filter.mode = film.mode;
    filter.depth = film.depth;
    (void)KestAddFilter2(engine.handle(), id, 9, &filter);
    FilmOrder one;
    const int code = KestReaderOpen(engine.handle(), id, &one.reader);
    if (code != KestOk)
        return QCoreApplication::translate("Engine", KestErrorText(code));
    const QString name = QFileInfo(film.path).completeBaseName();
    one.source = film.path;
    one.target = QDir(order.folder).filePath(name + '.' + modeName(film.mode) + ".mkv");
    one.mode = film.mode;
    one.lossless = order.lossless;
    Meter meter(QFileInfo(film.path).fileName(), facts.duration);
    const FilmResult result = exportFilm(one, [&meter](long long time) {
        meter.show(time);
        return !stopped;
    });
    if (!result.file.isEmpty())
        std::printf("%s\n", result.file.toLocal8Bit().constData());
    return result.error;
}

}  // namespace

QStringList exportFilms(MediaEngine &engine, const QVector<FilmSettings> &films,
                        const ExportOrder &order)
{
    if (!QDir().mkpath(order.folder))
        return {Text::tr("%1: the folder cannot be made").arg(order.folder)};
    std::signal(SIGINT, stop);
    std::signal(SIGTERM, stop);
    std::signal(SIGXFSZ, SIG_IGN);  // a file that becomes too large is told as any failure
    QStringList failures;
    for (int i = 0; i < films.size() && !stopped; ++i) {
        if (films[i].mode == Kest3DTurnOff)
            continue;
        const QString error = exportOne(engine, -1 - i, films[i], order);
        if (!error.isEmpty())
            failures << films[i].path + QStringLiteral(": ") + error;
    }
    if (stopped)
        failures << Text::tr("the export was stopped");
    return failures;
}
