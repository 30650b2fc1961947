// FilmDialog: a host's dialog that shows one film and says what the engine refused.
// Not here: opening the engine; the host's program does it once.
#pragma once

#include "playwidget/playwidget.h"

#include <QDialog>

class QLabel;

class FilmDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FilmDialog(void *engine, QWidget *parent = nullptr);

    /// Names the file to the engine and plays it, in 3D as given.
    void openFilm(int fileId, const QString &path, int mode, double depth);

    /// What the user is told below the picture; empty while all is well.
    QString message() const;

    const PlayWidget &player() const { return *m_player; }

private:
    void *m_engine;
    PlayWidget *m_player;
    QLabel *m_message;
};
