// PreviewDialog: a dialog of a host's with the widget in it; the model of embedding.
// Not here: which files there are, and what becomes of the settings.
#pragma once

#include "host/mediaengine.h"
#include "host/options.h"

#include <QDialog>

class PlayWidget;

class PreviewDialog : public QDialog
{
    Q_OBJECT

public:
    /// Files that cannot be played are in the list like any other. `engine` must outlive the
    /// dialog.
    PreviewDialog(const MediaEngine &engine, const QVector<MediaFile> &files,
                  const Options &options);

    /// Selects the first file and plays it. Show the dialog first: the engine renders into it.
    void start();

    /// One line for each file: mode, depth, changed or unchanged, path; separated by tabs.
    QString settings() const;

    /// What the engine refused; empty when nothing.
    QString errors() const;

private:
    PlayWidget *m_player;
    QVector<MediaFile> m_files;
};
