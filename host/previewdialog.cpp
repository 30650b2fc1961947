// Embedding, from the first line to reading the settings back, and the list beside it.
// Not here: asking where settings go (keepsettings.cpp).
#include "host/previewdialog.h"

#include "host/depth.h"
#include "host/exportdialog.h"
#include "host/filmpane.h"
#include "host/filmview.h"
#include "host/keepsettings.h"
#include "host/mediafiles.h"
#include "host/playertexts.h"
#include "playwidget/playwidget.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStyle>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

constexpr int refreshInterval = 200;  // ms
const QString geometryKey = QStringLiteral("windowGeometry");

void tell(const QString &line)
{
    std::fprintf(stderr, "playwidget-preview: %s\n", line.toLocal8Bit().constData());
}

}  // namespace

PreviewDialog::PreviewDialog(MediaEngine &engine, const Options &options, const Settings &kept)
    : m_engine(engine)
    , m_options(options)
    , m_kept(kept)
    , m_settingsFile(options.settingsFile)
    , m_player(new PlayWidget(this))
    , m_pane(new FilmPane(&m_films, this))
{
    setWindowFlags(windowFlags() | Qt::WindowMinimizeButtonHint);
    setAcceptDrops(true);
    layOut();
    embedPlayer();
    connect(m_pane, &FilmPane::filesWanted, this, &PreviewDialog::open);
    connect(m_pane->view(), &FilmView::chosen, this, &PreviewDialog::select);
    connect(m_pane, &FilmPane::exportWanted, this, &PreviewDialog::exportTo);
    connect(m_pane, &FilmPane::settingsFileWanted, this, [this](const QString &file) {
        m_settingsFile = file;
        m_pane->showSettingsFile(file);
    });
    connect(&m_probe, &FileProbe::examined, this, &PreviewDialog::takeFacts);
    connect(&m_refresh, &QTimer::timeout, this, &PreviewDialog::refresh);
    m_refresh.start(refreshInterval);
    showTitle();
}

PreviewDialog::~PreviewDialog()
{
    m_player->clear();
}

//! [host-embed]
void PreviewDialog::embedPlayer()
{
    setPlayerTexts(*m_player);
    m_player->setFixedSize(m_player->actualSize());
    m_player->initialize(m_engine.handle(), m_options.hiddenMode);
    m_player->setPlayIndex(0);  // there is none yet, which takes the steps to others away
    connect(m_player, &PlayWidget::accepted, this, &QDialog::accept);
    connect(m_player, &PlayWidget::rejected, this, &QDialog::reject);
}
//! [host-embed]

void PreviewDialog::layOut()
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_player);
    layout->addWidget(m_pane, 1);
    m_pane->showSettingsFile(m_settingsFile);
    setFixedHeight(m_player->actualSize().height());
    resize(m_player->actualSize().width() + 320, height());
    restorePlace();
}

/// As it was, except for what would be off the screen, which may be another by now.
void PreviewDialog::restorePlace()
{
    if (!restoreGeometry(QSettings().value(geometryKey).toByteArray()))
        return;
    const QScreen *there = QGuiApplication::screenAt(geometry().center());
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect room = (there ? there : screen())->availableGeometry().adjusted(0, 0, 0, -titleBar);
    resize(qMin(width(), room.width()), height());
    move(qMax(room.left(), qMin(x(), room.right() + 1 - width())),
         qMax(room.top(), qMin(y(), room.bottom() + 1 - height())));
}

void PreviewDialog::open(const QStringList &paths)
{
    QStringList empty;
    const QStringList files = expandFolders(paths, &empty);
    const QString notice
        = empty.isEmpty() ? QString() : tr("No films in %1").arg(empty.join(QStringLiteral(", ")));
    m_pane->showNotice(notice);
    if (!notice.isEmpty())
        tell(notice);
    for (const QString &path : files) {
        const Film *known = m_films.filmByPath(path);
        if (known && (known->isPlayable() || !known->examined))
            continue;
        const int id = m_films.add(startOf(path));
        m_films.forgetFacts(id);
        m_probe.examine(id, path);
    }
}

FilmSettings PreviewDialog::startOf(const QString &path) const
{
    FilmSettings start = {path, m_options.mode, m_options.depth, false};
    if (const FilmSettings *kept = m_kept.find(path))
        start = *kept;
    start.depth = nearestDepth(start.depth);
    return start;
}

void PreviewDialog::takeFacts(int filmId, const MediaFacts &facts)
{
    m_films.setFacts(filmId, facts);
    const Film &film = *m_films.film(filmId);
    if (film.isPlayable())
        addToPlayer(film);
    else
        tell(QStringLiteral("%1: %2").arg(film.path, facts.error));
    if (!m_begun)
        beginIfDue();
}

