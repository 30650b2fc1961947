// VideoView: the part of a CVideoWnd that takes frames and paints them.
// Not here: the window itself (engine/videownd.h).
#pragma once

#include "engine/mpv/mailbox.h"
#include "engine/videownd.h"

#include <QObject>

#include <memory>

class QPainter;
class QRegion;

/// Filters the events of its window, as the first filter installed, so that whoever installs one
/// later is asked before it and can take a paint event away. GUI thread only.
class VideoView : public QObject
{
public:
    explicit VideoView(CVideoWnd *window);
    ~VideoView() override;

    static VideoView *of(CVideoWnd *window) { return window->m_view; }

    /// Takes frames from this mailbox from now on.
    void show(const std::shared_ptr<Mailbox> &mailbox);

    /// Black, until a frame comes that was ordered later than now.
    void blank();

    /// Drops the picture of an edit that is over.
    void forget();

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takeFrame();
    void setShown(const Mailbox::Letter &letter);
    void publishArea();
    void paint(const QRegion &exposed);
    void paintBlack(QPainter &painter, const QRegion &exposed) const;
    void paintPicture(QPainter &painter) const;
    QSize area() const;
    QRect place() const;

    CVideoWnd *const m_window;
    std::shared_ptr<Mailbox> m_mailbox;
    Mailbox::Letter m_shown;
    quint64 m_blankedIn = 0;  // frames of this epoch and those before stay unseen
    bool m_visible = false;
};
