// RealInput: mouse and keyboard of the X display, as a person's hands would move them.
// Not here: events made up inside the program; what comes from here went through the display.
#pragma once

#include <QCoreApplication>
#include <QPoint>
#include <QProcess>
#include <QStringList>
#include <QTest>

/// Every call returns when the X server has taken the input; the program under test has still to
/// react, so assert with QTRY_.
namespace RealInput {

inline void run(const QStringList &arguments)
{
    QProcess xdotool;
    xdotool.start(QStringLiteral("xdotool"), arguments);
    QTRY_COMPARE(xdotool.state(), QProcess::NotRunning);
    QCOMPARE(xdotool.exitCode(), 0);
}

inline void moveTo(QPoint place)
{
    run({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

inline void click(QPoint place)
{
    moveTo(place);
    run({QStringLiteral("click"), QStringLiteral("1")});
}

/// Presses at one place and releases at another, with a stop half-way.
inline void drag(QPoint from, QPoint to)
{
    moveTo(from);
    run({QStringLiteral("mousedown"), QStringLiteral("1")});
    moveTo((from + to) / 2);
    moveTo(to);
    run({QStringLiteral("mouseup"), QStringLiteral("1")});
}

/// `name` as X calls the key: "Escape", "Down", "Return".
inline void key(const QString &name)
{
    run({QStringLiteral("key"), name});
}

inline void focus(WId window)
{
    run({QStringLiteral("windowfocus"), QString::number(window)});
}

}  // namespace RealInput
