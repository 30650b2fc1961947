// PlainPlayer: libmpv by itself, rendering in software, to compare with.
// Not here: our engine.
#pragma once

#include <QImage>
#include <QString>

#include <functional>
#include <memory>

/// Opens the file paused, without sound.
class PlainPlayer
{
public:
    explicit PlainPlayer(const QString &path);
    ~PlainPlayer();

    /// Waits for the player to have a picture, and leaves it there.
    void waitForPicture();

    /// Waits for and renders pictures until one is right.
    void waitForPicture(QSize size, const std::function<bool(const QImage &)> &right);

    void setPaused(bool paused);
    void seek(double seconds);

private:
    struct Player;
    const std::unique_ptr<Player> m_player;
};
