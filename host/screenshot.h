// Screenshot: takes the player's picture at a place in its film.
// Not here: the player around it.
#pragma once

#include "engine/kest.h"

#include <QImage>
#include <QObject>
#include <QTimer>

class PlayWidget;

/// The film that the player has is opened once more, paused, in the player's own window, because
/// an edit of ours tells us when it has arrived. Then the picture is taken when it has come to rest.
class Screenshot : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive it.
    Screenshot(void *engine, PlayWidget *player, QObject *parent = nullptr);

    /// Goes to `position` ms in the file, which the player has selected, and takes the picture.
    void take(int fileId, unsigned int position);

Q_SIGNALS:
    /// What the player shows; null when the film did not get there.
    void taken(const QImage &picture);

private:
    static int arrived(tagKestEvent *event, void *screenshot);
    void look();
    void finish(const QImage &picture);

    void *m_engine;
    PlayWidget *m_player;
    bool m_sought = false;
    QTimer m_looks;
    QTimer m_patience;
    QImage m_last;
};
