// The queue of films, how far it is and how long it will take.
// Not here: settings (settings.h), encoding (filmexport.cpp).
#include "host/exportjob.h"

#include "engine/mpv/kest_host.h"
#include "host/depth.h"
#include "host/filmexport.h"
#include "host/mediaengine.h"
#include "host/modenames.h"
#include "playwidget/playwidget.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Export)
};

/// Counts in the films' own time, so that a long film takes up more of the whole than a short one.
class Progress
{
public:
    Progress(int count, const ExportWatch &watch)
        : m_watch(watch)
    {
        m_state.count = count;
        m_clock.start();
    }

    void expect(long long duration) { m_total += double(duration); }

    void begin(const QString &path)
    {
        m_state.path = path;
        ++m_state.number;
        m_watch(m_state);
    }

    void show(long long time)
    {
        const double share = (m_done + double(time)) / qMax(1.0, m_total);
        const int done = int(qBound(0.0, share, 1.0) * 1000);
        if (m_total == 0 || done <= m_state.done)
            return;
        m_state.done = done;
        m_state.left = m_clock.elapsed() * (1000 - done) / done;
        m_watch(m_state);
    }

    /// What a failed film has left over would have taken no time, and is not counted.
    void end(long long duration, bool failed)
    {
        (failed ? m_total : m_done) += double(failed ? -duration : duration);
    }

private:
    const ExportWatch &m_watch;
    ExportState m_state;
    double m_total = 0;  // ms, of which a file may say any number
    double m_done = 0;   // ms
    QElapsedTimer m_clock;
};

struct Item
{
    FilmSettings film;
    int id = 0;
    MediaFacts facts;
};

/// Without what holds sound alone, which has no 3D whatever its settings say.
QVector<Item> examined(MediaEngine &engine, const QVector<FilmSettings> &films,
                       const ExportStop &stop, ExportSummary &summary)
{
    QVector<Item> items;
    for (int i = 0; i < films.size() && !summary.stopped; ++i) {
        engine.add(i + 1, films[i].path);
        const MediaFacts facts = engine.examine(i + 1);
        if (!facts.audioOnly)
            items.append({films[i], i + 1, facts});
        summary.stopped = stop();
    }
    return items;
}

int openReader(const MediaEngine &engine, const Item &item, void **reader)
{
    (void)PlayWidget::setMovie3DPropsDirect(engine.handle(), item.id, item.film.mode,
                                            nearestDepth(item.film.depth));
    return KestReaderOpen(engine.handle(), item.id, reader);
}

FilmResult exportOne(const MediaEngine &engine, const Item &item, const ExportOrder &order,
                     const FilmProgress &progress)
{
    if (!item.facts.error.isEmpty())
        return {{}, item.facts.error, {}};
    FilmOrder one;
    const int code = openReader(engine, item, &one.reader);
    if (code != KestOk)
        return {{}, QCoreApplication::translate("Engine", KestErrorText(code)), {}};
    const QString name = QFileInfo(item.film.path).completeBaseName();
    one.source = item.film.path;
    one.target = QDir(order.folder).filePath(name + '.' + modeName(item.film.mode) + ".mkv");
    one.mode = item.film.mode;
    one.lossless = order.lossless;
    one.frameRate = item.facts.frameRate;
    return exportFilm(one, progress);
}

void keep(const FilmResult &result, const QString &path, ExportSummary &summary)
{
    if (!result.error.isEmpty())
        summary.failures.append({path, result.error});
    else if (!result.file.isEmpty())
        summary.files << result.file;
    else
        summary.stopped = true;
    for (const QString &text : result.leftOut)
        summary.leftOut.append({path, text});
}

void exportItems(const MediaEngine &engine, const QVector<Item> &items, const ExportOrder &order,
                 Progress &progress, const ExportStop &stop, ExportSummary &summary)
{
    for (const Item &item : items) {
        summary.stopped = summary.stopped || stop();
        if (summary.stopped)
            return;
        progress.begin(item.film.path);
        const FilmResult result = exportOne(engine, item, order, [&](long long time) {
            progress.show(time);
            return !stop();
        });
        keep(result, item.film.path, summary);
        progress.end(item.facts.duration, !result.error.isEmpty());
    }
}

}  // namespace

QVector<FilmSettings> filmsToExport(const QVector<FilmSettings> &films)
{
    QVector<FilmSettings> some;
    std::copy_if(films.begin(), films.end(), std::back_inserter(some),
                 [](const FilmSettings &film) { return film.mode != Kest3DTurnOff; });
    return some;
}

ExportSummary exportFilms(MediaEngine &engine, const QVector<FilmSettings> &films,
                          const ExportOrder &order, const ExportWatch &watch,
                          const ExportStop &stop)
{
    ExportSummary summary;
    if (!QDir().mkpath(order.folder)) {
        summary.failures.append({order.folder, Text::tr("the folder cannot be made")});
        return summary;
    }
    const QVector<FilmSettings> wanted = filmsToExport(films);
    const QVector<Item> items = examined(engine, wanted, stop, summary);
    Progress progress(int(items.size()), watch);
    for (const Item &item : items)
        progress.expect(item.facts.duration);
    exportItems(engine, items, order, progress, stop, summary);
    return summary;
}

static QStringList linesOf(const QVector<ExportRemark> &remarks)
{
    QStringList lines;
    for (const ExportRemark &remark : remarks)
        lines << remark.path + QStringLiteral(": ") + remark.text;
    return lines;
}

QStringList failureLines(const ExportSummary &summary)
{
    QStringList lines = linesOf(summary.failures);
    if (summary.stopped)
        lines << Text::tr("the export was stopped");
    return lines;
}

QStringList leftOutLines(const ExportSummary &summary)
{
    return linesOf(summary.leftOut);
}
