// AccessibleValues: what a player's sliders and times say to assistive technology.
// Not here: the names of the controls (accessibleplayer.h).
#pragma once

#include <QString>

class PlayWidget_Impl;
class QAccessibleInterface;
class QObject;

class AccessibleValues
{
public:
    /// For AccessibleFactory. Knows, in any player: the position as a time of the film's, the volume
    /// in percent, the depth in the steps that the box beside its slider shows, and the elapsed and
    /// the remaining time in words. Null for everything else.
    static QAccessibleInterface *make(const QString &className, QObject *object);

private:
    static QString position(const PlayWidget_Impl &player);
    static QString volume(const PlayWidget_Impl &player);
};