//! [host-add]
void PreviewDialog::addToPlayer(const Film &film)
{
    m_engine.add(film.id, film.path);
    m_player->addPlayItem(film.id, film.path, film.facts.audioOnly, film.start.mode,
                          film.start.depth);
    m_playList.append(film.id);
}
//! [host-add]

/// Begins with the film that is asked for, or without one with the first that can be played; not
/// before the one behind it is there, because selecting decides whether there is a next one.
void PreviewDialog::beginIfDue()
{
    const QVector<Film> &films = m_films.films();
    const bool complete
        = std::all_of(films.begin(), films.end(), [](const Film &film) { return film.examined; });
    const Film *start = m_films.filmByPath(filmPath(m_options.start));
    const bool startMayCome = start && (!start->examined || start->isPlayable());
    const int first = startMayCome ? start->id : m_playList.value(0);
    const int index = m_playList.indexOf(first);
    if (complete && m_playList.isEmpty())
        Q_EMIT nothingToPlay();
    else if (index >= 0 && (complete || index < m_playList.size() - 1))
        begin(first);
}

void PreviewDialog::begin(int filmId)
{
    m_begun = true;
    m_pane->view()->setCurrentIndex(m_films.indexOf(filmId));
    select(filmId);
    Q_EMIT begun(filmId);
}

//! [host-select]
void PreviewDialog::select(int filmId)
{
    halt();  // a paused player would resume its film whatever is selected
    m_player->setPlayIndex(m_playList.indexOf(filmId));
    refresh();
}

// Hiding makes the player stop; what the user has set by then is put where stopping does not drop it.
void PreviewDialog::halt()
{
    keepCurrent();
    m_player->hide();
    m_player->show();
}

void PreviewDialog::keepCurrent()
{
    bool changed = false;
    int mode = Kest3DTurnOff;
    double depth = 0.0;
    const int index = m_player->playIndex();
    if (m_player->movie3DPropsByIndex(index, changed, mode, depth))
        (void)PlayWidget::setMovie3DPropsDirect(m_engine.handle(), m_playList.at(index), mode,
                                                depth);
}
//! [host-select]

//! [host-read]
// The player does not tell of each change, so the list looks at it now and then.
void PreviewDialog::refresh()
{
    for (const int id : std::as_const(m_playList)) {
        bool changed = false;
        int mode = Kest3DTurnOff;
        double depth = 0.0;
        m_player->movie3DPropsByFileID(id, changed, mode, depth);
        m_films.setSettings(id, mode, depth, changed);
    }
    m_films.setPlaying(m_playList.value(m_player->playIndex()));
    m_pane->setExportEnabled(m_begun && !filmsToExport().isEmpty());
    showTitle();
}
//! [host-read]

void PreviewDialog::showTitle()
{
    const Film *film = m_films.film(m_films.playing());
    const QString program = tr("Preview in 3D");
    setWindowTitle(film ? QStringLiteral("%1 – %2").arg(QFileInfo(film->path).fileName(), program)
                        : program);
}

Settings PreviewDialog::settings() const
{
    Settings settings = m_kept;
    for (const Film &film : m_films.films()) {
        const FilmSettings *kept = m_kept.find(film.path);
        FilmSettings now = film.now;
        if (kept && !now.changed)  // to the digit, whatever the player can show of it
            now = {kept->path, kept->mode, kept->depth, false};
        if (kept || film.isPlayable())
            settings.put(now);
    }
    return settings;
}

QVector<FilmSettings> PreviewDialog::filmsToExport() const
{
    QVector<FilmSettings> films;
    for (const Film &film : m_films.films())
        if (film.facts.error.isEmpty() && !film.facts.audioOnly)
            films.append(film.now);
    return ::filmsToExport(films);
}

void PreviewDialog::exportTo(const QString &folder)
{
    halt();  // its sound would go on behind the export
    refresh();
    ExportDialog(filmsToExport(), {folder, m_options.exportLossless}, this).exec();
    select(m_films.playing());
}

//! [host-errors]
QStringList PreviewDialog::errors() const
{
    QStringList lines = m_player->errorString().split(QStringLiteral("\r\n"));
    lines << m_settingsError;
    lines.removeAll(QString());
    return lines;
}
//! [host-errors]

void PreviewDialog::accept()
{
    refresh();  // up to the last click
    if (keepSettings(this, settings(), m_options, m_settingsFile, m_settingsError))
        QDialog::accept();
}

void PreviewDialog::done(int result)
{
    refresh();
    QSettings().setValue(geometryKey, saveGeometry());
    QDialog::done(result);
}

void PreviewDialog::dragEnterEvent(QDragEnterEvent *event)
{
    if (!filesIn(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void PreviewDialog::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    open(filesIn(*event->mimeData()));
}
