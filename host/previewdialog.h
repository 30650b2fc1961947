// PreviewDialog: the player and the list of films in one window; the model of embedding.
// Not here: what becomes of the settings afterwards (main.cpp).
#pragma once

#include "host/fileprobe.h"
#include "host/filmlist.h"
#include "host/options.h"

#include <QDialog>
#include <QTimer>

class FilmPane;
class PlayWidget;

class PreviewDialog : public QDialog
{
    Q_OBJECT

public:
    /// `kept` are the settings that films start with if they are among them. `engine` must outlive
    /// the dialog.
    PreviewDialog(MediaEngine &engine, const Options &options, const Settings &kept);
    ~PreviewDialog() override;

    /// Lists films, by path; a folder means those in it. Each is looked into first; the first that
    /// can be played plays, or the one of `options.start`.
    void open(const QStringList &paths);

    const FilmList &films() const { return m_films; }
    PlayWidget *player() const { return m_player; }

    /// What was kept, brought up to date by what the user has chosen.
    Settings settings() const;

    /// The films in the list whose 3D is on, as they are shown; without those that are known to be
    /// broken or to hold sound alone.
    QVector<FilmSettings> filmsToExport() const;

    /// What the engine refused, and why OK could not write the settings; empty when all went well.
    QStringList errors() const;

    /// Keeps the settings first; stays open when the user would rather go on.
    void accept() override;
    void done(int result) override;

Q_SIGNALS:
    /// The first film has been selected.
    void begun(int filmId);

    /// All films have been looked into and none can be played.
    void nothingToPlay();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void embedPlayer();
    void layOut();
    void restorePlace();
    FilmSettings startOf(const QString &path) const;
    void takeFacts(int filmId, const MediaFacts &facts);
    void addToPlayer(const Film &film);
    void beginIfDue();
    void begin(int filmId);
    void select(int filmId);
    void keepCurrent();
    void halt();
    void exportTo(const QString &folder);
    void refresh();
    void showTitle();

    MediaEngine &m_engine;
    const Options m_options;
    const Settings m_kept;
    QString m_settingsFile;
    QString m_settingsError;
    FilmList m_films;
    FileProbe m_probe;
    PlayWidget *m_player;
    FilmPane *m_pane;
    QVector<int> m_playList;  // ids of the films that the player has, in its order
    bool m_begun = false;
    QTimer m_refresh;
};
